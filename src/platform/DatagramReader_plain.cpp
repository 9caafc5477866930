#include "platform/DatagramReader.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <QUdpSocket>

namespace {
constexpr std::chrono::milliseconds lookEvery(5);
} // namespace

/// A socket of Qt is for one thread at a time: the reader looks whether there is something while nobody sends.
struct DatagramReader::System
{
    QUdpSocket *const socket;
    std::mutex *const sending;
    std::mutex mutex{};
    std::condition_variable stopping{};
    bool stopped = false;

    int take(std::vector<std::uint8_t> *buffer, Sender *sender) const
    {
        const std::lock_guard<std::mutex> lock(*sending);
        if (socket->state() != QAbstractSocket::BoundState || !socket->hasPendingDatagrams()) {
            return 0;
        }
        const qint64 size = socket->readDatagram(reinterpret_cast<char *>(buffer->data()),
                                                 static_cast<qint64>(buffer->size()), &sender->address, &sender->port);
        return static_cast<int>(std::max(size, qint64{0}));
    }
};

DatagramReader::DatagramReader(QUdpSocket *socket, std::mutex *sending) : m_system(new System{socket, sending}) {}

DatagramReader::~DatagramReader() = default;

int DatagramReader::read(std::vector<std::uint8_t> *buffer, Sender *sender)
{
    const int size = m_system->take(buffer, sender);
    if (size == 0) {
        std::unique_lock<std::mutex> lock(m_system->mutex);
        m_system->stopping.wait_for(lock, lookEvery, [this] { return m_system->stopped; });
    }
    return size;
}

void DatagramReader::stop()
{
    const std::lock_guard<std::mutex> lock(m_system->mutex);
    m_system->stopped = true;
    m_system->stopping.notify_all();
}
