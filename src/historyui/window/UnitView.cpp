#include "historyui/window/UnitView.h"

#include "history/query/questions.h"
#include "historyui/plots/Chart.h"
#include "historyui/plots/unitPlot.h"
#include "historyui/reader/HistoryReader.h"
#include "historyui/reader/runWords.h"
#include "historyui/window/tableCopy.h"

#include <algorithm>
#include <QBoxLayout>
#include <QLabel>
#include <QTableWidget>

namespace {
constexpr int mostRuns = 1000; ///< a camera that was tested more often is a test of the station
constexpr int outcomeColumn = 1;

QString timeOf(const RunSummary &run)
{
    return run.begin.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

/// The places in runs of descending time.
std::optional<TurnForTheWorse> turnOf(const QList<RunSummary> &runs)
{
    QList<Outcome> outcomes;
    std::transform(runs.rbegin(), runs.rend(), std::back_inserter(outcomes),
                   [](const RunSummary &run) { return run.outcome; });
    std::optional<TurnForTheWorse> turn = findTurnForTheWorse(outcomes);
    if (turn) {
        const int last = static_cast<int>(runs.size()) - 1;
        turn = TurnForTheWorse{last - turn->lastPass, last - turn->firstFailure};
    }
    return turn;
}
} // namespace

UnitView::UnitView(HistoryReader *reader, QWidget *parent)
    : QWidget(parent), m_reader(reader), m_head(new QLabel), m_chart(new Chart),
      m_table(makeTable(QStringLiteral("twUnit"), tr("Runs of the camera, the latest one first"))), m_turn(new QLabel),
      m_differences(makeTable(QStringLiteral("twChanges"), tr("What changed")))
{
    m_head->setObjectName(QStringLiteral("lbUnit"));
    m_head->setTextFormat(Qt::PlainText);
    m_turn->setObjectName(QStringLiteral("lbTurn"));
    m_turn->setTextFormat(Qt::PlainText);
    m_turn->setWordWrap(true);
    m_chart->setObjectName(QStringLiteral("unitChart"));
    m_chart->setAccessibleName(tr("Runs of the camera along time"));
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    connect(m_table, &QTableWidget::cellActivated, this, &UnitView::choose);
    connect(m_table, &QTableWidget::cellClicked, this, &UnitView::choose);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_head);
    layout->addWidget(m_chart, 2);
    layout->addWidget(m_table, 1);
    layout->addWidget(m_turn);
    layout->addWidget(m_differences, 1);
    setCamera({});
}

void UnitView::setCamera(const QString &mac)
{
    if (!mac.isEmpty() && mac == m_mac) {
        return;
    }
    m_mac = mac;
    refresh();
}

void UnitView::refresh()
{
    m_isStale = true;
    if (isVisible()) {
        load();
    }
}

void UnitView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_isStale) {
        load();
    }
}

void UnitView::load()
{
    m_isStale = false;
    if (m_mac.isEmpty()) {
        m_reader->withdraw(HistoryReader::Topic::Unit);
        show({});
        return;
    }
    RunFilter filter;
    filter.mac = m_mac;
    filter.limit = mostRuns;
    m_reader->ask(
        HistoryReader::Topic::Unit,
        [filter](Store &store) -> std::optional<Answer> {
            const std::optional<QList<RunSummary>> runs = findRuns(store, filter);
            if (!runs) {
                return {};
            }
            Answer answer{*runs, turnOf(*runs), {}};
            if (answer.turn) {
                const std::optional<RunRecord> before = store.read(runs->at(answer.turn->lastPass).id);
                const std::optional<RunRecord> after = store.read(runs->at(answer.turn->firstFailure).id);
                if (store.error().isError()) {
                    return {};
                }
                if (before && after) {
                    answer.differences = compareRuns(*before, *after);
                }
            }
            return answer;
        },
        [this](const Answer &answer) { show(answer); });
}

void UnitView::show(const Answer &answer)
{
    m_runs = answer.runs;
    m_head->setText(m_mac.isEmpty() ? tr("The chosen run names no camera.")
                                    : tr("%1: %n runs", nullptr, static_cast<int>(m_runs.size())).arg(m_mac));
    m_chart->show(unitPlot(m_runs));
    QList<QStringList> rows;
    for (const RunSummary &run : qAsConst(m_runs)) {
        rows.append({timeOf(run), outcomeText(run.outcome), run.firstFinding, run.reason, run.station, run.firmware,
                     run.operatorName});
    }
    fillTable(m_table,
              {tr("Begin"), tr("Outcome"), tr("Finding"), tr("Reason"), tr("Station"), tr("Firmware"), tr("Operator")},
              rows);
    for (int row = 0; row < m_runs.size(); ++row) {
        m_table->item(row, outcomeColumn)->setForeground(outcomeColour(m_runs.at(row).outcome));
    }
    QList<QStringList> changes;
    for (const Difference &difference : answer.differences) {
        changes.append({difference.what, difference.before, difference.after});
    }
    fillTable(m_differences, {tr("What"), tr("Before"), tr("After")}, changes);
    m_differences->setVisible(answer.turn.has_value());
    m_turn->setText(
        answer.turn ? tr("What changed from its last pass (%1) to its first failure after it (%2):")
                          .arg(timeOf(m_runs.at(answer.turn->lastPass)), timeOf(m_runs.at(answer.turn->firstFailure)))
                    : QString());
    m_turn->setVisible(answer.turn.has_value());
}

void UnitView::choose(int row)
{
    if (row < m_runs.size()) {
        emit runChosen(m_runs.at(row));
    }
}
