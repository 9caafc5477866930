#include "history/query/Statistics.h"

#include <QTest>

/// Yields, the order of what fails, and days that are put together.
class tst_Statistics : public QObject
{
    Q_OBJECT

private slots:
    void yields();
    void sortsWhatFails();
    void groupsDays_data();
    void groupsDays();
};

namespace {
QString shareText(const std::optional<double> &share)
{
    return share ? QString::number(*share) : QStringLiteral("none");
}

RunGroup dayWithRuns(const QDate &day, qint64 runs)
{
    RunGroup group{day.toString(Qt::ISODate), {}};
    group.sums.runs = runs;
    return group;
}
} // namespace

void tst_Statistics::yields()
{
    TallySums sums;
    sums.runs = 10;
    QCOMPARE(shareText(firstPassYield(sums)), QStringLiteral("none"));
    QCOMPARE(shareText(finalYield(sums)), QStringLiteral("none"));
    sums.cameras = 4;
    sums.firstPassed = 2;
    sums.finalPassed = 3;
    QCOMPARE(shareText(firstPassYield(sums)), QStringLiteral("0.5"));
    QCOMPARE(shareText(finalYield(sums)), QStringLiteral("0.75"));
}

void tst_Statistics::sortsWhatFails()
{
    QList<ItemGroup> items = {{QStringLiteral("b"), {10, 1, 0}},
                              {QStringLiteral("d"), {10, 0, 5}},
                              {QStringLiteral("a"), {10, 1, 0}},
                              {QStringLiteral("c"), {10, 1, 2}},
                              {QStringLiteral("e"), {10, 7, 0}}};
    sortByFailures(&items);
    QString order;
    for (const ItemGroup &item : qAsConst(items)) {
        order += item.item;
    }
    QCOMPARE(order, QStringLiteral("ecabd"));
}

void tst_Statistics::groupsDays_data()
{
    QTest::addColumn<QDate>("last");
    QTest::addColumn<int>("groups");
    QTest::addColumn<QString>("second");
    QTest::addColumn<qint64>("runsOfSecond");
    QTest::newRow("one day") << QDate(2026, 1, 1) << 1 << QString() << qint64{0};
    QTest::newRow("a quarter, as it is") << QDate(2026, 4, 2) << 92 << QStringLiteral("2026-01-02") << qint64{2};
    // 2026-01-01 is a Thursday; the first week has four days of it.
    QTest::newRow("weeks") << QDate(2026, 4, 3) << 14 << QStringLiteral("2026-01-05") << qint64{14};
    QTest::newRow("four weeks") << QDate(2028, 1, 3) << 27 << QStringLiteral("2026-01-19") << qint64{56};
}

void tst_Statistics::groupsDays()
{
    QFETCH(QDate, last);
    QFETCH(int, groups);
    QFETCH(QString, second);
    QFETCH(qint64, runsOfSecond);
    QList<RunGroup> days;
    for (QDate day(2026, 1, 1); day <= last; day = day.addDays(1)) {
        days.append(dayWithRuns(day, 2));
    }
    const QList<RunGroup> grouped = groupDays(days);
    QCOMPARE(grouped.size(), groups);
    QCOMPARE(grouped.value(1).name, second);
    QCOMPARE(grouped.value(1).sums.runs, runsOfSecond);
    qint64 runs = 0;
    for (const RunGroup &group : grouped) {
        runs += group.sums.runs;
    }
    QCOMPARE(runs, qint64{2} * days.size());
    QCOMPARE(groupDays({}).size(), 0);
}

QTEST_APPLESS_MAIN(tst_Statistics)
#include "tst_Statistics.moc"
