#include "findWidget.h"
#include "historyui/plots/Chart.h"
#include "historyui/window/HistoryWindow.h"
#include "historyui/window/StatisticsView.h"
#include "lineOfRuns.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QTableWidget>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>
#include <QUrl>

class tst_HistoryWindow : public QObject
{
    Q_OBJECT

public slots:
    void noteUrl(const QUrl &url) { m_opened = url.toLocalFile(); }

private slots:
    void initTestCase();
    void cleanupTestCase();
    void opensWithLatestRun();
    void searchesAsSomebodyTypes();
    void filtersAndClears();
    void chosenRunShowsFailuresFirst();
    void runIsCopied();
    void folderIsOneClickAway();
    void unitShowsWhatChanged();
    void opensForCamera();
    void statistics_data();
    void statistics();
    void statisticsOfParts();
    void plotIsZoomedByKeys();
    void plotTellsWhatThePointerStandsOn();
    void plotOfNothingNamesNoDays();
    void pictureIsCopiedAndSaved();
    void everythingHasAName();
    void keyboardReachesEverything();
    void missingStoreIsTold();
    void damagedStoreIsTold();
    void fitsSmallScreen();
    void hostileTextsStayTexts();

private:
    static constexpr int runs = 400;

    StoreAddress line() const { return StoreAddress::file(m_folder.filePath(QStringLiteral("line.sqlite"))); }

    QTemporaryDir m_folder;
    QString m_opened;
};

namespace {
int rows(const HistoryWindow &window)
{
    return find<QTableView>(window, "tvRuns")->model()->rowCount();
}

QString cell(const QTableWidget *table, int row, int column)
{
    return table->item(row, column) == nullptr ? QString() : table->item(row, column)->text();
}

QTableWidget *tableOfRows(const HistoryWindow &window, const char *name, int count)
{
    auto *table = find<QTableWidget>(window, name);
    [&] { QTRY_COMPARE(table->rowCount(), count); }();
    return table;
}

/// A window on a store of the line, shown and filled.
class Opened
{
public:
    explicit Opened(const StoreAddress &store, int expected, const HistoryWindow::Options &options = {})
        : window(store, options)
    {
        window.resize(1024, 700);
        window.show();
        [&] { QTRY_COMPARE(rows(window), expected); }();
    }

    void choose(const char *combo, const QString &text)
    {
        auto *choice = find<QComboBox>(window, combo);
        [&] { QTRY_VERIFY(choice->findText(text) >= 0); }();
        choice->setCurrentText(text);
    }
    void showTab(int tab) { find<QTabWidget>(window, "tabs")->setCurrentIndex(tab); }

    HistoryWindow window;
};
} // namespace

void tst_HistoryWindow::initTestCase()
{
    QCOMPARE(storeLine(line().path, 0, runs), QString());
    QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "noteUrl");
}

void tst_HistoryWindow::cleanupTestCase()
{
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
}

void tst_HistoryWindow::opensWithLatestRun()
{
    Opened opened(line(), runs);
    QTRY_COMPARE(find<QLabel>(opened.window, "lbCount")->text(), QStringLiteral("400 runs"));
    QCOMPARE(find<QLabel>(opened.window, "lbOutcome")->text(), QStringLiteral("Failed"));
    QVERIFY(find<QLabel>(opened.window, "lbRun")->text().contains(QStringLiteral("MAC: 60:60:1F:00:00:27")));
    QVERIFY(!find<QWidget>(opened.window, "banner")->isVisible());
}

void tst_HistoryWindow::searchesAsSomebodyTypes()
{
    Opened opened(line(), runs);
    auto *mac = find<QLineEdit>(opened.window, "edMac");
    QTest::keyClicks(mac, QStringLiteral("60601f00000"));
    QTRY_COMPARE(rows(opened.window), 160); // ...:00 to ...:0F
    QTest::keyClicks(mac, QStringLiteral("3"));
    QTRY_COMPARE(rows(opened.window), 10);
    QTRY_VERIFY(find<QLabel>(opened.window, "lbRun")->text().contains(QStringLiteral("MAC: 60:60:1F:00:00:03")));
    mac->clear();
    QTest::keyClicks(find<QLineEdit>(opened.window, "edSerial"), QStringLiteral("KC00001"));
    QTRY_COMPARE(rows(opened.window), 100);
    QTest::keyClicks(mac, QStringLiteral("nobody"));
    QTRY_COMPARE(rows(opened.window), 0);
    QCOMPARE(find<QLabel>(opened.window, "lbRun")->text(), QStringLiteral("No run is chosen."));
}

void tst_HistoryWindow::filtersAndClears()
{
    Opened opened(line(), runs);
    opened.choose("cbStation", QStringLiteral("左线"));
    QTRY_COMPARE(rows(opened.window), 200);
    opened.choose("cbBatch", QStringLiteral("A"));
    QTRY_COMPARE(rows(opened.window), 50);
    opened.choose("cbOutcome", QStringLiteral("Failed"));
    QTRY_COMPARE(rows(opened.window), 10);
    opened.choose("cbItem", QStringLiteral("lens.link"));
    QTRY_COMPARE(rows(opened.window), 0);
    opened.choose("cbItem", QStringLiteral("battery.info"));
    QTRY_COMPARE(rows(opened.window), 10);
    QTest::mouseClick(find<QPushButton>(opened.window, "btClear"), Qt::LeftButton);
    QTRY_COMPARE(rows(opened.window), runs);
}

void tst_HistoryWindow::chosenRunShowsFailuresFirst()
{
    Opened opened(line(), runs);
    auto *tree = find<QTreeWidget>(opened.window, "twRun");
    QTRY_COMPARE(tree->topLevelItemCount(), 2);
    const QTreeWidgetItem *battery = tree->topLevelItem(0); // ran after the camera, but failed
    QCOMPARE(battery->text(0), QStringLiteral("Battery"));
    QCOMPARE(battery->text(1), QStringLiteral("Failed"));
    const QTreeWidgetItem *info = battery->child(0);
    QCOMPARE(info->text(0), QStringLiteral("battery.info"));
    QCOMPARE(info->text(2), QStringLiteral("获取电池信息成功"));
    const QTreeWidgetItem *voltage = info->child(0); // behind the temperature in the record
    QCOMPARE(voltage->text(0), QStringLiteral("battery.voltage"));
    QCOMPARE(voltage->text(1), QStringLiteral("Outside"));
    QCOMPARE(voltage->text(2), QStringLiteral("4.4 V"));
    QCOMPARE(voltage->text(3), QStringLiteral("3.6..4.35"));
    QCOMPARE(info->child(1)->text(1), QString());
    QCOMPARE(tree->currentItem(), info);
    QCOMPARE(find<QPlainTextEdit>(opened.window, "teDetail")->toPlainText(),
             QStringLiteral("获取电池信息成功\n电池已充满\n电池电压"));

    QTest::keyClick(find<QTableView>(opened.window, "tvRuns"), Qt::Key_Down);
    QTRY_COMPARE(find<QLabel>(opened.window, "lbOutcome")->text(), QStringLiteral("Passed"));
    QTRY_COMPARE(tree->topLevelItemCount(), 2);
    QCOMPARE(tree->topLevelItem(0)->text(0), QStringLiteral("Camera"));
}

void tst_HistoryWindow::runIsCopied()
{
    Opened opened(line(), runs);
    auto *copy = find<QPushButton>(opened.window, "btCopyRun");
    QTRY_VERIFY(copy->isEnabled());
    QTest::mouseClick(copy, Qt::LeftButton);
    const QString text = QApplication::clipboard()->text();
    QVERIFY2(text.startsWith(QStringLiteral("Failed\n2026-11-02 14:39:00 UTC, 2.00 s   MAC: 60:60:1F:00:00:27   ")),
             qUtf8Printable(text));
    QVERIFY2(text.contains(QStringLiteral("\n    battery.voltage\tOutside\t4.4 V\t3.6..4.35\n")), qUtf8Printable(text));

    auto *table = find<QTableView>(opened.window, "tvRuns");
    QApplication::setActiveWindow(&opened.window);
    QVERIFY(QTest::qWaitForWindowActive(&opened.window));
    table->setFocus();
    QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
    QTRY_COMPARE(
        QApplication::clipboard()->text(),
        QStringLiteral("2026-11-02 14:39:00\tFailed\t60:60:1F:00:00:27\tKC000039\tbattery.info\t右线\tB\t1.2.3\t"
                       "2.00 s\t王芳\n"));
}

void tst_HistoryWindow::folderIsOneClickAway()
{
    QVERIFY(QDir(m_folder.path()).mkpath(QStringLiteral("results/log/2026-11-02_60601F000027")));
    HistoryWindow::Options options;
    options.results = m_folder.filePath(QStringLiteral("results"));
    Opened opened(line(), runs, options);
    QTest::mouseClick(find<QPushButton>(opened.window, "btOpenFolder"), Qt::LeftButton);
    QCOMPARE(m_opened, options.results + QStringLiteral("/log/2026-11-02_60601F000027"));
}

void tst_HistoryWindow::unitShowsWhatChanged()
{
    // Camera 0 passed each time, until its last run.
    const QString path = m_folder.filePath(QStringLiteral("unit.sqlite"));
    QCOMPARE(storeLine(path, 0, 5, 1), QString());
    Opened opened(StoreAddress::file(path), 5);
    opened.showTab(1);
    auto *table = tableOfRows(opened.window, "twUnit", 5);
    QCOMPARE(find<QLabel>(opened.window, "lbUnit")->text(), QStringLiteral("60:60:1F:00:00:00: 5 runs"));
    QCOMPARE(cell(table, 0, 1), QStringLiteral("Failed"));
    QCOMPARE(cell(table, 1, 1), QStringLiteral("Passed"));
    QCOMPARE(table->item(0, 1)->foreground().color(), QColor(0xC0, 0x39, 0x2B));
    QCOMPARE(table->item(1, 1)->foreground().color(), QColor(0x2E, 0x7D, 0x32));
    QCOMPARE(find<QLabel>(opened.window, "lbTurn")->text(),
             QStringLiteral("What changed from its last pass (2026-11-02 08:03:00) to its first failure after it "
                            "(2026-11-02 08:04:00):"));
    const auto *changes = find<QTableWidget>(opened.window, "twChanges");
    QStringList changed;
    for (int row = 0; row < changes->rowCount(); ++row) {
        changed.append(cell(changes, row, 0) + QStringLiteral(": ") + cell(changes, row, 1) + QStringLiteral(" > ") +
                       cell(changes, row, 2));
    }
    QVERIFY2(changed.contains(QStringLiteral("battery.info/battery.voltage: 3.83 V (3.6..4.35) > 4.4 V (3.6..4.35)")),
             qUtf8Printable(changed.join(QLatin1Char('\n'))));

    // A run that is chosen here is shown as one that is chosen in the list.
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, table->visualItemRect(table->item(3, 0)).center());
    opened.showTab(0);
    QTRY_COMPARE(find<QLabel>(opened.window, "lbOutcome")->text(), QStringLiteral("Stopped"));
}

void tst_HistoryWindow::opensForCamera()
{
    HistoryWindow::Options options;
    options.mac = QStringLiteral("60:60:1F:00:00:07");
    Opened opened(line(), 10, options);
    QCOMPARE(find<QLineEdit>(opened.window, "edMac")->text(), options.mac);
    QCOMPARE(find<QTabWidget>(opened.window, "tabs")->currentIndex(), 1);
    tableOfRows(opened.window, "twUnit", 10);
}

void tst_HistoryWindow::statistics_data()
{
    QTest::addColumn<QString>("plot");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QStringList>("firstRow");

    QTest::newRow("yield") << "Yield by day"
                           << "Yield by day" << QStringList{"2026-11-02", "400", "312", "80", "40", "80.0 %", "80.0 %"};
    QTest::newRow("failures") << "Failures by item"
                              << "Failures by item" << QStringList{"battery.info", "400", "80", "0", "20.0 %"};
    QTest::newRow("duration") << "Duration of runs"
                              << "Duration of runs by day" << QStringList{"2026-11-02", "400", "2.29925"};
}

void tst_HistoryWindow::statistics()
{
    QFETCH(const QString, plot);
    QFETCH(const QString, title);
    QFETCH(const QStringList, firstRow);
    Opened opened(line(), runs);
    opened.showTab(2);
    opened.choose("cbPlot", plot);
    auto *table = tableOfRows(opened.window, "twStatistics", 1);
    QTRY_COMPARE(table->columnCount(), firstRow.size());
    QStringList cells;
    for (int column = 0; column < table->columnCount(); ++column) {
        cells.append(cell(table, 0, column));
    }
    QCOMPARE(cells, firstRow);
    QCOMPARE(find<QWidget>(opened.window, "chart")->accessibleName(), title);
    QCOMPARE(find<QLabel>(opened.window, "lbFigures")->text(),
             QStringLiteral("400 runs (312 passed, 80 failed, 8 stopped, 0 errors) of 40 cameras. "
                            "First-pass yield 80.0 %, final yield 80.0 %"));
}

void tst_HistoryWindow::statisticsOfParts()
{
    Opened opened(line(), runs);
    opened.showTab(2);
    opened.choose("cbPlot", QStringLiteral("Measurement"));
    opened.choose("cbSplit", QStringLiteral("Batch"));
    auto *measurement = find<QComboBox>(opened.window, "cbMeasurement");
    QTRY_COMPARE(measurement->count(), 2);
    measurement->setCurrentText(QStringLiteral("battery.voltage (battery.info)"));
    auto *table = find<QTableWidget>(opened.window, "twStatistics");
    QTRY_COMPARE(cell(table, 0, 4), QStringLiteral("4.4"));
    QCOMPARE(cell(table, 0, 0), QStringLiteral("B"));
    QCOMPARE(cell(table, 0, 1), QStringLiteral("300"));
    QCOMPARE(cell(table, 0, 2), QStringLiteral("60")); // outside
    QCOMPARE(cell(table, 1, 0), QStringLiteral("A"));
    QCOMPARE(cell(table, 1, 1), QStringLiteral("100"));
    QCOMPARE(cell(table, 1, 7), QStringLiteral("3.6"));
    QCOMPARE(cell(table, 1, 8), QStringLiteral("4.35"));
    opened.choose("cbStation", QStringLiteral("右线"));
    QTRY_COMPARE(cell(table, 0, 1), QStringLiteral("150"));
    auto *note = find<QLabel>(opened.window, "lbNote");
    QVERIFY(!note->isVisible());
    opened.choose("cbOutcome", QStringLiteral("Failed"));
    QVERIFY(note->isVisible());
    QCOMPARE(note->text(), QStringLiteral("MAC, serial, outcome and finding do not count here."));
}

void tst_HistoryWindow::plotIsZoomedByKeys()
{
    if (!Chart::canDraw()) {
        QSKIP("Built without plots");
    }
    Opened opened(line(), runs);
    opened.showTab(2);
    opened.choose("cbPlot", QStringLiteral("Measurement"));
    auto *chart = dynamic_cast<Chart *>(find<QWidget>(opened.window, "chart"));
    QVERIFY(chart != nullptr);
    QTRY_COMPARE(chart->accessibleName(), QStringLiteral("battery.temperature in battery.info"));
    const auto width = [chart] { return chart->range().second - chart->range().first; };
    const QPair<double, double> whole = chart->range();
    QTest::keyClick(chart, Qt::Key_Plus);
    QVERIFY(qAbs(width() - (whole.second - whole.first) / 1.5) < 1e-9);
    const double left = chart->range().first;
    QTest::keyClick(chart, Qt::Key_Left);
    QVERIFY(chart->range().first < left);
    for (int i = 0; i < 10; ++i) {
        QTest::keyClick(chart, Qt::Key_Right);
    }
    QCOMPARE(chart->range().second, whole.second); // no farther than there is something
    QTest::keyClick(chart, Qt::Key_Minus);
    QTest::keyClick(chart, Qt::Key_Minus);
    QCOMPARE(chart->range(), whole);
    QTest::keyClick(chart, Qt::Key_Plus);
    QTest::keyClick(chart, Qt::Key_0);
    QCOMPARE(chart->range(), whole);
}

void tst_HistoryWindow::plotTellsWhatThePointerStandsOn()
{
    if (!Chart::canDraw()) {
        QSKIP("Built without plots");
    }
    Opened opened(line(), runs);
    opened.showTab(2);
    opened.choose("cbPlot", QStringLiteral("Failures by item"));
    auto *chart = dynamic_cast<Chart *>(find<QWidget>(opened.window, "chart"));
    QVERIFY(chart != nullptr);
    QTRY_COMPARE(chart->accessibleName(), QStringLiteral("Failures by item"));
    QSet<QString> hints;
    for (int x = 0; x < chart->width(); ++x) {
        hints.insert(chart->hintAt(QPoint(x, chart->height() / 2)));
    }
    QCOMPARE(hints, (QSet<QString>{QString(), QStringLiteral("battery.info: failed in 80 of 400 runs")}));
}

void tst_HistoryWindow::plotOfNothingNamesNoDays()
{
    if (!Chart::canDraw()) {
        QSKIP("Built without plots");
    }
    PlotContent days;
    days.scale = PlotContent::Scale::Days;
    PlotContent filled = days;
    filled.lines = {{}};
    constexpr double day = 2461367; // 22 November 2026
    filled.lines[0].points = {{day, 1, QString()}};
    Chart chart;
    chart.show(days);
    chart.QWidget::show();
    const auto *scale = find<QWidget>(chart, "QwtPlotAxisXBottom");
    QVERIFY(!scale->isVisible());
    chart.show(filled);
    QVERIFY(scale->isVisible());
    chart.show(days);
    QVERIFY(!scale->isVisible());
}

void tst_HistoryWindow::pictureIsCopiedAndSaved()
{
    if (!Chart::canDraw()) {
        QSKIP("Built without plots");
    }
    Opened opened(line(), runs);
    opened.showTab(2);
    tableOfRows(opened.window, "twStatistics", 1);
    auto *chart = find<QWidget>(opened.window, "chart");
    QTest::mouseClick(find<QPushButton>(opened.window, "btCopyPicture"), Qt::LeftButton);
    const QImage copied = QApplication::clipboard()->image();
    QCOMPARE(copied.size(), chart->size());
    const QString path = m_folder.filePath(QStringLiteral("plot.png"));
    const auto views = opened.window.findChildren<StatisticsView *>();
    QCOMPARE(views.size(), 1);
    QCOMPARE(views.constFirst()->writePicture(path), QString());
    const QImage saved(path);
    QCOMPARE(saved.size(), QSize(1600, 900));
    QImage white(saved.size(), saved.format());
    white.fill(Qt::white);
    QVERIFY(saved != white);
    QVERIFY(!views.constFirst()->writePicture(m_folder.filePath(QStringLiteral("no such folder/plot.png"))).isEmpty());
}

void tst_HistoryWindow::everythingHasAName()
{
    Opened opened(line(), runs);
    for (int tab = 0; tab < 3; ++tab) {
        opened.showTab(tab);
        tableOfRows(opened.window, "twStatistics", tab == 2 ? 1 : 0);
        const QList<QWidget *> widgets = opened.window.findChildren<QWidget *>();
        for (const QWidget *widget : widgets) {
            const bool isField = qobject_cast<const QComboBox *>(widget) != nullptr ||
                                 qobject_cast<const QAbstractItemView *>(widget) != nullptr ||
                                 qobject_cast<const QPlainTextEdit *>(widget) != nullptr ||
                                 dynamic_cast<const Chart *>(widget) != nullptr ||
                                 (qobject_cast<const QLineEdit *>(widget) != nullptr &&
                                  !widget->objectName().startsWith(QLatin1String("qt_")));
            if (isField && widget->isVisible() && !widget->objectName().isEmpty()) {
                QVERIFY2(!widget->accessibleName().isEmpty(), qUtf8Printable(widget->objectName()));
            }
        }
    }
}

void tst_HistoryWindow::keyboardReachesEverything()
{
    Opened opened(line(), runs);
    QApplication::setActiveWindow(&opened.window);
    QVERIFY(QTest::qWaitForWindowActive(&opened.window));
    QTest::keyClick(&opened.window, Qt::Key_F, Qt::ControlModifier);
    QTRY_COMPARE(QApplication::focusWidget(), find<QWidget>(opened.window, "edMac"));
    QTest::keyClick(&opened.window, Qt::Key_3, Qt::ControlModifier);
    QTRY_COMPARE(find<QTabWidget>(opened.window, "tabs")->currentIndex(), 2);
    QSet<QString> reached;
    for (int i = 0; i < 40; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        reached.insert(QApplication::focusWidget()->objectName());
    }
    const QStringList wanted = {"edMac",   "edSerial",   "cbOutcome", "cbItem", "btClear", "cbPeriod",    "cbStation",
                                "cbBatch", "cbFirmware", "tvRuns",    "cbPlot", "cbSplit", "twStatistics"};
    for (const QString &name : wanted) {
        QVERIFY2(reached.contains(name), qUtf8Printable(name));
    }
    QCOMPARE(reached.contains(QStringLiteral("chart")), Chart::canDraw());
}

void tst_HistoryWindow::missingStoreIsTold()
{
    const QString path = m_folder.filePath(QStringLiteral("later.sqlite"));
    HistoryWindow window(StoreAddress::file(path), {});
    window.show();
    auto *banner = find<QWidget>(window, "banner");
    QTRY_VERIFY(banner->isVisible());
    const QString text = find<QLabel>(window, "lbTrouble")->text();
    QVERIFY2(text.contains(path), qUtf8Printable(text));
    // Dark red on pale red, which nothing else in the window is.
    const QImage picture = banner->grab().toImage();
    QCOMPARE(picture.pixelColor(4, 4), QColor(0xFD, 0xEC, 0xEA));
    QCOMPARE(find<QLabel>(window, "lbTrouble")->palette().color(QPalette::WindowText), QColor(0x7A, 0x1C, 0x12));
    QCOMPARE(storeLine(path, 0, 7), QString());
    QTest::mouseClick(find<QPushButton>(window, "btRetry"), Qt::LeftButton);
    QTRY_COMPARE(rows(window), 7);
    QTRY_VERIFY(!banner->isVisible());
}

void tst_HistoryWindow::damagedStoreIsTold()
{
    const QString path = m_folder.filePath(QStringLiteral("damaged.sqlite"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(8192, 'x'));
    file.close();
    HistoryWindow window(StoreAddress::file(path), {});
    window.show();
    QTRY_VERIFY(find<QWidget>(window, "banner")->isVisible());
    QVERIFY(find<QLabel>(window, "lbTrouble")->text().contains(path));
    QCOMPARE(rows(window), 0);
}

void tst_HistoryWindow::fitsSmallScreen()
{
    Opened opened(line(), runs);
    for (int tab = 0; tab < 3; ++tab) {
        opened.showTab(tab);
        opened.window.resize(800, 600);
        QCoreApplication::processEvents();
        QCOMPARE(opened.window.size(), QSize(800, 600));
    }
    opened.choose("cbPeriod", QStringLiteral("From … to …"));
    QCoreApplication::processEvents();
    QCOMPARE(opened.window.size(), QSize(800, 600));
}

void tst_HistoryWindow::hostileTextsStayTexts()
{
    const QString hostile = QStringLiteral("<img src=x><b>恶意</b> & \"'");
    const QString path = m_folder.filePath(QStringLiteral("hostile.sqlite"));
    RunRecord run = runOfLine(4);
    run.station.name = hostile;
    run.operatorName = hostile;
    run.components[1].items[1].message = hostile;
    StoreError error;
    {
        const std::unique_ptr<Store> store = Store::open(StoreAddress::file(path), {}, &error);
        QVERIFY2(store, qUtf8Printable(error.text));
        QVERIFY(store->insert({runRows(run)}, false));
    }
    Opened opened(StoreAddress::file(path), 1);
    auto *head = find<QLabel>(opened.window, "lbRun");
    QTRY_VERIFY(head->text().contains(hostile));
    QCOMPARE(head->textFormat(), Qt::PlainText);
    auto *detail = find<QPlainTextEdit>(opened.window, "teDetail");
    QTRY_VERIFY(detail->toPlainText().startsWith(hostile));
    opened.choose("cbStation", hostile);
    QTRY_COMPARE(rows(opened.window), 1);
}

QTEST_MAIN(tst_HistoryWindow)
#include "tst_HistoryWindow.moc"
