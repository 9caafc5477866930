#include "../e2e/CameraProcess.h"
#include "detector/store/KestDetectorFace.h"
#include "telnet/session/TelnetInteractive.h"

#include <QtTest>

/// The shell session against a real login, which throws away what is typed before it asks for the password.
class tst_Login : public QObject
{
    Q_OBJECT

private slots:
    void everyLoginSucceeds();
    void wrongPasswordDoesNot();

private:
    CameraProcess m_camera;
};

void tst_Login::everyLoginSucceeds()
{
    QVERIFY(m_camera.start());
    KestDetectorFace *face = KestDetectorFace::Get();
    face->cameraAddress = QStringLiteral("127.0.0.10");
    Settings settings;
    settings.username = QStringLiteral("root");
    settings.password = QStringLiteral("camera");
    face->setSettings(settings);
    int succeeded = 0;
    for (int count = 0; count < 100; ++count) {
        succeeded += TelnetInteractive::Get()->telnetConnectToHost() ? 1 : 0;
    }
    QCOMPARE(succeeded, 100);
}

void tst_Login::wrongPasswordDoesNot()
{
    Settings settings = KestDetectorFace::Get()->settings();
    settings.password = QStringLiteral("wrong");
    KestDetectorFace::Get()->setSettings(settings);
    QVERIFY(!TelnetInteractive::Get()->telnetConnectToHost());
    QVERIFY(m_camera.stop());
}

QTEST_GUILESS_MAIN(tst_Login)
#include "tst_Login.moc"
