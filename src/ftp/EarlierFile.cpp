#include "ftp/EarlierFile.h"

#include "detector/store/renameOver.h"

#include <QFile>
#include <QFileInfo>

EarlierFile::EarlierFile(const QString &path) : m_path(path)
{
    const QFileInfo earlier(path);
    if (!earlier.isFile() || earlier.isSymLink()) {
        return;
    }
    const QString aside = path + QStringLiteral(".earlier");
    if (renameOver(path, aside).isEmpty()) {
        m_aside = aside;
    } else {
        QFile::remove(path);
    }
}

void EarlierFile::putBack()
{
    if (!m_aside.isEmpty()) {
        renameOver(m_aside, m_path);
        m_aside.clear();
    }
}

void EarlierFile::remove()
{
    if (!m_aside.isEmpty()) {
        QFile::remove(m_aside);
        m_aside.clear();
    }
}
