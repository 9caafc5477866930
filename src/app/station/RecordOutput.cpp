#include "app/station/RecordOutput.h"

#include "record/recordJson.h"
#include "record/recordJunit.h"
#include "record/wholeFile.h"

#include <cstdio>
#include <QCoreApplication>
#include <QFile>

namespace {
const QLatin1String standardOutput("-");
} // namespace

RecordOutput::RecordOutput(const QString &json, const QString &junit, bool several)
    : m_json(json), m_junit(junit), m_several(several)
{
}

bool RecordOutput::takesStandardOutput() const
{
    return m_json == standardOutput;
}

QList<UnsavedFile> RecordOutput::add(const RunRecord &record)
{
    QList<UnsavedFile> unsaved;
    const auto note = [&unsaved](const QString &path, const QString &reason) {
        if (!reason.isEmpty()) {
            unsaved.append({path, reason});
        }
    };
    if (takesStandardOutput()) {
        QFile out;
        out.open(fileno(stdout), QIODevice::WriteOnly | QIODevice::Unbuffered);
        note(QCoreApplication::translate("RecordOutput", "standard output"),
             writeAll(&out, toJson(record, JsonLayout::Line)));
    } else if (!m_json.isEmpty()) {
        m_lines += toJson(record, m_several ? JsonLayout::Line : JsonLayout::Indented);
        note(m_json, writeWholeFile(m_json, m_lines));
    }
    if (!m_junit.isEmpty()) {
        m_records.append(record);
        note(m_junit, writeWholeFile(m_junit, toJunit(m_records)));
    }
    return unsaved;
}
