#include "detector/store/RunExchange.h"

bool RunExchange::post(const QList<ComponentTask> &plan, const RunLabels &labels)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_active) {
        return false;
    }
    m_plan = plan;
    m_labels = labels;
    m_run.logs.clear();
    m_run.stopped = false;
    m_requested = true;
    return true;
}

std::optional<QList<ComponentTask>> RunExchange::take(const QString &macAddress)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_requested || m_active) {
        return std::nullopt;
    }
    m_active = true;
    m_runner = std::this_thread::get_id();
    m_run.identity = {macAddress, QDateTime::currentDateTime(), m_labels};
    m_run.camera = RunEnd::Camera::Kept;
    m_run.unsaved.clear();
    m_folderClaimed = false;
    m_run.cameraMac = macAddress;
    return m_plan;
}

void RunExchange::append(const checkLog &log)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_run.logs.append(log);
}

void RunExchange::noteUnsaved(const UnsavedFile &file)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_run.unsaved.append(file);
}

bool RunExchange::claimFolder()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const bool first = !m_folderClaimed;
    m_folderClaimed = true;
    return first;
}

RunEnd RunExchange::finish()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_requested = false;
    m_active = false;
    return m_run;
}

bool RunExchange::stop()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_run.stopped = m_run.stopped || m_requested;
    return m_requested;
}

bool RunExchange::isStopped() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_requested && m_run.stopped;
}

std::function<bool()> RunExchange::stopSign() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_active || m_runner != std::this_thread::get_id()) {
        return [] { return false; };
    }
    return [this] { return isStopped(); };
}

void RunExchange::noteLinkLost()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_active && m_run.camera == RunEnd::Camera::Kept) {
        m_run.camera = RunEnd::Camera::Lost;
    }
}

void RunExchange::noteCamera(const QString &macAddress)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_active || macAddress.isEmpty()) {
        return;
    }
    if (m_run.cameraMac.isEmpty()) {
        m_run.cameraMac = macAddress;
    } else if (macAddress != m_run.cameraMac) {
        m_run.camera = RunEnd::Camera::Changed;
    }
}

bool RunExchange::isActive() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_active;
}

int RunExchange::runRequest() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_requested ? 1 : 0;
}

QList<ComponentTask> RunExchange::taskList() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_plan;
}

QList<checkLog> RunExchange::checkLogList() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_run.logs;
}

RunIdentity RunExchange::identity() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_run.identity;
}
