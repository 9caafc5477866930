#include "app/station/StationHistory.h"
#include "detector/run/KestDetectorRt.h"
#include "detector/store/KestDetectorFace.h"
#include "exampleRecord.h"
#include "language/Language.h"
#include "ui/window/KestDetectorUI.h"

#include <memory>
#include <QAction>
#include <QCoreApplication>
#include <QFile>
#include <QLabel>
#include <QLocale>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>

using Face = KestDetectorFace;

Q_DECLARE_METATYPE(Language)

/// What the station tells of the camera's history, with the real store, and a camera and runs that are only told of.
class tst_StationHistory : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void withoutHistory();
    void toolTipOfTheCamera_data();
    void toolTipOfTheCamera();
    void toolTipGoesWithTheCamera();
    void opensItsWindow_data();
    void opensItsWindow();
    void windowThatIsNotThere();

private:
    void openWindow();
    static QString historyProgram() { return QCoreApplication::applicationDirPath() + QStringLiteral("/KestHistory"); }
    QString toolTip() const { return m_window->findChild<QLabel *>(QStringLiteral("lbMacAddress"))->toolTip(); }
    static void cameraComes(const QString &mac) { emit Face::Get()->signal_setMacAddress(mac); }
    static void runEnds(const QString &mac, const QDateTime &begin, Outcome outcome);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<KestDetectorUI> m_window;
};

namespace {
const QString camera = QStringLiteral("AA:BB:CC:DD:EE:01");
const QString otherCamera = QStringLiteral("AA:BB:CC:DD:EE:02");

QDateTime minute(int number)
{
    return QDateTime(QDate(2026, 11, 20), QTime(14, number));
}

/// As people write it where the station stands.
QString written(const QDateTime &moment)
{
    return QLocale().toString(moment, QLocale::ShortFormat);
}
} // namespace

void tst_StationHistory::initTestCase()
{
    qRegisterMetaType<QList<checkLog>>("QList<checkLog>");
    qRegisterMetaType<checkLog>("checkLog");
    KestDetectorRt::Get();
}

void tst_StationHistory::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    openWindow();
}

/// It reads the settings, and there are none yet.
void tst_StationHistory::openWindow()
{
    m_window = std::make_unique<KestDetectorUI>();
    Settings settings;
    settings.historyFile = m_folder->filePath(QStringLiteral("history.sqlite"));
    Face::Get()->setSettings(settings);
    Face::Get()->savePath = m_folder->path();
}

void tst_StationHistory::cleanup()
{
    m_window.reset();
    QFile::remove(historyProgram());
    installLanguage(*QCoreApplication::instance(), Language::AsWritten);
    qDeleteAll(QCoreApplication::instance()->findChildren<QTranslator *>());
    Face::Get()->notices.withdraw(Notice::Kind::History);
}

void tst_StationHistory::runEnds(const QString &mac, const QDateTime &begin, Outcome outcome)
{
    RunRecord run = exampleRecord();
    run.id = QUuid::createUuid();
    run.camera.mac = mac;
    run.begin = begin;
    run.end = begin.addSecs(2);
    run.outcome = outcome;
    emit KestDetectorRt::Get()->signal_runRecorded(run);
}

void tst_StationHistory::withoutHistory()
{
    Face::Get()->setSettings(Settings());
    QVERIFY(StationHistory::begin(m_window.get()) == nullptr);
    QVERIFY(m_window->actions().isEmpty());
    cameraComes(camera);
    QCOMPARE(toolTip(), QString());
}

void tst_StationHistory::toolTipOfTheCamera_data()
{
    QTest::addColumn<int>("outcome");
    QTest::addColumn<QString>("words");
    const auto row = [](const char *title, Outcome outcome, const char *words) {
        QTest::newRow(title) << static_cast<int>(outcome) << QString::fromLatin1(words);
    };
    row("passed", Outcome::Passed, "passed");
    row("failed", Outcome::Failed, "failed");
    row("stopped", Outcome::Stopped, "stopped");
    row("came to no verdict", Outcome::Error, "without a verdict");
}

void tst_StationHistory::toolTipOfTheCamera()
{
    QFETCH(const int, outcome);
    QFETCH(const QString, words);
    const std::unique_ptr<StationHistory> history = StationHistory::begin(m_window.get());
    QVERIFY(history != nullptr);
    cameraComes(camera);
    QTRY_COMPARE(toolTip(), QStringLiteral("Not tested before"));
    runEnds(camera, minute(1), Outcome::Passed);
    QTRY_COMPARE(toolTip(), QStringLiteral("Runs so far: 1\nThe last one: %1, passed").arg(written(minute(1))));
    runEnds(camera, minute(2), static_cast<Outcome>(outcome));
    QTRY_COMPARE(toolTip(), QStringLiteral("Runs so far: 2\nThe last one: %1, %2").arg(written(minute(2)), words));
}

void tst_StationHistory::toolTipGoesWithTheCamera()
{
    const QString once = QStringLiteral("Runs so far: 1\nThe last one: %1, failed").arg(written(minute(1)));
    {
        const std::unique_ptr<StationHistory> history = StationHistory::begin(m_window.get());
        QVERIFY(history != nullptr);
        cameraComes(camera);
        runEnds(camera, minute(1), Outcome::Failed);
        QTRY_COMPARE(toolTip(), once);
        cameraComes(otherCamera);
        QTRY_COMPARE(toolTip(), QStringLiteral("Not tested before"));
        cameraComes({}); // its address is read again
        QCOMPARE(toolTip(), QStringLiteral("Not tested before"));
        cameraComes(camera);
        QTRY_COMPARE(toolTip(), once);
    }
    // The next start of the station finds what was kept.
    openWindow();
    const std::unique_ptr<StationHistory> history = StationHistory::begin(m_window.get());
    cameraComes(camera);
    QTRY_COMPARE(toolTip(), once);
}

void tst_StationHistory::opensItsWindow_data()
{
    QTest::addColumn<QString>("mac");
    QTest::addColumn<Language>("language");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("arguments"); // before those of the folder
    QTest::addColumn<QStringList>("moreArguments");
    const QStringList ofCamera{"--mac", "AA:BB:CC:DD:EE:01"};
    QTest::newRow("of the camera") << camera << Language::AsWritten << "History of this camera" << ofCamera
                                   << QStringList();
    QTest::newRow("before there is a camera")
        << QString() << Language::AsWritten << "History of this camera" << QStringList() << QStringList();
    QTest::newRow("in the station's language")
        << camera << Language::Chinese << "此相机的检测历史" << ofCamera << QStringList{"--language", "zh_CN"};
}

void tst_StationHistory::opensItsWindow()
{
    QFETCH(const QString, mac);
    QFETCH(const Language, language);
    QFETCH(const QString, text);
    QFETCH(QStringList, arguments);
    QFETCH(const QStringList, moreArguments);
    installLanguage(*QCoreApplication::instance(), language);
    // A program in its place that notes what it was called with, all at once.
    const QString noted = m_folder->filePath(QStringLiteral("arguments"));
    {
        QFile program(historyProgram());
        QVERIFY(program.open(QIODevice::WriteOnly));
        program.write(
            QStringLiteral("#!/bin/sh\nprintf '%s\\n' \"$@\" >'%1.part'\nmv '%1.part' '%1'\n").arg(noted).toUtf8());
        QVERIFY(program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }
    const std::unique_ptr<StationHistory> history = StationHistory::begin(m_window.get());
    QVERIFY(history != nullptr);
    cameraComes(mac);
    auto *action = m_window->findChild<QAction *>(QStringLiteral("actionHistory"));
    QVERIFY(action != nullptr);
    QCOMPARE(action->text(), text);
    QCOMPARE(action->shortcut(), QKeySequence(QStringLiteral("Ctrl+H")));
    QVERIFY(m_window->actions().contains(action)); // the context menu shows these
    action->trigger();
    QTRY_VERIFY(QFile::exists(noted));
    QFile file(noted);
    QVERIFY(file.open(QIODevice::ReadOnly));
    arguments += {QStringLiteral("--results"), m_folder->path()};
    arguments += moreArguments;
    QCOMPARE(QString::fromUtf8(file.readAll()), arguments.join(QLatin1Char('\n')) + QLatin1Char('\n'));
}

void tst_StationHistory::windowThatIsNotThere()
{
    const std::unique_ptr<StationHistory> history = StationHistory::begin(m_window.get());
    QVERIFY(history != nullptr);
    m_window->findChild<QAction *>(QStringLiteral("actionHistory"))->trigger();
    QStringList told;
    const QList<Notice> notices = Face::Get()->notices.current();
    for (const Notice &notice : notices) {
        if (notice.kind == Notice::Kind::History) {
            told.append(notice.text);
        }
    }
    QCOMPARE(told, QStringList(QStringLiteral("history: %1 cannot be started").arg(historyProgram())));
}

QTEST_MAIN(tst_StationHistory)
#include "tst_StationHistory.moc"
