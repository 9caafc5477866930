#include "expectedLogs.h"
#include "isolation.h"
#include "StoryTest.h"
#include "waiting.h"

#include <QDateTime>
#include <QDir>
#include <QtTest>

/// What the PC may do to the station: settings, folders, disks and the clock.
class tst_E2eSurroundings : public StoryTest
{
    Q_OBJECT

protected:
    std::vector<Story> stories() const override;
};

namespace {
constexpr int malformed = 2;
constexpr int noCamera = 3;
constexpr int notSaved = 5;
const QString detectorLog = QStringLiteral("60601F0A5F2A/DetectorLog.txt");
QByteArray battery()
{
    return QByteArray(expectedLogs::batteryLink) + expectedLogs::batteryInfo + expectedLogs::batteryStatus;
}

Story story(const char *name, const char *components, const char *verdicts, const QByteArray &log)
{
    Story result(name, QString::fromLatin1(components));
    result.verdicts = QString::fromLatin1(verdicts);
    result.files.insert(detectorLog, log);
    return result;
}

// option.ini

/// A station that finds no camera.
Story lost(const char *name, int timeoutSeconds, const QStringList &says, const Story::Act &before)
{
    Story result(name, QStringLiteral("camera"));
    result.options = QStringList{QStringLiteral("--connect-timeout"), QString::number(timeoutSeconds)};
    result.exitCode = noCamera;
    result.says = says;
    result.before = before;
    return result;
}

Story::Act settings(const QByteArray &content)
{
    return [content](Scene &scene) {
        scene.station.writeOptionIni(content);
        return QString();
    };
}

QByteArray everyByte()
{
    QByteArray bytes;
    for (int i = 0; i < 4096; ++i) {
        bytes.append(static_cast<char>(i * 7 + i / 256));
    }
    return bytes;
}

QByteArray badLogin()
{
    return "username=\"\\x0\\xffff;,\"\n"
           "password=@Invalid()\n"
           "ftpName=@ByteArray(\n"
           "ftpPsw=\\\n"
           "ftpPort=-1e9\n";
}

QByteArray badFiles()
{
    return "[SystemLogPath]\n"
           "HostApdUrl=%1 %2 %n\n"
           "MacAddressUrl=\"/no/such\n"
           "TFCardInfoUrl=\n";
}

QByteArray badRest()
{
    return "[ZipLogPath]\n"
           "ZipLogTargetPath=/no/such/%2\n"
           "[DownloadLogSrcPath]\n"
           "LogPath=%1\n"
           "PrivatePath=/no/such\n"
           "VersionPath=/no/such\n"
           "NetconfPath=, ,\n"
           "MciInfoPath=/no/%1\n"
           "SharefsPath=\n"
           "[CameraStatus]\n"
           "expectedVal=zz\n"
           "statusBits=0x1FFFFFFFFFFFFFFFF\n";
}

QByteArray goodAddresses()
{
    return "[BaseOption]\n"
           "wifi=127.0.0.10\n"
           "usb=127.0.0.10\n";
}

std::vector<Story> settingsStories()
{
    const QStringList noAddress{QStringLiteral("sConnectIp \"\" \"\" 9999"),
                                QStringLiteral("No camera found after 3 s")};
    const QStringList badAddresses = noAddress + QStringList{QStringLiteral("is no IPv4 address")};
    const QStringList noLogin{QStringLiteral("The camera is connected, but its MAC address is unknown after 8 s")};

    Story badPaths = story("option.ini: every key malformed that the connection does not need", "camera,log",
                           "Camera: OK, Result: OK", expectedLogs::camera);
    badPaths.exitCode = malformed;
    badPaths.before = settings(goodAddresses() +
                               "username=root\npassword=camera\nftpPort=-1e9\nftpName=\nftpPsw=;\n"
                               "[SystemLogPath]\nHostApdUrl=/no/such\nMacAddressUrl=/data/netconf/mac_addr\n" +
                               badRest());
    badPaths.files.insert(QStringLiteral("60601F0A5F2A/log.tar.gz"), "");
    badPaths.after = [](Scene &scene) {
        const QByteArray reply = scene.station.saved(QStringLiteral("kest_verison.txt"));
        return reply.startsWith("cat /no/such\r\ncat: can't open '/no/such': No such file or directory\r\n~ # ")
                   ? QString()
                   : QString::fromUtf8(reply);
    };

    Story late = story("option.ini: addresses that come while disconnected", "camera", "Camera: OK, Result: OK",
                       expectedLogs::camera);
    const auto good = std::make_shared<QByteArray>();
    late.before = [good](Scene &scene) {
        *good = scene.station.optionIni();
        QByteArray without = *good;
        without.replace("127.0.0.10", "127.0.0.");
        scene.station.writeOptionIni(without);
        return QString();
    };
    late.meanwhile = [good](Scene &scene) {
        const bool tried = scene.station.debugOutput().waitFor("sConnectIp \"\" \"\" 9999", 2);
        scene.station.writeOptionIni(*good);
        return tried ? QString() : QStringLiteral("nothing is tried");
    };

    Story spoilt = story("option.ini: spoilt while connected", "battery", "Battery: OK, Result: OK", battery());
    spoilt.scenario = R"({"faults": {"getBatteryInfo": [{"kind": "delay", "ms": 1500}]}})";
    spoilt.meanwhile = [](Scene &scene) {
        const bool came = scene.camera.waitForRequest("getBatteryInfo");
        scene.station.writeOptionIni(everyByte());
        return came ? QString() : QStringLiteral("the request does not come");
    };

    Story allBad =
        lost("option.ini: every key malformed", 3, badAddresses,
             settings("[BaseOption]\nwifi=127.0.0.256\nusb=127.0.0\n" + badLogin() + badFiles() + badRest()));
    allBad.exitCode = malformed;

    return {
        lost("option.ini: missing", 3, noAddress,
             [](Scene &scene) { return scene.station.removeOptionIni(), QString(); }),
        // With no byte at all, the leak checker of GCC 12 crashes when the station ends; tst_Settings reads such a
        // file.
        lost("option.ini: empty", 3, noAddress, settings("\n")),
        lost("option.ini: binary", 3, noAddress, settings(everyByte())),
        allBad,
        lost("option.ini: addresses alone", 8, noLogin, settings(goodAddresses())),
        // What is malformed here swallows the rest of the file: the keys behind it count as missing.
        lost("option.ini: every key malformed but the addresses", 8, noLogin,
             settings(goodAddresses() + badLogin() + badFiles() + badRest())),
        badPaths,
        late,
        spoilt,
    };
}

// Paths on the camera

std::vector<Story> pathStories()
{
    const QByteArray files = R"({"shell": {
        "files": {"/data/my logs/it's/a.txt": "kept", "/etc/kest version": "version 7\n"},
        "trees": [{"path": "/data/private", "size": 1000}, {"path": "/data/sharefs", "size": 1000}]}})";
    const auto with = [](const QByteArray &from, const QByteArray &to) {
        return [from, to](Scene &scene) {
            QByteArray content = scene.station.optionIni();
            content.replace(from, to);
            scene.station.writeOptionIni(content);
            return QString();
        };
    };

    Story blanks = story("paths with blanks, in the shell's quotes", "log", "Result: OK", "");
    blanks.scenario = files;
    blanks.before = [with](Scene &scene) {
        with("LogPath=/data/log", "LogPath=\"'/data/my logs'\"")(scene);
        return with("VersionPath=/etc/kest_version", "VersionPath=\"'/etc/kest version'\"")(scene);
    };
    blanks.after = [](Scene &scene) {
        QProcess tar;
        tar.start(QStringLiteral("tar"),
                  {QStringLiteral("-xzOf"), scene.station.runFolder() + QStringLiteral("/log.tar.gz"),
                   QStringLiteral("data/my logs/it's/a.txt")});
        tar.waitForFinished();
        const QByteArray version = scene.station.saved(QStringLiteral("kest_verison.txt"));
        return tar.readAllStandardOutput() == "kept" &&
                       version.startsWith("cat '/etc/kest version'\r\nversion 7\r\n~ # ")
                   ? QString()
                   : QStringLiteral("not what lies there");
    };

    // The shell waits for the quote's end; what follows is taken for more of the path.
    Story quote = story("a path with a lone quote", "log", "Result: OK", "");
    quote.exitCode = notSaved;
    quote.scenario = files;
    quote.before = with("VersionPath=/etc/kest_version", "VersionPath=/etc/it's");
    for (const char *file :
         {"kest_verison.txt", "iw_dev_ap0_scan.txt", "mci_info.txt", "netconf.tar.gz", "sharefs.tar.gz"}) {
        quote.files.insert(QStringLiteral("60601F0A5F2A/") + QLatin1String(file), "");
    }
    quote.after = [](Scene &scene) {
        return scene.station.saved(QStringLiteral("ifconfig.txt")).contains("\n~ # ")
                   ? QString()
                   : QStringLiteral("what came before is spoilt");
    };
    return {quote, blanks};
}

// The folder for results

QString nothingWasSaved(Scene &scene)
{
    return scene.station.allSaved().isEmpty() ? QString() : QStringLiteral("something was saved");
}

/// What cannot be saved is still printed.
QString logWasPrinted(Scene &scene)
{
    return scene.station.output().content().endsWith("Result: OK\n\n" + battery()) ? QString()
                                                                                   : QStringLiteral("the log is lost");
}

std::vector<Story> folderStories()
{
    Story odd = story("a folder with Chinese, blanks, quotes and %1 in its name", "battery,log",
                      "Battery: OK, Result: OK", battery());
    odd.before = [](Scene &scene) {
        scene.station.setSavePath(scene.station.savePath() +
                                  QStringLiteral("/结果 \"A\" 'b' %1 %2 100% \\n <i>;&|$HOME"));
        return QString();
    };
    odd.after = [](Scene &scene) {
        return scene.station.allSaved().size() == 11 ? QString() : QStringLiteral("not all files are there");
    };

    Story deleted =
        story("a folder that is deleted during the run", "battery,log", "Battery: OK, Result: OK", battery());
    deleted.scenario = R"({"shell": {"files": {"/sbin/dmesg":
        "#!/bin/sh\ntouch /tmp/running\nwhile [ ! -e /tmp/permit ]; do sleep 0.1; done\necho late\n"}}})";
    deleted.meanwhile = [](Scene &scene) {
        const QString temporary = scene.camera.root() + QStringLiteral("/tmp");
        const bool came = waitUntil([&] { return QFile::exists(temporary + QStringLiteral("/running")); }, 60000);
        const bool removed = QDir(scene.station.savePath()).removeRecursively();
        QFile permit(temporary + QStringLiteral("/permit"));
        return came && removed && permit.open(QIODevice::WriteOnly) ? QString() : QStringLiteral("not deleted");
    };
    deleted.after = [](Scene &scene) {
        const QMap<QString, QByteArray> files = scene.station.allSaved();
        // Two archives had been saved before.
        return files.size() == 9 && files.value(QStringLiteral("60601F0A5F2A/dmesg.txt")).contains("late")
                   ? QString()
                   : QStringLiteral("%1 files").arg(files.size());
    };

    Story readOnly = story("a read-only folder", "battery", "Battery: OK, Result: OK", "");
    readOnly.files.clear();
    readOnly.exitCode = notSaved;
    readOnly.says = QStringList{QStringLiteral("Detection log not written")};
    readOnly.before = [](Scene &scene) {
        const QByteArray folder = QFile::encodeName(scene.station.savePath());
        QDir().mkpath(scene.station.savePath());
        return enterPrivateMounts() && mountReadOnly(folder.constData())
                   ? QString()
                   : cannotBePlayed + QStringLiteral("no mounts of its own");
    };
    readOnly.after = [](Scene &scene) {
        unmount(QFile::encodeName(scene.station.savePath()).constData());
        return nothingWasSaved(scene) + logWasPrinted(scene);
    };

    Story isFile = story("a file in the folder's place", "battery", "Battery: OK, Result: OK", "");
    isFile.files.clear();
    isFile.exitCode = notSaved;
    isFile.says = readOnly.says;
    isFile.before = [](Scene &scene) {
        QFile file(scene.station.savePath());
        return file.open(QIODevice::WriteOnly) ? QString() : QStringLiteral("no file");
    };
    isFile.after = [](Scene &scene) { return nothingWasSaved(scene) + logWasPrinted(scene); };

    // A later file finds no room either: of the log there is as much as fits, and the operator is told.
    Story full = story("a full disk", "battery,log", "Battery: OK, Result: OK", "");
    full.files.clear();
    full.exitCode = notSaved;
    full.says = QStringList{QStringLiteral("cannot write"), QStringLiteral("No space left on device")};
    full.before = [](Scene &scene) {
        const QByteArray folder = QFile::encodeName(scene.station.savePath());
        QDir().mkpath(scene.station.savePath());
        return enterPrivateMounts() && mountSmallDisk(folder.constData(), 64)
                   ? QString()
                   : cannotBePlayed + QStringLiteral("no mounts of its own");
    };
    full.after = [](Scene &scene) {
        const bool printed = scene.station.output().content().contains("Result: OK\n\n" + battery());
        const bool told = scene.station.debugOutput().content().contains("Detection log not complete");
        const bool complete = scene.station.saved(QStringLiteral("DetectorLog.txt")) == battery();
        unmount(QFile::encodeName(scene.station.savePath()).constData());
        return printed && complete != told ? QString() : QStringLiteral("the log is lost");
    };
    return {odd, deleted, readOnly, isFile, full};
}

// The files for the records

/// Records that cannot be saved in `folder`, once `spoil` has been done to it, for `reason`: the verdict stands, and no
/// part of a record is left.
Story unsavedRecords(const char *name, const QString &below, const char *reason, bool (*spoil)(const char *folder))
{
    Story result = story(name, "battery", "Battery: OK, Result: OK", battery());
    const auto folder = std::make_shared<QTemporaryDir>();
    const QString json = folder->filePath(below + QStringLiteral("run.json"));
    const QString junit = folder->filePath(below + QStringLiteral("run.xml"));
    result.options = QStringList{QStringLiteral("--json"), json, QStringLiteral("--junit"), junit};
    result.exitCode = notSaved;
    for (const QString &path : {json, junit}) {
        result.says.append(QStringLiteral("not saved: %1: %2").arg(path, QLatin1String(reason)));
    }
    result.before = [folder, spoil](Scene &) {
        return spoil(QFile::encodeName(folder->path()).constData())
                   ? QString()
                   : cannotBePlayed + QStringLiteral("no mounts of its own");
    };
    result.after = [folder](Scene &scene) {
        const QStringList left = QDir(folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        unmount(QFile::encodeName(folder->path()).constData());
        return left.isEmpty() ? logWasPrinted(scene) : left.join(QLatin1Char(' '));
    };
    return result;
}

std::vector<Story> recordStories()
{
    return {
        unsavedRecords("records below a folder that is not there", QStringLiteral("none/"), "No such file or directory",
                       [](const char *) { return true; }),
        unsavedRecords("records in a read-only folder", {}, "Read-only file system",
                       [](const char *folder) { return enterPrivateMounts() && mountReadOnly(folder); }),
        // One page: the record is longer.
        unsavedRecords("records on a full disk", {}, "No space left on device",
                       [](const char *folder) { return enterPrivateMounts() && mountSmallDisk(folder, 4); }),
    };
}

// The clock

/// The wall clock jumps while the battery's information is awaited.
Story jump(const char *name, int seconds)
{
    Story result = story(name, "battery,tfcard,lens,log", "Battery: OK, TF Card: OK, Lens: OK, Result: OK",
                         battery() + expectedLogs::cardUse + expectedLogs::cardSpeed + expectedLogs::lens);
    result.scenario = R"({"faults": {"getBatteryInfo": [{"kind": "delay", "ms": 1000}]}})";
    const auto signal = std::make_shared<QTemporaryDir>();
    const QString file = signal->filePath(QStringLiteral("jump"));
    result.before = [signal, file, seconds](Scene &scene) {
        scene.station.letClockJump(seconds, file);
        return QString();
    };
    result.meanwhile = [file](Scene &scene) {
        QFile now(file);
        return scene.camera.waitForRequest("getBatteryInfo") && now.open(QIODevice::WriteOnly)
                   ? QString()
                   : QStringLiteral("the request does not come");
    };
    result.after = [seconds](Scene &scene) {
        // The diagnostic log shows that the clock did jump.
        const LogFile log = scene.station.diagnosticLog();
        const auto timeOf = [](const QByteArray &line) {
            return QDateTime::fromString(QString::fromLatin1(line.left(19)), QStringLiteral("yyyy.MM.dd hh:mm:ss"));
        };
        const QByteArray content = log.content();
        const int last = content.lastIndexOf(" : ") - 19;
        const qint64 passed = timeOf(content).secsTo(timeOf(content.mid(last)));
        const bool jumped = seconds > 0 ? passed >= seconds : passed < 0;
        return jumped && scene.station.allSaved().size() == 11 ? QString()
                                                               : QStringLiteral("%1 s have passed").arg(passed);
    };
    return result;
}
} // namespace

std::vector<Story> tst_E2eSurroundings::stories() const
{
    return joined({{jump("the clock jumps forward by an hour", 3600), jump("the clock jumps back by an hour", -3600)},
                   pathStories(),
                   settingsStories(),
                   folderStories(),
                   recordStories()});
}

QTEST_GUILESS_MAIN(tst_E2eSurroundings)
#include "tst_E2eSurroundings.moc"
