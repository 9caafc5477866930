#include "detector/store/PartFile.h"

#include <filesystem>
#include <QFile>
#include <system_error>

PartFile::PartFile(const QString &path, bool keepsEvidence)
    : m_path(path), m_writtenTo(keepsEvidence ? path + QStringLiteral(".part") : path)
{
}

QString PartFile::takeName() const
{
    if (m_writtenTo == m_path) {
        return {};
    }
    // Not QFile's own, which replaces nothing.
    std::error_code error;
    std::filesystem::rename(QFile::encodeName(m_writtenTo).toStdString(), QFile::encodeName(m_path).toStdString(),
                            error);
    return error ? QString::fromLocal8Bit(error.message().c_str()) : QString();
}
