#include "detector/store/KestDetectorFace.h"

#include <QCoreApplication>

KestDetectorFace::KestDetectorFace() : savePath(QCoreApplication::applicationDirPath()) {}

KestDetectorFace *KestDetectorFace::Get()
{
    static auto *ptr = new KestDetectorFace;
    return ptr;
}
