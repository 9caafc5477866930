#include "detector/checks/lensChecks.h"

#include "detector/checks/checkComponent.h"
#include "detector/checks/statusBitCheck.h"
#include "detector/store/componentId.h"
#include "detector/store/verdict.h"

#include <array>
#include <QObject>

namespace {
constexpr std::array itemTable = {
    CheckItem{0, QT_TRANSLATE_NOOP("QObject", "Lens connection"), checkLensNetWork},
    CheckItem{1, QT_TRANSLATE_NOOP("QObject", "Lens Status"), nullptr},
};

constexpr StatusBit lensLink = {
    4,
    QT_TRANSLATE_NOOP("QObject", "获取相机镜头状态失败\n"),
    QT_TRANSLATE_NOOP("QObject", "相机镜头连接失败\n"),
    QT_TRANSLATE_NOOP("QObject", "相机通信正常\n"),
};
} // namespace

QString checkLens(int *verdict, const QList<int> &items)
{
    return checkComponent(componentId::lens, verdict::failed, itemTable, verdict, items);
}

QString checkLensNetWork(int *verdict, QString &detail)
{
    return checkStatusBit(lensLink, verdict, detail);
}

QString checkLensStatus(int *verdict)
{
    *verdict = verdict::ok;
    return {};
}
