#pragma once

#include "history/query/compareRuns.h"
#include "history/query/RunSummary.h"

#include <optional>
#include <QList>
#include <QString>
#include <QWidget>

class Chart;
class HistoryReader;
class QLabel;
class QTableWidget;

/// Every run of a camera along time, and what changed when it began to fail. Asks only while it is seen. GUI thread
/// only.
class UnitView : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(UnitView)

public:
    explicit UnitView(HistoryReader *reader, QWidget *parent = nullptr);

    /// An empty address: no camera is chosen.
    void setCamera(const QString &mac);
    /// The same camera once more.
    void refresh();

    Chart *chart() const { return m_chart; }

signals:
    /// The operator wants to see this run.
    void runChosen(const RunSummary &run);

protected:
    void showEvent(QShowEvent *event) override;

private:
    /// A camera's runs, the latest one first.
    struct Answer
    {
        QList<RunSummary> runs;
        std::optional<TurnForTheWorse> turn; ///< in `runs`
        QList<Difference> differences;       ///< that came with the turn
    };

    void load();
    void show(const Answer &answer);
    void choose(int row);

    HistoryReader *const m_reader;
    QString m_mac;
    bool m_isStale = false;
    QList<RunSummary> m_runs;
    QLabel *m_head;
    Chart *m_chart;
    QTableWidget *m_table;
    QLabel *m_turn;
    QTableWidget *m_differences;
};
