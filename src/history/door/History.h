#pragma once

#include "history/address/StoreAddress.h"
#include "history/door/HistoryWriter.h"
#include "record/RunRecord.h"

#include <functional>
#include <memory>
#include <mutex>
#include <QDateTime>
#include <QObject>
#include <QString>
#include <vector>

class ForwardProcess;

/// The local store's file, in the station's folder of state, where option.ini names a server alone: a run always goes
/// into a local store first.
inline constexpr auto usualHistoryFile = "history.sqlite";

/// What the history knows of a camera.
struct KnownCamera
{
    QString mac; ///< as it was asked for
    qint64 runs = 0;
    QDateTime lastBegin; ///< of its last run, in local time; null where there is none
    Outcome lastOutcome = Outcome::Error;
};

/// The station's only door to the history: whoever has a finished run hands it over here, and whoever wants to know
/// whether a camera was here before asks here. Nobody waits for a disk or a server. To be made on the thread with the
/// event loop, before anything takes Qt's folders of plug-ins away for a moment; it is answered there.
class History : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(History)

public:
    /// `file`: the local store. `server`: where its runs are sent, an address as in option.ini; empty: nowhere.
    History(const QString &file, const QString &server);
    /// Returns when every run that was handed over is on the disk.
    ~History() override;

    /// From any thread.
    void keep(const RunRecord &run);
    /// Asks for a camera; `cameraKnown` is the answer. There is none as long as the store does not work.
    void ask(const QString &mac);

signals:
    void cameraKnown(KnownCamera camera);
    /// A run has come into the store.
    void stored();
    /// Why the store takes no runs at the moment; they are kept beside it. Empty: it takes them again.
    void problem(QString text);
    /// For this class alone.
    void posted();

private:
    /// From the writer's thread to this object's, where whoever made it has had the time to connect.
    void post(std::function<void()> work);
    void deliver();

    std::mutex m_mutex; ///< guards `m_posted`
    std::vector<std::function<void()>> m_posted;
    std::unique_ptr<ForwardProcess> m_forwarding;
    std::unique_ptr<HistoryWriter> m_writer; ///< last: it tells the others
};
