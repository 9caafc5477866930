#include "historyui/reader/RunTableModel.h"

#include "historyui/reader/runWords.h"
#include "report/Report.h"

#include <chrono>
#include <QColor>

namespace {
/// So long may a question hold up one that somebody waits for.
constexpr std::chrono::milliseconds countingTime{15};

struct ColumnRow
{
    const char *name;
    QString (*text)(const RunSummary &run);
};

QString findingText(const RunSummary &run)
{
    return run.failedItems > 1 ? QStringLiteral("%1 (+%2)").arg(run.firstFinding).arg(run.failedItems - 1)
                               : run.firstFinding;
}

/// In the order of `Column`.
constexpr std::array columns = {
    ColumnRow{QT_TRANSLATE_NOOP("RunTableModel", "Begin"),
              [](const RunSummary &run) { return run.begin.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")); }},
    ColumnRow{QT_TRANSLATE_NOOP("RunTableModel", "Outcome"),
              [](const RunSummary &run) { return outcomeText(run.outcome); }},
    ColumnRow{QT_TRANSLATE_NOOP("RunTableModel", "MAC"), [](const RunSummary &run) { return run.mac; }},
    ColumnRow{QT_TRANSLATE_NOOP("RunTableModel", "Serial"), [](const RunSummary &run) { return run.serial; }},
    ColumnRow{QT_TRANSLATE_NOOP("RunTableModel", "Finding"), findingText},
    ColumnRow{QT_TRANSLATE_NOOP("RunTableModel", "Station"), [](const RunSummary &run) { return run.station; }},
    ColumnRow{QT_TRANSLATE_NOOP("RunTableModel", "Batch"), [](const RunSummary &run) { return run.batch; }},
    ColumnRow{QT_TRANSLATE_NOOP("RunTableModel", "Firmware"), [](const RunSummary &run) { return run.firmware; }},
    ColumnRow{QT_TRANSLATE_NOOP("RunTableModel", "Duration"),
              [](const RunSummary &run) { return durationText(run.duration); }},
    ColumnRow{QT_TRANSLATE_NOOP("RunTableModel", "Operator"), [](const RunSummary &run) { return run.operatorName; }},
};
} // namespace

RunTableModel::RunTableModel(HistoryReader *reader, QObject *parent)
    : QAbstractTableModel(parent), m_reader(reader), m_pages(keptPages)
{
    connect(reader, &HistoryReader::failed, this, &RunTableModel::forgetWanted);
}

void RunTableModel::show(const RunFilter &filter)
{
    RunFilter first = filter;
    first.olderThan.reset();
    first.limit = pageSize;
    m_reader->withdraw(HistoryReader::Topic::Index);
    m_reader->ask(
        HistoryReader::Topic::Search, [first](Store &store) { return findRuns(store, first); },
        [this, first](const Page &page) { begin(first, page); });
}

void RunTableModel::begin(const RunFilter &filter, const Page &first)
{
    beginResetModel();
    m_filter = filter;
    m_lastOfPage.clear();
    m_pages.clear();
    m_reader->withdraw(HistoryReader::Topic::Rows);
    forgetWanted();
    m_first = first;
    m_rows = static_cast<int>(first.size());
    m_isCounting = first.size() == pageSize;
    if (m_isCounting) {
        const RunSummary &last = first.constLast();
        m_lastOfPage.append({last.begin.toMSecsSinceEpoch(), last.id});
    }
    endResetModel();
    emit counted();
    if (m_isCounting) {
        countOn();
    }
}

void RunTableModel::countOn()
{
    RunFilter rest = m_filter;
    rest.olderThan = m_lastOfPage.constLast();
    m_reader->ask(
        HistoryReader::Topic::Index,
        [rest](Store &store) { return findRunPlaces(store, rest, pageSize, countingTime); },
        [this](const RunPlaces &places) { grow(places); });
}

void RunTableModel::grow(const RunPlaces &places)
{
    const int more = static_cast<int>(places.steps.size()) * pageSize + places.rest;
    m_isCounting = !places.isEnd;
    if (more > 0) {
        beginInsertRows({}, m_rows, m_rows + more - 1);
        m_lastOfPage += places.steps;
        m_rows += more;
        endInsertRows();
    }
    emit counted();
    if (m_isCounting) {
        countOn();
    }
}

const RunSummary *RunTableModel::find(int row) const
{
    const int number = row / pageSize;
    const Page *page = number == 0 ? &m_first : m_pages.object(number);
    if (page == nullptr) {
        want(number);
        return nullptr;
    }
    // Runs may have been removed since they were counted.
    return row % pageSize < page->size() ? &page->at(row % pageSize) : nullptr;
}

void RunTableModel::want(int page) const
{
    // More cannot be seen at once; what was passed by in haste is looked for again when somebody comes back to it.
    constexpr int most = 3;
    m_wanted.removeOne(page);
    m_wanted.append(page);
    if (m_wanted.size() > most) {
        m_wanted.removeFirst();
    }
    if (!m_isFetching) {
        m_isFetching = true;
        // Behind the drawing that is under way.
        QMetaObject::invokeMethod(
            const_cast<RunTableModel *>(this), [this] { const_cast<RunTableModel *>(this)->fetchWanted(); },
            Qt::QueuedConnection);
    }
}

void RunTableModel::fetchWanted()
{
    m_isFetching = !m_wanted.isEmpty();
    if (!m_isFetching) {
        return;
    }
    const int number = m_wanted.constLast();
    RunFilter filter = m_filter;
    filter.olderThan = m_lastOfPage.at(number - 1);
    m_reader->ask(
        HistoryReader::Topic::Rows, [filter](Store &store) { return findRuns(store, filter); },
        [this, number](const Page &page) {
            m_wanted.removeOne(number);
            m_pages.insert(number, new Page(page));
            const int begin = number * pageSize;
            emit dataChanged(index(begin, 0), index(qMin(begin + pageSize, m_rows) - 1, columnCount() - 1));
            fetchWanted();
        });
}

void RunTableModel::forgetWanted()
{
    m_wanted.clear();
    m_isFetching = false;
}

std::optional<RunSummary> RunTableModel::run(int row) const
{
    if (row < 0 || row >= m_rows) {
        return {};
    }
    const RunSummary *run = find(row);
    return run != nullptr ? std::optional<RunSummary>(*run) : std::nullopt;
}

int RunTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

int RunTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(columns.size());
}

QVariant RunTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ForegroundRole && role != Qt::ToolTipRole)) {
        return {};
    }
    const RunSummary *run = find(index.row());
    if (run == nullptr) {
        return {};
    }
    const auto column = static_cast<Column>(index.column());
    if (role == Qt::ForegroundRole) {
        return column == Column::Outcome ? QVariant(outcomeColour(run->outcome)) : QVariant();
    }
    if (role == Qt::ToolTipRole) {
        return column == Column::Outcome || column == Column::Finding ? plainToolTip(run->reason) : QVariant();
    }
    return columns.at(static_cast<std::size_t>(index.column())).text(*run);
}

QVariant RunTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || section < 0) {
        return {};
    }
    if (orientation == Qt::Vertical) {
        return section + 1;
    }
    return tr(columns.at(static_cast<std::size_t>(section)).name);
}
