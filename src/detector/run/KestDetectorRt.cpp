#include "detector/run/KestDetectorRt.h"

#include "detector/checks/batteryChecks.h"
#include "detector/checks/cameraChecks.h"
#include "detector/checks/gimbalChecks.h"
#include "detector/checks/lensChecks.h"
#include "detector/checks/logCollection.h"
#include "detector/checks/pcbaChecks.h"
#include "detector/checks/placeholderChecks.h"
#include "detector/checks/tfCardChecks.h"
#include "detector/store/checkHelpers.h"
#include "detector/store/componentId.h"
#include "detector/store/KestDetectorFace.h"
#include "detector/store/verdict.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <QDate>
#include <QDebug>
#include <QFile>
#include <QTextStream>

namespace {
using std::chrono::milliseconds;

constexpr milliseconds requestPoll(50);
constexpr milliseconds taskPause(100);
constexpr milliseconds exitLimit(1000);

struct Component
{
    int id;
    QString (*routine)(int *verdict, const QList<int> &items);
    void (KestDetectorFace::*showResult)(int verdict); ///< null: the verdict is neither shown nor counted
};

constexpr std::array components = {
    Component{componentId::camera, checkCamera, &KestDetectorFace::signal_showCameraCheckResult},
    Component{componentId::gimbal, checkGimbal, &KestDetectorFace::signal_showGimbalCheckResult},
    Component{componentId::battery, checkBattery, &KestDetectorFace::signal_showBatteryCheckResult},
    Component{componentId::fan, checkFan, &KestDetectorFace::signal_showFanCheckResult},
    Component{componentId::keyBoard, checkKeyBoard, &KestDetectorFace::signal_showKeyBoardCheckResult},
    Component{componentId::lens, checkLens, &KestDetectorFace::signal_showLensCheckResult},
    Component{componentId::tfCard, checkTFCard, &KestDetectorFace::signal_showTFCardCheckResult},
    Component{componentId::voice, checkVoice, &KestDetectorFace::signal_showVoiceCheckResult},
    Component{componentId::pcba, checkPcba, &KestDetectorFace::signal_showPcbaCheckResult},
    Component{componentId::log, downLoadLogs, nullptr},
};

bool passes(int outcome)
{
    return (outcome | verdict::warning) == verdict::warning;
}

/// Runs one task; false when its component's verdict fails the run.
bool runTask(const ComponentTask &task)
{
    KestDetectorFace *face = KestDetectorFace::Get();
    const auto *component = std::find_if(components.begin(), components.end(),
                                         [&](const Component &entry) { return entry.id == task.component; });
    if (component == components.end()) {
        return false;
    }
    emit face->signal_showCurrentComponent(getComponent(task.component));
    int outcome = verdict::none;
    component->routine(&outcome, task.items);
    if (component->showResult == nullptr) {
        return true;
    }
    emit(face->*component->showResult)(outcome);
    return passes(outcome);
}
} // namespace

std::shared_ptr<KestDetectorRt> KestDetectorRt::Get()
{
    static const std::shared_ptr<KestDetectorRt> ptr(new KestDetectorRt);
    return ptr;
}

KestDetectorRt::KestDetectorRt() : workerThread("runner", exitLimit, [this] { func(); }) {}

void KestDetectorRt::killThread()
{
    workerThread.stop();
}

void KestDetectorRt::func()
{
    KestDetectorFace *face = KestDetectorFace::Get();
    while (workerThread.running()) {
        if (const auto plan = face->run.take(face->macAddress)) {
            run(*plan);
        }
        workerThread.pause(requestPoll);
    }
}

void KestDetectorRt::run(const QList<ComponentTask> &plan)
{
    KestDetectorFace *face = KestDetectorFace::Get();
    emit face->signal_setButtonEnable(false);
    bool passed = true;
    int done = 0;
    for (const ComponentTask &task : plan) {
        if (!workerThread.running()) {
            break;
        }
        passed = runTask(task) && passed;
        workerThread.pause(taskPause);
        ++done;
        emit face->signal_showTotalPersent(static_cast<int>(static_cast<float>(done * 100.0 / plan.size())));
    }
    const RunEnd end = face->run.finish();
    emit face->signal_showCheckResult(passed);
    emit face->signal_setButtonEnable(true);
    saveDetectoryLog(end.logs);
    ++m_finishedRuns;
}

void KestDetectorRt::saveDetectoryLog(const QList<checkLog> &logs)
{
    const QString folder = logFolder(QDate::currentDate().toString(QStringLiteral("yyyy-MM-dd")));
    path_create(folder);
    QFile file(folder + QStringLiteral("/DetectorLog.txt"));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        qWarning().noquote() << "Detection log not written:" << file.fileName() << file.errorString();
        return;
    }
    QTextStream out(&file);
    out.setCodec("UTF-8");
    for (const checkLog &log : logs) {
        QString block = QLatin1Char('[') + getComponent(log.component) + QStringLiteral("]:\n");
        for (const CheckItemLog &item : log.itemLogs) {
            block += item.message + item.detail;
        }
        out << block << Qt::endl;
    }
    out.flush();
    if (!file.flush() || file.error() != QFile::NoError) {
        qWarning().noquote() << "Detection log not complete:" << file.fileName() << file.errorString();
    }
}
