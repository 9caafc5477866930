#pragma once

#include "emulator/scenario/Scenario.h"

#include <QHostAddress>
#include <QObject>
#include <QString>
#include <QTcpServer>

namespace emulator {

/// An FTP server (RFC 959, RFC 2428) that misbehaves: stands in for the real one when the scenario names `stall`,
/// `close` or `sendNothing`. It takes any login and offers every file, half of whose bytes it sends.
///
/// Commands: USER, PASS, HELP, TYPE, CWD, PWD, SIZE, PASV, EPSV, RETR, ABOR, QUIT.
class FaultyFtp : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(FaultyFtp)

public:
    /// What is sent of a file; SIZE says twice as much.
    static constexpr int sentBytes = 4096;

    explicit FaultyFtp(FtpFault fault);
    ~FaultyFtp() override;

    /// Returns an empty text, or why it cannot listen.
    QString start(const QHostAddress &address, quint16 port);

private:
    FtpFault m_fault;
    QTcpServer m_server;
};

} // namespace emulator
