#include "detector/store/KestDetectorFace.h"

#include "places/Places.h"

KestDetectorFace::KestDetectorFace() : savePath(Places::ofProgram().results()) {}

KestDetectorFace *KestDetectorFace::Get()
{
    static auto *ptr = new KestDetectorFace;
    return ptr;
}
