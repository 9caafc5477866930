#include "history/query/Distribution.h"

#include <cmath>
#include <limits>
#include <numeric>
#include <QTest>

/// Mean, spread, Cpk and bins of numbers, against values worked out by hand.
class tst_Distribution : public QObject
{
    Q_OBJECT

private slots:
    void describes_data();
    void describes();
    void keepsEveryValue_data();
    void keepsEveryValue();
    void capability_data();
    void capability();
    void steps_data();
    void steps();
};

void tst_Distribution::describes_data()
{
    QTest::addColumn<QVector<double>>("values");
    QTest::addColumn<QVector<double>>("summary"); // count, least, most, mean, deviation
    const auto row = [](const char *title, const QVector<double> &values, const QVector<double> &summary) {
        QTest::newRow(title) << values << summary;
    };
    row("none", {}, {0, 0, 0, 0, 0});
    row("one", {3.5}, {1, 3.5, 3.5, 3.5, 0});
    row("two", {1, 3}, {2, 1, 3, 2, std::sqrt(2)});
    row("eight", {2, 4, 4, 4, 5, 5, 7, 9}, {8, 2, 9, 5, std::sqrt(32.0 / 7)});
    row("small spread on a large number", {1e9 + 1, 1e9 + 2, 1e9 + 3}, {3, 1e9 + 1, 1e9 + 3, 1e9 + 2, 1});
    row("what is no number", {1, std::numeric_limits<double>::quiet_NaN(), 3, std::numeric_limits<double>::infinity()},
        {2, 1, 3, 2, std::sqrt(2)});
}

void tst_Distribution::describes()
{
    QFETCH(QVector<double>, values);
    QFETCH(QVector<double>, summary);
    Distribution distribution;
    describe(values, &distribution);
    QCOMPARE(QVector<double>({static_cast<double>(distribution.count), distribution.least, distribution.most,
                              distribution.mean, distribution.deviation}),
             summary);
}

void tst_Distribution::keepsEveryValue_data()
{
    QTest::addColumn<QVector<double>>("values");
    QTest::addColumn<int>("farOff");
    QVector<double> even;
    for (int i = 0; i < 1000; ++i) {
        even.append(i * 0.01);
    }
    QVector<double> withStrays = even;
    withStrays += {1e12, -1e12};
    QTest::newRow("one value") << QVector<double>{7} << 0;
    QTest::newRow("the same value") << QVector<double>{7, 7, 7} << 0;
    QTest::newRow("only zeros") << QVector<double>{0, 0} << 0;
    QTest::newRow("two values") << QVector<double>{-1, 1} << 0;
    QTest::newRow("hardly different") << QVector<double>{1e15, 1e15 + 0.125} << 0;
    QTest::newRow("evenly") << even << 0;
    QTest::newRow("two far off") << withStrays << 2;
    QTest::newRow("the largest numbers") << QVector<double>{-1e308, 1e308} << 0;
}

void tst_Distribution::keepsEveryValue()
{
    QFETCH(QVector<double>, values);
    QFETCH(int, farOff);
    Distribution distribution;
    describe(values, &distribution);
    const qint64 inBins = std::accumulate(distribution.bins.begin(), distribution.bins.end(), qint64{0});
    QCOMPARE(inBins + distribution.below + distribution.above, distribution.count);
    QCOMPARE(distribution.below + distribution.above, static_cast<qint64>(farOff));
    QVERIFY(!distribution.bins.isEmpty() && distribution.bins.size() <= 26);
    QVERIFY(distribution.binWidth > 0);
}

void tst_Distribution::capability_data()
{
    QTest::addColumn<double>("least");
    QTest::addColumn<double>("most");
    QTest::addColumn<double>("deviation");
    QTest::addColumn<double>("cpk"); // no number: none
    const double none = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("in the middle") << 4.0 << 16.0 << 1.0 << 2.0;
    QTest::newRow("nearer to the upper limit") << 1.0 << 13.0 << 1.0 << 1.0;
    QTest::newRow("only a lower limit") << 7.0 << none << 1.0 << 1.0;
    QTest::newRow("only an upper limit") << none << 11.5 << 0.5 << 1.0;
    QTest::newRow("outside") << 11.0 << 13.0 << 1.0 << -1.0 / 3;
    QTest::newRow("no limit") << none << none << 1.0 << none;
    QTest::newRow("no spread") << 4.0 << 16.0 << 0.0 << none;
}

void tst_Distribution::capability()
{
    QFETCH(double, least);
    QFETCH(double, most);
    QFETCH(double, deviation);
    const auto bound = [](double number) { return std::isnan(number) ? std::nullopt : std::optional<double>(number); };
    Distribution distribution;
    distribution.limit = {bound(least), bound(most), {}};
    distribution.mean = 10;
    distribution.deviation = deviation;
    QTEST(cpk(distribution).value_or(std::numeric_limits<double>::quiet_NaN()), "cpk");
}

void tst_Distribution::steps_data()
{
    QTest::addColumn<double>("step");
    QTest::addColumn<double>("rounded");
    const auto row = [](double step, double rounded) {
        QTest::newRow(qPrintable(QString::number(step))) << step << rounded;
    };
    row(1, 1);
    row(1.01, 2);
    row(2, 2);
    row(2.5, 5);
    row(7, 10);
    row(10, 10);
    row(0.03, 0.05);
    row(0.001, 0.001);
    row(1234, 2000);
}

void tst_Distribution::steps()
{
    QFETCH(double, step);
    QTEST(roundStep(step), "rounded");
}

QTEST_APPLESS_MAIN(tst_Distribution)
#include "tst_Distribution.moc"
