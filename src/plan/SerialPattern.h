#pragma once

#include <QRegularExpression>
#include <QString>

/// What a serial number has to look like: a regular expression that the whole of it has to match. A pattern that would
/// take too long over some serial number does not match it. A value, for any thread.
class SerialPattern
{
public:
    /// Every serial number that is not empty.
    SerialPattern() = default;
    /// An empty pattern is as none.
    explicit SerialPattern(const QString &pattern);

    /// As it was given; empty: there is none.
    const QString &text() const { return m_text; }
    /// Why the pattern is none; empty if it is one.
    QString error() const { return m_error; }
    /// Never true with a pattern that is none, nor for an empty serial number.
    bool matches(const QString &serial) const;

private:
    QString m_text;
    QRegularExpression m_expression;
    QString m_error;
};
