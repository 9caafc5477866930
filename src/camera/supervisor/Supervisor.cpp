#include "camera/supervisor/Supervisor.h"

#include "camera/codec/requestResult.h"
#include "camera/supervisor/linkChoice.h"
#include "camera/supervisor/LinkCommands.h"
#include "camera/supervisor/systemInformation.h"
#include "detector/store/IpInfo.h"
#include "detector/store/KestDetectorFace.h"
#include "detector/store/networkHelpers.h"
#include "detector/store/Settings.h"
#include "telnet/session/TelnetInteractiveFace.h"

#include <chrono>
#include <QDebug>

namespace {
constexpr std::chrono::milliseconds exitLimit(2000);
constexpr int toleratedPings = 2; // the next failure in a row drops the link

void publishLink(bool isConnected)
{
    KestDetectorFace *face = KestDetectorFace::Get();
    face->connectState = isConnected;
    emit face->signal_setConnectStatus(isConnected);
}
} // namespace

Supervisor::Supervisor(LinkCommands &commands, std::chrono::milliseconds pause)
    : m_commands(commands), m_pause(pause), m_worker("supervisor", exitLimit, [this] { func(); })
{
}

void Supervisor::stop()
{
    m_worker.stop();
}

void Supervisor::func()
{
    while (m_worker.running()) {
        if (m_connected) {
            pingOnce();
            keepShell();
        } else {
            connectOnce();
        }
        m_worker.pause(m_pause);
    }
}

void Supervisor::connectOnce()
{
    KestDetectorFace *face = KestDetectorFace::Get();
    const Settings settings = readSettings(settingsPath());
    const QList<SettingProblem> problems = settings.addressProblems();
    for (const SettingProblem &problem : problems) {
        qWarning().noquote() << "option.ini:" << problem.text();
    }
    const IpInfo own = getIPInfo(subnetPrefix(settings.usb), subnetPrefix(settings.wifi));
    const Link link = chooseLink(settings.usb, settings.wifi, own);
    face->pcAddress = link.pcAddress;
    face->cameraAddress = link.cameraAddress;
    face->linkName = link.name;

    const int outcome = link.pcAddress.isEmpty() ? requestResult::noPcAddress : m_commands.registerPC(link.pcAddress);
    qDebug() << "sConnectIp" << link.cameraAddress << link.pcAddress << outcome;
    if (outcome != requestResult::success) {
        publishLink(false);
        return;
    }
    const bool loggedIn = TelnetInteractiveFace::Get()->telnetConnectToHost() == 0;
    m_connected = true;
    face->shellState = loggedIn ? ShellState::Up : ShellState::None;
    publishLink(true);
    m_cameraIsRead = publishSystemInformation();
    face->macAddressIsCurrent = m_cameraIsRead;
    m_loginPause.reset();
    if (!loggedIn || !m_cameraIsRead) {
        m_loginPause.noteFailure();
    }
}

void Supervisor::keepShell()
{
    if (!m_connected || m_commands.requestsAbandoned()) {
        return;
    }
    TelnetInteractiveFace *shell = TelnetInteractiveFace::Get();
    KestDetectorFace *face = KestDetectorFace::Get();
    bool isThere = shell->connected();
    if (!isThere && face->shellState == ShellState::Up) {
        face->shellState = ShellState::Regaining;
        face->macAddressIsCurrent = false;
        m_cameraIsRead = false;
        m_loginPause.reset();
    }
    if ((isThere && m_cameraIsRead) || !m_loginPause.isDue()) {
        return;
    }
    if (!isThere) {
        isThere = shell->telnetConnectToHost() == 0;
    }
    if (isThere) {
        m_cameraIsRead = refreshSystemInformation();
        face->macAddressIsCurrent = m_cameraIsRead;
        // Only now: a run that waits for the shell begins with the MAC address of the camera that is there.
        face->shellState = ShellState::Up;
    }
    if (!isThere || !m_cameraIsRead) {
        m_loginPause.noteFailure();
    }
}

void Supervisor::pingOnce()
{
    if (m_commands.Ping() == requestResult::success) {
        m_failedPings = 0;
        return;
    }
    if (m_commands.requestsAbandoned()) {
        return; // the program is closing: the camera may well be there, and the last log needs its MAC address
    }
    if (m_failedPings < toleratedPings) {
        ++m_failedPings;
        return;
    }
    m_failedPings = 0;
    m_connected = false;
    KestDetectorFace *face = KestDetectorFace::Get();
    face->run.noteLinkLost();
    face->shellState = ShellState::None;
    face->wifiName = QString();
    face->wifiPassword = QString();
    face->macAddress = QString();
    emit face->signal_setWifiName(QString());
    emit face->signal_setWifiPassWord(QString());
    emit face->signal_setMacAddress(QString());
    publishLink(false);
}
