#pragma once

#include "history/address/StoreAddress.h"
#include "history/door/Spool.h"
#include "history/store/Store.h"
#include "record/RunRecord.h"
#include "threads/GrowingPause.h"
#include "threads/WorkerThread.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <QList>
#include <QString>

/// The thread that writes a station's runs into its store, so that nobody else waits for a disk. A run that the store
/// does not take within a moment goes to the spool folder, and into the store as soon as that is possible: the writer
/// tries again after growing pauses. Nothing that was handed over is lost when the program closes.
class HistoryWriter
{
    Q_DISABLE_COPY(HistoryWriter)

public:
    /// What the writer tells. Called on its thread.
    struct Listener
    {
        /// Why the store does not take runs, once for each reason; empty: it takes them again.
        std::function<void(const QString &)> problem;
        /// Runs have come into the store.
        std::function<void()> stored;
        /// The row of a camera that was asked for by this MAC address.
        std::function<void(const QString &, const CameraRow &)> camera;
    };

    /// Starts the thread, which opens the store.
    HistoryWriter(const StoreAddress &store, Listener listener);
    /// Ends it, with every run in the store or in the spool.
    ~HistoryWriter();

    /// From any thread; returns at once. Where the disk has taken nothing for so long that too many runs wait, the
    /// caller writes the run into the spool himself.
    void keep(const RunRecord &run);
    /// Asks for the row of a camera; a further question replaces one that waits. From any thread.
    void ask(const QString &mac);

    static constexpr int mostWaiting = 64;

private:
    void func();
    /// Waits for something to do.
    void wait();
    void store(const QList<RunRecord> &runs);
    bool openStore();
    bool insert(const QVector<RunRows> &rows);
    void spool(const RunRecord &run);
    void takeInSpooled();
    void answer(const QString &mac);
    void tell(const QString &problem);

    const StoreAddress m_address;
    const Listener m_listener;
    const Spool m_spool;

    std::mutex m_mutex; ///< guards what waits
    std::condition_variable m_cond;
    std::deque<RunRecord> m_waiting;
    QString m_question;

    // The thread's own.
    std::unique_ptr<Store> m_store;
    StoreError m_error;
    bool m_spooled = true; ///< there may be files in the spool
    GrowingPause m_pause;
    QString m_told;

    WorkerThread m_thread; ///< last: it starts when everything else is in place
};
