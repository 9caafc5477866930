#pragma once

#include <atomic>
#include <functional>
#include <map>
#include <mutex>
#include <QByteArray>
#include <QList>
#include <QtGlobal>
#include <thread>
#include <utility>

/// The camera's command service as a test wants it: a UDP server on 127.0.0.10:9999 in a thread of its own. Its frame
/// code is its own, so that a mistake in the station's cannot hide in it.
///
/// A request without a script is refused with the code 77. Frames with a wrong checksum are not answered.
class ScriptedCamera
{
    Q_DISABLE_COPY(ScriptedCamera)

public:
    /// What follows the frame's header: for a reply, the result code and then the reply's data.
    using Payload = QByteArray;
    using Reply = std::function<Payload(const Payload &request)>;

    /// Starts the service and makes the station's camera client talk to it.
    ScriptedCamera();
    /// Ends the service and the station's threads: one camera in the life of a test program.
    ~ScriptedCamera();

    bool isListening() const { return m_socket >= 0; }

    /// From now on the command is answered with the result code 0 and `data`.
    void answer(int commandSet, int commandId, const QByteArray &data);
    /// From now on the command is answered with `code` alone.
    void refuse(int commandSet, int commandId, quint8 code);
    void reply(int commandSet, int commandId, Reply reply);
    /// An EEPROM with `bytes` from `address` on; what is read elsewhere is refused.
    void storeEeprom(quint16 address, const QByteArray &bytes);
    /// From now on no request is answered; each is still written down.
    void fallSilent();
    /// Forgets all scripts and requests.
    void reset();

    /// Payloads of the requests of one command so far.
    QList<QByteArray> requests(int commandSet, int commandId) const;

private:
    using Command = std::pair<int, int>;

    void serve();
    QByteArray handle(const QByteArray &frame);
    Payload readEeprom(const Payload &request) const;

    int m_socket = -1;
    std::atomic<bool> m_running{true};
    mutable std::mutex m_mutex; ///< guards what follows
    bool m_silent = false;
    std::map<Command, Reply> m_replies;
    std::map<quint16, QByteArray> m_eeprom;
    std::map<Command, QList<QByteArray>> m_requests;
    std::thread m_thread;
};
