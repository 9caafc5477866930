// Watches the station from within, without a word in its sources: reports when the camera's link is complete, the
// beginning and the end of each run, the processor time and the memory that it took and, with KEST_BENCH_HEARTBEAT set,
// for how long the event loop was away at most. With KEST_BENCH_WAITS=n it makes n shell calls that find no prompt.

#include "detector/store/KestDetectorFace.h"
#include "probe/Heartbeat.h"
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
    }

    void runBegins()
    {
        m_processorBefore = processorNs();
        if (m_isBeating) {
            m_heartbeat.begin();
        }
        reportNow("run-start");
    }

    void runEnds(bool passed)
    {
        reportNow("run-end");
        report("run-passed", passed ? 1 : 0);
        report("run-processor-ns", processorNs() - m_processorBefore);
        report("run-resident-kib", residentKiB());
        if (m_isBeating) {
            const Heartbeat::Absence longest = m_heartbeat.end();
            report("run-longest-absence-ns", longest.ns);
            report("run-longest-absence-processor-ns", longest.processorNs);
            report("run-longest-absence-at-ns", longest.atNs);
        }
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

    const bool m_isBeating = qEnvironmentVariableIsSet("KEST_BENCH_HEARTBEAT");
    Heartbeat m_heartbeat;
    std::int64_t m_processorBefore = 0;
    std::thread m_waits;
};

void watchStation()
{
    new StationProbe(qApp);
}
} // namespace

Q_COREAPP_STARTUP_FUNCTION(watchStation)
