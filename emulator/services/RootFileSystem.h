#pragma once

#include "emulator/scenario/Scenario.h"

#include <QString>
#include <QtGlobal>

namespace emulator {

/// The file system that the camera's shell sees, made in a folder of the PC: a BusyBox with its applets, the template
/// that is compiled into the program, and what the scenario adds.
///
/// Where the caller is root, what the camera would only read belongs to root, and /data, /root and /tmp to the cage's
/// user.
class RootFileSystem
{
    Q_DISABLE_COPY(RootFileSystem)

public:
    /// `directory` must exist and be empty.
    explicit RootFileSystem(const QString &directory) : m_directory(directory) {}

    /// Returns an empty text, or why it could not be made.
    QString build(const Scenario &scenario);

    QString path() const { return m_directory; }
    /// Where the camera's shell packs its archives, and the FTP server's root.
    QString archivePath() const { return m_directory + QStringLiteral("/tmp/archive"); }
    /// First BusyBox on this PC; empty without one.
    static QString busyBox();

private:
    bool writeFile(const QString &path, const QByteArray &content, bool executable = false);
    bool copyTemplate(const Scenario &scenario);
    bool installBusyBox();
    bool writeAccounts(const Shell &shell);
    bool writeTree(const ShellTree &tree);
    void makeNullDevice();
    void handOver();

    QString m_directory;
};

/// Removes a folder and what is in it, following no link and whatever the permissions.
bool removeTree(const QString &directory);

} // namespace emulator
