#include "detector/checks/lensChecks.h"

#include "detector/checks/checkComponent.h"
#include "detector/checks/statusBitCheck.h"
#include "detector/store/componentId.h"
#include "detector/store/verdict.h"
#include "record/itemKeys.h"

#include <array>
#include <QObject>

namespace {
constexpr StatusBit lensLink = {
    4,
    {QT_TRANSLATE_NOOP("QObject", "获取相机镜头状态失败\n"), QT_TRANSLATE_NOOP("QObject", "相机镜头连接失败\n"),
     QT_TRANSLATE_NOOP("QObject", "相机通信正常\n")},
};

constexpr std::array itemTable = {
    CheckItem{itemId::lens::link, QT_TRANSLATE_NOOP("QObject", "Lens connection"), checkStatusBit<lensLink>},
    CheckItem{itemId::lens::status, QT_TRANSLATE_NOOP("QObject", "Lens Status"), nullptr},
};
} // namespace

QString checkLens(int *verdict, const QList<int> &items)
{
    return checkComponent(componentId::lens, verdict::failed, itemTable, verdict, items);
}

QList<int> lensItems()
{
    return itemsOf(itemTable);
}

QString checkLensNetWork(int *verdict, QString &detail)
{
    return checkItem(checkStatusBit<lensLink>, verdict, detail);
}

QString checkLensStatus(int *verdict)
{
    *verdict = verdict::ok;
    return {};
}
