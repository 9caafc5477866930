#pragma once

#include "emulator/services/RootFileSystem.h"
#include "emulator/services/ServiceProcess.h"

#include <memory>
#include <QHostAddress>
#include <QObject>
#include <QString>

namespace emulator {

/// The camera's shell: BusyBox's telnetd, which runs `login` and `ash` in a cage (`CagedLogin`) for each connection.
class ShellService : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(ShellService)

public:
    /// `runDirectory`: for small files of its own.
    ShellService(const RootFileSystem &files, const QString &runDirectory, bool verbose);

    /// Returns an empty text, or why the shell cannot be served.
    QString start(const QHostAddress &address, quint16 port);
    /// Ends it and every connection.
    void stop();

signals:
    void ended(const QString &reason);

private:
    QString cageProblem(const QProcessEnvironment &environment) const;

    QString m_root;
    QString m_launcher;
    QString m_issue;
    bool m_verbose;
    std::unique_ptr<ServiceProcess> m_process;
};

} // namespace emulator
