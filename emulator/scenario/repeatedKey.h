#pragma once

#include <optional>
#include <QByteArray>
#include <QString>

namespace emulator {

struct RepeatedKey
{
    QString name;
    int offset; ///< of the quote before its second occurrence
};

/// The first key that its JSON object (RFC 8259, section 4) already has. The parser would keep one of the two values
/// and say nothing. Bad JSON is accepted; the parser refuses it.
std::optional<RepeatedKey> findRepeatedKey(const QByteArray &json);

} // namespace emulator
