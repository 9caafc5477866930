#include "support/MessageSpy.h"

#include <mutex>

namespace {
std::mutex mutex;              ///< guards what follows, and the messages of the one that it names
MessageSpy *current = nullptr; ///< null: what still comes from other threads has nowhere to go
} // namespace

MessageSpy::MessageSpy()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        current = this;
    }
    m_earlier = qInstallMessageHandler(collect);
}

MessageSpy::~MessageSpy()
{
    qInstallMessageHandler(m_earlier);
    // A thread may still be on its way into `collect`, or in it.
    const std::lock_guard<std::mutex> lock(mutex);
    current = nullptr;
}

QStringList MessageSpy::messages() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return m_messages;
}

void MessageSpy::collect(QtMsgType, const QMessageLogContext &, const QString &message)
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (current != nullptr) {
        current->m_messages.append(message);
    }
}
