#include "telnet/session/TelnetInteractive.h"

#include "detector/store/KestDetectorFace.h"
#include "detector/store/serveEvents.h"
#include "log/MyDebug.h"
#include "telnet/engine/KestTelnet.h"
#include "telnet/session/redactSecrets.h"
#include "telnet/session/shellStep.h"
#include "telnet/sync/SyncCondMutexData.h"

#include <initializer_list>
#include <QByteArrayList>
#include <QLatin1String>
#include <QTcpSocket>
#include <utility>

namespace {
// A login that never names its password prompt gets the password all the same, once its terminal has been quiet.
constexpr int passwordDelayMs = 1000;
// A shell that never stops talking must not fill the memory. No real reply comes near it.
constexpr int longestReply = 64 * 1024 * 1024; // characters
constexpr quint16 telnetPort = 23;

const QLatin1String loginPrompt("(none) login: ");
const QLatin1String passwordPrompt("assword:"); // blanks may follow
const QLatin1String shellPrompt("~ # ");

/// The prompts as bytes on the network.
QByteArrayList promptBytes(std::initializer_list<QLatin1String> prompts)
{
    QByteArrayList list;
    for (const QLatin1String prompt : prompts) {
        list.append(QByteArray(prompt.data(), prompt.size()));
    }
    return list;
}

void writeToLog(const QString &text)
{
    const KestDetectorFace *face = KestDetectorFace::Get();
    if (!face->safeguards().hidesSecrets()) {
        MyDebug() << text << MyDebug::terminator();
        return;
    }
    const Settings &settings = face->settings();
    MyDebug(MyDebug::Readers::Owner) << redactSecrets(text,
                                                      {settings.password, settings.ftpPsw, face->wifiPassword.get()})
                                     << MyDebug::terminator();
}
} // namespace

TelnetInteractive *TelnetInteractive::Get()
{
    static auto *ptr = new TelnetInteractive;
    return ptr;
}

TelnetInteractive::TelnetInteractive() : telnet(new KestTelnet(nullptr))
{
    connect(telnet, &KestTelnet::message, this, &TelnetInteractive::slot_telnetReplyFinished);
    connect(telnet, &KestTelnet::loggedOut, this, &TelnetInteractive::noticeLoss);
    m_passwordDelay.setSingleShot(true);
    m_passwordDelay.setInterval(passwordDelayMs);
    connect(&m_passwordDelay, &QTimer::timeout, this, &TelnetInteractive::sendPassword);
}

TelnetInteractive::~TelnetInteractive()
{
    delete telnet;
}

bool TelnetInteractive::telnetConnectToHost()
{
    step = shellStep::namePrompt;
    // A login that came through after its caller had given up must not answer for this one.
    loginResult = 0;
    loginDone = false;
    m_passwordDelay.stop();
    setConnected(false);
    telnet->gatherInput(promptBytes({loginPrompt, passwordPrompt, shellPrompt}));
    telnet->close();
    telnet->connectToHost(KestDetectorFace::Get()->cameraAddress, telnetPort);

    serveEventsUntil(loginLimitMs, [this] { return loginDone || KestDetectorFace::Get()->closing(); });
    const bool loggedIn = loginDone;
    loginResult = 0;
    loginDone = false;
    const QTcpSocket *socket = telnet->socket();
    setConnected(loggedIn && socket != nullptr && socket->state() == QAbstractSocket::ConnectedState);
    return loggedIn;
}

bool TelnetInteractive::telnetDisconnectToHost()
{
    return true;
}

void TelnetInteractive::slot_telnetConnectToHost(SyncCondMutexData *sync)
{
    sync->complete(telnetConnectToHost() ? 0 : -1);
}

void TelnetInteractive::slot_telnetDisConnectToHost(SyncCondMutexData *sync)
{
    telnetDisconnectToHost();
    sync->complete(0);
}

void TelnetInteractive::slot_telnet(const QString &cmd, SyncCondMutexData *sync, int callerStep, QString *out)
{
    if (sync->isUnwanted()) {
        *out = QString();
        sync->complete(-1);
        return;
    }
    step = callerStep;
    m_passwordDelay.stop(); // of a login that came too late
    // A prompt that came after its command had been given up must not complete this one.
    telnet->flushInput();
    telnet->gatherInput(promptBytes({shellPrompt}));
    cmdResult = 0;
    cmdDone = false;
    reply.clear();
    telnet->sendData(cmd);

    serveEventsUntil(commandLimitMs,
                     [&] { return cmdDone || KestDetectorFace::Get()->closing() || sync->isUnwanted(); });
    if (!cmdDone && sync->isUnwanted()) {
        telnet->close(); // also hangs up the command
    }
    const std::int32_t outcome = cmdDone ? cmdResult : -1;
    cmdResult = 0;
    cmdDone = false;
    *out = outcome == 0 ? reply : QString();
    sync->complete(outcome);
}

void TelnetInteractive::slot_telnetReplyFinished(const QString &text)
{
    if (step == shellStep::namePrompt) {
        if (text.contains(loginPrompt)) {
            writeToLog(text);
            step = shellStep::passwordPrompt;
            telnet->sendData(KestDetectorFace::Get()->settings().username + QLatin1Char('\n'));
        }
    } else if (step == shellStep::passwordPrompt || step == shellStep::shellPrompt) {
        // Whatever follows the name is taken for the password prompt. It is often just the echo of the name, and a
        // login throws away what was typed before it printed its prompt: the answer waits until the prompt is there.
        const bool first = step == shellStep::passwordPrompt;
        if (first) {
            step = shellStep::shellPrompt;
            m_passwordPromptDue = true;
            m_passwordDelay.start();
        }
        const bool atPrompt = text.contains(shellPrompt);
        const bool asked = m_passwordPromptDue && text.trimmed().endsWith(passwordPrompt);
        if (first || atPrompt || asked || m_passwordDelay.isActive()) {
            writeToLog(text);
        }
        if (asked) {
            // Also when the delay is over: what it sent was too early for this prompt.
            m_passwordPromptDue = false;
            sendPassword();
        } else if (atPrompt) {
            // A login that asks for no password: the shell would take it for a command.
            m_passwordPromptDue = false;
            m_passwordDelay.stop();
            loginResult = 0;
            loginDone = true;
        }
    } else if (step >= shellStep::firstCommand && step <= shellStep::lastCommand) {
        if (reply.size() > longestReply - text.size()) {
            if (!cmdDone) {
                qWarning("The camera's shell does not stop talking: the command is given up");
            }
            cmdResult = -1;
            cmdDone = true;
            return;
        }
        reply += text;
        writeToLog(reply);
        if (text.contains(shellPrompt)) {
            cmdResult = 0;
            cmdDone = true;
        }
    }
}

void TelnetInteractive::slot_telnetConnectionError(QAbstractSocket::SocketError)
{
    cmdResult = -1;
    cmdDone = true;
}

void TelnetInteractive::setConnected(bool connected)
{
    if (std::exchange(m_connected, connected) != connected) {
        emit signal_connected(connected);
    }
}

void TelnetInteractive::noticeLoss()
{
    if (m_connected) {
        setConnected(false);
        emit signal_connectionLost();
    }
}

void TelnetInteractive::sendPassword()
{
    m_passwordDelay.stop();
    telnet->sendData(KestDetectorFace::Get()->settings().password + QLatin1Char('\n'));
}
