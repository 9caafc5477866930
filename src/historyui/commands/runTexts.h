#pragma once

#include "history/query/compareRuns.h"
#include "history/query/RunSummary.h"
#include "history/query/Statistics.h"
#include "record/RunRecord.h"

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QString>

// What KestHistory prints. Pure functions; texts of runs are shown as data, see terminalText.h.

/// A line of a heading and a text, left out where there is no text.
QString namedLine(const QString &name, const QString &text);

QString listText(const QList<RunSummary> &runs);
QByteArray listCsv(const QList<RunSummary> &runs);
QByteArray listJson(const QList<RunSummary> &runs);

/// A run with its components and items, those that failed first, then those that warned.
QString runText(const RunRecord &run);

/// What changed from the last pass to the first failure after it.
QString differencesText(const QList<Difference> &differences);

QString statisticsText(const Statistics &statistics);
QByteArray statisticsJson(const Statistics &statistics);

/// An object as a file of JSON: indented, with a line break at its end.
QByteArray jsonText(const QJsonObject &object);
QJsonObject runJson(const RunSummary &run);
