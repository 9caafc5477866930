#pragma once

#include <QStringList>
#include <QtGlobal>

/// Collects the program's debug output while it lives. One at a time.
class MessageSpy
{
    Q_DISABLE_COPY(MessageSpy)

public:
    MessageSpy();
    ~MessageSpy();

    QStringList messages() const;
    /// The messages that contain `part`.
    QStringList containing(const QString &part) const { return messages().filter(part); }

private:
    static void collect(QtMsgType type, const QMessageLogContext &context, const QString &message);

    QStringList m_messages;
    QtMessageHandler m_earlier;
};
