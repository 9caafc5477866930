#pragma once

#include "emulator/scenario/Scenario.h"

#include <QHostAddress>
#include <QObject>
#include <QString>
#include <QTcpServer>

namespace emulator {

/// A shell server that misbehaves: stands in for the real one when the scenario names a shell fault.
///
/// `silent` accepts and says nothing. `bannerWithoutPrompt` greets, and never asks for a login. `splitPrompt` takes any
/// login, echoes each line and then sends the prompt as "~ " and, a moment later, "# ". `flood` sends text from the
/// connect on for as long as somebody reads.
class FaultyShell : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(FaultyShell)

public:
    explicit FaultyShell(ShellFault fault);
    ~FaultyShell() override;

    /// Returns an empty text, or why it cannot listen.
    QString start(const QHostAddress &address, quint16 port);

private:
    void serve(QTcpSocket *connection);

    ShellFault m_fault;
    QTcpServer m_server;
};

} // namespace emulator
