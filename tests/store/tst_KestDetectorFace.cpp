#include "detector/store/KestDetectorFace.h"

#include <QCoreApplication>
#include <QMetaMethod>
#include <QTest>

/// What everybody finds before anybody has written.
class tst_KestDetectorFace : public QObject
{
    Q_OBJECT

private slots:
    void initialState();
    void signalsInTheirOrder();
    void stopRequestCanBeTakenBack();
};

void tst_KestDetectorFace::initialState()
{
    const KestDetectorFace *face = KestDetectorFace::Get();
    QCOMPARE(face, KestDetectorFace::Get());
    QCOMPARE(face->savePath.get(), QCoreApplication::applicationDirPath());
    QCOMPARE(face->runRequest(), 0);
    QVERIFY(face->taskList().isEmpty());
    QVERIFY(face->checkLogList().isEmpty());
    QCOMPARE(face->quitFlag.load(), 0);
    QVERIFY(!face->connectState);
    QVERIFY(face->shellState == ShellState::None);
    QVERIFY(!face->stopRequested());
    QCOMPARE(face->macAddress.get(), QString());
    QCOMPARE(face->settings().username, QString());
    QCOMPARE(face->settings().cameraStatusMask, quint64{0});
    QVERIFY(face->settings().statusBitList.isEmpty());
    QVERIFY(face->notices.current().isEmpty());
    QVERIFY(face->parent() == nullptr);
}

void tst_KestDetectorFace::signalsInTheirOrder()
{
    const QMetaObject &meta = KestDetectorFace::staticMetaObject;
    QByteArrayList names;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        if (meta.method(i).methodType() == QMetaMethod::Signal) {
            names.append(meta.method(i).methodSignature());
        }
    }
    QCOMPARE(names.join('\n'), QByteArray("signal_showBatteryCheckResult(int)\n"
                                          "signal_showCameraCheckResult(int)\n"
                                          "signal_showFanCheckResult(int)\n"
                                          "signal_showGimbalCheckResult(int)\n"
                                          "signal_showKeyBoardCheckResult(int)\n"
                                          "signal_showLensCheckResult(int)\n"
                                          "signal_showPcbaCheckResult(int)\n"
                                          "signal_showTFCardCheckResult(int)\n"
                                          "signal_showVoiceCheckResult(int)\n"
                                          "signal_showCurrentComponent(QString)\n"
                                          "signal_showCurrentCheckItem(QString)\n"
                                          "signal_showCheckLogList(QList<checkLog>)\n"
                                          "signal_showCheckLog(checkLog)\n"
                                          "signal_showCheckResult(bool)\n"
                                          "signal_showTotalPersent(int)\n"
                                          "signal_showCurrentPersent(int)\n"
                                          "signal_setButtonEnable(bool)\n"
                                          "signal_setWifiName(QString)\n"
                                          "signal_setMacAddress(QString)\n"
                                          "signal_setWifiPassWord(QString)\n"
                                          "signal_setConnectStatus(bool)"));
}

void tst_KestDetectorFace::stopRequestCanBeTakenBack()
{
    KestDetectorFace *face = KestDetectorFace::Get();
    face->requestStop();
    QVERIFY(face->stopRequested());
    face->takeBackStop();
    QVERIFY(!face->stopRequested());
}

QTEST_GUILESS_MAIN(tst_KestDetectorFace)
#include "tst_KestDetectorFace.moc"
