#include "detector/store/Settings.h"
#include "support/fileContent.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

namespace {
using TextField = QString Settings::*;

QList<int> setBits(const QList<bool> &bits)
{
    QList<int> positions;
    for (int i = 0; i < bits.size(); ++i) {
        if (bits.at(i)) {
            positions.append(i);
        }
    }
    return positions;
}

/// A file of which nothing is to be said.
QByteArray soundFile()
{
    return "[BaseOption]\nwifi=192.168.88.10\nusb=192.168.42.10\nusername=root\npassword=\nftpName=ftp\nftpPsw=\n"
           "ftpPort=21\n"
           "[SystemLogPath]\nHostApdUrl=/ap\nMacAddressUrl=/mac\nTFCardInfoUrl=/card\n"
           "[ZipLogPath]\nZipLogTargetPath=/zip\n"
           "[DownloadLogSrcPath]\nLogPath=/log\nPrivatePath=/private\nVersionPath=/version\nNetconfPath=/netconf\n"
           "MciInfoPath=/mci\nSharefsPath=/sharefs\n"
           "[CameraStatus]\nexpectedVal=8001A\nstatusBits=8001A\n";
}

QByteArray replaced(QByteArray content, const QByteArray &before, const QByteArray &after)
{
    return content.replace(before, after);
}
} // namespace
Q_DECLARE_METATYPE(TextField)
Q_DECLARE_METATYPE(Language)
Q_DECLARE_METATYPE(SettingProblem::Kind)

class tst_Settings : public QObject
{
    Q_OBJECT

private slots:
    void textKeys_data();
    void textKeys();
    void statusWord_data();
    void statusWord();
    void flags_data();
    void flags();
    void stationIsToldByItsKeys();
    void history_data();
    void history();
    void noFileEmptiesEverySetting();
    void nothingIsWrittenBack();
    void fileOfTheNineteenKeysIsSound();
    void shippedFileIsSound_data();
    void shippedFileIsSound();
    void plansAndLimits();
    void refusesWrongPlansAndLimits();
    void station();
    void language_data();
    void language();
    void problems_data();
    void problems();
    void problemTellsWhereItIs();
    void onlyTheAddressesMayBeMended();
    void unreadableFileIsOneProblem();
    void pathLiesBesideTheProgram();

private:
    Settings load(const QByteArray &content);

    QTemporaryDir m_folder;
};

Settings tst_Settings::load(const QByteArray &content)
{
    // One file for each call: settings are cached by path.
    static int count = 0;
    const QString path = m_folder.filePath(QStringLiteral("option%1.ini").arg(++count));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("no settings file");
    }
    file.close();
    Settings settings = readSettings(path);
    if (!file.open(QIODevice::ReadOnly) || file.readAll() != content) {
        qFatal("the settings file has been changed");
    }
    return settings;
}

void tst_Settings::textKeys_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<TextField>("field");
    QTest::addColumn<QString>("value");

    const auto row = [](const char *content, TextField field, const char *value) {
        QTest::newRow(content) << QByteArray(content) << field << QString::fromLatin1(value);
    };
    row("[BaseOption]\nwifi=192.168.88.10\n", &Settings::wifi, "192.168.88.10");
    row("[BaseOption]\nusb=192.168.42.10\n", &Settings::usb, "192.168.42.10");
    row("[BaseOption]\nusername=root\n", &Settings::username, "root");
    row("[BaseOption]\npassword=secret word\n", &Settings::password, "secret word");
    row("[BaseOption]\nftpName=ftp\n", &Settings::ftpName, "ftp");
    row("[BaseOption]\nftpPsw=psw\n", &Settings::ftpPsw, "psw");
    row("[BaseOption]\nftpPort=0021\n", &Settings::ftpPort, "0021");
    row("[BaseOption]\nftpPort=ftp\n", &Settings::ftpPort, "ftp");
    row("[DownloadLogSrcPath]\nLogPath=/a/log\n", &Settings::logPath, "/a/log");
    row("[DownloadLogSrcPath]\nPrivatePath=/a/private\n", &Settings::privatePath, "/a/private");
    row("[DownloadLogSrcPath]\nVersionPath=/a/version\n", &Settings::versionPath, "/a/version");
    row("[DownloadLogSrcPath]\nNetconfPath=/a/netconf\n", &Settings::netconfPath, "/a/netconf");
    row("[DownloadLogSrcPath]\nMciInfoPath=/a/mci\n", &Settings::mciInfoPath, "/a/mci");
    row("[DownloadLogSrcPath]\nSharefsPath=/a/share\n", &Settings::sharefsPath, "/a/share");
    row("[ZipLogPath]\nZipLogTargetPath=/tmp/zip\n", &Settings::zipLogTargetPath, "/tmp/zip");
    row("[SystemLogPath]\nHostApdUrl=/etc/ap\n", &Settings::hostApdUrl, "/etc/ap");
    row("[SystemLogPath]\nMacAddressUrl=/sys/mac\n", &Settings::macAddressUrl, "/sys/mac");
    row("[SystemLogPath]\nTFCardInfoUrl=/proc/card\n", &Settings::tfCardInfoUrl, "/proc/card");
    row("[BaseOption]\nwifi=127.0.\n", &Settings::wifi, "");
    row("[BaseOption]\nwifi=camera\n", &Settings::wifi, "");
    row("[BaseOption]\nusb=127.0.0.1.10\n", &Settings::usb, "");
    row("[BaseOption]\nusb=fe80::1\n", &Settings::usb, "");
}

void tst_Settings::textKeys()
{
    QFETCH(const QByteArray, content);
    QFETCH(const TextField, field);
    QFETCH(const QString, value);
    QCOMPARE(load(content).*field, value);
    QCOMPARE(load("[Other]\nkey=1\n").*field, QString());
}

void tst_Settings::statusWord_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<quint64>("mask");
    QTest::addColumn<QList<int>>("bits");

    const quint64 ones = 0xFFFFFFFFFFFFFFFFU;
    const QList<int> none;
    QTest::newRow("highest and lowest status bit alone")
        << QByteArray("[CameraStatus]\nstatusBits=8000000000000001\n") << ones << QList<int>{0, 63};
    QTest::newRow("expected value 0") << QByteArray("[CameraStatus]\nexpectedVal=0\n") << ones << none;
    QTest::newRow("expected value of sixteen F")
        << QByteArray("[CameraStatus]\nexpectedVal=FFFFFFFFFFFFFFFF\n") << quint64{0} << none;
    QTest::newRow("both, lower case") << QByteArray("[CameraStatus]\nexpectedVal=8000a\nstatusBits=8000a\n")
                                      << quint64{0xFFFFFFFFFFF7FFF5U} << QList<int>{1, 3, 19};
    QTest::newRow("with the prefix 0x") << QByteArray("[CameraStatus]\nexpectedVal=0x01\nstatusBits=0x02\n")
                                        << quint64{0xFFFFFFFFFFFFFFFEU} << QList<int>{1};
    QTest::newRow("not a number") << QByteArray("[CameraStatus]\nexpectedVal=ten\nstatusBits=xyz\n") << ones << none;
    QTest::newRow("seventeen digits") << QByteArray("[CameraStatus]\nexpectedVal=1FFFFFFFFFFFFFFFF\n") << ones << none;
    QTest::newRow("empty file") << QByteArray() << ones << none;
}

void tst_Settings::statusWord()
{
    QFETCH(const QByteArray, content);
    QFETCH(const quint64, mask);
    QFETCH(const QList<int>, bits);
    const Settings settings = load(content);
    QCOMPARE(settings.cameraStatusMask, mask);
    QCOMPARE(settings.statusBitList.size(), 64);
    QCOMPARE(setBits(settings.statusBitList), bits);
}

void tst_Settings::flags_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("safeguards");

    QTest::newRow("no such key") << QByteArray("[Station]\n") << false;
    QTest::newRow("true") << QByteArray("[Station]\nsafeguards=true\n") << true;
    QTest::newRow("false") << QByteArray("[Station]\nsafeguards=false\n") << false;
    QTest::newRow("neither") << QByteArray("[Station]\nsafeguards=yes\n") << false;
}

void tst_Settings::flags()
{
    QFETCH(const QByteArray, content);
    QTEST(load(content).safeguards, "safeguards");
}

void tst_Settings::stationIsToldByItsKeys()
{
    const Settings none = load("[Station]\n");
    QCOMPARE(none.stationName + none.stationLocation + none.stationOperator + none.stationBatch, QString());
    const Settings all = load("[Station]\nname=line-2-left\nlocation=\"Hall 3, left\"\noperator=\\x738b\\x82b3\n"
                              "batch=2026-47\n");
    QCOMPARE(all.stationName, QStringLiteral("line-2-left"));
    QCOMPARE(all.stationLocation, QStringLiteral("Hall 3, left"));
    QCOMPARE(all.stationOperator, QStringLiteral("王芳"));
    QCOMPARE(all.stationBatch, QStringLiteral("2026-47"));
}

void tst_Settings::history_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("server");

    QTest::newRow("no such section") << QByteArray("[Station]\n") << QString() << QString();
    QTest::newRow("file") << QByteArray("[History]\nfile=a/history.sqlite\n") << "a/history.sqlite" << QString();
    QTest::newRow("server") << QByteArray("[History]\nserver=postgresql://line@db/runs?sslmode=verify-full\n")
                            << QString() << "postgresql://line@db/runs?sslmode=verify-full";
    QTest::newRow("empty") << QByteArray("[History]\nfile=\nserver=\n") << QString() << QString();
    QTest::newRow("a password") << QByteArray("[History]\nserver=postgresql://line:secret@db/runs\n") << QString()
                                << QString();
}

void tst_Settings::history()
{
    QFETCH(const QByteArray, content);
    const Settings settings = load(content);
    QTEST(settings.historyFile, "file");
    QTEST(settings.historyServer, "server");
}

void tst_Settings::noFileEmptiesEverySetting()
{
    const Settings settings = readSettings(m_folder.filePath(QStringLiteral("missing.ini")));
    QCOMPARE(settings.username, QString());
    QCOMPARE(settings.cameraStatusMask, quint64{0xFFFFFFFFFFFFFFFFU});
    QCOMPARE(settings.statusBitList.size(), 64);
    QCOMPARE(setBits(settings.statusBitList), QList<int>());
    QVERIFY(!settings.safeguards);
    QCOMPARE(settings.historyFile, QString());
    QCOMPARE(settings.problems.size(), 1);
    QCOMPARE(settings.problems.constFirst().text(),
             m_folder.filePath(QStringLiteral("missing.ini: missing: no camera can be found")));
}

void tst_Settings::nothingIsWrittenBack()
{
    const QString path = m_folder.filePath(QStringLiteral("untouched.ini"));
    readSettings(path);
    QVERIFY(!QFile::exists(path));
}

void tst_Settings::fileOfTheNineteenKeysIsSound()
{
    const Settings settings = load(soundFile());
    for (const SettingProblem &problem : settings.problems) {
        qWarning("%s", qPrintable(problem.text()));
    }
    QCOMPARE(settings.problems.size(), 0);
}

void tst_Settings::shippedFileIsSound_data()
{
    QTest::addColumn<bool>("withExamples");
    QTest::newRow("as it is") << false;
    QTest::newRow("with its examples") << true;
}

/// The examples of the file are lines that begin with a semicolon and no blank.
void tst_Settings::shippedFileIsSound()
{
    QFETCH(const bool, withExamples);
    const QByteArray shipped = fileContent(QStringLiteral(KEST_SHIPPED_SETTINGS));
    QString content = QString::fromUtf8(shipped);
    static const QRegularExpression example(QStringLiteral("^;(?! )"), QRegularExpression::MultilineOption);
    const int examples = static_cast<int>(content.count(example));
    QCOMPARE(examples, 15);
    if (withExamples) {
        content.remove(example);
    }
    const Settings settings = load(content.toUtf8());
    QVERIFY2(settings.problems.isEmpty(), qPrintable(settings.problems.value(0).text()));
    QCOMPARE(settings.refusals, QStringList());
    QVERIFY(settings.safeguards);
    QCOMPARE(settings.autoStart, withExamples);
    QCOMPARE(settings.sound, withExamples);
    QCOMPARE(settings.stationName, withExamples ? QStringLiteral("line-2-left") : QString());
    QCOMPARE(settings.questions.asked.size(), withExamples ? 3 : 0);
    QCOMPARE(settings.questions.serialPattern.matches(QStringLiteral("KC0012345")), true);
    QCOMPARE(settings.questions.serialPattern.matches(QStringLiteral("0012345")), !withExamples);
    QCOMPARE(settings.plannedItems.size(), withExamples ? 2 : 0);
    QCOMPARE(settings.limits.size(), withExamples ? 4 : 0);
}

void tst_Settings::plansAndLimits()
{
    const Settings none = load("[BaseOption]\nwifi=192.168.88.10\n");
    QVERIFY(none.plannedItems.isEmpty());
    QVERIFY(none.limits.isEmpty());
    QCOMPARE(none.refusals, QStringList());
    const Settings settings = load("[RunPlan]\ncamera=1,0\ngimbal=4\n[Limits]\nbattery.voltage=3.6..4.35\n");
    QCOMPARE(settings.plannedItems, (PlannedItems{{0, {1, 0}}, {1, {4}}}));
    QCOMPARE(settings.limits.keys(), QStringList{QStringLiteral("battery.voltage")});
    QVERIFY(settings.limits.value(QStringLiteral("battery.voltage")) == (Limit{3.6, 4.35, {}}));
    QCOMPARE(settings.refusals, QStringList());
}

void tst_Settings::refusesWrongPlansAndLimits()
{
    const Settings settings = load("[RunPlan]\ncamera=7\ngimbal=4\n[Limits]\nbattery.volts=3..4\nfirmware=1\n");
    QVERIFY(settings.plannedItems.isEmpty());
    QVERIFY(settings.limits.isEmpty());
    QCOMPARE(settings.refusals.size(), 2);
    QVERIFY(settings.refusals.at(0).endsWith(
        QStringLiteral(".ini: RunPlan/camera=\"7\": there is no item 7; the items are 0, 1")));
    QVERIFY(settings.refusals.at(1).endsWith(
        QStringLiteral(".ini: Limits/battery.volts=\"3..4\": there is no such measurement")));
}

void tst_Settings::station()
{
    const Settings none = load("[BaseOption]\nwifi=192.168.88.10\n");
    QVERIFY(!none.autoStart);
    QVERIFY(!none.sound);
    QVERIFY(none.questions.asked.isEmpty());
    const Settings settings =
        load("[Station]\nautoStart=true\nsound=true\nask=serial, batch\nserialPattern=K\\\\d{1,3}\n");
    QVERIFY(settings.autoStart);
    QVERIFY(settings.sound);
    QCOMPARE(settings.questions.asked, (QList<Question>{Question::Serial, Question::Batch}));
    QVERIFY(settings.questions.serialPattern.matches(QStringLiteral("K123")));
    QVERIFY(!settings.questions.serialPattern.matches(QStringLiteral("K1234")));
    QCOMPARE(settings.refusals, QStringList());
    const Settings wrong = load("[Station]\nask=serial,name\n");
    QCOMPARE(wrong.refusals.size(), 1);
    QVERIFY(wrong.refusals.at(0).endsWith(QStringLiteral(
        ".ini: Station/ask=\"serial,name\": \"name\" cannot be asked for; known are serial, operator, batch")));
}

void tst_Settings::language_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<Language>("language");

    QTest::newRow("no such key") << QByteArray("[Interface]\n") << Language::AsWritten;
    QTest::newRow("empty") << QByteArray("[Interface]\nlanguage=\n") << Language::AsWritten;
    QTest::newRow("English") << QByteArray("[Interface]\nlanguage=en\n") << Language::English;
    QTest::newRow("Chinese") << QByteArray("[Interface]\nlanguage=zh_CN\n") << Language::Chinese;
    QTest::newRow("neither") << QByteArray("[Interface]\nlanguage=zh\n") << Language::AsWritten;
}

void tst_Settings::language()
{
    QFETCH(const QByteArray, content);
    QTEST(load(content).language, "language");
}

void tst_Settings::problems_data()
{
    using Kind = SettingProblem::Kind;
    QTest::addColumn<QByteArray>("before"); // in the sound file
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QString>("text");

    const auto row = [](const char *name, const char *before, const char *after, Kind kind, const char *text) {
        QTest::newRow(name) << QByteArray(before) << QByteArray(after) << kind << QString::fromUtf8(text);
    };
    row("status bits that are no number", "statusBits=8001A", "statusBits=8O01A", Kind::Malformed,
        "CameraStatus/statusBits: \"8O01A\" is not a hexadecimal number of at most 64 bits: no status bit is examined, "
        "and every camera passes");
    row("status bits of seventeen digits", "statusBits=8001A", "statusBits=10000000000000000", Kind::Malformed,
        "CameraStatus/statusBits: \"10000000000000000\" is not a hexadecimal number of at most 64 bits: no status bit "
        "is examined, and every camera passes");
    row("no status bits", "statusBits=8001A\n", "", Kind::Missing,
        "CameraStatus/statusBits: missing: no status bit is examined, and every camera passes");
    row("empty status bits", "statusBits=8001A", "statusBits=", Kind::Missing,
        "CameraStatus/statusBits: empty: no status bit is examined, and every camera passes");
    row("expected status that is no number", "expectedVal=8001A", "expectedVal=-1", Kind::Malformed,
        "CameraStatus/expectedVal: \"-1\" is not a hexadecimal number of at most 64 bits: a healthy camera is expected "
        "to report 0 in every status bit");
    row("address with a typing error", "wifi=192.168.88.10", "wifi=192.168.88", Kind::Malformed,
        "BaseOption/wifi: \"192.168.88\" is no IPv4 address: this link is not used");
    row("two addresses", "usb=192.168.42.10", "usb=192.168.42.10, 192.168.42.11", Kind::Malformed,
        "BaseOption/usb: a comma stands outside of double quotes: this link is not used");
    row("neither link", "wifi=192.168.88.10\nusb=192.168.42.10\n", "", Kind::Missing,
        "BaseOption/wifi, BaseOption/usb: missing: no camera can be found");
    row("both links empty", "wifi=192.168.88.10\nusb=192.168.42.10\n", "wifi=\nusb=\n", Kind::Missing,
        "BaseOption/wifi, BaseOption/usb: missing: no camera can be found");
    row("unknown language", "[CameraStatus]", "[Interface]\nlanguage=de\n[CameraStatus]", Kind::Malformed,
        "Interface/language: \"de\" is neither en nor zh_CN: the texts are partly English, partly Chinese");
    row("no login name", "username=root\n", "", Kind::Missing,
        "BaseOption/username: missing: the station cannot log in to the camera's shell");
    row("empty login name", "username=root", "username=", Kind::Missing,
        "BaseOption/username: empty: the station cannot log in to the camera's shell");
    row("no password", "password=\n", "", Kind::Missing,
        "BaseOption/password: missing: the station cannot log in to the camera's shell");
    row("password with a comma", "password=\n", "password=a,b\n", Kind::Malformed,
        "BaseOption/password: a comma stands outside of double quotes: the station cannot log in to the camera's "
        "shell");
    row("FTP port 0", "ftpPort=21", "ftpPort=0", Kind::Malformed,
        "BaseOption/ftpPort: \"0\" is no TCP port: the camera's archives cannot be fetched");
    row("FTP port beyond the last", "ftpPort=21", "ftpPort=65536", Kind::Malformed,
        "BaseOption/ftpPort: \"65536\" is no TCP port: the camera's archives cannot be fetched");
    row("FTP port by name", "ftpPort=21", "ftpPort=ftp", Kind::Malformed,
        "BaseOption/ftpPort: \"ftp\" is no TCP port: the camera's archives cannot be fetched");
    row("no FTP name", "ftpName=ftp", "ftpName=", Kind::Missing,
        "BaseOption/ftpName: empty: the camera's archives cannot be fetched");
    row("no hostapd file", "HostApdUrl=/ap", "HostApdUrl=", Kind::Missing,
        "SystemLogPath/HostApdUrl: empty: the camera's WiFi name and passphrase stay unknown");
    row("no file with the MAC address", "MacAddressUrl=/mac\n", "", Kind::Missing,
        "SystemLogPath/MacAddressUrl: missing: the camera's MAC address stays unknown");
    row("no archive directory", "ZipLogTargetPath=/zip", "ZipLogTargetPath=", Kind::Missing,
        "ZipLogPath/ZipLogTargetPath: empty: the camera's archives cannot be fetched");
    row("no log directory", "LogPath=/log\n", "", Kind::Missing,
        "DownloadLogSrcPath/LogPath: missing: this log of the camera cannot be fetched");
    row("a station's name with a comma", "[CameraStatus]", "[Station]\nname=line 2, left\n[CameraStatus]",
        Kind::Malformed, "Station/name: a comma stands outside of double quotes: the records tell the host's name");
    row("a batch with a comma", "[CameraStatus]", "[Station]\nbatch=47,48\n[CameraStatus]", Kind::Malformed,
        "Station/batch: a comma stands outside of double quotes: the records do not tell it");
    row("automatic start with a typing error", "[CameraStatus]", "[Station]\nautoStart=1\n[CameraStatus]",
        Kind::Malformed, "Station/autoStart: \"1\" is neither true nor false: no run begins by itself");
    row("sound with a typing error", "[CameraStatus]", "[Station]\nsound=on\n[CameraStatus]", Kind::Malformed,
        "Station/sound: \"on\" is neither true nor false: there are no sounds");
    row("safeguards with a typing error", "[CameraStatus]", "[Station]\nsafeguards=ture\n[CameraStatus]",
        Kind::Malformed, "Station/safeguards: \"ture\" is neither true nor false: the safeguards are off");
    const char *noServer = "History/server: not of the form postgresql://user@host/database, or with a password, which "
                           "belongs into .pgpass: the runs stay at this station";
    row("server with a password", "[CameraStatus]",
        "[History]\nserver=postgresql://line:secret@db/runs\n[CameraStatus]", Kind::Malformed, noServer);
    row("server without a form", "[CameraStatus]", "[History]\nserver=db\n[CameraStatus]", Kind::Malformed, noServer);
}

void tst_Settings::problems()
{
    QFETCH(const QByteArray, before);
    QFETCH(const QByteArray, after);
    QFETCH(const SettingProblem::Kind, kind);
    const Settings settings = load(replaced(soundFile(), before, after));
    QCOMPARE(settings.problems.size(), 1);
    QCOMPARE(settings.problems.constFirst().kind, kind);
    QTEST(settings.problems.constFirst().text(), "text");
}

void tst_Settings::problemTellsWhereItIs()
{
    const Settings settings = load("[BaseOption]\nhalf a line\n" + soundFile());
    QCOMPARE(settings.problems.size(), 1);
    const SettingProblem problem = settings.problems.constFirst();
    QCOMPARE(problem.kind, SettingProblem::Kind::Malformed);
    QVERIFY2(problem.key.startsWith(m_folder.path()), qPrintable(problem.key));
    QCOMPARE(problem.message, QStringLiteral("some lines are no settings"));
    QCOMPARE(problem.consequence, QStringLiteral("these lines are ignored"));
}

void tst_Settings::onlyTheAddressesMayBeMended()
{
    QByteArray content = replaced(soundFile(), "usb=192.168.42.10", "usb=192.168.42.");
    content = replaced(content, "wifi=192.168.88.10", "wifi=300.1.1.1");
    content = replaced(content, "ftpPort=21", "ftpPort=");
    const Settings settings = load(content);
    QCOMPARE(settings.problems.size(), 3);
    const QList<SettingProblem> addresses = settings.addressProblems();
    QCOMPARE(addresses.size(), 2);
    QCOMPARE(addresses.at(0).key, QStringLiteral("BaseOption/wifi"));
    QCOMPARE(addresses.at(1).key, QStringLiteral("BaseOption/usb"));
    QVERIFY(load("").addressProblems().isEmpty());
}

void tst_Settings::unreadableFileIsOneProblem()
{
    // A folder cannot be read by root either.
    const QString path = m_folder.filePath(QStringLiteral("folder.ini"));
    QVERIFY(QDir().mkpath(path));
    const Settings settings = readSettings(path);
    QCOMPARE(settings.problems.size(), 1);
    QCOMPARE(settings.problems.constFirst().text(), path + QStringLiteral(": cannot be read: no camera can be found"));
}

void tst_Settings::pathLiesBesideTheProgram()
{
    QCOMPARE(settingsPath(), QCoreApplication::applicationDirPath() + QStringLiteral("/option.ini"));
}

QTEST_GUILESS_MAIN(tst_Settings)
#include "tst_Settings.moc"
