#include "history/store/Tallies.h"

#include "record/recordNames.h"

#include <array>

namespace {
struct OutcomeSum
{
    Outcome outcome;
    qint64 TallySums::*sum;
};

constexpr std::array outcomeSums = {
    OutcomeSum{Outcome::Passed, &TallySums::passed},
    OutcomeSum{Outcome::Failed, &TallySums::failed},
    OutcomeSum{Outcome::Stopped, &TallySums::stopped},
    OutcomeSum{Outcome::Error, &TallySums::error},
};

constexpr qint64 microsecondsPerMs = 1000;
} // namespace

void Tallies::add(const RunRows &run, CameraRow *camera)
{
    TallySums &sums = m_sums[run.tally];
    ++sums.runs;
    sums.durationMs += run.durationUs / microsecondsPerMs;
    for (const OutcomeSum &row : outcomeSums) {
        if (row.outcome == run.outcome) {
            ++(sums.*row.sum);
        }
    }
    std::map<QString, ItemSums> &items = m_itemSums[run.tally];
    for (const ItemVerdict &item : run.items) {
        ItemSums &itemSums = items[item.item];
        ++itemSums.ran;
        itemSums.failed += item.verdict == Verdict::Failed ? 1 : 0;
        itemSums.warned += item.verdict == Verdict::Warning ? 1 : 0;
    }
    if (camera == nullptr) {
        return;
    }
    ++camera->runs;
    if (camera->lastRun.isNull() || run.beginMs >= camera->lastBeginMs) {
        camera->lastRun = run.id;
        camera->lastBeginMs = run.beginMs;
        camera->lastOutcome = nameOf(run.outcome);
    }
    if (run.outcome == Outcome::Passed || run.outcome == Outcome::Failed) {
        judge(run, camera);
    }
}

void Tallies::judge(const RunRows &run, CameraRow *camera)
{
    if (camera->first) {
        countCamera(*camera, -1);
    }
    const CameraRow::Judgement judgement{run.beginMs, run.outcome == Outcome::Passed};
    if (!camera->first || run.beginMs < camera->first->beginMs) {
        camera->first = judgement;
        camera->cohort = run.tally;
    }
    if (!camera->last || run.beginMs >= camera->last->beginMs) {
        camera->last = judgement;
    }
    countCamera(*camera, 1);
}

void Tallies::countCamera(const CameraRow &camera, int sign)
{
    TallySums &sums = m_sums[camera.cohort];
    sums.cameras += sign;
    sums.firstPassed += camera.first->passed ? sign : 0;
    sums.finalPassed += camera.last->passed ? sign : 0;
}
