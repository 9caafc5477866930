#include "support/ScriptedShell.h"

#include "ftp/FtpDownLoad.h"
#include "ftp/FtpDownLoadFace.h"
#include "telnet/session/TelnetInteractive.h"
#include "telnet/session/TelnetInteractiveFace.h"

ScriptedShell::ScriptedShell()
{
    auto *shell = TelnetInteractiveFace::Get();
    auto *ftp = FtpDownLoadFace::Get();
    shell->disconnect(TelnetInteractive::Get());
    ftp->disconnect(FtpDownLoad::Get());
    connect(shell, &TelnetInteractiveFace::signal_telnet, this, &ScriptedShell::runCommand);
    connect(ftp, &FtpDownLoadFace::signal_ftpDownLoad, this, &ScriptedShell::download);
}

void ScriptedShell::setConnected(bool connected)
{
    auto *shell = TelnetInteractiveFace::Get();
    const bool lost = shell->connected() && !connected;
    shell->slot_connected(connected);
    if (lost) {
        emit shell->signal_connectionLost();
    }
}

void ScriptedShell::reset()
{
    m_replies.clear();
    m_downloadResult = 0;
    m_calls.clear();
}

void ScriptedShell::runCommand(const QString &command, SyncCondMutexData *sync, int step, QString *reply)
{
    m_calls.append(
        QStringLiteral("shell %1 %2").arg(QString::number(step), QString(command).remove(QLatin1Char('\n'))));
    const auto found = m_replies.find(command);
    const bool known = found != m_replies.end();
    *reply = known ? found->second : QString();
    sync->complete(known ? 0 : -1);
}

void ScriptedShell::download(const QString &url, SyncCondMutexData *sync, const QString &localFile)
{
    m_calls.append(QStringLiteral("ftp %1 %2").arg(url, localFile));
    sync->complete(m_downloadResult);
}
