#include "detector/run/RunRecorder.h"

#include "detector/store/checkHelpers.h"
#include "detector/store/componentId.h"
#include "detector/store/KestDetectorFace.h"
#include "detector/store/Notices.h"
#include "detector/store/programVersion.h"
#include "detector/store/verdict.h"
#include "record/itemKeys.h"

#include <algorithm>
#include <QCoreApplication>
#include <QSysInfo>
#include <variant>

namespace {
using std::chrono::microseconds;

QString translated(const char *text)
{
    return QCoreApplication::translate("RunRecorder", text);
}

QList<PlannedComponent> plannedComponents(const QList<ComponentTask> &plan)
{
    QList<PlannedComponent> planned;
    for (const ComponentTask &task : plan) {
        const QString key = componentKey(task.component);
        if (!key.isEmpty()) {
            planned.append({task.component, key, task.items});
        }
    }
    return planned;
}

/// A collected log has passed when its file is there: the code of its item is only that of the last shell call.
Verdict itemVerdict(int component, const CheckItemLog &log)
{
    if (component != componentId::log) {
        return verdictOfCode(log.result);
    }
    return log.result == verdict::ok && !log.files.isEmpty() ? Verdict::Passed : Verdict::Failed;
}

Verdict componentVerdict(const ComponentRecord &component, int shownVerdict)
{
    const bool allPassed = std::all_of(component.items.begin(), component.items.end(),
                                       [](const ItemRecord &item) { return item.verdict == Verdict::Passed; });
    return component.id == componentId::log && shownVerdict == verdict::ok && !allPassed ? Verdict::Failed
                                                                                         : verdictOfCode(shownVerdict);
}

ItemRecord itemRecord(int component, const CheckItemLog &log)
{
    ItemRecord item;
    item.key = itemKey(component, log.number);
    item.number = log.number;
    item.name = log.name;
    item.verdict = itemVerdict(component, log);
    item.message = log.message;
    item.detail = log.detail;
    item.duration = log.duration;
    item.request = log.request;
    item.measurements = log.measurements;
    return item;
}

bool isUnanswered(const CheckItemLog &item)
{
    return item.request &&
           (item.request->kind == RequestEnd::Kind::NoReply || item.request->kind == RequestEnd::Kind::WrongSize);
}

/// The keys of what makes this component fail a run; none if it does not.
QStringList failures(const ComponentRecord &component, const checkLog &log)
{
    const bool failed = component.verdict == Verdict::Failed || component.verdict == Verdict::NotTested;
    QStringList keys;
    for (const CheckItemLog &item : log.itemLogs) {
        if ((failed && item.result != verdict::ok) || isUnanswered(item)) {
            keys.append(itemKey(component.id, item.number));
        }
    }
    if (failed && keys.isEmpty()) {
        keys.append(component.key);
    }
    return keys;
}

QStringList brokenLimits(const checkLog &log)
{
    QStringList keys;
    for (const CheckItemLog &item : log.itemLogs) {
        if (item.breaksLimit) {
            keys.append(itemKey(log.component, item.number));
        }
    }
    return keys;
}

/// A run may begin before its camera has been read.
void addWhatCameLate(CameraRecord *camera)
{
    const KestDetectorFace *face = KestDetectorFace::Get();
    if (camera->wifiName.isEmpty()) {
        camera->wifiName = face->wifiName;
    }
    if (camera->link.isEmpty()) {
        camera->link = face->linkName;
    }
}

QString firmwareIn(const QList<ComponentRecord> &components)
{
    const QString firmware = QString::fromLatin1(fieldInfo(Field::Firmware).name);
    for (const ComponentRecord &component : components) {
        for (const ItemRecord &item : component.items) {
            for (const Measurement &measurement : item.measurements) {
                if (measurement.name == firmware) {
                    return std::get<QString>(measurement.value);
                }
            }
        }
    }
    return {};
}
} // namespace

RunRecorder::RunRecorder(const QList<ComponentTask> &plan)
{
    const KestDetectorFace *face = KestDetectorFace::Get();
    m_record.id = QUuid::createUuid();
    m_record.programVersion = QLatin1String(programVersion());
    const Settings &settings = face->settings();
    m_record.station = {settings.stationName.isEmpty() ? QSysInfo::machineHostName() : settings.stationName,
                        settings.stationLocation};
    const RunIdentity identity = face->run.identity();
    m_record.operatorName = identity.labels.operatorName;
    m_record.batch = identity.labels.batch;
    m_record.serial = identity.labels.serial;
    m_record.camera.wifiName = face->wifiName;
    m_record.camera.link = face->linkName;
    m_record.begin = identity.begin;
    m_record.plan = plannedComponents(plan);
    QObject::connect(
        face, &KestDetectorFace::signal_showCheckLog, &m_receiver,
        [this](const checkLog &log) {
            if (log.component == m_component.component) {
                m_component.itemLogs = log.itemLogs;
            }
        },
        Qt::DirectConnection);
}

void RunRecorder::beginComponent(int component)
{
    m_component = {component, {}};
    m_componentBegin = Clock::now();
}

void RunRecorder::endComponent(int shownVerdict, bool counts)
{
    ComponentRecord component;
    component.id = m_component.component;
    component.key = componentKey(component.id);
    component.name = getComponent(component.id);
    component.duration = std::chrono::duration_cast<microseconds>(Clock::now() - m_componentBegin);
    for (const CheckItemLog &item : qAsConst(m_component.itemLogs)) {
        component.items.append(itemRecord(component.id, item));
    }
    component.verdict = componentVerdict(component, shownVerdict);
    m_failed += counts ? failures(component, m_component) : brokenLimits(m_component);
    m_record.components.append(component);
    m_logs.append(m_component);
}

bool RunRecorder::breaksLimit() const
{
    return !brokenLimits(m_component).isEmpty();
}

void RunRecorder::endRun()
{
    m_record.duration = std::chrono::duration_cast<microseconds>(Clock::now() - m_begin);
    m_record.end = QDateTime::currentDateTime();
}

QString RunRecorder::reasonOf(const RunOutcome &outcome) const
{
    switch (outcomeOf(outcome)) {
    case Outcome::Passed:
        return {};
    case Outcome::Stopped:
        return outcome.end.stopped ? Notices::stopped().text
                                   : translated(QT_TRANSLATE_NOOP("RunRecorder", "the program was closed"));
    case Outcome::Error:
        return (outcome.end.camera == RunEnd::Camera::Changed ? Notices::cameraChanged() : Notices::cameraLost()).text;
    case Outcome::Failed:
        break;
    }
    if (!m_failed.isEmpty()) {
        return m_failed.join(QStringLiteral(", "));
    }
    return outcome.tested ? translated(QT_TRANSLATE_NOOP("RunRecorder", "something else than a known item failed"))
                          : Notices::nothingTested().text;
}

RunRecord RunRecorder::record(const RunOutcome &outcome) const
{
    RunRecord record = m_record;
    for (int i = 0; i < record.components.size(); ++i) {
        const QList<CheckItemLog> &logs = m_logs.at(i).itemLogs;
        for (int j = 0; j < logs.size(); ++j) {
            for (const QString &path : logs.at(j).files) {
                if (const auto file = describeFile(path)) {
                    record.components[i].items[j].files.append(*file);
                }
            }
        }
    }
    record.camera.mac = outcome.end.cameraMac;
    if (outcome.end.camera == RunEnd::Camera::Kept) {
        addWhatCameLate(&record.camera);
    }
    record.camera.firmware = firmwareIn(record.components);
    record.outcome = outcomeOf(outcome);
    record.reason = reasonOf(outcome);
    return record;
}
