#pragma once

#include "threads/GrowingPause.h"

#include <QObject>
#include <QProcess>
#include <QString>
#include <QTimer>

/// The program that brings the station's runs to the server (src/history/forward): a process of its own, so that no
/// server, however it behaves, keeps the station's memory or its closing. It lives as long as this object, and ends by
/// itself when the station dies. For the thread with the event loop.
class ForwardProcess : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(ForwardProcess)

public:
    /// `store`: the local file; `server`: the server's address as in option.ini.
    ForwardProcess(const QString &store, const QString &server);
    ~ForwardProcess() override;

    /// There are new runs.
    void wake();

private:
    void start();

    const QString m_store;
    const QString m_server;
    QProcess m_process;
    QTimer m_restart;
    GrowingPause m_pause;
};
