#include "telnet/engine/KestTelnet.h"

#include "telnet/engine/KestTelnetCodes.h"
#include "telnet/engine/KestTelnetPrivate.h"

#include <array>
#include <QSize>

namespace {
struct ControlFunction
{
    KestTelnet::Control control;
    uchar command;
    bool withSynch; ///< the server is to look at it before what it has not read yet
};

constexpr std::array controlFunctions{
    ControlFunction{KestTelnet::GoAhead, telnetCode::ga, false},
    ControlFunction{KestTelnet::InterruptProcess, telnetCode::ip, true},
    ControlFunction{KestTelnet::AreYouThere, telnetCode::ayt, true},
    ControlFunction{KestTelnet::AbortOutput, telnetCode::ao, true},
    ControlFunction{KestTelnet::EraseCharacter, telnetCode::ec, false},
    ControlFunction{KestTelnet::EraseLine, telnetCode::el, false},
    ControlFunction{KestTelnet::Break, telnetCode::brk, false},
    ControlFunction{KestTelnet::EndOfFile, telnetCode::endOfFile, false},
    ControlFunction{KestTelnet::Suspend, telnetCode::susp, false},
    ControlFunction{KestTelnet::Abort, telnetCode::abort, false},
};
} // namespace

KestTelnet::KestTelnet(QObject *parent) : QObject(parent), d(std::make_unique<KestTelnetPrivate>(this)) {}

KestTelnet::~KestTelnet() = default;

void KestTelnet::connectToHost(const QString &host, quint16 port)
{
    d->connectToHost(host, port);
}

void KestTelnet::login(const QString &user, const QString &password)
{
    d->loginName = user;
    d->loginPassword = password;
    d->loginSent = false;
}

void KestTelnet::logout()
{
    d->sendCommand({telnetCode::iac, telnetCode::doIt, telnetOption::logout});
}

void KestTelnet::close()
{
    d->close();
}

void KestTelnet::setLoginPattern(const TextPattern &pattern)
{
    d->loginPattern = pattern;
}

void KestTelnet::setPasswordPattern(const TextPattern &pattern)
{
    d->passwordPattern = pattern;
}

void KestTelnet::setPromptPattern(const TextPattern &pattern)
{
    d->promptPattern = pattern;
}

void KestTelnet::sendData(const QString &data)
{
    d->sendData(data);
}

void KestTelnet::sendControl(Control control)
{
    for (const ControlFunction &function : controlFunctions) {
        if (function.control == control) {
            d->sendCommand({telnetCode::iac, function.command});
            if (function.withSynch) {
                d->sendSync();
            }
        }
    }
}

void KestTelnet::sendSync()
{
    d->sendSync();
}

void KestTelnet::gatherInput(const QByteArrayList &urgentTexts)
{
    d->gatherer.setUrgentTexts(urgentTexts);
}

void KestTelnet::flushInput()
{
    d->gatherer.flush();
}

void KestTelnet::setWindowSize(int width, int height)
{
    setWindowSize(QSize(width, height));
}

void KestTelnet::setWindowSize(const QSize &size)
{
    d->windowDims = size;
    d->sendWindowSize();
}

QSize KestTelnet::windowSize() const
{
    return d->optionModes.value(telnetOption::naws) ? d->windowDims : QSize();
}

bool KestTelnet::isValidWindowSize() const
{
    return d->hasValidWindowSize();
}

void KestTelnet::setSocket(QTcpSocket *socket)
{
    d->replaceSocket(socket);
}

QTcpSocket *KestTelnet::socket() const
{
    return d->socket;
}
