#pragma once

#include <QByteArray>
#include <QtGlobal>

/// A method of the telnet authentication option (RFC 2941), driven by the engine's thread.
class KestTelnetAuth
{
    Q_DISABLE_COPY(KestTelnetAuth)

public:
    enum AuthState { InProgress = 0, Success = 1, Failure = 2 };

    KestTelnetAuth() = default;
    virtual ~KestTelnetAuth();

    /// Takes the server's sub-negotiation (from the option byte up to IAC SE) and returns the command to send back,
    /// empty for none. Sets `authState` when the exchange is over.
    virtual QByteArray authStep(const QByteArray &data) = 0;

    AuthState authState = InProgress;
};
