#include "history/door/HistoryWriter.h"

#include <QCoreApplication>
#include <QDebug>
#include <QStringList>
#include <utility>

using namespace std::chrono_literals;

namespace {
/// A verdict must be safe within 250 ms, whoever else is writing.
constexpr auto storePatience = 100ms;
constexpr auto stopPatience = 5s;
/// Between two looks at what nobody tells of: whether the store is back.
constexpr auto retryPoll = 500ms;
/// So many spooled runs are taken in before new ones have their turn.
constexpr int spoolPiece = 20;
/// The station's share of the memory is small, and so are its transactions.
constexpr int cacheKiB = 512;
} // namespace

HistoryWriter::HistoryWriter(const StoreAddress &store, Listener listener)
    : m_address(store), m_listener(std::move(listener)), m_spool(store.path),
      m_thread("history", stopPatience, [this] { func(); })
{
}

HistoryWriter::~HistoryWriter()
{
    m_thread.stop([this] {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_cond.notify_all();
    });
}

void HistoryWriter::keep(const RunRecord &run)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_waiting.size() < mostWaiting) {
            m_waiting.push_back(run);
            m_cond.notify_all();
            return;
        }
    }
    const QString reason = m_spool.put(run);
    if (!reason.isEmpty()) {
        qWarning("A run is lost: %s: %s", qUtf8Printable(m_spool.folder()), qUtf8Printable(reason));
    }
}

void HistoryWriter::ask(const QString &mac)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_question = mac;
    m_cond.notify_all();
}

void HistoryWriter::func()
{
    openStore();
    bool last = false;
    while (!last) {
        wait();
        // What was handed over before the end is still taken.
        last = !m_thread.running();
        QList<RunRecord> runs;
        QString question;
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            for (; !m_waiting.empty(); m_waiting.pop_front()) {
                runs.append(m_waiting.front());
            }
            question.swap(m_question);
        }
        if (!runs.isEmpty()) {
            store(runs);
        }
        if (!last && m_spooled && m_pause.isDue()) {
            takeInSpooled();
        }
        if (!last && !question.isEmpty()) {
            answer(question);
        }
    }
    m_store.reset();
}

void HistoryWriter::wait()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    const auto isDue = [this] { return !m_waiting.empty() || !m_question.isEmpty() || !m_thread.running(); };
    if (!m_spooled && m_store) {
        m_cond.wait(lock, isDue);
    } else if (!m_pause.isDue()) {
        m_cond.wait_for(lock, retryPoll, isDue);
    }
}

bool HistoryWriter::openStore()
{
    if (m_store) {
        return true;
    }
    Store::Options options;
    options.patience = storePatience;
    options.cacheKiB = cacheKiB;
    m_store = Store::open(m_address, options, &m_error);
    if (!m_store) {
        m_spooled = true;
        m_pause.noteFailure();
        tell(m_error.text);
    }
    return m_store != nullptr;
}

bool HistoryWriter::insert(const QVector<RunRows> &rows)
{
    if (!openStore()) {
        return false;
    }
    if (m_store->insert(rows) && m_store->givesBack(rows)) {
        return true;
    }
    m_error = m_store->error();
    if (!m_error.isPassing()) {
        m_store.reset();
    }
    return false;
}

void HistoryWriter::store(const QList<RunRecord> &runs)
{
    QVector<RunRows> rows;
    for (const RunRecord &run : runs) {
        rows.append(runRows(run));
    }
    if (insert(rows)) {
        m_listener.stored();
        return;
    }
    for (const RunRecord &run : runs) {
        spool(run);
    }
    m_spooled = true;
    m_pause.noteFailure();
    // Somebody who is writing at this moment is nothing to tell.
    if (!m_error.isPassing()) {
        tell(m_error.text);
    }
}

void HistoryWriter::spool(const RunRecord &run)
{
    const QString reason = m_spool.put(run);
    if (!reason.isEmpty()) {
        qWarning("A run is lost: %s: %s", qUtf8Printable(m_spool.folder()), qUtf8Printable(reason));
        tell(QCoreApplication::translate("HistoryWriter", "a run could be kept nowhere: %1; %2")
                 .arg(m_error.text, QStringLiteral("%1: %2").arg(m_spool.folder(), reason)));
    }
}

void HistoryWriter::takeInSpooled()
{
    const QStringList files = m_spool.files(spoolPiece);
    if (files.isEmpty() && openStore()) {
        m_spooled = false;
        m_pause.reset();
        tell({});
        return;
    }
    QVector<RunRows> rows;
    QStringList taken;
    QString problem;
    for (const QString &file : files) {
        if (const std::optional<RunRecord> run = Spool::read(file, &problem)) {
            rows.append(runRows(*run));
            taken.append(file);
        }
    }
    if (!problem.isEmpty()) {
        // A file that cannot even be opened stays, and is not to keep the thread busy.
        qWarning("A spooled run cannot be read: %s", qUtf8Printable(problem));
        m_pause.noteFailure();
    }
    if (!insert(rows)) {
        m_pause.noteFailure();
        tell(m_error.text);
        return;
    }
    for (const QString &file : std::as_const(taken)) {
        Spool::remove(file);
    }
    m_listener.stored();
}

void HistoryWriter::answer(const QString &mac)
{
    if (!m_store) {
        return;
    }
    if (const std::optional<CameraRow> camera = m_store->camera(mac)) {
        m_listener.camera(mac, *camera);
    }
}

void HistoryWriter::tell(const QString &problem)
{
    if (problem != m_told) {
        m_told = problem;
        m_listener.problem(problem);
    }
}
