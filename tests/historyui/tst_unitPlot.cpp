#include "historyui/plots/unitPlot.h"

#include <QTest>

class tst_unitPlot : public QObject
{
    Q_OBJECT

private slots:
    void unit();
};

void tst_unitPlot::unit()
{
    RunSummary passed;
    passed.begin = QDateTime(QDate(2026, 11, 20), QTime(9, 0), Qt::OffsetFromUTC, 8 * 3600);
    passed.outcome = Outcome::Passed;
    RunSummary failed = passed;
    failed.begin = passed.begin.addDays(1);
    failed.outcome = Outcome::Failed;
    failed.failedItems = 2;
    failed.firstFinding = QStringLiteral("lens.link");
    const PlotContent plot = unitPlot({failed, passed});
    QCOMPARE(plot.lines.size(), 2);
    QCOMPARE(plot.lines[0].name, QStringLiteral("Passed"));
    QCOMPARE(plot.lines[1].points[0].up, 2.0);
    QCOMPARE(plot.lines[1].points[0].across, 1795251600000.0); // 09:00, as in the table of the runs
    QCOMPARE(plot.lines[1].points[0].hint, QStringLiteral("2026-11-21 09:00:00: Failed lens.link"));
    QVERIFY(unitPlot({}).isEmpty());
}

QTEST_APPLESS_MAIN(tst_unitPlot)
#include "tst_unitPlot.moc"
