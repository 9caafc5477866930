#include "detector/checks/logCollection.h"

#include "detector/checks/checkComponent.h"
#include "detector/checks/firmwareText.h"
#include "detector/checks/judgeMeasurements.h"
#include "detector/checks/noteRequest.h"
#include "detector/checks/shellCall.h"
#include "detector/store/checkHelpers.h"
#include "detector/store/componentId.h"
#include "detector/store/KestDetectorFace.h"
#include "detector/store/PartFile.h"
#include "detector/store/runFolder.h"
#include "detector/store/verdict.h"
#include "ftp/FtpDownLoadFace.h"
#include "record/itemKeys.h"
#include "telnet/session/shellStep.h"

#include <array>
#include <chrono>
#include <QDate>
#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <QObject>

namespace {
using Setting = QString Settings::*;

/// A directory of the camera that is fetched as one packed file.
struct Archive
{
    const char *name; ///< of the packed file, on the camera and on the PC
    Setting source;   ///< the directory
    int packStep;     ///< of `shellStep`, as is the next
    int removeStep;
};

constexpr Archive cameraLog = {"log.tar.gz", &Settings::logPath, shellStep::packCameraLog, shellStep::removeCameraLog};
constexpr Archive privateLog = {"private.tar.gz", &Settings::privatePath, shellStep::packPrivate,
                                shellStep::removePrivate};
constexpr Archive netConf = {"netconf.tar.gz", &Settings::netconfPath, shellStep::packNetConf,
                             shellStep::removeNetConf};
constexpr Archive sharefs = {"sharefs.tar.gz", &Settings::sharefsPath, shellStep::packSharefs,
                             shellStep::removeSharefs};

/// A shell command whose output is kept.
struct TextLog
{
    const char *command;
    Setting argument; ///< stands for the command's %1; none if null
    int step;         ///< of `shellStep`
    const char *fileName;
};

constexpr TextLog dmesg = {"dmesg\n", nullptr, shellStep::dmesg, "dmesg.txt"};
constexpr TextLog pstreePs = {"pstree && ps\n", nullptr, shellStep::pstreePs, "pstree_ps.txt"};
constexpr TextLog ifconfig = {"ifconfig -a\n", nullptr, shellStep::ifconfig, "ifconfig.txt"};
constexpr TextLog version = {"cat %1\n", &Settings::versionPath, shellStep::version, "kest_verison.txt"};
constexpr TextLog iwDevAp0Scan = {"iw dev ap0 scan\n", nullptr, shellStep::iwDevAp0Scan, "iw_dev_ap0_scan.txt"};
constexpr TextLog mciInfo = {"cat %1\n", &Settings::mciInfoPath, shellStep::mciInfo, "mci_info.txt"};

/// A file of the run that is not there, or not as it should be. Nothing is failed by it.
void noteUnsaved(const QString &path, const QString &reason)
{
    qWarning().noquote() << "cannot write" << path << reason;
    KestDetectorFace::Get()->run.noteUnsaved({path, reason});
}

QString foreignCamera()
{
    return QObject::tr("it may come from another camera than that of the run");
}

/// What an item has brought.
struct Collected
{
    QString path; ///< of the file under its own name; empty: it is not complete
    QString text; ///< what the shell has said, for a text log of the run's camera
};

/// A place for a file in the folder of the run, which exists afterwards if it can be created.
struct LocalFile
{
    LocalFile(const QString &date, const QString &fileName)
    {
        const QString folder = logFolder(date);
        problem = openLogFolder(folder);
        path = folder + QLatin1Char('/') + fileName;
    }

    QString path;
    QString problem; ///< why the folder is not there; empty: it is
};

Collected downloadArchive(const Archive &archive, int *verdict, const QString &date)
{
    const KestDetectorFace *face = KestDetectorFace::Get();
    const Settings &settings = face->settings();
    const QString name = QLatin1String(archive.name);
    const QString removal = QStringLiteral("rm -rf %1/%2\n").arg(settings.zipLogTargetPath, name);
    QString reply;
    // Several values go into one arg(): a "%1" inside a path is not a place to fill.
    *verdict =
        shellCall(QStringLiteral("tar -zcvf %1/%2 %3\n").arg(settings.zipLogTargetPath, name, settings.*archive.source),
                  archive.packStep, &reply);
    if (face->runIsCutShort()) {
        return {}; // the download would be given up at once, and an earlier archive be lost for it
    }
    const QString url = QStringLiteral("ftp://%1/%2").arg(face->cameraAddress.get(), name);
    const LocalFile local(date, name);
    if (!isCameraOfRunFolder()) {
        noteUnsaved(local.path, foreignCamera());
        *verdict = shellCall(removal, archive.removeStep, &reply);
        return {};
    }
    // Of an archive that was not packed in time, all that can come is a part.
    const bool packed = *verdict == 0;
    const bool part = !packed && face->safeguards().keepsEvidence();
    const int fetched =
        FtpDownLoadFace::Get()->ftpDownLoad(url, part ? PartFile(local.path, true).writtenTo() : local.path);
    if ((!packed || fetched != 0) && !face->runIsCutShort()) {
        noteUnsaved(local.path,
                    local.problem.isEmpty() ? QObject::tr("the camera's archive could not be fetched") : local.problem);
    }
    *verdict = shellCall(removal, archive.removeStep, &reply);
    return {packed && fetched == 0 ? local.path : QString(), {}};
}

/// Why the text is not in the file under its name; empty: it is.
QString writeText(const PartFile &place, const QString &text, bool complete)
{
    QFile file(place.writtenTo());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        return file.errorString();
    }
    file.write(text.toUtf8());
    // Asked before the file is closed, which forgets the reason.
    if (!file.flush() || file.error() != QFileDevice::NoError) {
        return file.errorString();
    }
    file.close();
    return complete ? place.takeName() : QString();
}

Collected downloadText(const TextLog &log, int *verdict, const QString &date)
{
    const KestDetectorFace *face = KestDetectorFace::Get();
    QString command = QLatin1String(log.command);
    if (log.argument != nullptr) {
        command = command.arg(face->settings().*log.argument);
    }
    QString reply;
    *verdict = shellCall(command, log.step, &reply);
    if (*verdict != 0 && face->runIsCutShort()) {
        return {}; // given up: nothing to replace an earlier file with
    }
    const LocalFile local(date, QLatin1String(log.fileName));
    if (!isCameraOfRunFolder()) {
        noteUnsaved(local.path, foreignCamera());
        return {};
    }
    const PartFile place(local.path, face->safeguards().keepsEvidence());
    QString problem = writeText(place, reply, *verdict == 0);
    if (!local.problem.isEmpty()) {
        problem = local.problem;
    } else if (problem.isEmpty() && *verdict != 0) {
        problem = QObject::tr("the camera's shell did not answer");
    }
    if (!problem.isEmpty()) {
        noteUnsaved(local.path, problem);
    }
    return {problem.isEmpty() ? local.path : QString(), reply};
}

template <const Archive &archive>
Collected collect(int *verdict, const QString &date)
{
    return downloadArchive(archive, verdict, date);
}

template <const TextLog &log>
Collected collect(int *verdict, const QString &date)
{
    return downloadText(log, verdict, date);
}

struct LogItem
{
    int index;
    const char *name;
    Collected (*collect)(int *verdict, const QString &date);
};

constexpr std::array itemTable = {
    LogItem{itemId::log::camera, QT_TRANSLATE_NOOP("QObject", "log"), collect<cameraLog>},
    LogItem{itemId::log::privateLog, QT_TRANSLATE_NOOP("QObject", "private"), collect<privateLog>},
    LogItem{itemId::log::dmesg, QT_TRANSLATE_NOOP("QObject", "dmesg"), collect<dmesg>},
    LogItem{itemId::log::pstreePs, QT_TRANSLATE_NOOP("QObject", "pstree&&ps"), collect<pstreePs>},
    LogItem{itemId::log::ifconfig, QT_TRANSLATE_NOOP("QObject", "ifconfig"), collect<ifconfig>},
    LogItem{itemId::log::version, QT_TRANSLATE_NOOP("QObject", "kest_version"), collect<version>},
    LogItem{itemId::log::netConf, QT_TRANSLATE_NOOP("QObject", "netconf"), collect<netConf>},
    LogItem{itemId::log::iwDevAp0Scan, QT_TRANSLATE_NOOP("QObject", "iwDevAp0Scan"), collect<iwDevAp0Scan>},
    LogItem{itemId::log::mciInfo, QT_TRANSLATE_NOOP("QObject", "mci_info"), collect<mciInfo>},
    LogItem{itemId::log::sharefs, QT_TRANSLATE_NOOP("QObject", "sharefs"), collect<sharefs>},
};

/// Collects the log of `row`, and measures it.
void collectItem(const LogItem &row, CheckItemLog &item, const QString &date)
{
    const auto begin = std::chrono::steady_clock::now();
    const Collected found = row.collect(&item.result, date);
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
    noteShellCall(item, item.result);
    QList<Field> expected{Field::FileSize, Field::FileTime};
    if (!found.path.isEmpty()) {
        item.files.append(found.path);
        item.measurements.append(measured(Field::FileSize, static_cast<double>(QFileInfo(found.path).size())));
        item.measurements.append(measured(Field::FileTime, time.count()));
    }
    if (row.index == itemId::log::version) {
        expected.append(Field::Firmware);
        const QString firmware = firmwareText(found.text);
        if (!firmware.isEmpty()) {
            item.measurements.append(measured(Field::Firmware, firmware));
        }
    }
    judgeMissing(item, expected);
}
} // namespace

QString downLoadLogs(int *verdict, const QList<int> &items)
{
    const QString date = QDate::currentDate().toString(QStringLiteral("yyyy-MM-dd"));
    const ComponentResult result = recordItems(
        componentId::log, verdict::failed, itemTable, items, [](const LogItem &) { return true; },
        [&date](const LogItem &row, CheckItemLog &item) { collectItem(row, item, date); });
    emit KestDetectorFace::Get()->signal_showCheckLog(result.record);
    *verdict = result.verdict;
    return result.text;
}

QList<int> logItems()
{
    return itemsOf(itemTable);
}

QString downloadCameraLog(int *verdict, const QString &date)
{
    downloadArchive(cameraLog, verdict, date);
    return {};
}

QString downloadPrivateLog(int *verdict, const QString &date)
{
    downloadArchive(privateLog, verdict, date);
    return {};
}

QString downloadDmesgLog(int *verdict, const QString &date)
{
    downloadText(dmesg, verdict, date);
    return {};
}

QString downloadPstreePsLog(int *verdict, const QString &date)
{
    downloadText(pstreePs, verdict, date);
    return {};
}

QString downloadIfconfLog(int *verdict, const QString &date)
{
    downloadText(ifconfig, verdict, date);
    return {};
}

QString downloadVersionLog(int *verdict, const QString &date)
{
    downloadText(version, verdict, date);
    return {};
}

QString downloadNetConfLog(int *verdict, const QString &date)
{
    downloadArchive(netConf, verdict, date);
    return {};
}

QString downloadIwDevAp0ScanLog(int *verdict, const QString &date)
{
    downloadText(iwDevAp0Scan, verdict, date);
    return {};
}

QString downloadMciInfoLog(int *verdict, const QString &date)
{
    downloadText(mciInfo, verdict, date);
    return {};
}

QString downloadSharefsLog(int *verdict, const QString &date)
{
    downloadArchive(sharefs, verdict, date);
    return {};
}
