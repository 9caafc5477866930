#pragma once

#include "LogFile.h"

#include <QByteArray>
#include <QMap>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <qt/versions.h>
#include <QTemporaryDir>

/// The station as a process on the offscreen platform, in a folder of its own with its own option.ini, log.txt and
/// save path. It ends with the object.
class StationProcess
{
    Q_DISABLE_COPY(StationProcess)

public:
    /// Whether the environment asks for the settings that are shipped, by KEST_E2E_SETTINGS=shipped.
    static bool startsAsShipped();

    /// Puts the program into a fresh folder. Its option.ini is the shipped one where that is asked for; else it has the
    /// nineteen keys without which a station cannot be, and no other.
    StationProcess();
    ~StationProcess();

    QString folder() const { return m_folder.path(); }
    /// Where runs are saved; below `folder` unless set.
    const QString &savePath() const { return m_savePath; }
    void setSavePath(const QString &path) { m_savePath = path; }
    /// Adds a variable to the station's environment.
    void setVariable(const QString &name, const QString &value) { m_environment.insert(name, value); }
    /// As soon as `file` exists, its wall clock is so many seconds off.
    void letClockJump(int seconds, const QString &file);
    void writeOptionIni(const QByteArray &content) const;
    void removeOptionIni() const;
    /// Adds `[Station] safeguards=true` to it.
    void addSafeguards() const;
    QByteArray optionIni() const;
    /// Where a story's station saves the records of its runs: alone in a folder.
    QString recordsPath() const { return m_records.filePath(QStringLiteral("runs.json")); }

    /// Starts `--run <components>` with `options`.
    void start(const QString &components, const QStringList &options = {});
    /// Opens its window instead. A hand inside the program obeys `tell`: see operatorHand.cpp. Runs are saved beside
    /// the program.
    void openWindow();
    void tell(const QByteArray &order);
    /// Reads a label until its text begins with `text`; false when it does not in time.
    bool waitForLabel(const QByteArray &name, const QByteArray &text, int limitMs = 60000);
    void signal(int number) const;
    bool isRunning();
    /// Waits for the end and returns the exit code; -1 when it did not end in time (it is then killed) or crashed.
    int finish(int limitMs = 180000);
    /// Both in one.
    int run(const QString &components, const QStringList &options = {});
    qint64 processId() const { return m_process.processId(); }

    /// Standard output: verdict lines, result line and log.
    const LogFile &output() const { return m_output; }
    /// The last run's lines of `output` up to its result line: "Camera: OK", ..., "Result: OK".
    QStringList verdicts() const;
    /// Standard error: the program's debug lines.
    const LogFile &debugOutput() const { return m_debugOutput; }

    /// The folder of the last run: the only one below the save path's "log".
    QString runFolder() const;
    /// A file of the run's folder; "(no file)" when there is none.
    QByteArray saved(const QString &fileName) const;
    /// The file in which the station writes down its shell session.
    LogFile diagnosticLog() const;
    /// Every file below the save path's "log", by "<MAC>/<file>": the date of each folder's name is left out.
    QMap<QString, QByteArray> allSaved() const;
    /// What lies in the station's folder and in its folder for temporary files, without what belongs there: the
    /// program, its settings, its diagnostic log and the save path.
    QStringList leftovers() const;

private:
    void launch(const QStringList &arguments);

    QTemporaryDir m_folder;
    QTemporaryDir m_temporary;
    QTemporaryDir m_capture;
    QTemporaryDir m_records;
    QString m_savePath{m_folder.filePath(QStringLiteral("saved"))};
    LogFile m_output{m_capture.filePath(QStringLiteral("output"))};
    LogFile m_debugOutput{m_capture.filePath(QStringLiteral("debug"))};
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
    PreparedProcess m_process;
};
