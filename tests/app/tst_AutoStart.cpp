#include "app/station/AutoStart.h"
#include "detector/run/KestDetectorRt.h"
#include "detector/store/KestDetectorFace.h"
#include "ui/window/KestDetectorUI.h"

#include <QCheckBox>
#include <QTemporaryDir>
#include <QTest>

using Face = KestDetectorFace;

/// The window that starts by itself, with the real runner and a camera that is only told of.
class tst_AutoStart : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void testsEachCameraOnce();
    void startsNothingWhereNothingIsTicked();

private:
    static void cameraComes(const QString &mac);
    static void cameraGoes();

    QTemporaryDir m_folder;
};

void tst_AutoStart::initTestCase()
{
    qRegisterMetaType<QList<checkLog>>("QList<checkLog>");
    qRegisterMetaType<checkLog>("checkLog");
    Face::Get()->savePath = m_folder.path();
    KestDetectorRt::Get();
}

void tst_AutoStart::cameraComes(const QString &mac)
{
    Face::Get()->macAddress = mac;
    emit Face::Get()->signal_setConnectStatus(true);
    emit Face::Get()->signal_setMacAddress(mac);
}

void tst_AutoStart::cameraGoes()
{
    Face::Get()->macAddress = QString();
    emit Face::Get()->signal_setMacAddress(QString());
    emit Face::Get()->signal_setConnectStatus(false);
}

void tst_AutoStart::testsEachCameraOnce()
{
    KestDetectorUI window;
    const AutoStart autoStart(&window);
    window.findChild<QCheckBox *>(QStringLiteral("cbFan"))->setChecked(true);
    int runs = KestDetectorRt::Get()->finishedRuns();
    const auto expectRunOf = [&runs](const QString &mac) {
        ++runs;
        QTRY_COMPARE(KestDetectorRt::Get()->finishedRuns(), runs);
        QCOMPARE(KestDetectorRt::Get()->lastRun().end.identity.macAddress, mac);
        QTest::qWait(200); // another one would begin within 50 ms
        QCOMPARE(KestDetectorRt::Get()->finishedRuns(), runs);
        QCOMPARE(Face::Get()->runRequest(), 0);
    };
    const QString first = QStringLiteral("AA:AA:AA:AA:AA:AA");
    const QString second = QStringLiteral("BB:BB:BB:BB:BB:BB");
    cameraComes(first);
    expectRunOf(first);
    cameraComes(second);
    expectRunOf(second);
    cameraGoes();
    cameraComes(second);
    expectRunOf(second);
}

void tst_AutoStart::startsNothingWhereNothingIsTicked()
{
    KestDetectorUI window;
    const AutoStart autoStart(&window);
    const int runs = KestDetectorRt::Get()->finishedRuns();
    cameraComes(QStringLiteral("AA:AA:AA:AA:AA:AA"));
    QTest::qWait(200);
    QCOMPARE(KestDetectorRt::Get()->finishedRuns(), runs);
    QCOMPARE(Face::Get()->runRequest(), 0);
}

QTEST_MAIN(tst_AutoStart)
#include "tst_AutoStart.moc"
