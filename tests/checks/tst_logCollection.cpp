#include "detector/checks/logCollection.h"
#include "detector/store/KestDetectorFace.h"
#include "support/CheckTest.h"
#include "support/fileContent.h"
#include "support/MessageSpy.h"
#include "support/ScriptedShell.h"

#include <memory>
#include <QDate>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using LogRoutine = QString (*)(int *, const QString &);
Q_DECLARE_METATYPE(LogRoutine)
Q_DECLARE_METATYPE(Limit)

class tst_logCollection : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void archive_data();
    void archive();
    void archiveStepsRunEvenIfEarlierOnesFail();
    void text_data();
    void text();
    void textFileIsWrittenWhenTheCommandFailed();
    void completeTextTakesItsName();
    void textOfAFailedCommandIsAPart();
    void archiveThatWasNotPackedIsAPart_data();
    void archiveThatWasNotPackedIsAPart();
    void whatAnotherCameraSaysIsNotKept_data();
    void whatAnotherCameraSaysIsNotKept();
    void valuesAreNotFilledInAgain();
    void laterLogReplacesTheEarlierOne();
    void folderWithoutMacAddress();
    void fileThatCannotBeWritten_data();
    void fileThatCannotBeWritten();
    void whatIsNotSavedIsNoted_data();
    void whatIsNotSavedIsNoted();
    void component_data();
    void component();
    void allItems();
    void whatItemsMeasure();
    void limits_data();
    void limits();
    void closingLeavesEarlierFilesAlone();

private:
    static void setSafeguards(bool on);
    QString runLog(LogRoutine routine, int *verdict);
    QString folder() const { return m_folder->path() + QStringLiteral("/log/2024-05-01_AABBCCDDEEFF"); }

    ScriptedShell m_shell;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_logCollection::init()
{
    KestDetectorFace::Get()->takeBackStop();
    m_shell.reset();
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    KestDetectorFace *face = KestDetectorFace::Get();
    face->run.post({}); // drops the records of the test before
    face->savePath = m_folder->path();
    face->macAddress = QStringLiteral("AA:BB:CC:DD:EE:FF");
    face->cameraAddress = QStringLiteral("127.0.0.10");
    Settings settings;
    settings.zipLogTargetPath = QStringLiteral("/tmp/ftp");
    settings.logPath = QStringLiteral("/var/log");
    settings.privatePath = QStringLiteral("/mnt/private");
    settings.netconfPath = QStringLiteral("/etc/netconf");
    settings.sharefsPath = QStringLiteral("/mnt/sharefs");
    settings.versionPath = QStringLiteral("/etc/kest_version");
    settings.mciInfoPath = QStringLiteral("/proc/mci/mci_info");
    face->setSettings(settings);
}

void tst_logCollection::setSafeguards(bool on)
{
    Settings settings = KestDetectorFace::Get()->settings();
    settings.safeguards = on;
    KestDetectorFace::Get()->setSettings(settings);
}

QString tst_logCollection::runLog(LogRoutine routine, int *verdict)
{
    return onWorkerThread([&] { return routine(verdict, QStringLiteral("2024-05-01")); });
}

void tst_logCollection::archive_data()
{
    QTest::addColumn<LogRoutine>("routine");
    QTest::addColumn<QString>("pack");
    QTest::addColumn<QString>("remove");
    QTest::addColumn<QStringList>("calls");
    QTest::newRow("log") << LogRoutine(downloadCameraLog) << "tar -zcvf /tmp/ftp/log.tar.gz /var/log\n"
                         << "rm -rf /tmp/ftp/log.tar.gz\n"
                         << QStringList{"shell 7 tar -zcvf /tmp/ftp/log.tar.gz /var/log",
                                        "ftp ftp://127.0.0.10/log.tar.gz %1/log.tar.gz",
                                        "shell 8 rm -rf /tmp/ftp/log.tar.gz"};
    QTest::newRow("private") << LogRoutine(downloadPrivateLog) << "tar -zcvf /tmp/ftp/private.tar.gz /mnt/private\n"
                             << "rm -rf /tmp/ftp/private.tar.gz\n"
                             << QStringList{"shell 9 tar -zcvf /tmp/ftp/private.tar.gz /mnt/private",
                                            "ftp ftp://127.0.0.10/private.tar.gz %1/private.tar.gz",
                                            "shell 10 rm -rf /tmp/ftp/private.tar.gz"};
    QTest::newRow("netconf") << LogRoutine(downloadNetConfLog) << "tar -zcvf /tmp/ftp/netconf.tar.gz /etc/netconf\n"
                             << "rm -rf /tmp/ftp/netconf.tar.gz\n"
                             << QStringList{"shell 15 tar -zcvf /tmp/ftp/netconf.tar.gz /etc/netconf",
                                            "ftp ftp://127.0.0.10/netconf.tar.gz %1/netconf.tar.gz",
                                            "shell 16 rm -rf /tmp/ftp/netconf.tar.gz"};
    QTest::newRow("sharefs") << LogRoutine(downloadSharefsLog) << "tar -zcvf /tmp/ftp/sharefs.tar.gz /mnt/sharefs\n"
                             << "rm -rf /tmp/ftp/sharefs.tar.gz\n"
                             << QStringList{"shell 19 tar -zcvf /tmp/ftp/sharefs.tar.gz /mnt/sharefs",
                                            "ftp ftp://127.0.0.10/sharefs.tar.gz %1/sharefs.tar.gz",
                                            "shell 20 rm -rf /tmp/ftp/sharefs.tar.gz"};
}

void tst_logCollection::archive()
{
    QFETCH(LogRoutine, routine);
    QFETCH(QString, pack);
    QFETCH(QString, remove);
    QFETCH(QStringList, calls);
    m_shell.answer(pack, QStringLiteral("~ # "));
    m_shell.answer(remove, QStringLiteral("~ # "));
    int verdict = 99;
    QCOMPARE(runLog(routine, &verdict), QString());
    QCOMPARE(verdict, 0);
    QCOMPARE(m_shell.calls(), calls.replaceInStrings(QStringLiteral("%1"), folder()));
    QVERIFY(QDir(folder()).exists());
}

void tst_logCollection::archiveStepsRunEvenIfEarlierOnesFail()
{
    m_shell.setDownloadResult(-1);
    int verdict = 99;
    runLog(downloadCameraLog, &verdict);
    QCOMPARE(verdict, -1);
    QCOMPARE(m_shell.calls().size(), 3);

    // The verdict is that of the last shell call alone.
    m_shell.answer(QStringLiteral("rm -rf /tmp/ftp/log.tar.gz\n"), QStringLiteral("~ # "));
    runLog(downloadCameraLog, &verdict);
    QCOMPARE(verdict, 0);
}

void tst_logCollection::text_data()
{
    QTest::addColumn<LogRoutine>("routine");
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("file");
    QTest::newRow("dmesg") << LogRoutine(downloadDmesgLog) << "dmesg\n"
                           << "shell 11 dmesg"
                           << "/dmesg.txt";
    QTest::newRow("pstree and ps") << LogRoutine(downloadPstreePsLog) << "pstree && ps\n"
                                   << "shell 12 pstree && ps"
                                   << "/pstree_ps.txt";
    QTest::newRow("ifconfig") << LogRoutine(downloadIfconfLog) << "ifconfig -a\n"
                              << "shell 13 ifconfig -a"
                              << "/ifconfig.txt";
    QTest::newRow("version") << LogRoutine(downloadVersionLog) << "cat /etc/kest_version\n"
                             << "shell 14 cat /etc/kest_version"
                             << "/kest_verison.txt";
    QTest::newRow("scan") << LogRoutine(downloadIwDevAp0ScanLog) << "iw dev ap0 scan\n"
                          << "shell 17 iw dev ap0 scan"
                          << "/iw_dev_ap0_scan.txt";
    QTest::newRow("card controller") << LogRoutine(downloadMciInfoLog) << "cat /proc/mci/mci_info\n"
                                     << "shell 18 cat /proc/mci/mci_info"
                                     << "/mci_info.txt";
}

void tst_logCollection::text()
{
    QFETCH(LogRoutine, routine);
    QFETCH(QString, command);
    QFETCH(QString, call);
    QFETCH(QString, file);
    m_shell.answer(command, QStringLiteral("echo\r\n输出 line\r\n~ # "));
    int verdict = 99;
    QCOMPARE(runLog(routine, &verdict), QString());
    QCOMPARE(verdict, 0);
    QCOMPARE(m_shell.calls(), QStringList{call});
    QCOMPARE(fileContent(folder() + file), QByteArray("echo\r\n\xE8\xBE\x93\xE5\x87\xBA line\r\n~ # "));
}

void tst_logCollection::textFileIsWrittenWhenTheCommandFailed()
{
    int verdict = 99;
    runLog(downloadDmesgLog, &verdict);
    QCOMPARE(verdict, -1);
    QCOMPARE(fileContent(folder() + QStringLiteral("/dmesg.txt")), QByteArray());
}

void tst_logCollection::completeTextTakesItsName()
{
    setSafeguards(true);
    m_shell.answer(QStringLiteral("dmesg\n"), QStringLiteral("one\r\n~ # "));
    int verdict = 99;
    runLog(downloadDmesgLog, &verdict);
    m_shell.answer(QStringLiteral("dmesg\n"), QStringLiteral("two\r\n~ # "));
    runLog(downloadDmesgLog, &verdict);
    QCOMPARE(fileContent(folder() + QStringLiteral("/dmesg.txt")), QByteArray("two\r\n~ # "));
    QCOMPARE(QDir(folder()).entryList(QDir::Files), QStringList{QStringLiteral("dmesg.txt")});
}

void tst_logCollection::textOfAFailedCommandIsAPart()
{
    setSafeguards(true);
    m_shell.answer(QStringLiteral("dmesg\n"), QStringLiteral("one\r\n~ # "));
    int verdict = 99;
    runLog(downloadDmesgLog, &verdict);
    m_shell.reset();
    runLog(downloadDmesgLog, &verdict);
    QCOMPARE(verdict, -1);
    QCOMPARE(fileContent(folder() + QStringLiteral("/dmesg.txt")), QByteArray("one\r\n~ # "));
    QCOMPARE(fileContent(folder() + QStringLiteral("/dmesg.txt.part")), QByteArray());
}

void tst_logCollection::archiveThatWasNotPackedIsAPart_data()
{
    QTest::addColumn<bool>("safeguards");
    QTest::addColumn<bool>("packed");
    QTest::addColumn<QString>("file");
    const QString whole = QStringLiteral("/log.tar.gz");
    QTest::newRow("packed, with safeguards") << true << true << whole;
    QTest::newRow("not packed, with safeguards") << true << false << whole + QStringLiteral(".part");
    QTest::newRow("not packed, without") << false << false << whole;
}

void tst_logCollection::archiveThatWasNotPackedIsAPart()
{
    QFETCH(bool, safeguards);
    QFETCH(bool, packed);
    QFETCH(QString, file);
    setSafeguards(safeguards);
    if (packed) {
        m_shell.answer(QStringLiteral("tar -zcvf /tmp/ftp/log.tar.gz /var/log\n"), QStringLiteral("~ # "));
    }
    int verdict = 99;
    runLog(downloadCameraLog, &verdict);
    QCOMPARE(m_shell.calls().at(1), QStringLiteral("ftp ftp://127.0.0.10/log.tar.gz ") + folder() + file);
}

void tst_logCollection::whatAnotherCameraSaysIsNotKept_data()
{
    QTest::addColumn<LogRoutine>("routine");
    QTest::addColumn<QStringList>("calls");
    QTest::newRow("text") << LogRoutine(downloadDmesgLog) << QStringList{"shell 11 dmesg"};
    QTest::newRow("archive") << LogRoutine(downloadCameraLog)
                             << QStringList{"shell 7 tar -zcvf /tmp/ftp/log.tar.gz /var/log",
                                            "shell 8 rm -rf /tmp/ftp/log.tar.gz"};
}

void tst_logCollection::whatAnotherCameraSaysIsNotKept()
{
    QFETCH(LogRoutine, routine);
    QFETCH(QStringList, calls);
    setSafeguards(true);
    KestDetectorFace *face = KestDetectorFace::Get();
    QVERIFY(face->run.take(face->macAddress));
    face->macAddress = QStringLiteral("00:00:00:00:00:01");
    m_shell.answer(QStringLiteral("dmesg\n"), QStringLiteral("one\r\n~ # "));
    m_shell.answer(QStringLiteral("tar -zcvf /tmp/ftp/log.tar.gz /var/log\n"), QStringLiteral("~ # "));
    int verdict = 99;
    runLog(routine, &verdict);
    const RunEnd end = face->run.finish();
    QCOMPARE(m_shell.calls(), calls);
    QCOMPARE(end.unsaved.size(), 1);
    QCOMPARE(end.unsaved.constFirst().reason, QStringLiteral("it may come from another camera than that of the run"));
    QDirIterator files(m_folder->path(), QDir::Files, QDirIterator::Subdirectories);
    QVERIFY2(!files.hasNext(), qPrintable(files.next()));
}

void tst_logCollection::valuesAreNotFilledInAgain()
{
    KestDetectorFace *face = KestDetectorFace::Get();
    Settings settings = face->settings();
    settings.zipLogTargetPath = QStringLiteral("/ftp/%2");
    settings.logPath = QStringLiteral("/var/%1");
    settings.versionPath = QStringLiteral("/etc/%1");
    face->setSettings(settings);
    int verdict = 99;
    runLog(downloadCameraLog, &verdict);
    runLog(downloadVersionLog, &verdict);
    QCOMPARE(m_shell.calls().at(0), QStringLiteral("shell 7 tar -zcvf /ftp/%2/log.tar.gz /var/%1"));
    QCOMPARE(m_shell.calls().at(2), QStringLiteral("shell 8 rm -rf /ftp/%2/log.tar.gz"));
    QCOMPARE(m_shell.calls().at(3), QStringLiteral("shell 14 cat /etc/%1"));
}

void tst_logCollection::laterLogReplacesTheEarlierOne()
{
    int verdict = 99;
    m_shell.answer(QStringLiteral("dmesg\n"), QStringLiteral("a long first reply\r\n~ # "));
    runLog(downloadDmesgLog, &verdict);
    m_shell.answer(QStringLiteral("dmesg\n"), QStringLiteral("second\r\n~ # "));
    runLog(downloadDmesgLog, &verdict);
    QCOMPARE(fileContent(folder() + QStringLiteral("/dmesg.txt")), QByteArray("second\r\n~ # "));
}

void tst_logCollection::folderWithoutMacAddress()
{
    KestDetectorFace::Get()->macAddress = QString();
    int verdict = 99;
    runLog(downloadDmesgLog, &verdict);
    QVERIFY(QFile::exists(m_folder->path() + QStringLiteral("/log/2024-05-01_/dmesg.txt")));
}

void tst_logCollection::fileThatCannotBeWritten_data()
{
    QTest::addColumn<QString>("obstacle");
    QTest::addColumn<QString>("target");
    QTest::newRow("folder cannot be created") << "/log"
                                              << "/nonexistent";
    QTest::newRow("file cannot be created") << "/log/2024-05-01_AABBCCDDEEFF/dmesg.txt"
                                            << "/nonexistent/file";
    QTest::newRow("disk is full") << "/log/2024-05-01_AABBCCDDEEFF/dmesg.txt"
                                  << "/dev/full";
}

void tst_logCollection::fileThatCannotBeWritten()
{
    QFETCH(QString, obstacle);
    QFETCH(QString, target);
    const QString link = m_folder->path() + obstacle;
    QVERIFY(QDir().mkpath(QFileInfo(link).path()));
    QVERIFY(QFile::link(target, link));
    m_shell.answer(QStringLiteral("dmesg\n"), QStringLiteral("reply\r\n~ # "));
    const MessageSpy spy;
    int verdict = 99;
    QCOMPARE(runLog(downloadDmesgLog, &verdict), QString());
    QCOMPARE(verdict, 0);
    QVERIFY(!spy.containing(folder() + QStringLiteral("/dmesg.txt")).isEmpty());
}

void tst_logCollection::whatIsNotSavedIsNoted_data()
{
    QTest::addColumn<LogRoutine>("routine");
    QTest::addColumn<bool>("answered"); // by shell and FTP server
    QTest::addColumn<QString>("obstacle");
    QTest::addColumn<QString>("unsaved");

    const QString none;
    const QString dmesg = QStringLiteral("dmesg.txt: ");
    const QString archive = QStringLiteral("log.tar.gz: ");
    QTest::newRow("text") << LogRoutine(downloadDmesgLog) << true << none << none;
    QTest::newRow("archive") << LogRoutine(downloadCameraLog) << true << none << none;
    QTest::newRow("silent shell") << LogRoutine(downloadDmesgLog) << false << none
                                  << dmesg + QStringLiteral("the camera's shell did not answer");
    QTest::newRow("archive that does not come")
        << LogRoutine(downloadCameraLog) << false << none
        << archive + QStringLiteral("the camera's archive could not be fetched");
    QTest::newRow("no folder for a text")
        << LogRoutine(downloadDmesgLog) << true << QStringLiteral("/log") << dmesg + QStringLiteral("Not a directory");
    QTest::newRow("no folder for an archive") << LogRoutine(downloadCameraLog) << false << QStringLiteral("/log")
                                              << archive + QStringLiteral("Not a directory");
    QTest::newRow("full disk") << LogRoutine(downloadDmesgLog) << true
                               << QStringLiteral("/log/2024-05-01_AABBCCDDEEFF/dmesg.txt")
                               << dmesg + QStringLiteral("No space left on device");
}

void tst_logCollection::whatIsNotSavedIsNoted()
{
    QFETCH(const LogRoutine, routine);
    QFETCH(const bool, answered);
    QFETCH(const QString, obstacle);
    QFETCH(const QString, unsaved);
    if (answered) {
        m_shell.answer(QStringLiteral("dmesg\n"), QStringLiteral("reply\r\n~ # "));
        m_shell.answer(QStringLiteral("tar -zcvf /tmp/ftp/log.tar.gz /var/log\n"), QStringLiteral("~ # "));
    } else {
        m_shell.setDownloadResult(-1);
    }
    if (obstacle == QStringLiteral("/log")) {
        QFile blocker(m_folder->path() + obstacle);
        QVERIFY(blocker.open(QIODevice::WriteOnly));
    } else if (!obstacle.isEmpty()) {
        QVERIFY(QDir().mkpath(QFileInfo(m_folder->path() + obstacle).path()));
        QVERIFY(QFile::link(QStringLiteral("/dev/full"), m_folder->path() + obstacle));
    }
    RunExchange &run = KestDetectorFace::Get()->run;
    QVERIFY(run.take(QStringLiteral("AA:BB:CC:DD:EE:FF")));
    int verdict = 99;
    runLog(routine, &verdict);
    QStringList noted;
    const QList<UnsavedFile> files = run.finish().unsaved;
    for (const UnsavedFile &file : files) {
        noted.append(QStringLiteral("%1: %2").arg(QFileInfo(file.path).fileName(), file.reason));
    }
    QCOMPARE(noted, unsaved.isEmpty() ? QStringList() : QStringList{unsaved});
}

void tst_logCollection::component_data()
{
    QTest::addColumn<QList<int>>("items");
    QTest::addColumn<int>("verdict");
    QTest::addColumn<QStringList>("events");
    QTest::addColumn<QStringList>("records");
    QTest::newRow("no items") << QList<int>() << 0 << QStringList{"progress 0", "log 9"} << QStringList();
    QTest::newRow("dmesg twice") << QList<int>{2, 2} << 0 << QStringList{"progress 0", "item dmesg",   "progress 50",
                                                                         "item dmesg", "progress 100", "log 9"}
                                 << QStringList{"0||", "0||"};
    QTest::newRow("a command that fails")
        << QList<int>{4, 2} << 1
        << QStringList{"progress 0", "item ifconfig", "progress 50", "item dmesg", "progress 100", "log 9"}
        << QStringList{"-1||", "0||"};
    QTest::newRow("an unknown item only advances the progress")
        << QList<int>{99, 2, -1} << 0
        << QStringList{"progress 0", "progress 33", "item dmesg", "progress 66", "progress 100", "log 9"}
        << QStringList{"0||"};
}

void tst_logCollection::component()
{
    QFETCH(QList<int>, items);
    m_shell.answer(QStringLiteral("dmesg\n"), QStringLiteral("reply\r\n~ # "));
    const FacadeSpy spy;
    const Outcome outcome = runComponent(downLoadLogs, items);
    QTEST(outcome.verdict, "verdict");
    QCOMPARE(outcome.text, QString());
    QTEST(spy.events(), "events");
    QTEST(texts(spy.logs().constFirst()), "records");
    // The detection log has no block for it.
    QVERIFY(KestDetectorFace::Get()->checkLogList().isEmpty());
}

void tst_logCollection::allItems()
{
    const QString before = QDate::currentDate().toString(QStringLiteral("yyyy-MM-dd"));
    const FacadeSpy spy;
    runComponent(downLoadLogs, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9});
    const QString after = QDate::currentDate().toString(QStringLiteral("yyyy-MM-dd"));
    QCOMPARE(spy.events(), (QStringList{"progress 0",   "item log",      "progress 10", "item private",
                                        "progress 20",  "item dmesg",    "progress 30", "item pstree&&ps",
                                        "progress 40",  "item ifconfig", "progress 50", "item kest_version",
                                        "progress 60",  "item netconf",  "progress 70", "item iwDevAp0Scan",
                                        "progress 80",  "item mci_info", "progress 90", "item sharefs",
                                        "progress 100", "log 9"}));
    const QStringList folders =
        QDir(m_folder->path() + QStringLiteral("/log")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QCOMPARE(folders.size(), 1);
    QVERIFY(folders.first() == before + QStringLiteral("_AABBCCDDEEFF") ||
            folders.first() == after + QStringLiteral("_AABBCCDDEEFF"));
    QCOMPARE(QDir(m_folder->path() + QStringLiteral("/log/") + folders.first()).entryList(QDir::Files, QDir::Name),
             (QStringList{"dmesg.txt", "ifconfig.txt", "iw_dev_ap0_scan.txt", "kest_verison.txt", "mci_info.txt",
                          "pstree_ps.txt"}));
}

void tst_logCollection::whatItemsMeasure()
{
    const QString reply = QStringLiteral("cat /etc/kest_version\r\nfirmware: 1.2.3\r\n~ # ");
    m_shell.answer(QStringLiteral("cat /etc/kest_version\n"), reply);
    m_shell.answer(QStringLiteral("tar -zcvf /tmp/ftp/log.tar.gz /var/log\n"), QStringLiteral("~ # "));
    m_shell.answer(QStringLiteral("rm -rf /tmp/ftp/log.tar.gz\n"), QStringLiteral("~ # "));
    const FacadeSpy spy;
    runComponent(downLoadLogs, {5, 0, 2});
    const QList<CheckItemLog> items = spy.logs().constFirst().itemLogs;
    QCOMPARE(items.size(), 3);

    QCOMPARE(items.at(0).files.size(), 1);
    QVERIFY(items.at(0).files.constFirst().endsWith(QStringLiteral("_AABBCCDDEEFF/kest_verison.txt")));
    QCOMPARE(fileContent(items.at(0).files.constFirst()), reply.toUtf8());
    QStringList texts = measurementTexts(items.at(0));
    QCOMPARE(texts.size(), 3);
    QCOMPARE(texts.takeAt(0), QStringLiteral("file.size=%1 B").arg(reply.size()));
    QVERIFY2(QRegularExpression(QStringLiteral("^file\\.time=[0-9.e-]+ s$")).match(texts.at(0)).hasMatch(),
             qPrintable(texts.at(0)));
    QCOMPARE(texts.at(1), QStringLiteral("firmware=1.2.3"));

    QVERIFY(items.at(1).files.constFirst().endsWith(QStringLiteral("_AABBCCDDEEFF/log.tar.gz")));
    QCOMPARE(measurementTexts(items.at(1)).size(), 2);

    QVERIFY2(items.at(2).files.isEmpty() && items.at(2).measurements.isEmpty(), "the shell did not answer");
}

void tst_logCollection::limits_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<Limit>("limit");
    QTest::addColumn<bool>("answered");
    QTest::addColumn<QString>("record");
    QTest::addColumn<bool>("breaksLimit");
    const Limit versions{{}, {}, {QStringLiteral("1.2.3"), QStringLiteral("1.2.4")}};
    const Limit others{{}, {}, {QStringLiteral("1.2.4")}};
    QTest::newRow("firmware that is meant") << "firmware" << versions << true << "0||" << false;
    QTest::newRow("another firmware") << "firmware" << others << true << "1||firmware: 1.2.3 (1.2.4)\n" << true;
    QTest::newRow("firmware that was not read")
        << "firmware" << versions << false << "1||firmware: not read (1.2.3|1.2.4)\n"
        << true;
    QTest::newRow("size on the bound") << "file.size" << Limit{42.0, 42.0, {}} << true << "0||" << false;
    QTest::newRow("a byte too small") << "file.size" << Limit{43.0, {}, {}} << true << "1||file.size: 42 B (43..)\n"
                                      << true;
    QTest::newRow("no file") << "file.size" << Limit{1.0, {}, {}} << false << "1||file.size: not read (1..)\n" << true;
    QTest::newRow("not read, and nobody has set a limit")
        << "battery.voltage" << Limit{1.0, {}, {}} << false << "-1||" << false;
}

void tst_logCollection::limits()
{
    QFETCH(const QString, name);
    QFETCH(const Limit, limit);
    QFETCH(const bool, answered);
    Settings settings = KestDetectorFace::Get()->settings();
    settings.limits = {{name, limit}};
    KestDetectorFace::Get()->setSettings(settings);
    if (answered) {
        m_shell.answer(QStringLiteral("cat /etc/kest_version\n"),
                       QStringLiteral("cat /etc/kest_version\r\nversion=1.2.3\r\n~ # "));
    }
    const FacadeSpy spy;
    runComponent(downLoadLogs, {5});
    const checkLog log = spy.logs().constFirst();
    QTEST(texts(log).constFirst(), "record");
    QTEST(log.itemLogs.constFirst().breaksLimit, "breaksLimit");
}

void tst_logCollection::closingLeavesEarlierFilesAlone()
{
    m_shell.answer(QStringLiteral("dmesg\n"), QStringLiteral("reply\r\n~ # "));
    int verdict = 99;
    runLog(downloadDmesgLog, &verdict);
    m_shell.reset();

    // From now on nothing is answered, as when the program closes.
    KestDetectorFace::Get()->requestStop();
    runLog(downloadDmesgLog, &verdict);
    QCOMPARE(verdict, -1);
    QCOMPARE(fileContent(folder() + QStringLiteral("/dmesg.txt")), QByteArray("reply\r\n~ # "));
    runLog(downloadCameraLog, &verdict);
    QCOMPARE(m_shell.calls(), QStringList({QStringLiteral("shell 11 dmesg"),
                                           QStringLiteral("shell 7 tar -zcvf /tmp/ftp/log.tar.gz /var/log")}));

    // What has come all the same is kept.
    m_shell.answer(QStringLiteral("ifconfig -a\n"), QStringLiteral("ap0\r\n~ # "));
    runLog(downloadIfconfLog, &verdict);
    QCOMPARE(fileContent(folder() + QStringLiteral("/ifconfig.txt")), QByteArray("ap0\r\n~ # "));
}

QTEST_GUILESS_MAIN(tst_logCollection)
#include "tst_logCollection.moc"
