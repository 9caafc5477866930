#pragma once

#include "detector/store/RunExchange.h"
#include "record/RunRecord.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// Where --json and --junit want the records of an unattended run's runs. GUI thread.
///
/// A file of one run holds that run's record; a file of several holds all of them so far, as JSON a line each. It is
/// written anew after each run, so that it is there completely at any moment. Standard output gets a line for each run.
class RecordOutput
{
public:
    /// Files, or "-" for standard output (JSON only); empty: not wanted. `several`: more than one run is to come.
    RecordOutput(const QString &json, const QString &junit, bool several);

    bool isWanted() const { return !m_json.isEmpty() || !m_junit.isEmpty(); }
    /// Whether standard output is to hold nothing but records.
    bool takesStandardOutput() const;

    /// Tells one more run. What could not be saved.
    QList<UnsavedFile> add(const RunRecord &record);

private:
    const QString m_json;
    const QString m_junit;
    const bool m_several;
    QByteArray m_lines;         ///< what the JSON file holds
    QList<RunRecord> m_records; ///< what the JUnit file tells
};
