#include "app/station/UnattendedRun.h"

#include "detector/run/KestDetectorRt.h"
#include "detector/store/checkHelpers.h"
#include "detector/store/componentId.h"
#include "detector/store/KestDetectorFace.h"
#include "detector/store/verdict.h"
#include "ui/window/KestDetectorUI.h"

#include <array>
#include <cstdio>
#include <QAbstractButton>
#include <QCheckBox>
#include <QPixmap>
#include <QTextStream>

namespace {
struct Result
{
    int component;
    void (KestDetectorFace::*signal)(int verdict);
};

constexpr std::array results = {
    Result{componentId::camera, &KestDetectorFace::signal_showCameraCheckResult},
    Result{componentId::gimbal, &KestDetectorFace::signal_showGimbalCheckResult},
    Result{componentId::battery, &KestDetectorFace::signal_showBatteryCheckResult},
    Result{componentId::fan, &KestDetectorFace::signal_showFanCheckResult},
    Result{componentId::keyBoard, &KestDetectorFace::signal_showKeyBoardCheckResult},
    Result{componentId::lens, &KestDetectorFace::signal_showLensCheckResult},
    Result{componentId::tfCard, &KestDetectorFace::signal_showTFCardCheckResult},
    Result{componentId::voice, &KestDetectorFace::signal_showVoiceCheckResult},
    Result{componentId::pcba, &KestDetectorFace::signal_showPcbaCheckResult},
};

constexpr int savedPollMs = 10;

QString verdictText(int outcome)
{
    switch (outcome) {
    case verdict::ok:
        return QStringLiteral("OK");
    case verdict::failed:
        return QStringLiteral("NG");
    case verdict::warning:
        return QStringLiteral("warning");
    default:
        return QStringLiteral("not tested");
    }
}

void print(std::FILE *file, const QString &text)
{
    QTextStream out(file);
    out.setCodec("UTF-8");
    out << text << Qt::flush;
}

QString logBlock(const checkLog &log)
{
    QString text = QLatin1Char('[') + getComponent(log.component) + QStringLiteral("]:\n");
    for (const CheckItemLog &item : log.itemLogs) {
        text += item.message + item.detail;
    }
    return text + QLatin1Char('\n');
}
} // namespace

UnattendedRun::UnattendedRun(KestDetectorUI *window, const CommandLine &line) : m_window(window), m_line(line)
{
    const KestDetectorFace *face = KestDetectorFace::Get();
    connect(face, &KestDetectorFace::signal_setConnectStatus, this, [this](bool connected) {
        m_connected = connected;
        startWhenReady();
    });
    connect(face, &KestDetectorFace::signal_setMacAddress, this, [this](const QString &mac) {
        m_mac = mac;
        startWhenReady();
    });
    for (const Result &result : results) {
        connect(face, result.signal, this,
                [this, component = result.component](int outcome) { noteVerdict(component, outcome); });
    }
    connect(face, &KestDetectorFace::signal_showCheckLog, this,
            [this](const checkLog &log) { m_log += logBlock(log); });
    connect(face, &KestDetectorFace::signal_showCheckResult, this, &UnattendedRun::runEnded);

    connect(&m_connectTimer, &QTimer::timeout, this, [this] {
        const QString reason = m_connected ? QStringLiteral("The camera is connected, but its MAC address is unknown")
                                           : QStringLiteral("No camera found");
        print(stderr, QStringLiteral("%1 after %2 s\n").arg(reason, QString::number(m_line.connectTimeoutSeconds)));
        leave(NoCamera);
    });
    m_connectTimer.setSingleShot(true);
    m_connectTimer.start(m_line.connectTimeoutSeconds * 1000);
    connect(&m_savedTimer, &QTimer::timeout, this, &UnattendedRun::report);
    m_savedTimer.setInterval(savedPollMs);

    if (m_line.closeAfterMs >= 0) {
        QTimer::singleShot(m_line.closeAfterMs, Qt::PreciseTimer, this, [this] {
            qInfo("Closing the window");
            leave(Passed);
        });
    }
}

void UnattendedRun::startWhenReady()
{
    if (m_started || !m_connected || m_mac.isEmpty()) {
        return;
    }
    m_started = true;
    m_connectTimer.stop();
    for (const QString &name : m_line.boxes) {
        m_window->findChild<QCheckBox *>(name)->setChecked(true);
    }
    if (!m_line.savePath.isEmpty()) {
        m_window->setSavePath(m_line.savePath);
    }
    startRun();
}

void UnattendedRun::startRun()
{
    m_verdicts.clear();
    m_log.clear();
    m_window->findChild<QAbstractButton *>(QStringLiteral("tbStart"))->click();
}

void UnattendedRun::noteVerdict(int component, int outcome)
{
    m_verdicts += QStringLiteral("%1: %2\n").arg(getComponent(component), verdictText(outcome));
}

void UnattendedRun::runEnded(bool passed)
{
    m_runPassed = passed;
    m_allPassed = m_allPassed && passed;
    ++m_runs;
    m_savedTimer.start();
}

void UnattendedRun::report()
{
    if (KestDetectorRt::Get()->finishedRuns() < m_runs) {
        return;
    }
    m_savedTimer.stop();
    print(stdout, QStringLiteral("%1Result: %2\n\n%3")
                      .arg(m_verdicts, m_runPassed ? QStringLiteral("OK") : QStringLiteral("NG"), m_log));
    if (m_runs < m_line.repeat) {
        startRun();
        return;
    }
    if (!m_line.screenshot.isEmpty() && !m_window->grab().save(m_line.screenshot, "PNG")) {
        print(stderr, QStringLiteral("The screenshot could not be saved: %1\n").arg(m_line.screenshot));
    }
    leave(m_allPassed ? Passed : Failed);
}

void UnattendedRun::leave(int exitCode)
{
    m_exitCode = exitCode;
    m_window->close();
}
