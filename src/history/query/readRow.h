#pragma once

#include "history/query/RunSummary.h"

#include <QSqlQuery>
#include <QString>

/// The columns of `run` that `readRun` wants, in its order.
QString runColumns();
/// The run in the row that `query` stands on, from column 0 on.
RunSummary readRun(const QSqlQuery &query);
