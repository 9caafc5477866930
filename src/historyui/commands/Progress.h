#pragma once

#include <QElapsedTimer>
#include <QString>

/// A bar on standard error while something long goes on, if that is a terminal; nothing otherwise.
class Progress
{
    Q_DISABLE_COPY(Progress)

public:
    /// `what`: "import".
    explicit Progress(const QString &what);
    ~Progress();

    /// `all`: 0 if nobody knows. Draws at most ten times a second.
    void show(qint64 done, qint64 all);
    /// Takes the bar away, so that other lines can be written.
    void clear();

private:
    const QString m_what;
    const bool m_isShown;
    bool m_isDrawn = false;
    QElapsedTimer m_lastDrawn;
};

/// "import  [##########          ]  50 %"
QString progressBar(const QString &what, qint64 done, qint64 all);
