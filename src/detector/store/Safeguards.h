#pragma once

#include "detector/store/RunExchange.h"
#include "detector/store/Settings.h"

#include <QList>
#include <QString>
#include <QStringList>

/// What the operator has in hand at the moment of pressing Start.
struct StartConditions
{
    int tickedBoxes = 0;
    bool connected = false;
    QString macAddress; ///< of the camera; empty: unknown
    QList<SettingProblem> settingProblems;
};

/// The rules that `[Station] safeguards=true` adds, all of them and nowhere else: whoever acts by one asks here. Off,
/// every answer is that of a station without rules. A small value; made by `KestDetectorFace::safeguards`.
class Safeguards
{
public:
    explicit Safeguards(bool on) : m_on(on) {}

    /// What is missing before a run may start, one text for the operator each; empty: it may.
    QStringList missingForStart(const StartConditions &conditions) const;

    /// The verdict that a component is shown and counted with. `unanswered` requests of it leave it NG whatever its
    /// routine made of them; a component behind which there is no test counts as not tested.
    int componentVerdict(int component, int outcome, int unanswered) const;
    /// Whether this verdict of this component fails a run.
    bool failsRun(int component, int shownVerdict) const;
    /// The verdict of the whole run. `passed`: no component has failed it; `tested`: whether `countsAsTested` was true
    /// for any of its components.
    bool runPassed(bool passed, bool tested, RunEnd::Camera camera) const;
    /// Whether something happens when this component runs: fan, keys and audio only pass. The same on and off.
    static bool countsAsTested(int component);

    /// Whether a query, not an order, is sent again within its wait until an answer has come.
    bool resendsQueries() const { return m_on; }
    /// Whether the folder button and the boxes without a test are locked during a run, too.
    bool locksEverythingDuringRun() const { return m_on; }
    /// Whether the cells of the event log are read-only.
    bool locksEventLog() const { return m_on; }
    /// Whether verdict, icons and rows of the camera before are cleared when another one connects.
    bool clearsResultsOfOtherCamera() const { return m_on; }
    /// Whether what is on the disk is kept: a run writes into one folder, that of its begin, into which no earlier run
    /// has written; a file takes its name only when it is complete; DetectorLog.txt is not replaced by an empty one.
    bool keepsEvidence() const { return m_on; }
    /// Whether passwords and passphrases are kept out of log.txt, and out of sight.
    bool hidesSecrets() const { return m_on; }

private:
    bool m_on;
};
