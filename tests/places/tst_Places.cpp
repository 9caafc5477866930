#include "places/Places.h"

#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

/// Where the station keeps its things.
class tst_Places : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void folderThatCanBeWrittenTo();
    void folderThatCannotBeWrittenTo_data();
    void folderThatCannotBeWrittenTo();
    void stateFolderOfTheEnvironment_data();
    void stateFolderOfTheEnvironment();
    void thisProgram();

private:
    std::unique_ptr<QTemporaryDir> m_home;
};

void tst_Places::init()
{
    m_home = std::make_unique<QTemporaryDir>();
    qputenv("HOME", QFile::encodeName(m_home->path()));
    qunsetenv("XDG_STATE_HOME");
    qunsetenv("XDG_CONFIG_HOME");
}

void tst_Places::cleanup()
{
    m_home.reset();
}

void tst_Places::folderThatCanBeWrittenTo()
{
    const QTemporaryDir folder;
    const Places places(folder.path());
    QCOMPARE(places.settings(), folder.path() + QStringLiteral("/option.ini"));
    QCOMPARE(places.state(), folder.path());
    QCOMPARE(places.results(), folder.path());
}

void tst_Places::folderThatCannotBeWrittenTo_data()
{
    QTest::addColumn<bool>("exists");
    QTest::newRow("closed to the user") << true;
    QTest::newRow("no such folder") << false;
}

void tst_Places::folderThatCannotBeWrittenTo()
{
    QFETCH(bool, exists);
    const QString folder = m_home->filePath(QStringLiteral("program"));
    if (exists) {
        QVERIFY(QDir().mkpath(folder));
        QVERIFY(QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner));
        if (QFileInfo(folder).isWritable()) {
            QSKIP("root may write everywhere");
        }
    }
    const Places places(folder);
    QCOMPARE(places.settings(), folder + QStringLiteral("/option.ini"));
    QCOMPARE(places.state(), m_home->path() + QStringLiteral("/.local/state/KestDetector"));
    QCOMPARE(places.results(), m_home->path() + QStringLiteral("/Documents/KestDetector"));
}

void tst_Places::stateFolderOfTheEnvironment_data()
{
    QTest::addColumn<QByteArray>("variable");
    QTest::addColumn<QString>("state");
    QTest::newRow("absolute") << QByteArray("/var/lib/line 3") << QStringLiteral("/var/lib/line 3/KestDetector");
    QTest::newRow("ends in a slash") << QByteArray("/var/lib/line/") << QStringLiteral("/var/lib/line/KestDetector");
    QTest::newRow("relative") << QByteArray("state") << QString();
    QTest::newRow("empty") << QByteArray("") << QString();
}

void tst_Places::stateFolderOfTheEnvironment()
{
    QFETCH(QByteArray, variable);
    QFETCH(QString, state);
    qputenv("XDG_STATE_HOME", variable);
    const Places places(m_home->filePath(QStringLiteral("no such folder")));
    QCOMPARE(places.state(), state.isEmpty() ? m_home->path() + QStringLiteral("/.local/state/KestDetector") : state);
}

void tst_Places::thisProgram()
{
    const Places &places = Places::ofProgram();
    QCOMPARE(places.settings(), QCoreApplication::applicationDirPath() + QStringLiteral("/option.ini"));
    QCOMPARE(places.state(), QCoreApplication::applicationDirPath());
    QCOMPARE(places.results(), QCoreApplication::applicationDirPath());
}

QTEST_GUILESS_MAIN(tst_Places)
#include "tst_Places.moc"
