#include "historyui/window/HistoryWindow.h"

#include "history/query/questions.h"
#include "historyui/plots/Chart.h"
#include "historyui/window/FilterBar.h"
#include "historyui/window/RunView.h"
#include "historyui/window/StatisticsView.h"
#include "historyui/window/tableCopy.h"
#include "historyui/window/UnitView.h"

#include <array>
#include <QBoxLayout>
#include <QFrame>
#include <QHeaderView>
#include <QKeySequence>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QStatusBar>
#include <QTableView>
#include <QTabWidget>

namespace {
/// In characters, in the order of the model's columns.
constexpr std::array columnWidths = {19, 8, 17, 12, 20, 14, 12, 10, 9, 12};

constexpr QSize usualSize(1180, 760);
} // namespace

HistoryWindow::HistoryWindow(const StoreAddress &store, const Options &options, QWidget *parent)
    : QMainWindow(parent), m_reader(store), m_model(&m_reader), m_filter(new FilterBar),
      m_run(new RunView(&m_reader, options.results)), m_unit(new UnitView(&m_reader)),
      m_statistics(new StatisticsView(&m_reader)), m_count(new QLabel)
{
    setWindowTitle(tr("%1 – History").arg(store.name));
    m_tabs = new QTabWidget;
    m_tabs->setObjectName(QStringLiteral("tabs"));
    m_tabs->addTab(m_run, tr("Run"));
    m_tabs->addTab(m_unit, tr("Unit"));
    m_tabs->addTab(m_statistics, tr("Statistics"));

    auto *splitter = new QSplitter;
    splitter->setObjectName(QStringLiteral("splitter"));
    splitter->addWidget(makeTable());
    splitter->addWidget(m_tabs);
    splitter->setChildrenCollapsible(false);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 1);
    auto *centre = new QWidget;
    auto *layout = new QVBoxLayout(centre);
    layout->addWidget(m_filter);
    layout->addWidget(makeBanner());
    layout->addWidget(splitter, 1);
    setCentralWidget(centre);
    m_count->setObjectName(QStringLiteral("lbCount"));
    statusBar()->addPermanentWidget(m_count);
    makeMenus();
    resize(usualSize);
    constexpr int listShare = 46; // of a hundred
    splitter->setSizes({usualSize.width() * listShare / 100, usualSize.width() * (100 - listShare) / 100});

    connect(m_filter, &FilterBar::changed, this, &HistoryWindow::search);
    connect(&m_model, &RunTableModel::counted, this, &HistoryWindow::showCount);
    connect(&m_reader, &HistoryReader::failed, this, &HistoryWindow::showTrouble);
    connect(&m_reader, &HistoryReader::answered, m_banner, &QWidget::hide);
    connect(m_unit, &UnitView::runChosen, this, [this](const RunSummary &run) { m_run->setRun(run); });
    const auto tell = [this](const QString &text) { statusBar()->showMessage(text); };
    connect(m_run, &RunView::told, this, tell);
    connect(m_statistics, &StatisticsView::told, this, tell);

    if (options.mac.isEmpty()) {
        search();
    } else {
        m_tabs->setCurrentIndex(UnitTab);
        m_filter->setMac(options.mac); // asks
    }
    askForChoices();
    m_table->setFocus();
}

QWidget *HistoryWindow::makeBanner()
{
    m_banner = new QFrame;
    m_banner->setObjectName(QStringLiteral("banner"));
    m_banner->setFrameShape(QFrame::StyledPanel);
    m_banner->setAutoFillBackground(true);
    QPalette palette = m_banner->palette();
    palette.setColor(QPalette::Window, QColor(0xFD, 0xEC, 0xEA));
    palette.setColor(QPalette::WindowText, QColor(0x7A, 0x1C, 0x12));
    m_banner->setPalette(palette);
    m_trouble = new QLabel;
    m_trouble->setObjectName(QStringLiteral("lbTrouble"));
    m_trouble->setTextFormat(Qt::PlainText);
    m_trouble->setWordWrap(true);
    m_trouble->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto *retry = new QPushButton(tr("Try A&gain"));
    retry->setObjectName(QStringLiteral("btRetry"));
    connect(retry, &QPushButton::clicked, this, &HistoryWindow::refresh);
    auto *layout = new QHBoxLayout(m_banner);
    layout->addWidget(m_trouble, 1);
    layout->addWidget(retry);
    m_banner->hide();
    return m_banner;
}

QWidget *HistoryWindow::makeTable()
{
    m_table = new QTableView;
    m_table->setObjectName(QStringLiteral("tvRuns"));
    m_table->setAccessibleName(tr("Runs, the latest one first"));
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setTabKeyNavigation(false);
    m_table->setWordWrap(false);
    m_table->setShowGrid(false);
    m_table->setAlternatingRowColors(true);
    m_table->setModel(&m_model);
    // Rows of one height need not be asked for it, however many they are.
    constexpr int margin = 6;
    m_table->horizontalHeader()->setHighlightSections(false); // all of them would be: whole rows are selected
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + margin);
    const int character = m_table->fontMetrics().averageCharWidth();
    for (std::size_t column = 0; column < columnWidths.size(); ++column) {
        m_table->setColumnWidth(static_cast<int>(column), (columnWidths.at(column) + 2) * character);
    }
    copyRowsOnDemand(m_table);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &HistoryWindow::chooseRow);
    connect(&m_model, &QAbstractItemModel::dataChanged, this, &HistoryWindow::chooseRow);
    connect(&m_model, &QAbstractItemModel::modelReset, this, &HistoryWindow::choosePlace);
    return m_table;
}

void HistoryWindow::makeMenus()
{
    const auto add = [](QMenu *menu, const QString &text, const QKeySequence &key, auto *receiver, auto slot) {
        QAction *action = menu->addAction(text);
        action->setShortcut(key);
        QObject::connect(action, &QAction::triggered, receiver, slot);
    };
    QMenu *history = menuBar()->addMenu(tr("&History"));
    add(history, tr("&Search"), QKeySequence::Find, m_filter, &FilterBar::focusSearch);
    add(history, tr("&Clear Filters"), QKeySequence(QStringLiteral("Ctrl+Backspace")), m_filter, &FilterBar::reset);
    add(history, tr("&Refresh"), QKeySequence::Refresh, this, &HistoryWindow::refresh);
    history->addSeparator();
    add(history, tr("&Close"), QKeySequence(QStringLiteral("Ctrl+W")), this, &QWidget::close);

    QMenu *run = menuBar()->addMenu(tr("Ru&n"));
    add(run, tr("Open &Folder"), QKeySequence(QStringLiteral("Ctrl+O")), m_run, &RunView::openFolder);
    add(run, tr("&Copy Run"), QKeySequence(QStringLiteral("Ctrl+Shift+C")), m_run, &RunView::copy);

    QMenu *view = menuBar()->addMenu(tr("&View"));
    for (int tab = 0; tab < m_tabs->count(); ++tab) {
        add(view, m_tabs->tabText(tab), QKeySequence(QStringLiteral("Ctrl+%1").arg(tab + 1)), this,
            [this, tab] { m_tabs->setCurrentIndex(tab); });
    }
    if (Chart::canDraw()) {
        view->addSeparator();
        Chart *chart = m_statistics->chart();
        constexpr double nearer = 1.5;
        add(view, tr("Zoom &In"), QKeySequence::ZoomIn, chart, [chart] { chart->zoom(nearer); });
        add(view, tr("Zoom &Out"), QKeySequence::ZoomOut, chart, [chart] { chart->zoom(1 / nearer); });
        add(view, tr("&Whole Plot"), QKeySequence(QStringLiteral("Ctrl+0")), chart, &Chart::showWhole);
        add(view, tr("Copy &Picture"), QKeySequence(QStringLiteral("Ctrl+Shift+P")), m_statistics,
            &StatisticsView::copyPicture);
        add(view, tr("&Save Picture…"), QKeySequence::Save, m_statistics, &StatisticsView::savePicture);
    }
}

void HistoryWindow::search()
{
    const RunFilter runs = m_filter->runs();
    m_model.show(runs);
    const bool isNarrower = !runs.mac.isEmpty() || !runs.serial.isEmpty() || runs.outcome || !runs.item.isEmpty();
    m_statistics->setFilter(m_filter->statistics(), isNarrower);
}

void HistoryWindow::refresh()
{
    search();
    m_statistics->refresh();
    m_unit->refresh();
    askForChoices();
}

void HistoryWindow::askForChoices()
{
    m_reader.ask(
        HistoryReader::Topic::Choices, [](Store &store) { return readStatistics(store, {}); },
        [this](const Statistics &statistics) { m_filter->setChoices(statistics); });
}

void HistoryWindow::showTrouble(const StoreError &error)
{
    m_trouble->setText(error.text);
    m_banner->show();
}

void HistoryWindow::showCount()
{
    const int count = m_model.rowCount();
    m_count->setText(m_model.isCounting() ? tr("%Ln runs so far", nullptr, count) : tr("%Ln runs", nullptr, count));
}

void HistoryWindow::choosePlace()
{
    int row = 0;
    const int firstPage = qMin(m_model.rowCount(), static_cast<int>(RunTableModel::pageSize));
    for (int i = 0; i < firstPage; ++i) {
        const std::optional<RunSummary> run = m_model.run(i);
        if (run && run->id == m_chosen) {
            row = i;
            break;
        }
    }
    if (m_model.rowCount() == 0) {
        choose({});
    } else {
        m_table->setCurrentIndex(m_model.index(row, 0));
    }
}

void HistoryWindow::chooseRow()
{
    // A row that has not come yet is chosen when it has.
    if (const std::optional<RunSummary> run = m_model.run(m_table->currentIndex().row())) {
        choose(run);
    }
}

void HistoryWindow::choose(const std::optional<RunSummary> &run)
{
    m_chosen = run ? run->id : QUuid();
    m_run->setRun(run);
    m_unit->setCamera(run ? run->mac : QString());
}
