#include "CameraProcess.h"
#include "expectedLogs.h"
#include "history/store/Store.h"
#include "StationProcess.h"
#include "support/fileContent.h"

#include <QImage>
#include <QtTest>

/// All ten components of a healthy camera, from program start to the files in the operator's folder.
class tst_E2eFullRun : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void exitCode();
    void servicesStartInTheirOrder();
    void verdicts();
    void detectionLog();
    void textLogs_data();
    void textLogs();
    void archivesHoldTheCamerasTrees_data();
    void archivesHoldTheCamerasTrees();
    void folderHoldsNothingElse();
    void cameraIsLeftClean();
    void screenshotIsSaved();
    void runIsInTheHistory();

private:
    CameraProcess m_camera;
    StationProcess m_station;
    int m_exitCode = -1;
};

namespace {
/// Path to content of every file below `folder`, symbolic links left out.
QMap<QString, QByteArray> tree(const QString &folder)
{
    QMap<QString, QByteArray> files;
    QDirIterator entries(folder, QDir::Files | QDir::Hidden | QDir::NoSymLinks, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        files.insert(QDir(folder).relativeFilePath(path), fileContent(path));
    }
    return files;
}
} // namespace

void tst_E2eFullRun::initTestCase()
{
    QVERIFY(m_camera.startShipped(QStringLiteral("healthy")));
    m_exitCode = m_station.run(QStringLiteral("all"),
                               {QStringLiteral("--screenshot"), m_station.folder() + QStringLiteral("/window.png")});
}

void tst_E2eFullRun::exitCode()
{
    QVERIFY2(m_exitCode == 0, m_station.debugOutput().content().constData());
}

void tst_E2eFullRun::verdicts()
{
    const QStringList expected =
        StationProcess::startsAsShipped()
            ? QStringList({"Camera: OK", "Gimbal: OK", "Battery: OK", "TF Card: OK", "Lens: OK", "Fan: not tested",
                           "Button: not tested", "Audio: not tested", "PCBA: OK", "Result: OK"})
            : QStringList({"Camera: OK", "Gimbal: OK", "Battery: OK", "TF Card: OK", "Lens: OK", "Fan: OK",
                           "Button: OK", "Audio: OK", "PCBA: OK", "Result: OK"});
    QCOMPARE(m_station.verdicts(), expected);
}

void tst_E2eFullRun::servicesStartInTheirOrder()
{
    const QByteArray said = m_station.debugOutput().content();
    const int runner = said.indexOf("The runner thread begins");
    const int supervisor = said.indexOf("The supervisor thread begins");
    const int receiver = said.indexOf("The receive thread begins");
    QVERIFY2(runner >= 0 && runner < supervisor && supervisor < receiver, said.constData());
}

void tst_E2eFullRun::detectionLog()
{
    QCOMPARE(QFileInfo(m_station.runFolder()).fileName(),
             QDate::currentDate().toString(QStringLiteral("yyyy-MM-dd")) + QStringLiteral("_60601F0A5F2A"));
    QString expected;
    for (const char *block : {expectedLogs::camera, expectedLogs::gimbal, expectedLogs::batteryLink,
                              expectedLogs::batteryInfo, expectedLogs::batteryStatus, expectedLogs::cardUse,
                              expectedLogs::cardSpeed, expectedLogs::lens, expectedLogs::pcba}) {
        expected += QString::fromUtf8(block);
    }
    QCOMPARE(QString::fromUtf8(m_station.saved(QStringLiteral("DetectorLog.txt"))), expected);
}

void tst_E2eFullRun::textLogs_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("inside");

    const auto row = [](const char *fileName, const char *command, const char *inside) {
        QTest::newRow(fileName) << QString::fromLatin1(fileName) << QString::fromLatin1(command)
                                << QString::fromLatin1(inside);
    };
    row("dmesg.txt", "dmesg", "new ultra high speed SDR104 SDXC card");
    row("pstree_ps.txt", "pstree && ps", "init-+-camera_service");
    row("ifconfig.txt", "ifconfig -a", "60:60:1F:0A:5F:2A");
    row("kest_verison.txt", "cat /etc/kest_version", "version");
    row("iw_dev_ap0_scan.txt", "iw dev ap0 scan", "BSS ");
    row("mci_info.txt", "cat /proc/mci/mci_info", "UHS SDR104");
}

void tst_E2eFullRun::textLogs()
{
    QFETCH(QString, fileName);
    QFETCH(QString, command);
    QFETCH(QString, inside);
    // Echo, output and prompt, as the shell sent them.
    const QString text = QString::fromUtf8(m_station.saved(fileName));
    QVERIFY2(text.startsWith(command + QStringLiteral("\r\n")), qPrintable(text));
    QVERIFY2(text.contains(inside, Qt::CaseInsensitive), qPrintable(text));
    QVERIFY2(text.contains(QStringLiteral("\r\n~ # ")), qPrintable(text));
}

void tst_E2eFullRun::archivesHoldTheCamerasTrees_data()
{
    QTest::addColumn<QString>("archive");
    QTest::addColumn<QString>("source");
    QTest::addColumn<int>("leastFiles");

    QTest::newRow("log") << QStringLiteral("log.tar.gz") << QStringLiteral("data/log") << 2;
    QTest::newRow("private") << QStringLiteral("private.tar.gz") << QStringLiteral("data/private") << 4;
    QTest::newRow("netconf") << QStringLiteral("netconf.tar.gz") << QStringLiteral("data/netconf") << 2;
    QTest::newRow("sharefs") << QStringLiteral("sharefs.tar.gz") << QStringLiteral("data/sharefs") << 1;
}

void tst_E2eFullRun::archivesHoldTheCamerasTrees()
{
    QFETCH(QString, archive);
    QFETCH(QString, source);
    QFETCH(int, leastFiles);
    const QTemporaryDir unpacked;
    QCOMPARE(QProcess::execute(QStringLiteral("tar"),
                               {QStringLiteral("-xzf"), m_station.runFolder() + QLatin1Char('/') + archive,
                                QStringLiteral("-C"), unpacked.path()}),
             0);
    const auto packed = tree(unpacked.filePath(source));
    const auto original = tree(m_camera.root() + QLatin1Char('/') + source);
    QVERIFY(original.size() >= leastFiles);
    QCOMPARE(packed.keys(), original.keys());
    QVERIFY(packed == original);
    QCOMPARE(tree(unpacked.path()).size(), packed.size());
}

void tst_E2eFullRun::folderHoldsNothingElse()
{
    QCOMPARE(QDir(m_station.runFolder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name),
             QStringList({"DetectorLog.txt", "dmesg.txt", "ifconfig.txt", "iw_dev_ap0_scan.txt", "kest_verison.txt",
                          "log.tar.gz", "mci_info.txt", "netconf.tar.gz", "private.tar.gz", "pstree_ps.txt",
                          "sharefs.tar.gz"}));
}

void tst_E2eFullRun::cameraIsLeftClean()
{
    const QDir archives(m_camera.root() + QStringLiteral("/tmp/archive"));
    QVERIFY(archives.exists());
    QCOMPARE(archives.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
    QVERIFY(m_camera.stop());
    QCOMPARE(m_camera.root(), QString());
}

void tst_E2eFullRun::screenshotIsSaved()
{
    const QImage image(m_station.folder() + QStringLiteral("/window.png"));
    QVERIFY(image.width() >= 800 && image.height() >= 600);
}

void tst_E2eFullRun::runIsInTheHistory()
{
    const QString path = m_station.folder() + QStringLiteral("/history.sqlite");
    StoreError error;
    Store::Options options;
    options.access = Connection::Access::Read;
    const std::unique_ptr<Store> store = Store::open(StoreAddress::file(path), options, &error);
    QCOMPARE(store != nullptr, StationProcess::startsAsShipped());
    if (!store) {
        QVERIFY(!QFile::exists(path));
        return;
    }
    const std::optional<QList<QUuid>> runs = store->unsent(2);
    QVERIFY2(runs, qUtf8Printable(store->error().text));
    QCOMPARE(runs->size(), 1);
    const std::optional<RunRecord> run = store->read(runs->first());
    QVERIFY2(run, qUtf8Printable(store->error().text));
    QVERIFY(run->outcome == Outcome::Passed);
    QCOMPARE(run->camera.mac, QStringLiteral("60:60:1F:0A:5F:2A"));
    QCOMPARE(run->components.size(), 10);
    QCOMPARE(store->camera(run->camera.mac)->runs, 1);
}

QTEST_GUILESS_MAIN(tst_E2eFullRun)
#include "tst_E2eFullRun.moc"
