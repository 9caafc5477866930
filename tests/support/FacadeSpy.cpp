#include "support/FacadeSpy.h"

#include "detector/store/KestDetectorFace.h"

#include <QMutexLocker>

FacadeSpy::FacadeSpy()
{
    const KestDetectorFace *face = KestDetectorFace::Get();
    connect(
        face, &KestDetectorFace::signal_showCurrentCheckItem, this,
        [this](const QString &name) { record(QStringLiteral("item ") + name); }, Qt::DirectConnection);
    connect(
        face, &KestDetectorFace::signal_showCurrentPersent, this,
        [this](int percent) { record(QStringLiteral("progress %1").arg(percent)); }, Qt::DirectConnection);
    connect(
        face, &KestDetectorFace::signal_showCheckLog, this,
        [this](const checkLog &log) {
            record(QStringLiteral("log %1").arg(log.component));
            const QMutexLocker lock(&m_mutex);
            m_logs.append(log);
        },
        Qt::DirectConnection);
}

QStringList FacadeSpy::events() const
{
    const QMutexLocker lock(&m_mutex);
    return m_events;
}

QList<checkLog> FacadeSpy::logs() const
{
    const QMutexLocker lock(&m_mutex);
    return m_logs;
}

void FacadeSpy::record(const QString &event)
{
    const QMutexLocker lock(&m_mutex);
    m_events.append(event);
}

QStringList texts(const checkLog &log)
{
    QStringList lines;
    for (const CheckItemLog &item : log.itemLogs) {
        lines.append(QStringLiteral("%1|%2|%3").arg(QString::number(item.result), item.message, item.detail));
    }
    return lines;
}
