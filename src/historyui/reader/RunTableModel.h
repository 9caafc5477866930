#pragma once

#include "history/query/questions.h"
#include "history/query/RunFilter.h"
#include "history/query/RunSummary.h"
#include "historyui/reader/HistoryReader.h"

#include <optional>
#include <QAbstractTableModel>
#include <QCache>
#include <QList>
#include <QVector>

/// The runs that a filter admits, the latest one first, however many there are: the rows that are looked at are fetched
/// in pages, each by the place of the run before it, and the last pages that were used are kept. The rows grow while
/// the places of the pages are being found; the first page is there at once. GUI thread only.
class RunTableModel : public QAbstractTableModel
{
    Q_OBJECT
    Q_DISABLE_COPY(RunTableModel)

public:
    enum class Column { Begin, Outcome, Mac, Serial, Finding, Station, Batch, Firmware, Duration, Operator };

    static constexpr int pageSize = 256;
    static constexpr int keptPages = 64;

    explicit RunTableModel(HistoryReader *reader, QObject *parent = nullptr);

    /// Asks for the runs of `filter`, whose `limit` and `olderThan` are not looked at; until they come, the rows stay.
    void show(const RunFilter &filter);

    /// The run in that row; nothing as long as it has not come.
    std::optional<RunSummary> run(int row) const;
    /// Whether the rows still grow.
    bool isCounting() const { return m_isCounting; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    /// Asks for the row's page if it is not there; the cells are empty until it comes.
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

signals:
    /// After each answer that has changed how many rows there are.
    void counted();

private:
    using Page = QList<RunSummary>;

    void begin(const RunFilter &filter, const Page &first);
    void countOn();
    void grow(const RunPlaces &places);
    void want(int page) const;
    void fetchWanted();
    void forgetWanted();
    const RunSummary *find(int row) const;

    HistoryReader *const m_reader;
    RunFilter m_filter;
    QVector<RunPlace> m_lastOfPage; ///< of each page that is full
    int m_rows = 0;
    bool m_isCounting = false;
    Page m_first; ///< as it was when the counting began: later runs would push it down
    mutable QCache<int, Page> m_pages;
    mutable QList<int> m_wanted;       ///< pages that were looked for in vain, the latest one last
    mutable bool m_isFetching = false; ///< or about to
};
