#include "platform/platformChoice.h"

#include <QtTest>
#include <vector>

/// Where the window goes, as the arguments and the environment say.
class tst_platformChoice : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void platform_data();
    void platform();
    void openGlIsNotLoaded();
    void openGlAsTheEnvironmentSays();
};

namespace {
void choose(const QByteArray &argument)
{
    QByteArray program("KestDetector");
    QByteArray only(argument);
    std::vector<char *> arguments{program.data()};
    if (!only.isEmpty()) {
        arguments.push_back(only.data());
    }
    choosePlatform(static_cast<int>(arguments.size()), arguments.data());
}
} // namespace

void tst_platformChoice::init()
{
    for (const char *variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_XCB_GL_INTEGRATION"}) {
        qunsetenv(variable);
    }
}

void tst_platformChoice::platform_data()
{
    QTest::addColumn<QByteArray>("argument");
    QTest::addColumn<QByteArray>("variable");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QByteArray>("platform");
    QTest::newRow("window without a display: Qt says what is missing")
        << QByteArray() << QByteArray() << QByteArray() << QByteArray();
    QTest::newRow("option without a display")
        << QByteArray("--run") << QByteArray() << QByteArray() << QByteArray("offscreen");
    QTest::newRow("help without a display")
        << QByteArray("-h") << QByteArray() << QByteArray() << QByteArray("offscreen");
    QTest::newRow("Qt's own option without a display")
        << QByteArray("-style") << QByteArray() << QByteArray() << QByteArray();
    QTest::newRow("option on X11") << QByteArray("--run") << QByteArray("DISPLAY") << QByteArray(":0") << QByteArray();
    QTest::newRow("option on Wayland") << QByteArray("--run") << QByteArray("WAYLAND_DISPLAY")
                                       << QByteArray("wayland-0") << QByteArray();
    QTest::newRow("option with a platform chosen")
        << QByteArray("--run") << QByteArray("QT_QPA_PLATFORM") << QByteArray("vnc") << QByteArray("vnc");
}

void tst_platformChoice::platform()
{
    QFETCH(QByteArray, argument);
    QFETCH(QByteArray, variable);
    QFETCH(QByteArray, value);
    if (!variable.isEmpty()) {
        qputenv(variable.constData(), value);
    }
    choose(argument);
    QTEST(qgetenv("QT_QPA_PLATFORM"), "platform");
}

void tst_platformChoice::openGlIsNotLoaded()
{
    choose({});
    QCOMPARE(qgetenv("QT_XCB_GL_INTEGRATION"), QByteArray("none"));
}

void tst_platformChoice::openGlAsTheEnvironmentSays()
{
    qputenv("QT_XCB_GL_INTEGRATION", "xcb_egl");
    choose({});
    QCOMPARE(qgetenv("QT_XCB_GL_INTEGRATION"), QByteArray("xcb_egl"));
}

QTEST_APPLESS_MAIN(tst_platformChoice)
#include "tst_platformChoice.moc"
