#include "ui/window/verdictLook.h"

#include "detector/store/verdict.h"

#include <QCoreApplication>

namespace {
constexpr const char *context = "KestDetectorUI";

constexpr VerdictLook looks[] = {
    {verdict::ok, "border-image: url(:/icon/OK.jpg);", ":/icon/OK.jpg", QT_TRANSLATE_NOOP("KestDetectorUI", "OK")},
    {verdict::failed, "border-image: url(:/icon/NG.jpg);", ":/icon/NG.jpg", QT_TRANSLATE_NOOP("KestDetectorUI", "NG")},
    {verdict::warning, "border-image: url(:/icon/War.png);", ":/icon/War.png",
     QT_TRANSLATE_NOOP("KestDetectorUI", "warning")},
};
constexpr VerdictLook notTestedLook = {verdict::notTested, "border-image: url(:/icon/NA1.jpg);", ":/icon/NA1.jpg",
                                       QT_TRANSLATE_NOOP("KestDetectorUI", "not tested")};
} // namespace

const VerdictLook &lookOf(int verdict)
{
    for (const VerdictLook &look : looks) {
        if (look.verdict == verdict) {
            return look;
        }
    }
    return notTestedLook;
}

QString verdictState(const VerdictLook &look)
{
    return QCoreApplication::translate(context, look.state);
}
