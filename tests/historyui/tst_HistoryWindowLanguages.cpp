#include "findWidget.h"
#include "historyui/plots/Chart.h"
#include "historyui/window/HistoryWindow.h"
#include "lineOfRuns.h"
#include "support/windowTexts.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QMenuBar>
#include <QTabBar>
#include <QTableView>
#include <QTableWidget>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

/// The history's window in every language: nothing is clipped, and nothing is left in another language.
class tst_HistoryWindowLanguages : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void nothingIsClipped_data();
    void nothingIsClipped();
    void troubleFits_data();
    void troubleFits();
    void nothingIsInAnotherLanguage_data();
    void nothingIsInAnotherLanguage();
    void titlesOfPlots_data();
    void titlesOfPlots();
    void counts_data();
    void counts();

private:
    static constexpr int runs = 400;

    StoreAddress line() const { return StoreAddress::file(m_folder.filePath(QStringLiteral("line.sqlite"))); }
    StoreAddress single() const { return StoreAddress::file(m_folder.filePath(QStringLiteral("single.sqlite"))); }

    QTemporaryDir m_folder;
};

namespace {
enum Tab { RunTab, UnitTab, StatisticsTab };

void choose(const QWidget &window, const char *field, int place)
{
    find<QComboBox>(window, field)->setCurrentIndex(place);
}

void showTab(const QWidget &window, int tab)
{
    find<QTabWidget>(window, "tabs")->setCurrentIndex(tab);
}

/// The window as small as a screen may be.
class Opened
{
public:
    Opened(const StoreAddress &store, int expected) : window(store, {})
    {
        window.resize(800, 600);
        window.show();
        const auto *model = find<QTableView>(window, "tvRuns")->model();
        [&] { QTRY_COMPARE(model->rowCount(), expected); }();
    }

    HistoryWindow window;
};

/// Choices of names that come from cameras and stations, which they show in full in their lists; with how many words of
/// the program stand before the names.
const QMap<QString, int> &choicesOfNames()
{
    static const QMap<QString, int> choices{{QStringLiteral("cbItem"), 1},
                                            {QStringLiteral("cbStation"), 1},
                                            {QStringLiteral("cbBatch"), 1},
                                            {QStringLiteral("cbFirmware"), 1},
                                            {QStringLiteral("cbMeasurement"), 0}};
    return choices;
}

QStringList clipped(const QWidget &window)
{
    QStringList found = windowTexts::clipped(&window, choicesOfNames().keys());
    for (const QWidget *bar : std::initializer_list<const QWidget *>{find<QTabWidget>(window, "tabs")->tabBar(),
                                                                     window.findChild<QMenuBar *>()}) {
        if (bar->width() < bar->sizeHint().width()) {
            found.append(QString::fromLatin1(bar->metaObject()->className()));
        }
    }
    return found;
}

void addTextsOf(const QMenu *menu, QStringList *texts)
{
    const QList<QAction *> actions = menu->actions();
    for (const QAction *action : actions) {
        if (!action->isSeparator()) {
            texts->append(action->text());
        }
    }
}

/// All of a choice that this program names itself.
void addTextsOf(const QComboBox *choice, QStringList *texts)
{
    const int count = choicesOfNames().value(choice->objectName(), choice->count());
    for (int i = 0; i < count; ++i) {
        texts->append(choice->itemText(i));
    }
}

void addHeadsOf(const QAbstractItemView *table, QStringList *texts)
{
    const QAbstractItemModel *model = table->model();
    for (int column = 0; column < model->columnCount(); ++column) {
        texts->append(model->headerData(column, Qt::Horizontal).toString());
    }
}

QStringList textsOf(const HistoryWindow &window)
{
    QStringList texts{window.windowTitle()};
    const QList<QMenu *> menus = window.menuBar()->findChildren<QMenu *>();
    for (const QMenu *menu : menus) {
        texts.append(menu->title());
        addTextsOf(menu, &texts);
    }
    const auto *tabs = find<QTabWidget>(window, "tabs");
    for (int tab = 0; tab < tabs->count(); ++tab) {
        texts.append(tabs->tabText(tab));
    }
    const QList<QWidget *> widgets = windowTexts::shown(&window);
    for (const QWidget *widget : widgets) {
        const bool isOfRun = widget->objectName() == QLatin1String("lbRun");
        if (qobject_cast<const QComboBox *>(widget) == nullptr && !isOfRun) {
            texts.append(windowTexts::textOf(widget));
        }
    }
    const QList<QComboBox *> choices = window.findChildren<QComboBox *>();
    for (const QComboBox *choice : choices) {
        addTextsOf(choice, &texts);
    }
    for (const char *table : {"tvRuns", "twRun", "twUnit", "twChanges", "twStatistics"}) {
        addHeadsOf(find<QAbstractItemView>(window, table), &texts);
    }
    const QList<QWidget *> all = window.findChildren<QWidget *>();
    for (const QWidget *widget : all) {
        if (!widget->accessibleName().isEmpty()) {
            texts.append(widget->accessibleName());
        }
    }
    texts.removeAll(QString());
    return texts;
}
} // namespace

void tst_HistoryWindowLanguages::initTestCase()
{
    QCOMPARE(storeLine(line().path, 0, runs), QString());
    QCOMPARE(storeLine(single().path, 0, 1), QString());
}

void tst_HistoryWindowLanguages::cleanup()
{
    windowTexts::fallSilent();
}

void tst_HistoryWindowLanguages::nothingIsClipped_data()
{
    windowTexts::addLanguages();
}

void tst_HistoryWindowLanguages::nothingIsClipped()
{
    QFETCH(const Language, language);
    windowTexts::speak(language);
    const Opened opened(line(), runs);
    const HistoryWindow &window = opened.window;
    // All that can be shown: the days of a period, and what tells that an outcome does not count in statistics.
    const auto *period = find<QComboBox>(window, "cbPeriod");
    for (int i = period->count() - 1; i >= 0; --i) {
        choose(window, "cbPeriod", i);
        QTRY_COMPARE(clipped(window).join(QLatin1Char('\n')), QString());
    }
    const auto *outcome = find<QComboBox>(window, "cbOutcome");
    for (int i = 0; i < outcome->count(); ++i) {
        choose(window, "cbOutcome", i);
        QTRY_COMPARE(clipped(window).join(QLatin1Char('\n')), QString());
    }
    choose(window, "cbOutcome", 2); // failed
    showTab(window, UnitTab);
    QTRY_COMPARE(find<QTableWidget>(window, "twUnit")->rowCount(), 10);
    QTRY_COMPARE(clipped(window).join(QLatin1Char('\n')), QString());
    showTab(window, StatisticsTab);
    QTRY_COMPARE(find<QTableWidget>(window, "twStatistics")->rowCount(), 1);
    QVERIFY(find<QLabel>(window, "lbNote")->isVisible());
    for (const char *field : {"cbPlot", "cbSplit"}) {
        const int count = find<QComboBox>(window, field)->count();
        for (int i = 0; i < count; ++i) {
            choose(window, field, i);
            QTRY_COMPARE(clipped(window).join(QLatin1Char('\n')), QString());
        }
    }
    QCOMPARE(window.size(), QSize(800, 600));
    QVERIFY(windowTexts::shown(&window).size() >= 20);
}

void tst_HistoryWindowLanguages::troubleFits_data()
{
    windowTexts::addLanguages();
}

void tst_HistoryWindowLanguages::troubleFits()
{
    QFETCH(const Language, language);
    windowTexts::speak(language);
    const Opened opened(StoreAddress::file(m_folder.filePath(QStringLiteral("nowhere.sqlite"))), 0);
    QTRY_VERIFY(find<QWidget>(opened.window, "banner")->isVisible());
    QTRY_COMPARE(clipped(opened.window).join(QLatin1Char('\n')), QString());
    QCOMPARE(opened.window.size(), QSize(800, 600));
}

void tst_HistoryWindowLanguages::nothingIsInAnotherLanguage_data()
{
    QTest::addColumn<Language>("language");

    QTest::newRow("English") << Language::English;
    QTest::newRow("Chinese") << Language::Chinese;
}

void tst_HistoryWindowLanguages::nothingIsInAnotherLanguage()
{
    QFETCH(const Language, language);
    windowTexts::speak(language);
    const Opened opened(line(), runs);
    const HistoryWindow &window = opened.window;
    const QStringList names{QStringLiteral("MAC"), QStringLiteral("&MAC"), QStringLiteral("Cpk")};
    for (const int tab : {RunTab, UnitTab, StatisticsTab}) {
        showTab(window, tab);
        QTRY_VERIFY(tab != UnitTab || find<QTableWidget>(window, "twUnit")->rowCount() == 10);
        QTRY_VERIFY(tab != StatisticsTab || find<QTableWidget>(window, "twStatistics")->rowCount() == 1);
        const QStringList texts = textsOf(window);
        QVERIFY2(texts.size() >= 80, qPrintable(texts.join(QLatin1Char('\n'))));
        QCOMPARE(windowTexts::foreign(texts, language, names).join(QLatin1Char('\n')), QString());
    }
}

void tst_HistoryWindowLanguages::titlesOfPlots_data()
{
    QTest::addColumn<Language>("language");
    QTest::addColumn<QStringList>("titles");
    QTest::addColumn<QStringList>("heads"); // of the last plot's table

    const QStringList english{"Yield by day", "Failures by item", "battery.temperature in battery.info",
                              "Duration of runs by day"};
    const QStringList englishHeads{"Day", "Runs", "Mean duration, s"};
    QTest::newRow("as written") << Language::AsWritten << english << englishHeads;
    QTest::newRow("English") << Language::English << english << englishHeads;
    QTest::newRow("Chinese") << Language::Chinese
                             << QStringList{"每日良率", "各项目未通过次数（帕累托图）",
                                            "battery.temperature（battery.info）", "每日检测用时"}
                             << QStringList{"日期", "检测次数", "平均用时（秒）"};
}

void tst_HistoryWindowLanguages::titlesOfPlots()
{
    QFETCH(const Language, language);
    QFETCH(const QStringList, titles);
    windowTexts::speak(language);
    const Opened opened(line(), runs);
    const HistoryWindow &window = opened.window;
    showTab(window, StatisticsTab);
    QCOMPARE(find<QComboBox>(window, "cbPlot")->count(), titles.size());
    for (int plot = 0; plot < titles.size(); ++plot) {
        choose(window, "cbPlot", plot);
        QTRY_COMPARE(find<QWidget>(window, "chart")->accessibleName(), titles.at(plot));
    }
    QStringList heads;
    addHeadsOf(find<QTableWidget>(window, "twStatistics"), &heads);
    QTEST(heads, "heads");
}

void tst_HistoryWindowLanguages::counts_data()
{
    QTest::addColumn<Language>("language");
    QTest::addColumn<bool>("isSingle");
    QTest::addColumn<QString>("listed");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("figures");

    QTest::newRow("as written, one") << Language::AsWritten << true << "1 runs"
                                     << "60:60:1F:00:00:00: 1 runs"
                                     << "1 runs (1 passed, 0 failed, 0 stopped, 0 errors) of 1 cameras. First-pass "
                                        "yield 100.0 %, final yield 100.0 %";
    QTest::newRow("English, one") << Language::English << true << "1 run"
                                  << "60:60:1F:00:00:00: 1 run"
                                  << "Runs: 1 (1 passed, 0 failed, 0 stopped, 0 without answer). Cameras: 1. "
                                     "First-pass yield 100.0 %, final yield "
                                     "100.0 %";
    QTest::newRow("English, several") << Language::English << false << "400 runs"
                                      << "60:60:1F:00:00:27: 10 runs"
                                      << "Runs: 400 (312 passed, 80 failed, 8 stopped, 0 without answer). Cameras: 40. "
                                         "First-pass yield 80.0 %, final "
                                         "yield 80.0 %";
    QTest::newRow("Chinese")
        << Language::Chinese << false << "400次检测"
        << "60:60:1F:00:00:27：10次检测"
        << "检测400次（通过312，未通过80，已停止8，出错0），相机40台。一次通过率80.0 %，最终良率80.0 %";
}

void tst_HistoryWindowLanguages::counts()
{
    QFETCH(const Language, language);
    QFETCH(const bool, isSingle);
    QFETCH(const QString, listed);
    QFETCH(const QString, unit);
    QFETCH(const QString, figures);
    windowTexts::speak(language);
    const Opened opened(isSingle ? single() : line(), isSingle ? 1 : runs);
    QTRY_COMPARE(find<QLabel>(opened.window, "lbCount")->text(), listed);
    showTab(opened.window, UnitTab);
    QTRY_COMPARE(find<QLabel>(opened.window, "lbUnit")->text(), unit);
    showTab(opened.window, StatisticsTab);
    QTRY_COMPARE(find<QLabel>(opened.window, "lbFigures")->text(), figures);
}

QTEST_MAIN(tst_HistoryWindowLanguages)
#include "tst_HistoryWindowLanguages.moc"
