#pragma once

#include "record/RunRecord.h"

#include <optional>
#include <QString>
#include <QStringList>

/// The folder beside a store for the records that it cannot take at the moment: one file of JSON for each run, there
/// completely or not at all. Several programs may use it at once: to take a run in twice does no harm, since its id
/// decides. From any thread.
class Spool
{
public:
    /// Of the store in the file at `storePath`: "<storePath>-spool".
    explicit Spool(const QString &storePath);

    const QString &folder() const { return m_folder; }

    /// The reason of a failure, in the system's words; empty when the record is on the disk.
    QString put(const RunRecord &run) const;
    /// The files that wait, at most `most`.
    QStringList files(int most) const;
    /// What a file holds. One that holds no record is set aside under another name, for people to look at, and told in
    /// `problem`.
    static std::optional<RunRecord> read(const QString &file, QString *problem);
    /// Of a run that the store has now.
    static void remove(const QString &file);

private:
    QString m_folder;
};
