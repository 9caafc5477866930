#pragma once

#include <QString>
#include <QStringList>

/// What was shown where the sources have `text`, in whatever language: the text as it is written, and each of its
/// translations that differs. `context` and `sense` are those of its translation. From any thread.
QStringList textInEveryLanguage(const char *context, const QString &text, const char *sense = nullptr);
