#pragma once

#include "support/FacadeSpy.h"
#include "support/onWorkerThread.h"
#include "support/ScriptedCamera.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QtGlobal>

/// What a routine left behind.
struct Outcome
{
    int verdict = 99;
    QString text;
    QString detail = QStringLiteral("left over from an earlier item");
};

/// Runs one item routine (`QString (int *, QString &)`) on a worker thread.
template <class Routine>
Outcome runItem(Routine routine)
{
    Outcome outcome;
    outcome.text = onWorkerThread([&] { return routine(&outcome.verdict, outcome.detail); });
    return outcome;
}

/// Runs one component routine (`QString (int *, const QList<int> &)`) on a worker thread; `detail` is not used.
template <class Routine>
Outcome runComponent(Routine routine, const QList<int> &items)
{
    Outcome outcome;
    outcome.text = onWorkerThread([&] { return routine(&outcome.verdict, items); });
    return outcome;
}

/// From now on the camera reports the status word `status`, of which nothing is expected and `examined` is looked at.
void reportStatus(ScriptedCamera &camera, quint64 status, const QList<int> &examined);

/// `value` as the camera sends it: `bytes` bytes, the least significant first.
QByteArray littleEndian(quint64 value, int bytes);

/// What an item read, one entry "<name>=<value> <unit>" for each measurement.
QStringList measurementTexts(const CheckItemLog &item);
