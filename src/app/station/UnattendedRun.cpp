#include "app/station/UnattendedRun.h"

#include "detector/run/components.h"
#include "detector/run/KestDetectorRt.h"
#include "detector/run/logBlock.h"
#include "detector/store/checkHelpers.h"
#include "detector/store/KestDetectorFace.h"
#include "detector/store/verdict.h"
#include "record/wholeFile.h"
#include "ui/window/KestDetectorUI.h"
#include "ui/window/stopRun.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <QAbstractButton>
#include <QBuffer>
#include <QCheckBox>
#include <QCoreApplication>
#include <QPixmap>
#include <utility>

namespace {
constexpr int savedPollMs = 10;

QString verdictText(int outcome)
{
    switch (outcome) {
    case verdict::ok:
        return UnattendedRun::tr("OK");
    case verdict::failed:
        return UnattendedRun::tr("NG");
    case verdict::warning:
        return UnattendedRun::tr("warning");
    default:
        return UnattendedRun::tr("not tested");
    }
}

void print(std::FILE *file, const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), file);
    std::fflush(file);
}

int malformed(const QList<SettingProblem> &problems)
{
    return static_cast<int>(std::count_if(problems.begin(), problems.end(), [](const SettingProblem &problem) {
        return problem.kind == SettingProblem::Kind::Malformed;
    }));
}

/// The reason of a failure, in the system's words; empty when the picture is in its place.
QString savePicture(QWidget *window, const QString &path)
{
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    window->grab().save(&buffer, "PNG");
    return writeWholeFile(path, png);
}

/// The settings with these items in the place of their own.
Settings withItems(Settings settings, const PlannedItems &items)
{
    for (auto item = items.begin(); item != items.end(); ++item) {
        settings.plannedItems.insert(item.key(), item.value());
    }
    return settings;
}

/// How much a run's exit code weighs among those of several runs.
int weight(UnattendedRun::ExitCode code)
{
    constexpr std::array lightestFirst = {UnattendedRun::Passed, UnattendedRun::Failed, UnattendedRun::NotSaved,
                                          UnattendedRun::NoCamera, UnattendedRun::Stopped};
    return static_cast<int>(std::find(lightestFirst.begin(), lightestFirst.end(), code) - lightestFirst.begin());
}

UnattendedRun::ExitCode heavier(UnattendedRun::ExitCode left, UnattendedRun::ExitCode right)
{
    return weight(right) > weight(left) ? right : left;
}
} // namespace

UnattendedRun::UnattendedRun(KestDetectorUI *window, const CommandLine &line)
    : m_window(window), m_line(line), m_output(line.json, line.junit, line.repeat > 1 || line.each),
      m_handsFree([this] { startRun(); })
{
    KestDetectorFace *face = KestDetectorFace::Get();
    if (!line.items.isEmpty()) {
        face->setSettings(withItems(face->settings(), line.items));
    }
    if (m_output.isWanted()) {
        connect(KestDetectorRt::Get().get(), &KestDetectorRt::signal_runRecorded, this,
                [this](const RunRecord &record) { m_untold.append(record); });
    }
    connect(face, &KestDetectorFace::signal_setConnectStatus, this, [this](bool connected) {
        m_connected = connected;
        startWhenReady();
        if (m_line.each) {
            m_handsFree.linkIs(connected);
        }
    });
    connect(face, &KestDetectorFace::signal_setMacAddress, this, [this](const QString &mac) {
        m_mac = mac;
        startWhenReady();
        if (m_line.each) {
            m_handsFree.cameraIs(mac);
        }
    });
    connect(face, &KestDetectorFace::signal_setButtonEnable, this, [this](bool enabled) {
        if (!enabled) {
            m_handsFree.runBegins();
        } else if (m_startDue) {
            startRun();
        } else if (m_underWay) {
            runEnded(false); // it was stopped, and has no result
        }
    });
    for (const RunComponent &component : runComponents()) {
        if (component.showResult != nullptr) {
            connect(face, component.showResult, this,
                    [this, id = component.id](int outcome) { noteVerdict(id, outcome); });
        }
    }
    connect(face, &KestDetectorFace::signal_showCheckLog, this,
            [this](const checkLog &log) { m_log += logBlock(log); });
    connect(face, &KestDetectorFace::signal_showCheckResult, this, &UnattendedRun::runEnded);

    const QList<Notice> sofar = face->notices.current();
    for (const Notice &notice : sofar) {
        print(notice);
    }
    connect(&face->notices, &Notices::told, this, &UnattendedRun::print);

    connect(&m_connectTimer, &QTimer::timeout, this, [this] {
        const QString reason =
            m_connected ? tr("The camera is connected, but its MAC address is unknown") : tr("No camera found");
        ::print(stderr, tr("%1 after %2 s\n").arg(reason, QString::number(m_line.connectTimeoutSeconds)));
        leave(NoCamera);
    });
    m_connectTimer.setSingleShot(true);
    if (!m_line.each) {
        m_connectTimer.start(m_line.connectTimeoutSeconds * 1000);
    }
    connect(&m_savedTimer, &QTimer::timeout, this, &UnattendedRun::report);
    m_savedTimer.setInterval(savedPollMs);

    if (m_line.closeAfterMs >= 0) {
        QTimer::singleShot(m_line.closeAfterMs, Qt::PreciseTimer, this, [this] {
            qInfo("Closing the window");
            leave(m_exitCode);
        });
    }
}

void UnattendedRun::tellRecords()
{
    QCoreApplication::sendPostedEvents(this); // the records and the last notices come from the runner's thread
    for (const RunRecord &record : qAsConst(m_untold)) {
        const QList<UnsavedFile> unsaved = m_output.add(record);
        for (const UnsavedFile &file : unsaved) {
            KestDetectorFace::Get()->notices.tell(Notices::notSaved(file.path, file.reason));
            m_worst = heavier(m_worst, NotSaved);
        }
    }
    m_untold.clear();
}

void UnattendedRun::finish()
{
    tellRecords(); // no event loop has handed out what came last
}

int UnattendedRun::exitCode() const
{
    const Settings &settings = KestDetectorFace::Get()->settings();
    // An address that was malformed at the start has been mended if a camera was found.
    const int mended = m_started ? malformed(settings.addressProblems()) : 0;
    // A verdict by a file that nobody meant so is none; but who stops a run has not waited for one.
    return m_exitCode != Stopped && malformed(settings.problems) > mended ? NotSound : m_exitCode;
}

UnattendedRun::ExitCode UnattendedRun::exitCodeOf(const RunOutcome &outcome)
{
    switch (outcomeOf(outcome)) {
    case Outcome::Stopped:
        return Stopped;
    case Outcome::Error:
        return NoCamera;
    case Outcome::Passed:
        return outcome.end.unsaved.isEmpty() ? Passed : NotSaved;
    case Outcome::Failed:
        break;
    }
    return outcome.end.unsaved.isEmpty() ? Failed : NotSaved;
}

void UnattendedRun::startWhenReady()
{
    if (m_line.each || m_started || !m_connected || m_mac.isEmpty()) {
        return;
    }
    m_connectTimer.stop();
    startRun();
}

/// What an operator does once, before the first run.
void UnattendedRun::prepare()
{
    m_started = true;
    m_window->askNothing();
    for (const QString &name : m_line.boxes) {
        m_window->findChild<QCheckBox *>(name)->setChecked(true);
    }
    if (!m_line.savePath.isEmpty()) {
        m_window->setSavePath(m_line.savePath);
    }
}

void UnattendedRun::startRun()
{
    auto *button = m_window->findChild<QAbstractButton *>(QStringLiteral("tbStart"));
    // The signal that enables it may still be under way from the run before, and a click would go nowhere.
    m_startDue = !button->isEnabled();
    if (m_startDue) {
        return;
    }
    if (!m_started) {
        prepare();
    }
    m_verdicts.clear();
    m_log.clear();
    m_exitCode = Stopped;
    m_underWay = true;
    button->click();
}

void UnattendedRun::interrupt()
{
    const bool first = !std::exchange(m_interrupted, true);
    if (!first || !stopRun()) {
        leave(m_exitCode);
    }
}

void UnattendedRun::print(const Notice &notice)
{
    ::print(stderr, notice.text + QLatin1Char('\n'));
    if (notice.kind != Notice::Kind::NotStarted) {
        return;
    }
    const bool sound = KestDetectorFace::Get()->settings().problems.isEmpty();
    if (m_line.each && sound) {
        m_underWay = false; // the camera has gone again: the next one will come
        m_exitCode = idleCode();
    } else {
        leave(sound ? NoCamera : NotSound);
    }
}

/// With --each: what closing the window before the next camera comes leaves.
UnattendedRun::ExitCode UnattendedRun::idleCode() const
{
    return m_runs > 0 ? m_worst : Stopped;
}

void UnattendedRun::noteVerdict(int component, int outcome)
{
    m_verdicts += QStringLiteral("%1: %2\n").arg(getComponent(component), verdictText(outcome));
}

void UnattendedRun::runEnded(bool passed)
{
    m_underWay = false;
    m_runPassed = passed;
    ++m_runs;
    m_savedTimer.start();
}

void UnattendedRun::report()
{
    if (KestDetectorRt::Get()->finishedRuns() < m_runs) {
        return;
    }
    m_savedTimer.stop();
    tellRecords();
    const RunOutcome outcome = KestDetectorRt::Get()->lastRun();
    const ExitCode code = exitCodeOf(outcome);
    m_worst = heavier(m_worst, code);
    if (code != Stopped) {
        ::print(m_output.takesStandardOutput() ? stderr : stdout,
                tr("%1%2Result: %3\n\n%4")
                    .arg(m_line.each ? tr("Mac: %1\n").arg(outcome.end.identity.macAddress) : QString(), m_verdicts,
                         m_runPassed ? tr("OK") : tr("NG"), m_log));
    } else if (!m_line.each || !outcome.end.stopped) {
        leave(Stopped); // what a run cut short found is no judgement
        return;
    }
    if (m_line.each) {
        m_exitCode = idleCode();
        m_handsFree.runEnds(outcome.end.identity.macAddress, outcome.end.camera == RunEnd::Camera::Kept);
    } else if (m_runs < m_line.repeat) {
        startRun();
    } else {
        finishLastRun();
    }
}

void UnattendedRun::finishLastRun()
{
    const QString reason = m_line.screenshot.isEmpty() ? QString() : savePicture(m_window, m_line.screenshot);
    if (!reason.isEmpty()) {
        ::print(stderr, tr("The screenshot could not be saved: %1: %2\n").arg(m_line.screenshot, reason));
        m_worst = heavier(m_worst, NotSaved);
    }
    leave(m_worst);
}

void UnattendedRun::leave(ExitCode exitCode)
{
    m_exitCode = exitCode;
    m_window->close();
}
