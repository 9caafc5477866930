#pragma once

#include "emulator/scenario/Scenario.h"

#include <functional>
#include <memory>
#include <QHostAddress>
#include <QString>
#include <QtGlobal>
#include <thread>

namespace emulator {

/// The camera's command service: answers requests on one UDP port from a thread of its own, and plays the scenario's
/// faults. Replies go to where the request came from. Datagrams that are no request for a known command stay
/// unanswered. All methods may be called from any one thread at a time, and block until they are done.
class CommandService
{
    Q_DISABLE_COPY(CommandService)

public:
    /// Called in the service's thread, once for each request, with a line of text.
    using Log = std::function<void(const QString &)>;

    explicit CommandService(const Scenario &scenario, Log log = {});
    ~CommandService();

    /// Listens; port 0 takes any free one. Returns an empty text, or why it could not be done.
    QString start(const QHostAddress &address, quint16 port);
    /// Stops listening; replies that were delayed are lost. The gimbal's movement ends, the fault lists keep their
    /// place.
    void stop();
    /// 0 while stopped.
    quint16 port() const;
    /// Whether requests are answered: false is a camera that is out of radio range.
    void setAnswering(bool answering);
    /// Requests of this command that were received while answering.
    int requestCount(Command command) const;

private:
    class Worker;

    std::unique_ptr<Worker> m_worker;
    std::thread m_thread; ///< runs while the service listens
};

} // namespace emulator
