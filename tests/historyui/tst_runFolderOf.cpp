#include "historyui/reader/runFolderOf.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

class tst_runFolderOf : public QObject
{
    Q_OBJECT

private slots:
    void finds_data();
    void finds();
};

void tst_runFolderOf::finds_data()
{
    QTest::addColumn<QStringList>("folders");
    QTest::addColumn<QString>("mac");
    QTest::addColumn<QString>("found");

    const QString mac = QStringLiteral("60:60:1F:0A:5F:2A");
    const QString day = QStringLiteral("log/2026-11-21_60601F0A5F2A");
    QTest::newRow("the last run of the day") << QStringList{day} << mac << day;
    QTest::newRow("moved by a later run")
        << QStringList{day, day + QStringLiteral("/14-03-59")} << mac << day + QStringLiteral("/14-03-59");
    QTest::newRow("the log came a moment after the run")
        << QStringList{day + QStringLiteral("/14-04-02")} << mac << day + QStringLiteral("/14-04-02");
    QTest::newRow("of two that were moved, the one whose log is nearer")
        << QStringList{day + QStringLiteral("/14-04-30"), day + QStringLiteral("/14-04-01")} << mac
        << day + QStringLiteral("/14-04-01");
    QTest::newRow("only an earlier run was moved") << QStringList{day + QStringLiteral("/14-03-58")} << mac << day;
    QTest::newRow("only a later run was moved") << QStringList{day + QStringLiteral("/14-05-00")} << mac << day;
    QTest::newRow("the second log of a second")
        << QStringList{day + QStringLiteral("/14-03-59_2")} << mac << day + QStringLiteral("/14-03-59_2");
    QTest::newRow("another day") << QStringList{QStringLiteral("log/2026-11-20_60601F0A5F2A")} << mac << QString();
    QTest::newRow("another camera") << QStringList{QStringLiteral("log/2026-11-21_60601F0A5F2B")} << mac << QString();
    QTest::newRow("no camera") << QStringList{QStringLiteral("log/2026-11-21_")} << QString() << QString();
    QTest::newRow("an address that leads out of the folder")
        << QStringList{QStringLiteral("log/2026-11-21_x"), QStringLiteral("secret")} << QStringLiteral("x/../../secret")
        << QString();
}

void tst_runFolderOf::finds()
{
    QFETCH(const QStringList, folders);
    QFETCH(const QString, mac);
    QFETCH(const QString, found);
    const QTemporaryDir results;
    for (const QString &folder : folders) {
        QVERIFY(QDir(results.path()).mkpath(folder));
    }
    const QDateTime begin(QDate(2026, 11, 21), QTime(14, 3, 20), Qt::OffsetFromUTC, 3600);
    const QDateTime end(QDate(2026, 11, 21), QTime(14, 3, 59, 700), Qt::OffsetFromUTC, 3600);
    QCOMPARE(runFolderOf(results.path(), mac, begin, end),
             found.isEmpty() ? QString() : QStringLiteral("%1/%2").arg(results.path(), found));
}

QTEST_GUILESS_MAIN(tst_runFolderOf)
#include "tst_runFolderOf.moc"
