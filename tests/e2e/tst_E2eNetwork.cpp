#include "DatagramSocket.h"
#include "expectedLogs.h"
#include "isolation.h"
#include "StoryTest.h"

#include <csignal>
#include <memory>
#include <QtTest>

/// What other programs and other cameras do to the station's port and network.
class tst_E2eNetwork : public StoryTest
{
    Q_OBJECT

protected:
    std::vector<Story> stories() const override;
};

namespace {
constexpr int noCamera = 3;
constexpr quint16 pcPort = 7777;
constexpr quint16 cameraPort = 9999;
const char *const pcAddress = "127.0.0.1";
const char *const otherCamera = "127.0.0.11";
// The camera is known by its address's text, which this one contains: what comes from here is looked into.
const char *const likeCamera = "127.0.0.100";

QByteArray cameraAndBattery()
{
    return QByteArray(expectedLogs::camera) + expectedLogs::batteryLink + expectedLogs::batteryInfo +
           expectedLogs::batteryStatus;
}

// Each reply takes its time, in which others may come first.
QByteArray slowReplies()
{
    return R"({"faults": {"getCameraState": [{"kind": "delay", "ms": 400, "times": "always"}],
    "getBatteryInfo": [{"kind": "delay", "ms": 400, "times": "always"}],
    "getBatteryStatus": [{"kind": "delay", "ms": 400, "times": "always"}]}})";
}

/// Good replies to the three queries, each with the result code 128 instead of data.
QByteArrayList refusals()
{
    return {
        QByteArray::fromHex("aa000d010000ab0a001611c180"), // getCameraState
        QByteArray::fromHex("aa000d0100002a2a0046404080"), // getBatteryInfo
        QByteArray::fromHex("aa000d0100008a100046401a80"), // getBatteryStatus
    };
}

/// What is no reply to anything.
QByteArrayList garbage()
{
    return {
        QByteArray(),
        QByteArray("\xaa", 1),
        QByteArray(11, '\xaa'),
        QByteArray::fromHex("aa000c0100008fe1001611c1"),   // no result byte
        QByteArray::fromHex("aa000d0100006afb001617ff00"), // unknown command
        QByteArray::fromHex("aa000d010000d50a0016700100"), // unknown command set
        QByteArray::fromHex("aa000d12000031fb001611c180"), // a request
        QByteArray::fromHex("aa000d010000ab00001611c180"), // wrong checksum
        QByteArray::fromHex("aa000e010000ab0a001611c180"), // wrong length
        QByteArray(1024, '\x55'),
        QByteArray(65507, '\xaa'), // the longest datagram of IPv4
        QByteArray(65507, '\0'),
    };
}

Story story(const char *name, const QByteArray &scenario, const char *verdicts, const QByteArray &log)
{
    Story result(name, QStringLiteral("camera,battery"));
    result.scenario = scenario;
    result.verdicts = QString::fromLatin1(verdicts);
    result.exitCode = result.verdicts.endsWith(QLatin1String("NG")) ? 1 : 0;
    if (!log.isEmpty()) {
        result.files.insert(QStringLiteral("60601F0A5F2A/DetectorLog.txt"), log);
    }
    return result;
}

enum class Pace {
    calm,  ///< slower than the receiver, so that the camera's own replies find room beside them
    flood, ///< as fast as it goes
};

/// Sends `datagrams` to the station, over and over, for as long as it runs.
Story::Act keepSending(const char *from, quint16 port, const QByteArrayList &datagrams, Pace pace)
{
    return [from, port, datagrams, pace](Scene &scene) {
        const DatagramSocket sender(from, port);
        bool sent = sender.isValid();
        while (scene.station.isRunning()) {
            for (int round = 0; round < (pace == Pace::flood ? 1000 : 1); ++round) {
                for (const QByteArray &datagram : datagrams) {
                    sent = sender.send(datagram, pcAddress, pcPort) && sent;
                    if (pace == Pace::calm) {
                        QThread::usleep(500);
                    }
                }
            }
        }
        return sent ? QString() : QStringLiteral("not everything could be sent");
    };
}

std::vector<Story> datagramStories()
{
    const char *const ok = "Camera: OK, Battery: OK, Result: OK";
    Story foreign = story("another camera's replies come first", slowReplies(), ok, cameraAndBattery());
    foreign.meanwhile = keepSending(otherCamera, cameraPort, refusals(), Pace::calm);

    Story noise = story("garbage that looks as if from the camera", slowReplies(), ok, cameraAndBattery());
    noise.meanwhile = keepSending(likeCamera, cameraPort, garbage(), Pace::calm);

    Story foreignNoise = story("garbage of another camera", slowReplies(), ok, cameraAndBattery());
    foreignNoise.meanwhile = keepSending(otherCamera, cameraPort, garbage(), Pace::calm);

    Story flood = story("a flood from another port", "{}", ok, cameraAndBattery());
    flood.options = QStringList{QStringLiteral("--repeat"), QStringLiteral("20")};
    flood.calm = true; // it takes a processor for itself
    flood.meanwhile = keepSending(likeCamera, 0, {QByteArray(12, '\xaa'), QByteArray(1400, '\xaa')}, Pace::flood);
    Story longFlood = flood;
    longFlood.name = "a flood of 64 KiB datagrams";
    longFlood.meanwhile = keepSending(likeCamera, cameraPort, {QByteArray(65507, '\xaa')}, Pace::flood);

    Story two = story("two cameras, of which the other one fails", "{}", ok, cameraAndBattery());
    const auto second = std::make_shared<std::unique_ptr<CameraProcess>>();
    two.before = [second](Scene &) {
        *second = std::make_unique<CameraProcess>();
        return (*second)->start(R"({"status": "0x1", "mac": "00:11:22:33:44:55"})",
                                {QStringLiteral("--address"), QString::fromLatin1(otherCamera)})
                   ? QString()
                   : QStringLiteral("no second camera");
    };
    two.after = [second](Scene &) {
        const bool asked = (*second)->log().count(" #") > 0;
        second->reset();
        return asked ? QStringLiteral("the other camera was asked") : QString();
    };
    return {foreign, noise, foreignNoise, two, flood, longFlood};
}

/// A program that has taken the station's port; each copy of an act shares it.
class Squatter
{
public:
    QString take(const char *address, DatagramSocket::Sharing sharing) const
    {
        *m_socket = std::make_unique<DatagramSocket>(address, pcPort, sharing);
        return (*m_socket)->isValid() ? QString() : QStringLiteral("port 7777 cannot be taken");
    }
    QString leave() const
    {
        m_socket->reset();
        return {};
    }

private:
    std::shared_ptr<std::unique_ptr<DatagramSocket>> m_socket = std::make_shared<std::unique_ptr<DatagramSocket>>();
};

std::vector<Story> portStories()
{
    using Sharing = DatagramSocket::Sharing;
    std::vector<Story> stories{
        // The camera answers to where the request came from, so another port does as well.
        story("port 7777 belongs to another program", "{}", "Camera: OK, Battery: OK, Result: OK", cameraAndBattery()),
        story("another program gets what comes to port 7777", "{}", "", ""),
        story("another program takes port 7777 during the run",
              R"({"faults": {"getBatteryInfo": [{"kind": "delay", "ms": 1000}]}})",
              "Camera: OK, Battery: NG, Result: NG",
              QByteArray(expectedLogs::camera) + expectedLogs::batteryLink + "获取电池信息失败\n获取电池状态失败\n\n"),
    };
    Story &exclusive = stories.at(0);
    const Squatter first;
    exclusive.before = [first](Scene &) { return first.take("0.0.0.0", Sharing::exclusive); };
    exclusive.after = [first](Scene &) { return first.leave(); };
    exclusive.says = QStringList{QStringLiteral("UDP port 7777: ")};

    // The other program is bound to the very address, so every reply is its.
    Story &shared = stories.at(1);
    const Squatter second;
    shared.before = [second](Scene &) { return second.take(pcAddress, Sharing::shared); };
    shared.after = [second](Scene &) { return second.leave(); };
    shared.options = QStringList{QStringLiteral("--connect-timeout"), QStringLiteral("3")};
    shared.exitCode = noCamera;
    shared.says = QStringList{QStringLiteral("No camera found after 3 s")};

    Story &robbed = stories.at(2);
    const Squatter third;
    robbed.meanwhile = [third](Scene &scene) {
        return scene.camera.waitForRequest("getBatteryInfo") ? third.take(pcAddress, Sharing::shared)
                                                             : QStringLiteral("the request does not come");
    };
    robbed.after = [third](Scene &) { return third.leave(); };
    return stories;
}

QString needsPrivateNetwork(Scene &)
{
    return isInPrivateNetwork() ? QString() : cannotBePlayed + QStringLiteral("no network of its own");
}

std::vector<Story> addressStories()
{
    // The link drops after three refused pings; the next registration names the new address.
    Story changes =
        story("the PC's address changes while connected",
              R"({"faults": {"Ping": [{"kind": "resultCode", "code": 1, "times": 3}]}})", "Fan: OK, Result: OK", "");
    changes.components = QStringLiteral("fan");
    changes.options = QStringList{QStringLiteral("--repeat"), QStringLiteral("1000000")};
    changes.before = needsPrivateNetwork;
    changes.meanwhile = [](Scene &scene) {
        bool came = scene.camera.waitForRequest("Ping") && setLoopbackAddress("127.0.0.2");
        came = came && scene.station.debugOutput().waitFor("sConnectIp \"127.0.0.10\" \"127.0.0.2\" 0");
        scene.station.signal(SIGTERM);
        return came ? QString() : QStringLiteral("no registration with the new address");
    };
    changes.after = [](Scene &scene) {
        return scene.camera.log().count("registerPC #1 01 00 00 7f 61 1e") == 1 &&
                       scene.camera.log().content().contains(" 02 00 00 7f 61 1e")
                   ? QString()
                   : QStringLiteral("other registrations");
    };
    changes.exitCode = 4; // ended by SIGTERM

    Story gone = changes;
    gone.name = "the PC's network goes and comes back";
    gone.scenario = "{}";
    gone.meanwhile = [](Scene &scene) {
        bool came = scene.camera.waitForRequest("Ping") && setLoopbackUp(false);
        came = came && scene.station.debugOutput().waitFor("sConnectIp \"\" \"\" 9999");
        came = came && setLoopbackUp(true);
        came = came && scene.station.debugOutput().waitFor("sConnectIp \"127.0.0.10\" \"127.0.0.1\" 0", 2);
        scene.station.signal(SIGTERM);
        return came ? QString() : QStringLiteral("the link does not come back");
    };
    gone.after = nullptr;
    return {changes, gone};
}
} // namespace

std::vector<Story> tst_E2eNetwork::stories() const
{
    return joined({datagramStories(), portStories(), addressStories()});
}

QTEST_GUILESS_MAIN(tst_E2eNetwork)
#include "tst_E2eNetwork.moc"
