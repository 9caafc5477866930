#pragma once

#include <memory>
#include <QByteArray>
#include <QSaveFile>
#include <QString>

/// Where a command writes to: standard output, or a file that is there completely or not at all.
class Output
{
    Q_DISABLE_COPY(Output)

public:
    /// `path`: empty for standard output.
    explicit Output(const QString &path);
    ~Output();

    /// The reason of the first failure, in the system's words; empty if there was none.
    const QString &error() const { return m_error; }
    void write(const QByteArray &bytes);
    void write(const QString &text) { write(text.toUtf8()); }
    /// To be called when everything was written: what was written before without it is no file.
    void finish();

private:
    std::unique_ptr<QSaveFile> m_file; ///< null: standard output
    QString m_error;
};
