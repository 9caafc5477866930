#pragma once

#include <QByteArray>
#include <QString>

/// What a process writes into a file of the test's, so that it never blocks on a pipe that nobody reads.
class LogFile
{
public:
    explicit LogFile(QString path) : m_path(std::move(path)) {}

    const QString &path() const { return m_path; }
    QByteArray content() const;
    int count(const QByteArray &text) const { return static_cast<int>(content().count(text)); }
    /// Waits until `text` stands in it `times` times; false when that takes longer than `limitMs`.
    bool waitFor(const QByteArray &text, int times = 1, int limitMs = 60000) const;

private:
    QString m_path;
};
