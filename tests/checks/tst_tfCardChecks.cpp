#include "detector/checks/tfCardChecks.h"
#include "detector/store/KestDetectorFace.h"
#include "support/CheckTest.h"
#include "support/MessageSpy.h"
#include "support/ScriptedShell.h"

#include <optional>
#include <QTest>
#include <QTimer>

using Reply = std::optional<QString>;
Q_DECLARE_METATYPE(Reply)

namespace {
constexpr int cameraSet = 1;
constexpr int stateCommand = 0xF1;
constexpr int usageCommand = 0xF0;

QByteArray state(int card, int reason)
{
    return littleEndian(static_cast<quint64>(card), 4) + littleEndian(static_cast<quint64>(reason), 4);
}

/// A card of 32 GB.
const QByteArray usage = littleEndian(512, 8) + littleEndian(Q_UINT64_C(31914983424), 8) +
                         littleEndian(Q_UINT64_C(31914983424 - 1048576), 8) + littleEndian(1048576, 8);
const QString usageReport = QStringLiteral("扇区大小:0.5K\n"
                                           "总内存:30436.5MB\n"
                                           "可用内存:30435.5MB\n"
                                           "已用内存:1MB\n");

const QString mounted = QStringLiteral("mount\r\n/dev/root on / type squashfs\r\n"
                                       "/dev/mmcblk0p1 on /mnt/sd type vfat\r\n~ # ");
const QString fastCard = QStringLiteral("cat /proc/mci/mci_info\r\n Type: SD\r\n Work mode: UHS SDR104\r\n~ # ");
} // namespace

class tst_tfCardChecks : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_camera.isListening()); }
    void init();

    void cardIsNotReady_data();
    void cardIsNotReady();
    void readyCardIsReported();
    void cardCannotBeAsked();
    void usageCannotBeAsked();
    void speed_data();
    void speed();
    void speedWaitsForTheShell();
    void measuresWhatItReports();
    void measuresWhatIsWrong();
    void component_data();
    void component();

private:
    ScriptedCamera m_camera;
    ScriptedShell m_shell;
};

void tst_tfCardChecks::init()
{
    m_camera.reset();
    m_shell.reset();
    m_shell.setConnected(false);
    KestDetectorFace::Get()->shellState = ShellState::None;
}

void tst_tfCardChecks::cardIsNotReady_data()
{
    QTest::addColumn<int>("card");
    QTest::addColumn<int>("reason");
    QTest::addColumn<QString>("text");
    QTest::newRow("removed, fragmented") << 0 << 0 << "SD卡被拔出,错误原因:SD卡碎片严重\n";
    QTest::newRow("starting, reason outside of the table") << 1 << 9 << "SD卡初始化中";
    QTest::newRow("formatting, cluster error") << 3 << 1 << "SD卡格式化中,错误原因:SD卡簇错误\n";
    QTest::newRow("repairing, file system error") << 4 << 2 << "SD卡修复中,错误原因:SD卡文件系统错误\n";
    QTest::newRow("error, mount failed") << 5 << 4 << "SD卡错误,错误原因:SD卡挂载失败\n";
    QTest::newRow("in other use, storage system error") << 6 << 5 << "SD卡复用中,错误原因:SD卡存储系统错误\n";
    QTest::newRow("write-protected, unknown file system") << 7 << 6 << "SD卡写保护中,错误原因:SD卡文件系统不支持\n";
    QTest::newRow("full, repair failed") << 8 << 7 << "SD卡满,错误原因:SD卡修复文件失败\n";
    QTest::newRow("state outside of the table, slow card") << 9 << 3 << ",错误原因:SD卡低速卡\n";
    QTest::newRow("negative values") << -1 << -1 << "";
    QTest::newRow("just above the tables") << 9 << 8 << "";
}

void tst_tfCardChecks::cardIsNotReady()
{
    QFETCH(int, card);
    QFETCH(int, reason);
    m_camera.answer(cameraSet, stateCommand, state(card, reason));
    const Outcome outcome = runItem(checkTFCardStatus);
    QCOMPARE(outcome.verdict, 1);
    QTEST(outcome.text, "text");
    QCOMPARE(outcome.detail, QString());
}

void tst_tfCardChecks::readyCardIsReported()
{
    m_camera.answer(cameraSet, stateCommand, state(2, 0));
    m_camera.answer(cameraSet, usageCommand, usage);
    const MessageSpy spy;
    const Outcome outcome = runItem(checkTFCardStatus);
    QCOMPARE(outcome.verdict, 0);
    QCOMPARE(outcome.text, QString());
    QCOMPARE(outcome.detail, usageReport);
    QCOMPARE(spy.containing(usageReport).size(), 1);
}

void tst_tfCardChecks::cardCannotBeAsked()
{
    const Outcome outcome = runItem(checkTFCardStatus);
    QCOMPARE(outcome.verdict, 1);
    QCOMPARE(outcome.text, QStringLiteral("获取TF卡状态失败\n"));
    QCOMPARE(outcome.detail, QString());
}

void tst_tfCardChecks::usageCannotBeAsked()
{
    m_camera.answer(cameraSet, stateCommand, state(2, 0));
    const Outcome outcome = runItem(checkTFCardStatus);
    QCOMPARE(outcome.verdict, 1);
    QCOMPARE(outcome.text, QStringLiteral("获取TF卡使用状态失败\n"));
    QCOMPARE(outcome.detail, QString());
}

void tst_tfCardChecks::speed_data()
{
    QTest::addColumn<Reply>("mount");
    QTest::addColumn<Reply>("info");
    QTest::addColumn<int>("verdict");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("calls");
    const QStringList mountOnly{"shell 5 mount"};
    const QStringList both{"shell 5 mount", "shell 6 cat /proc/mci/mci_info"};
    QTest::newRow("fast card") << Reply(mounted) << Reply(fastCard) << 0 << "SD Card OK\n" << both;
    QTest::newRow("slow card is a warning")
        << Reply(mounted) << Reply("Work mode: HS\r\n~ # ") << 2 << "警告:非高SD速卡\n"
        << both;
    QTest::newRow("case matters") << Reply(mounted) << Reply("uhs sdr104\r\n~ # ") << 2 << "警告:非高SD速卡\n" << both;
    QTest::newRow("time-out of mount") << Reply() << Reply(fastCard) << 1 << "mount SD Card faild\n" << mountOnly;
    QTest::newRow("not mounted") << Reply("mount\r\n/dev/root on /\r\n~ # ") << Reply(fastCard) << 1 << "SD卡未挂载\n"
                                 << mountOnly;
    QTest::newRow("empty reply") << Reply("") << Reply(fastCard) << 1 << "SD卡未挂载\n" << mountOnly;
    QTest::newRow("the echo line counts as mounted")
        << Reply("mount /dev/mmcblk0p1\r\n~ # ") << Reply(fastCard) << 0 << "SD Card OK\n"
        << both;
    QTest::newRow("time-out of the card information") << Reply(mounted) << Reply() << 1 << "获取SD卡信息失败\n" << both;
}

void tst_tfCardChecks::speed()
{
    QFETCH(Reply, mount);
    QFETCH(Reply, info);
    if (mount) {
        m_shell.answer(QStringLiteral("mount\n"), *mount);
    }
    if (info) {
        m_shell.answer(QStringLiteral("cat /proc/mci/mci_info\n"), *info);
    }
    const Outcome outcome = runItem(checkTFCardSpeed);
    QTEST(outcome.verdict, "verdict");
    QTEST(outcome.text, "text");
    QCOMPARE(outcome.detail, QString());
    QTEST(m_shell.calls(), "calls");
}

/// Of a camera that has rebooted since the item before.
void tst_tfCardChecks::speedWaitsForTheShell()
{
    KestDetectorFace *face = KestDetectorFace::Get();
    m_shell.answer(QStringLiteral("mount\n"), mounted);
    m_shell.answer(QStringLiteral("cat /proc/mci/mci_info\n"), fastCard);
    face->shellState = ShellState::Regaining;
    QStringList callsBefore{QStringLiteral("not looked at")};
    QTimer::singleShot(300, &m_shell, [&] {
        callsBefore = m_shell.calls();
        m_shell.setConnected(true);
        face->shellState = ShellState::Up;
    });
    const Outcome outcome = runItem(checkTFCardSpeed);
    QCOMPARE(callsBefore, QStringList());
    QCOMPARE(outcome.verdict, 0);
    QCOMPARE(outcome.text, QStringLiteral("SD Card OK\n"));
}

void tst_tfCardChecks::measuresWhatItReports()
{
    m_camera.answer(cameraSet, stateCommand, state(2, 0));
    m_camera.answer(cameraSet, usageCommand, usage);
    m_shell.answer(QStringLiteral("mount\n"), mounted);
    m_shell.answer(QStringLiteral("cat /proc/mci/mci_info\n"), fastCard);
    const FacadeSpy spy;
    runComponent(checkTFCard, {0, 1});
    const QList<CheckItemLog> items = spy.logs().constFirst().itemLogs;
    QCOMPARE(items.size(), 2);
    QCOMPARE(measurementTexts(items.at(0)),
             (QStringList{"card.state=2", "card.reason=0", "card.sectorSize=0.5 KiB", "card.total=30436.5 MiB",
                          "card.available=30435.5 MiB", "card.used=1 MiB"}));
    QCOMPARE(measurementTexts(items.at(1)), (QStringList{"card.mounted=1", "card.fast=1"}));
}

void tst_tfCardChecks::measuresWhatIsWrong()
{
    m_camera.answer(cameraSet, stateCommand, state(5, -1));
    m_shell.answer(QStringLiteral("mount\n"), QStringLiteral("mount\r\n~ # "));
    const FacadeSpy spy;
    runComponent(checkTFCard, {0, 1});
    const QList<CheckItemLog> items = spy.logs().constFirst().itemLogs;
    QCOMPARE(items.size(), 2);
    QCOMPARE(measurementTexts(items.at(0)), (QStringList{"card.state=5", "card.reason=-1"}));
    QCOMPARE(measurementTexts(items.at(1)), QStringList{"card.mounted=0"});
}

void tst_tfCardChecks::component_data()
{
    QTest::addColumn<QList<int>>("items");
    QTest::addColumn<int>("verdict");
    QTest::addColumn<QStringList>("events");
    QTest::addColumn<QStringList>("records");
    QTest::newRow("both items, the second fails")
        << QList<int>{0, 1} << 1
        << QStringList{"progress 0", "item Use condition", "progress 50", "item Literacy rate", "progress 100", "log 6"}
        << QStringList{"0||" + usageReport, "1|mount SD Card faild\n|"};
    QTest::newRow("no items: only the record")
        << QList<int>() << 0 << QStringList{"progress 0", "log 6"} << QStringList();
    QTest::newRow("an unknown item only advances the progress")
        << QList<int>{99, 0} << 0
        << QStringList{"progress 0", "progress 50", "item Use condition", "progress 100", "log 6"}
        << QStringList{"0||" + usageReport};
}

void tst_tfCardChecks::component()
{
    QFETCH(QList<int>, items);
    m_camera.answer(cameraSet, stateCommand, state(2, 0));
    m_camera.answer(cameraSet, usageCommand, usage);
    const FacadeSpy spy;
    const Outcome outcome = runComponent(checkTFCard, items);
    QTEST(outcome.verdict, "verdict");
    QTEST(spy.events(), "events");
    QTEST(texts(spy.logs().constFirst()), "records");
}

QTEST_GUILESS_MAIN(tst_tfCardChecks)
#include "tst_tfCardChecks.moc"
