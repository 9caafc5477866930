#include "exchange/quickRecord.h"
#include "exchange/recordLines.h"
#include "exchange/runFolders.h"
#include "historyui/commands/CommandContext.h"
#include "historyui/commands/Progress.h"
#include "platform/Interruption.h"
#include "record/recordJson.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <deque>
#include <future>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <thread>
#include <utility>

namespace {
/// Lines of a stream that are read as records on a thread of their own.
struct Piece
{
    QVector<RecordLine> lines;
};

struct ReadPiece
{
    QVector<RunRows> rows;
    QVector<RecordLine> refused; ///< with the reason
};

/// The record as the store is to keep it: as it came, with what a later version may have written into it, where that is
/// one line.
QByteArray lineToKeep(const RunRecord &run, const QByteArray &json)
{
    const QByteArray line = json.trimmed();
    const bool isLine = std::memchr(line.constData(), '\n', static_cast<std::size_t>(line.size())) == nullptr;
    return isLine ? line + '\n' : toJson(run, JsonLayout::Line);
}

ReadPiece readPiece(const Piece &piece)
{
    ReadPiece read;
    RecordPacker packer;
    read.rows.reserve(piece.lines.size());
    for (const RecordLine &line : piece.lines) {
        QString error = line.error;
        const std::optional<RunRecord> run = error.isEmpty() ? quickRecord(line.json, &error) : std::nullopt;
        if (run) {
            read.rows.append(runRows(*run, lineToKeep(*run, line.json), &packer));
        } else {
            read.refused.append({line.number, {}, error});
        }
    }
    return read;
}

/// Takes runs in, piece by piece, each in a transaction of its own: whatever ends the program, what was taken in by
/// then is in the store, and the next import passes over it.
class Import
{
    Q_DECLARE_TR_FUNCTIONS(HistoryTexts)

public:
    explicit Import(CommandContext *context) : m_context(context), m_progress(tr("import")) {}

    /// False: it cannot go on.
    bool take(const QString &path)
    {
        if (path != QLatin1String("-") && QFileInfo(path).isDir()) {
            return takeFolder(path);
        }
        QFile file(path);
        const bool isOpen =
            path == QLatin1String("-") ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
        if (!isOpen) {
            tell(QStringLiteral("%1: %2").arg(path, file.errorString()));
            m_isTrouble = true;
            return true;
        }
        return takeFile(file, path);
    }

    int finish()
    {
        m_progress.clear();
        m_context->say(tr("%1 added, %2 already there, %3 refused").arg(m_added).arg(m_known).arg(m_refused));
        if (Interruption::isWanted()) {
            return historyExit::interrupted;
        }
        return m_isTrouble ? historyExit::trouble : m_refused > 0 ? historyExit::nothing : historyExit::done;
    }

private:
    void tell(const QString &text)
    {
        m_progress.clear();
        m_context->complain(text);
    }

    bool insert(QVector<RunRows> rows)
    {
        const auto refuse = [this](const RunRows &run) {
            if (!run.isFit()) {
                ++m_refused;
                tell(tr("run %1 has no time").arg(run.id.toString(QUuid::WithoutBraces)));
            }
            return !run.isFit();
        };
        rows.erase(std::remove_if(rows.begin(), rows.end(), refuse), rows.end());
        if (rows.isEmpty()) {
            return true;
        }
        const std::optional<int> added = m_context->store->insert(rows);
        if (!added) {
            tell(m_context->store->error().text);
            m_isTrouble = true;
            return false;
        }
        m_added += *added;
        m_known += rows.size() - *added;
        return true;
    }

    bool takeFile(QFile &file, const QString &path)
    {
        constexpr int pieceSize = 1000; // another program waits for no more than these
        const qint64 all = file.isSequential() ? 0 : file.size();
        const auto most = static_cast<std::size_t>(std::max(1U, std::thread::hardware_concurrency()));
        std::deque<std::future<ReadPiece>> reading;
        bool goesOn = true;
        const auto insertFirst = [&] {
            ReadPiece read = reading.front().get();
            reading.pop_front();
            for (const RecordLine &line : qAsConst(read.refused)) {
                ++m_refused;
                tell(QStringLiteral("%1:%2: %3").arg(path).arg(line.number).arg(line.error));
            }
            goesOn = insert(std::move(read.rows)) && !Interruption::isWanted();
        };
        Piece piece;
        const auto readOn = [&] {
            reading.push_back(std::async(std::launch::async, readPiece, std::move(piece)));
            piece = {};
            if (reading.size() > most) {
                insertFirst();
            }
        };
        forEachRecordLine(file, [&](const RecordLine &line, qint64 bytes) {
            piece.lines.append(line);
            if (piece.lines.size() >= pieceSize) {
                readOn();
                m_progress.show(bytes, all);
            }
            return goesOn;
        });
        if (goesOn && !piece.lines.isEmpty()) {
            readOn();
        }
        while (goesOn && !reading.empty()) {
            insertFirst();
        }
        return goesOn;
    }

    bool takeFolder(const QString &path)
    {
        constexpr int pieceSize = 200;
        const QList<FoundLog> logs = findLogs(path);
        if (logs.isEmpty()) {
            tell(tr("%1: no DetectorLog.txt in folders such as 2024-05-06_60601F0A5F2A").arg(path));
            ++m_refused;
        }
        QVector<RunRows> rows;
        QHash<QUuid, int> sameBefore;
        QString folder;
        for (int i = 0; i < logs.size(); ++i) {
            if (logs.at(i).folderName != folder) {
                folder = logs.at(i).folderName;
                sameBefore.clear();
            }
            takeLog(logs.at(i), &sameBefore, &rows);
            m_progress.show(i, logs.size());
            const bool isPiece = rows.size() >= pieceSize || i == logs.size() - 1;
            if (isPiece && !insert(std::exchange(rows, {}))) {
                return false;
            }
            if (Interruption::isWanted()) {
                return false;
            }
        }
        return true;
    }

    void takeLog(const FoundLog &log, QHash<QUuid, int> *sameBefore, QVector<RunRows> *rows)
    {
        const auto refuse = [this, &log](const QString &reason) {
            ++m_refused;
            tell(QStringLiteral("%1: %2").arg(log.path, reason));
        };
        constexpr qint64 largest = qint64{16} * 1024 * 1024;
        QFile file(log.path);
        if (!file.open(QIODevice::ReadOnly)) {
            refuse(file.errorString());
            return;
        }
        const QByteArray content = file.read(largest + 1);
        if (content.size() > largest) {
            refuse(tr("larger than %1 MiB").arg(largest / 1024 / 1024));
            return;
        }
        const RunFolderName folder = readRunFolderName(log.folderName).value_or(RunFolderName{});
        const int same = (*sameBefore)[runIdOfLog(log.folderName, content, 0)]++;
        int unknownLines = 0;
        const std::optional<RunRecord> run =
            recordOfLog(folder, content, logTime(folder, log.timeName, QFileInfo(file).lastModified()),
                        runIdOfLog(log.folderName, content, same), &unknownLines);
        if (!run) {
            refuse(tr("names no component"));
            return;
        }
        if (unknownLines > 0) {
            tell(tr("%1: %n lines are not understood", nullptr, unknownLines).arg(log.path));
        }
        rows->append(runRows(*run));
    }

    CommandContext *m_context;
    Progress m_progress;
    qint64 m_added = 0;
    qint64 m_known = 0;
    qint64 m_refused = 0;
    bool m_isTrouble = false;
};
} // namespace

int importRuns(CommandContext &context)
{
    Import runs(&context);
    for (const QString &path : context.line.targets) {
        if (!runs.take(path)) {
            break;
        }
    }
    return runs.finish();
}
