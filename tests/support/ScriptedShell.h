#pragma once

#include "telnet/sync/SyncCondMutexData.h"

#include <map>
#include <QObject>
#include <QString>
#include <QStringList>

/// Stands in for the shell session and the downloader behind the blocking faces: it answers the worker threads' calls
/// from a script and writes them down. Lives on the test's main thread, which has to serve events meanwhile.
class ScriptedShell : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(ScriptedShell)

public:
    ScriptedShell();

    /// From now on `command` succeeds with `reply`. A command without a script fails as if the prompt never came.
    void answer(const QString &command, const QString &reply) { m_replies[command] = reply; }
    /// From now on downloads end with `result`.
    void setDownloadResult(int result) { m_downloadResult = result; }
    /// From now on the shell's connection is there, or has gone: the latter as a loss.
    void setConnected(bool connected);
    void reset();

    /// "shell <step> <command without its line break>" and "ftp <url> <local file>", in the order of the calls.
    QStringList calls() const { return m_calls; }

private:
    void runCommand(const QString &command, SyncCondMutexData *sync, int step, QString *reply);
    void download(const QString &url, SyncCondMutexData *sync, const QString &localFile);

    std::map<QString, QString> m_replies;
    int m_downloadResult = 0;
    QStringList m_calls;
};
