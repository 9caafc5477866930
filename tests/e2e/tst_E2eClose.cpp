#include "queries.h"
#include "records.h"
#include "Stage.h"
#include "support/fileContent.h"
#include "waiting.h"

#include <csignal>
#include <cstdio>
#include <QElapsedTimer>
#include <QtTest>

/// The window closed at hundreds of moments, from the program's first milliseconds to the middle of a run, the program
/// told to end, and its run stopped: it is gone within 3 s, every thread with it, leaves nothing behind, and has not
/// written down that a camera failed that it only had no time for.
class tst_E2eClose : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void close_data();
    void close();

private:
    std::vector<QStringList> m_problems; ///< by number of the series
};

namespace {
constexpr int momentsOfSeries = 20;
#ifdef KEST_SANITIZED
// A sanitizer's own work at the end, such as the search for leaks, is in the measured time.
constexpr int limitMs = 20000;
#else
constexpr int limitMs = 3000;
#endif

enum class Way {
    window, ///< the window is closed
    signal, ///< SIGTERM
    stop,   ///< SIGINT: the run is stopped, or the program told to end where there is none
    each,   ///< likewise with a run for each camera: when its run is stopped, the program waits for another SIGINT
};

/// So many moments with one camera.
struct Series
{
    const char *name;
    QByteArray scenario; ///< null: there is no camera
    Way way;
    bool passes; ///< whether every component would pass, given time
};

constexpr char healthy[] = "{}";
constexpr char hangingShell[] = R"({"shell": {"files": {"/bin/mount": "#!/bin/sh\nexec sleep 60\n"}}})";

constexpr char silentShell[] = R"({"shell": {"fault": "silent"}})";
constexpr char floodingShell[] = R"({"shell": {"fault": "flood"}})";
constexpr char stalledFtp[] = R"({"ftp": {"fault": "stall"}})";

QByteArray noAnswer()
{
    return faulty(namesOfAllQueries(), fault("drop", always));
}

const Series allSeries[] = {
    {"healthy camera", healthy, Way::window, true},
    {"healthy camera, other moments", healthy, Way::window, true},
    {"no camera", {}, Way::window, false},
    {"camera that answers no query", noAnswer(), Way::window, false},
    {"camera that answers late", faulty(namesOfAllQueries(), fault("delay", always, R"(, "ms": 400)")), Way::window,
     true},
    {"camera that answers no registration", faulty({"registerPC"}, fault("drop", always)), Way::window, false},
    {"shell that says nothing", silentShell, Way::window, false},
    {"shell that floods", floodingShell, Way::window, false},
    {"shell command that hangs", hangingShell, Way::window, false},
    {"FTP transfer that hangs", stalledFtp, Way::window, true},
    {"SIGTERM, healthy camera", healthy, Way::signal, true},
    {"SIGTERM, camera that answers no query", noAnswer(), Way::signal, false},
    {"SIGINT, healthy camera", healthy, Way::stop, true},
    {"SIGINT, camera that answers no query", noAnswer(), Way::stop, false},
    {"SIGINT, shell command that hangs", hangingShell, Way::stop, false},
    {"SIGINT, FTP transfer that hangs", stalledFtp, Way::stop, true},
    {"SIGINT while each camera is tested, healthy camera", healthy, Way::each, true},
    {"SIGINT while each camera is tested, camera that answers no query", noAnswer(), Way::each, false},
};
constexpr int seriesCount = sizeof allSeries / sizeof allSeries[0];

/// Half of the moments lie within the first 0.4 s, in which the station connects; no two series share one.
int moment(int series, int number)
{
    constexpr int dense = momentsOfSeries / 2;
    return number < dense ? number * 40 + series * 3 : 400 + (number - dense) * 260 + series * 19;
}

/// The first word of failure in a log of the station's; empty if there is none.
QString falseAlarm(const StationProcess &station)
{
    const QMap<QString, QByteArray> files = station.allSaved();
    for (auto file = files.begin(); file != files.end(); ++file) {
        if (!file.key().contains(QLatin1String("/DetectorLog."))) {
            continue;
        }
        for (const char *word : {"失败", "NG", "faild"}) {
            if (file.value().contains(word)) {
                return QString::fromUtf8(word);
            }
        }
    }
    return {};
}

bool hasStoppedItsRun(const StationProcess &station)
{
    return station.debugOutput().content().contains("the run was stopped\n");
}

/// Closed before a run or during one, the program ends with 4; where it has worked through all cameras that came, with
/// the code of their verdicts.
bool isRightExitCode(int exitCode, const Series &series, const StationProcess &station)
{
    constexpr int ended = 4;
    if (series.way != Way::each) {
        return exitCode == ended;
    }
    static const QMap<int, QByteArray> outcomes{{0, "passed"}, {1, "failed"}, {ended, "stopped"}};
    const bool stopped = hasStoppedItsRun(station);
    if (exitCode == ended && !stopped) {
        return true;
    }
    const QList<QByteArray> records = recordsIn(fileContent(station.recordsPath(), {}));
    return stopped == (exitCode == ended) && outcomes.contains(exitCode) && records.size() == 1 &&
           records.first().contains("\"outcome\":\"" + outcomes.value(exitCode) + '"');
}

/// Starts the station and ends it at a moment; what went wrong, or an empty text.
QString endAt(const Series &series, int milliseconds)
{
    StationProcess station;
    QStringList options{QStringLiteral("--json"), station.recordsPath()};
    options += series.way == Way::each ? QStringList{QStringLiteral("--each")}
                                       : QStringList{QStringLiteral("--repeat"), QStringLiteral("1000000")};
    if (series.way == Way::window) {
        options += QStringList{QStringLiteral("--close-after"), QString::number(milliseconds)};
    }
    station.start(QStringLiteral("all"), options);
    const auto hasSaid = [&](const char *words) {
        return waitUntil([&] { return !station.isRunning() || station.debugOutput().content().contains(words); },
                         milliseconds + 60000);
    };
    if (series.way != Way::window) {
        // Its first service begins just after the window is there and signals are taken for a hand's click.
        hasSaid("The runner thread begins\n");
        QThread::msleep(static_cast<unsigned long>(milliseconds));
        station.signal(series.way == Way::signal ? SIGTERM : SIGINT);
    } else {
        hasSaid("Closing the window");
    }
    QElapsedTimer clock;
    clock.start();
    if (series.way == Way::each) {
        waitUntil([&] { return !station.isRunning() || hasStoppedItsRun(station); }, 60000);
        if (hasStoppedItsRun(station)) {
            station.signal(SIGINT);
        }
    }
    const int exitCode = station.finish(60000);
    const qint64 taken = clock.elapsed();
    const QStringList leftovers = station.leftovers();
    const QString alarm = series.passes ? falseAlarm(station) : QString();
    const QString parts = partsProblem(station);
    if (isRightExitCode(exitCode, series, station) && taken < limitMs && leftovers.isEmpty() && alarm.isEmpty() &&
        parts.isEmpty()) {
        return {};
    }
    // Whole, which a message of the test would not be.
    std::fprintf(stderr, "%s\n", station.debugOutput().content().constData());
    return QStringLiteral("%1 ms: exit code %2 after %3 ms, %4 %5 %6")
        .arg(QString::number(milliseconds), QString::number(exitCode), QString::number(taken), leftovers.join(' '),
             alarm, parts);
}

QStringList endAtAllMoments(int number)
{
    const Series &series = allSeries[number];
    CameraProcess camera;
    if (!series.scenario.isNull() && !camera.start(series.scenario)) {
        return {QStringLiteral("the camera does not start")};
    }
    QStringList problems;
    for (int i = 0; i < momentsOfSeries; ++i) {
        const QString problem = endAt(series, moment(number, i));
        if (!problem.isEmpty()) {
            problems.append(problem);
        }
    }
    if (!series.scenario.isNull() && !camera.stop()) {
        problems.append(QStringLiteral("the camera does not stop"));
    }
    return problems;
}
} // namespace

void tst_E2eClose::initTestCase()
{
    m_problems.resize(seriesCount);
    constexpr int width = 6;
    inPrivateNetworks(seriesCount, width,
                      [this](int i) { m_problems.at(static_cast<std::size_t>(i)) = endAtAllMoments(i); });
}

void tst_E2eClose::close_data()
{
    QTest::addColumn<int>("series");
    for (int i = 0; i < seriesCount; ++i) {
        QTest::newRow(allSeries[i].name) << i;
    }
}

void tst_E2eClose::close()
{
    QFETCH(int, series);
    const QStringList &problems = m_problems.at(static_cast<std::size_t>(series));
    QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
}

QTEST_GUILESS_MAIN(tst_E2eClose)
#include "tst_E2eClose.moc"
