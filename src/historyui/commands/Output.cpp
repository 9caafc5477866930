#include "historyui/commands/Output.h"

#include <cerrno>
#include <cstdio>
#include <system_error>

Output::Output(const QString &path)
{
    if (!path.isEmpty()) {
        m_file = std::make_unique<QSaveFile>(path);
        if (!m_file->open(QIODevice::WriteOnly)) {
            m_error = m_file->errorString();
        }
    }
}

Output::~Output() = default;

void Output::write(const QByteArray &bytes)
{
    if (!m_error.isEmpty()) {
        return;
    }
    if (m_file) {
        if (m_file->write(bytes) != bytes.size()) {
            m_error = m_file->errorString();
        }
    } else if (std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout) !=
               static_cast<std::size_t>(bytes.size())) {
        m_error = QString::fromStdString(std::generic_category().message(errno));
    }
}

void Output::finish()
{
    if (!m_error.isEmpty()) {
        return;
    }
    if (m_file) {
        if (!m_file->commit()) {
            m_error = m_file->errorString();
        }
    } else if (std::fflush(stdout) != 0) {
        m_error = QString::fromStdString(std::generic_category().message(errno));
    }
}
