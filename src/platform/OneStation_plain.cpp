#include "platform/OneStation.h"

#include <QDir>
#include <QLockFile>

struct OneStation::Hold
{
    QLockFile file{QDir::temp().filePath(QStringLiteral("KestDetector-station.lock"))};
};

OneStation::OneStation() : m_hold(std::make_unique<Hold>())
{
    m_hold->file.setStaleLockTime(0); // a lock counts as long as its process lives
    m_alone = m_hold->file.tryLock(0) || m_hold->file.error() != QLockFile::LockFailedError;
}

OneStation::~OneStation() = default;
