#pragma once

#include <QString>

/// Where the station keeps its things. A program in a folder that can be written to by who runs it keeps all of them
/// there, beside itself; an installed one, whose folder belongs to root, keeps in the user's own folders what it
/// writes. A plain value, for any thread.
class Places
{
public:
    /// Those of a program in `programFolder`, as the user's folders and the environment are now.
    explicit Places(const QString &programFolder);
    /// This program's. Asked once; what the diagnostic log and the history need of folders is then there.
    static const Places &ofProgram();

    /// The settings, which are beside the program in either case: option.ini, which may be a link.
    QString settings() const;
    /// The folder of the diagnostic log and of the history.
    const QString &state() const { return m_state; }
    /// Below which results are saved until the operator chooses another folder.
    const QString &results() const { return m_results; }

private:
    QString m_program;
    QString m_state;
    QString m_results;
};
