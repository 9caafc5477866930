#pragma once

#include <QString>
#include <QtGlobal>

namespace emulator {

/// The folder in which the emulated camera lives, gone without a trace when this goes.
class RunDirectory
{
    Q_DISABLE_COPY(RunDirectory)

public:
    /// `wanted`: a missing or empty folder; empty for a fresh one beside the program.
    explicit RunDirectory(const QString &wanted);
    ~RunDirectory();

    const QString &path() const { return m_path; }
    /// Empty when the folder is there.
    const QString &error() const { return m_error; }

private:
    QString m_path;
    QString m_error;
    bool m_made = false; ///< by us, and not there before
};

} // namespace emulator
