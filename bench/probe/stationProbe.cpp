// Watches the station from within, without a word in its sources: reports when the camera's link is complete, the
// beginning and the end of each run, the processor time and the memory that it took and, with KEST_BENCH_HEARTBEAT set,
// for how long the event loop was away at most. With KEST_BENCH_WAITS=n it makes n shell calls that find no prompt.

#include "detector/store/KestDetectorFace.h"
#include "probe/report.h"
#include "telnet/session/TelnetInteractiveFace.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <QAbstractButton>
#include <QApplication>
#include <QTimer>
#include <thread>
#include <unistd.h>

namespace {
constexpr int heartbeatMs = 1;
constexpr std::int64_t nsPerMs = 1'000'000;
// Longer than the station waits for the prompt, so that it comes after the call has given up, and before the next one.
const char *const silentCommand = "sleep 5.4\n";
constexpr std::chrono::seconds pauseBetweenWaits(1);

std::int64_t residentKiB()
{
    long pages = 0;
    std::FILE *file = std::fopen("/proc/self/statm", "r");
    if (file != nullptr) {
        if (std::fscanf(file, "%*s %ld", &pages) != 1) {
            pages = 0;
        }
        std::fclose(file);
    }
    return pages * sysconf(_SC_PAGESIZE) / 1024;
}

class StationProbe final : public QObject
{
public:
    explicit StationProbe(QObject *parent) : QObject(parent)
    {
        // The window and the services come into being between now and the first turn of the event loop.
        QTimer::singleShot(0, this, &StationProbe::attach);
    }

    ~StationProbe() override
    {
        if (m_waits.joinable()) {
            m_waits.join();
        }
    }

private:
    void attach()
    {
        const KestDetectorFace *face = KestDetectorFace::Get();
        const QWidgetList widgets = QApplication::allWidgets();
        const auto start = std::find_if(widgets.begin(), widgets.end(), [](const QWidget *widget) {
            return widget->objectName() == QLatin1String("tbStart");
        });
        // `pressed` comes before the window's own `clicked`.
        connect(qobject_cast<QAbstractButton *>(*start), &QAbstractButton::pressed, this, &StationProbe::runBegins);
        connect(
            face, &KestDetectorFace::signal_setButtonEnable, this,
            [](bool enabled) {
                if (!enabled) {
                    reportNow("run-taken");
                }
            },
            Qt::DirectConnection);
        connect(face, &KestDetectorFace::signal_showCheckResult, this, &StationProbe::runEnds);
        connect(face, &KestDetectorFace::signal_setMacAddress, this, [this](const QString &mac) {
            if (!mac.isEmpty()) {
                reportNow("linked");
                makeWaits(qEnvironmentVariableIntValue("KEST_BENCH_WAITS"));
            }
        });
        if (qEnvironmentVariableIsSet("KEST_BENCH_HEARTBEAT")) {
            m_heartbeat.setTimerType(Qt::PreciseTimer);
            m_heartbeat.setInterval(heartbeatMs);
            connect(&m_heartbeat, &QTimer::timeout, this, &StationProbe::beat);
        }
    }

    void runBegins()
    {
        m_processorBefore = processorNs();
        m_runStart = monotonicNs();
        m_longestAbsence = 0;
        m_lastBeat = monotonicNs();
        m_processorAtLastBeat = threadProcessorNs();
        if (m_heartbeat.interval() == heartbeatMs) {
            m_heartbeat.start();
        }
        reportNow("run-start");
    }

    void runEnds(bool passed)
    {
        reportNow("run-end");
        report("run-passed", passed ? 1 : 0);
        report("run-processor-ns", processorNs() - m_processorBefore);
        report("run-resident-kib", residentKiB());
        if (m_heartbeat.isActive()) {
            beat();
            m_heartbeat.stop();
            report("run-longest-absence-ns", m_longestAbsence);
            report("run-longest-absence-processor-ns", m_processorInLongestAbsence);
            report("run-longest-absence-at-ns", m_longestAbsenceAt);
        }
    }

    void beat()
    {
        const std::int64_t now = monotonicNs();
        const std::int64_t absence = now - m_lastBeat - heartbeatMs * nsPerMs;
        const std::int64_t processor = threadProcessorNs();
        if (absence > m_longestAbsence) {
            m_longestAbsence = absence;
            m_longestAbsenceAt = now - m_runStart;
            m_processorInLongestAbsence = processor - m_processorAtLastBeat;
        }
        m_lastBeat = now;
        m_processorAtLastBeat = processor;
    }

    void makeWaits(int count)
    {
        if (count == 0 || m_waits.joinable()) {
            return;
        }
        m_waits = std::thread([count] {
            for (int i = 0; i < count; ++i) {
                std::this_thread::sleep_for(pauseBetweenWaits);
                const std::int64_t processor = processorNs();
                const std::int64_t begin = monotonicNs();
                QString reply;
                report("wait-result", TelnetInteractiveFace::Get()->telnet(QLatin1String(silentCommand), 3, &reply));
                report("wait-ns", monotonicNs() - begin);
                report("wait-processor-ns", processorNs() - processor);
            }
            reportNow("waits-done");
        });
    }

    QTimer m_heartbeat;
    std::int64_t m_lastBeat = 0;
    std::int64_t m_longestAbsence = 0;
    std::int64_t m_longestAbsenceAt = 0; ///< since the run's start
    std::int64_t m_processorInLongestAbsence = 0;
    std::int64_t m_processorAtLastBeat = 0;
    std::int64_t m_runStart = 0;
    std::int64_t m_processorBefore = 0;
    std::thread m_waits;
};

void watchStation()
{
    new StationProbe(qApp);
}
} // namespace

Q_COREAPP_STARTUP_FUNCTION(watchStation)
