#include "historyui/reader/RunTableModel.h"
#include "lineOfRuns.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

Q_DECLARE_METATYPE(RunFilter)

using Column = RunTableModel::Column;

class tst_RunTableModel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void columns();
    void growsToAllRuns();
    void everyRowIsTheRunOfItsPlace();
    void pageThatIsLookedAtComes();
    void filters_data();
    void filters();
    void exactlyOnePage();
    void rowsStayUntilTheNextOnes();
    void laterRunsDoNotPushRowsDown();

private:
    static constexpr int runs = 3000;
    static constexpr int cameras = 40;

    QTemporaryDir m_folder;
    StoreAddress m_address;
};

namespace {
QString cell(const RunTableModel &model, int row, Column column)
{
    return model.index(row, static_cast<int>(column)).data().toString();
}

void showAll(RunTableModel *model, const RunFilter &filter = {})
{
    QSignalSpy counted(model, &RunTableModel::counted);
    model->show(filter);
    QTRY_VERIFY(!counted.isEmpty() && !model->isCounting());
}
} // namespace

void tst_RunTableModel::initTestCase()
{
    m_address = StoreAddress::file(m_folder.filePath(QStringLiteral("history.sqlite")));
    QCOMPARE(storeLine(m_address.path, 0, runs, cameras), QString());
}

void tst_RunTableModel::columns()
{
    HistoryReader reader(m_address);
    RunTableModel model(&reader);
    RunFilter filter;
    filter.until = QDateTime(QDate(2026, 11, 2), QTime(8, 5), Qt::UTC);
    showAll(&model, filter);
    QCOMPARE(model.rowCount(), 5);
    QStringList heads;
    QStringList cells;
    for (int column = 0; column < model.columnCount(); ++column) {
        heads.append(model.headerData(column, Qt::Horizontal).toString());
        cells.append(model.index(0, column).data().toString());
    }
    QCOMPARE(heads, (QStringList{"Begin", "Outcome", "MAC", "Serial", "Finding", "Station", "Batch", "Firmware",
                                 "Duration", "Operator"}));
    QCOMPARE(cells, (QStringList{"2026-11-02 08:04:00", "Failed", "60:60:1F:00:00:04", "KC000004", "battery.info",
                                 QStringLiteral("左线"), "A", "1.2.3", "2.40 s", QStringLiteral("王芳")}));
    QCOMPARE(cell(model, 3, Column::Outcome), QStringLiteral("Stopped"));
}

void tst_RunTableModel::growsToAllRuns()
{
    HistoryReader reader(m_address);
    RunTableModel model(&reader);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QList<int> counts;
    connect(&model, &RunTableModel::counted, this, [&] { counts.append(model.rowCount()); });
    model.show({});
    QTRY_VERIFY(!counts.isEmpty() && !model.isCounting());
    QCOMPARE(counts.constFirst(), 256); // what is seen first does not wait for the rest
    QCOMPARE(counts.constLast(), runs);
}

void tst_RunTableModel::everyRowIsTheRunOfItsPlace()
{
    HistoryReader reader(m_address);
    RunTableModel model(&reader);
    showAll(&model);
    for (int row = 0; row < runs; row += 101) {
        QTRY_VERIFY(model.run(row));
        QCOMPARE(model.run(row)->id, runOfLine(runs - 1 - row, cameras).id);
    }
    QVERIFY(!model.run(-1));
    QVERIFY(!model.run(runs));
}

void tst_RunTableModel::pageThatIsLookedAtComes()
{
    HistoryReader reader(m_address);
    RunTableModel model(&reader);
    showAll(&model);
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    QCOMPARE(cell(model, 2000, Column::Mac), QString()); // nobody waits for it
    QTRY_COMPARE(changed.count(), 1);
    QCOMPARE(changed.constFirst().at(0).toModelIndex().row(), 1792);
    QCOMPARE(changed.constFirst().at(1).toModelIndex().row(), 2047);
    QCOMPARE(cell(model, 2000, Column::Begin), QStringLiteral("2026-11-03 00:39:00")); // run 999
}

void tst_RunTableModel::filters_data()
{
    QTest::addColumn<RunFilter>("filter");
    QTest::addColumn<int>("rows");
    QTest::addColumn<QString>("firstBegin");

    RunFilter mac;
    mac.mac = QStringLiteral("60601f000007");
    QTest::newRow("camera") << mac << 75 << "2026-11-04 09:27:00";
    RunFilter beginning;
    beginning.mac = QStringLiteral("60:60:1f:00:00:0");
    QTest::newRow("beginning of a MAC address") << beginning << 1200 << "2026-11-04 09:35:00";
    RunFilter serial;
    serial.serial = QStringLiteral("KC00000");
    QTest::newRow("beginning of a serial number") << serial << 750 << "2026-11-04 09:29:00";
    RunFilter failed;
    failed.outcome = Outcome::Failed;
    QTest::newRow("failed") << failed << 600 << "2026-11-04 09:59:00";
    RunFilter item;
    item.item = QStringLiteral("battery.info");
    item.station = QStringLiteral("左线");
    QTest::newRow("an item that failed, at a station") << item << 300 << "2026-11-04 09:54:00";
    RunFilter batch;
    batch.batch = QStringLiteral("A");
    QTest::newRow("batch") << batch << 100 << "2026-11-02 09:39:00";
    RunFilter nobody;
    nobody.mac = QStringLiteral("no such camera");
    QTest::newRow("none") << nobody << 0 << "";
}

void tst_RunTableModel::filters()
{
    QFETCH(const RunFilter, filter);
    QFETCH(const int, rows);
    QFETCH(const QString, firstBegin);
    HistoryReader reader(m_address);
    RunTableModel model(&reader);
    showAll(&model, filter);
    QCOMPARE(model.rowCount(), rows);
    QCOMPARE(cell(model, 0, Column::Begin), firstBegin);
}

void tst_RunTableModel::exactlyOnePage()
{
    HistoryReader reader(m_address);
    RunTableModel model(&reader);
    RunFilter filter;
    filter.until = runOfLine(RunTableModel::pageSize, cameras).begin;
    showAll(&model, filter);
    QCOMPARE(model.rowCount(), 256);
    filter.until = runOfLine(RunTableModel::pageSize + 1, cameras).begin;
    showAll(&model, filter);
    QCOMPARE(model.rowCount(), 257);
    QTRY_VERIFY(model.run(256));
    QCOMPARE(model.run(256)->id, runOfLine(0, cameras).id);
}

void tst_RunTableModel::rowsStayUntilTheNextOnes()
{
    HistoryReader reader(m_address);
    RunTableModel model(&reader);
    showAll(&model);
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    RunFilter filter;
    filter.mac = QStringLiteral("60601f000007");
    model.show(filter);
    QCOMPARE(model.rowCount(), runs);
    filter.mac = QStringLiteral("60601f000008"); // typed before the answer came
    model.show(filter);
    QTRY_COMPARE(model.rowCount(), 75);
    QCOMPARE(reset.count(), 1);
    QCOMPARE(cell(model, 0, Column::Mac), QStringLiteral("60:60:1F:00:00:08"));
}

void tst_RunTableModel::laterRunsDoNotPushRowsDown()
{
    const QString path = m_folder.filePath(QStringLiteral("growing.sqlite"));
    QCOMPARE(storeLine(path, 0, 600, cameras), QString());
    HistoryReader reader(StoreAddress::file(path));
    RunTableModel model(&reader);
    showAll(&model);
    QCOMPARE(storeLine(path, 600, 700, cameras), QString());
    QTRY_VERIFY(model.run(300));
    QCOMPARE(model.run(0)->id, runOfLine(599, cameras).id);
    QCOMPARE(model.run(300)->id, runOfLine(299, cameras).id);
    QCOMPARE(model.rowCount(), 600);
    showAll(&model);
    QCOMPARE(model.rowCount(), 700);
}

QTEST_GUILESS_MAIN(tst_RunTableModel)
#include "tst_RunTableModel.moc"
