#include "detector/store/Notices.h"

#include <algorithm>
#include <QDir>

Notices::Notices()
{
    qRegisterMetaType<Notice>("Notice");
}

void Notices::tell(const Notice &notice)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_current.contains(notice)) {
            return;
        }
        const auto place =
            std::upper_bound(m_current.begin(), m_current.end(), notice,
                             [](const Notice &one, const Notice &other) { return one.kind < other.kind; });
        m_current.insert(place, notice);
    }
    emit told(notice);
    emit changed();
}

template <class Doomed>
void Notices::withdrawIf(Doomed doomed)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto end = std::remove_if(m_current.begin(), m_current.end(), doomed);
        if (end == m_current.end()) {
            return;
        }
        m_current.erase(end, m_current.end());
    }
    emit changed();
}

void Notices::withdraw(Notice::Kind kind)
{
    withdrawIf([kind](const Notice &notice) { return notice.kind == kind; });
}

void Notices::withdrawRun()
{
    withdrawIf([](const Notice &notice) {
        return notice.kind != Notice::Kind::Settings && notice.kind != Notice::Kind::History;
    });
}

QList<Notice> Notices::current() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_current;
}

Notice Notices::settings(const QString &problem)
{
    return {Notice::Kind::Settings, tr("option.ini: %1").arg(problem), {}};
}

Notice Notices::notStarted(const QStringList &missing)
{
    return {Notice::Kind::NotStarted, tr("not started: %1").arg(missing.join(QStringLiteral("; "))), {}};
}

Notice Notices::waitingForShell()
{
    return {Notice::Kind::Waiting, tr("waiting for the camera's shell"), {}};
}

Notice Notices::stopped()
{
    return {Notice::Kind::Stopped, tr("the run was stopped"), {}};
}

Notice Notices::nothingTested()
{
    return {Notice::Kind::NothingTested, tr("nothing was tested"), {}};
}

Notice Notices::cameraChanged()
{
    return {Notice::Kind::CameraChanged, tr("another camera came during the run"), {}};
}

Notice Notices::cameraLost()
{
    return {Notice::Kind::CameraLost, tr("the camera was lost during the run"), {}};
}

Notice Notices::notSaved(const QString &file, const QString &reason)
{
    return {Notice::Kind::NotSaved, tr("not saved: %1: %2").arg(QDir::toNativeSeparators(file), reason), {}};
}

Notice Notices::history(const QString &problem)
{
    return {Notice::Kind::History, tr("history: %1").arg(problem), {}};
}

Notice Notices::attempts(int resent)
{
    return {Notice::Kind::Attempts, tr("queries that had to be sent again: %1").arg(resent), {}};
}

Notice Notices::results(const QString &folder)
{
    return {Notice::Kind::Results, tr("results: %1").arg(QDir::toNativeSeparators(folder)), folder};
}
