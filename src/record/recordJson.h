#pragma once

#include "record/RunRecord.h"

#include <optional>
#include <QByteArray>
#include <QString>

// A run's record as JSON: docs/record.md tells every key, docs/record.schema.json is its schema.

enum class JsonLayout {
    Indented,
    Line, ///< a single line, for a stream of records
};

/// UTF-8, ends in a line break. What is no text (half a surrogate pair) becomes U+FFFD.
QByteArray toJson(const RunRecord &run, JsonLayout layout = JsonLayout::Indented);

/// The record that `toJson` wrote. Keys that are not known are passed over. If a key is missing or its value is none
/// that a record can hold, nothing, and `error` names it.
std::optional<RunRecord> fromJson(const QByteArray &json, QString *error);
