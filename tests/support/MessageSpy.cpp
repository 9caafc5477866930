#include "support/MessageSpy.h"

#include <atomic>
#include <QMutexLocker>

namespace {
std::atomic<MessageSpy *> current{nullptr};
} // namespace

MessageSpy::MessageSpy()
{
    current = this;
    m_earlier = qInstallMessageHandler(collect);
}

MessageSpy::~MessageSpy()
{
    qInstallMessageHandler(m_earlier);
    current = nullptr;
}

QStringList MessageSpy::messages() const
{
    const QMutexLocker lock(&m_mutex);
    return m_messages;
}

void MessageSpy::collect(QtMsgType, const QMessageLogContext &, const QString &message)
{
    if (MessageSpy *spy = current) {
        const QMutexLocker lock(&spy->m_mutex);
        spy->m_messages.append(message);
    }
}
