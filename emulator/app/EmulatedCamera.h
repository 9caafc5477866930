#pragma once

#include "emulator/app/Options.h"
#include "emulator/command/CommandService.h"
#include "emulator/scenario/Scenario.h"
#include "emulator/services/FaultyFtp.h"
#include "emulator/services/FaultyShell.h"
#include "emulator/services/FtpService.h"
#include "emulator/services/RootFileSystem.h"
#include "emulator/services/ShellService.h"

#include <memory>
#include <QObject>
#include <QString>
#include <QTimer>

namespace emulator {

/// The whole camera: command service, shell and FTP, switched on and off together.
class EmulatedCamera : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(EmulatedCamera)

public:
    EmulatedCamera(const Options &options, const Scenario &scenario, const QString &runDirectory);
    ~EmulatedCamera() override;

    /// Returns an empty text once everything listens, or why it does not.
    QString start();
    /// Ends all services, connections and processes. Further calls do nothing.
    void stop();
    /// Where everything listens, for the user.
    QString description() const;

    /// Off, and on again after the scenario's time.
    void reboot();
    /// Out of radio range, and back with the next call: commands are not answered.
    void toggleRadio();

signals:
    /// A service has ended, or did not come back from a reboot.
    void failed(const QString &reason);

private:
    QString startShell();
    QString startFaultyShell();
    QString startFtp();
    QString startFaultyFtp();
    void startAgain();
    void note(const QString &text) const;

    Options m_options;
    Scenario m_scenario;
    QString m_runDirectory;
    RootFileSystem m_files;
    CommandService m_commands;
    std::unique_ptr<ShellService> m_shell;
    std::unique_ptr<FtpService> m_ftp;
    std::unique_ptr<FaultyShell> m_faultyShell;
    std::unique_ptr<FaultyFtp> m_faultyFtp;
    QTimer m_rebootTimer;
    bool m_filesBuilt = false;
    bool m_inRange = true;
};

} // namespace emulator
