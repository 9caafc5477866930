#include "detector/store/PartFile.h"

#include "detector/store/renameOver.h"

PartFile::PartFile(const QString &path, bool keepsEvidence)
    : m_path(path), m_writtenTo(keepsEvidence ? path + QStringLiteral(".part") : path)
{
}

QString PartFile::takeName() const
{
    return m_writtenTo == m_path ? QString() : renameOver(m_writtenTo, m_path);
}
