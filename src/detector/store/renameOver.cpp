#include "detector/store/renameOver.h"

#include <filesystem>
#include <QFile>
#include <system_error>

QString renameOver(const QString &from, const QString &to)
{
    std::error_code error;
    std::filesystem::rename(QFile::encodeName(from).toStdString(), QFile::encodeName(to).toStdString(), error);
    return error ? QString::fromLocal8Bit(error.message().c_str()) : QString();
}
