#pragma once

#include <QString>

/// The place of a file of evidence while it is being written. Where the safeguards keep evidence it is called
/// "<name>.part" until it is complete, and a complete one of that name stays until then; else it has its name from the
/// start. A small value.
class PartFile
{
public:
    PartFile() = default;
    PartFile(const QString &path, bool keepsEvidence);

    QString path() const { return m_path; }
    /// Where to write.
    QString writtenTo() const { return m_writtenTo; }
    /// Everything has been written: the file takes its name, in place of an earlier one. Why it could not, in the
    /// system's words; empty when it has its name.
    QString takeName() const;

private:
    QString m_path;
    QString m_writtenTo;
};
