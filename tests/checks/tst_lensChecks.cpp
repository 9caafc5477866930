#include "detector/checks/lensChecks.h"
#include "support/CheckTest.h"

#include <QTest>

class tst_lensChecks : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_camera.isListening()); }
    void init() { m_camera.reset(); }

    void link_data();
    void link();
    void linkCannotBeAsked();
    void component_data();
    void component();
    void statusPasses();

private:
    ScriptedCamera m_camera;
};

void tst_lensChecks::link_data()
{
    QTest::addColumn<quint64>("status");
    QTest::addColumn<QList<int>>("examined");
    QTest::addColumn<int>("verdict");
    QTest::addColumn<QString>("text");
    QTest::newRow("linked") << Q_UINT64_C(0) << QList<int>{4} << 0 << "相机通信正常\n";
    QTest::newRow("fault bit set") << Q_UINT64_C(0x10) << QList<int>{4} << 1 << "相机镜头连接失败\n";
    QTest::newRow("fault bit is not examined") << Q_UINT64_C(0x10) << QList<int>{3, 5} << 0 << "相机通信正常\n";
    QTest::newRow("neighbouring bits") << Q_UINT64_C(0x28) << QList<int>{3, 4, 5} << 0 << "相机通信正常\n";
}

void tst_lensChecks::link()
{
    QFETCH(quint64, status);
    QFETCH(QList<int>, examined);
    reportStatus(m_camera, status, examined);
    const Outcome outcome = runItem(checkLensNetWork);
    QTEST(outcome.verdict, "verdict");
    QTEST(outcome.text, "text");
    QCOMPARE(outcome.detail, QString());
}

void tst_lensChecks::linkCannotBeAsked()
{
    m_camera.refuse(1, 0x1C1, 128);
    const Outcome outcome = runItem(checkLensNetWork);
    QCOMPARE(outcome.verdict, 1);
    QCOMPARE(outcome.text, QStringLiteral("获取相机镜头状态失败\n"));
    QCOMPARE(outcome.detail, QString());
}

void tst_lensChecks::component_data()
{
    QTest::addColumn<quint64>("status");
    QTest::addColumn<QList<int>>("items");
    QTest::addColumn<int>("verdict");
    QTest::addColumn<QStringList>("events");
    QTest::addColumn<QStringList>("records");
    QTest::newRow("status only: a record without entries")
        << Q_UINT64_C(0) << QList<int>{1} << 0 << QStringList{"progress 0", "item Lens Status", "progress 100", "log 5"}
        << QStringList();
    QTest::newRow("link fault") << Q_UINT64_C(0x10) << QList<int>{0} << 1
                                << QStringList{"progress 0", "item Lens connection", "progress 100", "log 5"}
                                << QStringList{"1|相机镜头连接失败\n|"};
    QTest::newRow("both, and an unknown one")
        << Q_UINT64_C(0) << QList<int>{0, 1, 99} << 0
        << QStringList{"progress 0",  "item Lens connection", "progress 33", "item Lens Status",
                       "progress 66", "progress 100",         "log 5"}
        << QStringList{"0|相机通信正常\n|"};
}

void tst_lensChecks::component()
{
    QFETCH(quint64, status);
    QFETCH(QList<int>, items);
    reportStatus(m_camera, status, {4});
    const FacadeSpy spy;
    const Outcome outcome = runComponent(checkLens, items);
    QTEST(outcome.verdict, "verdict");
    QTEST(spy.events(), "events");
    QTEST(texts(spy.logs().constFirst()), "records");
}

void tst_lensChecks::statusPasses()
{
    int verdict = 99;
    QCOMPARE(checkLensStatus(&verdict), QString());
    QCOMPARE(verdict, 0);
}

QTEST_GUILESS_MAIN(tst_lensChecks)
#include "tst_lensChecks.moc"
