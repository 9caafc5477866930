#pragma once

#include "history/address/StoreAddress.h"
#include "history/query/RunSummary.h"
#include "historyui/reader/HistoryReader.h"
#include "historyui/reader/RunTableModel.h"

#include <QMainWindow>
#include <QString>
#include <QUuid>

class FilterBar;
class QFrame;
class QLabel;
class QTableView;
class QTabWidget;
class RunView;
class StatisticsView;
class UnitView;

/// The history of all runs in a store: search and filters, the runs, and beside them the chosen run, its camera, and
/// the statistics. Only reads, on a thread of its own. GUI thread only.
class HistoryWindow : public QMainWindow
{
    Q_OBJECT
    Q_DISABLE_COPY(HistoryWindow)

public:
    struct Options
    {
        QString mac;     ///< of the camera that is looked for; empty: none
        QString results; ///< the folder that was chosen for results at the station
    };

    explicit HistoryWindow(const StoreAddress &store, const Options &options, QWidget *parent = nullptr);

private:
    enum Tab { RunTab, UnitTab, StatisticsTab };

    QWidget *makeBanner();
    QWidget *makeTable();
    void makeMenus();
    void search();
    void refresh();
    void askForChoices();
    void showTrouble(const StoreError &error);
    void showCount();
    /// The same run as before, or the latest one.
    void choosePlace();
    void chooseRow();
    void choose(const std::optional<RunSummary> &run);

    HistoryReader m_reader;
    RunTableModel m_model;
    FilterBar *m_filter = nullptr;
    QFrame *m_banner = nullptr;
    QLabel *m_trouble = nullptr;
    QTableView *m_table = nullptr;
    QTabWidget *m_tabs = nullptr;
    RunView *m_run = nullptr;
    UnitView *m_unit = nullptr;
    StatisticsView *m_statistics = nullptr;
    QLabel *m_count = nullptr;
    QUuid m_chosen;
};
