#include "detector/checks/tfCardChecks.h"

#include "camera/client/Camera.h"
#include "detector/checks/checkComponent.h"
#include "detector/checks/noteRequest.h"
#include "detector/checks/reportNumber.h"
#include "detector/checks/shellCall.h"
#include "detector/store/componentId.h"
#include "detector/store/translatedEntry.h"
#include "detector/store/verdict.h"
#include "record/itemKeys.h"
#include "telnet/session/shellStep.h"

#include <array>
#include <cstdint>
#include <QDebug>
#include <QObject>

namespace {
constexpr std::int32_t stateReady = 2;

/// By card state.
constexpr std::array states = {
    QT_TRANSLATE_NOOP("QObject", "SD卡被拔出"),     QT_TRANSLATE_NOOP("QObject", "SD卡初始化中"),
    QT_TRANSLATE_NOOP("QObject", "SD卡初始化完成"), QT_TRANSLATE_NOOP("QObject", "SD卡格式化中"),
    QT_TRANSLATE_NOOP("QObject", "SD卡修复中"),     QT_TRANSLATE_NOOP("QObject", "SD卡错误"),
    QT_TRANSLATE_NOOP("QObject", "SD卡复用中"),     QT_TRANSLATE_NOOP("QObject", "SD卡写保护中"),
    QT_TRANSLATE_NOOP("QObject", "SD卡满"),
};

/// By error reason. The camera has no "no reason": 0 is fragmentation.
constexpr std::array reasons = {
    QT_TRANSLATE_NOOP("QObject", ",错误原因:SD卡碎片严重\n"),
    QT_TRANSLATE_NOOP("QObject", ",错误原因:SD卡簇错误\n"),
    QT_TRANSLATE_NOOP("QObject", ",错误原因:SD卡文件系统错误\n"),
    QT_TRANSLATE_NOOP("QObject", ",错误原因:SD卡低速卡\n"),
    QT_TRANSLATE_NOOP("QObject", ",错误原因:SD卡挂载失败\n"),
    QT_TRANSLATE_NOOP("QObject", ",错误原因:SD卡存储系统错误\n"),
    QT_TRANSLATE_NOOP("QObject", ",错误原因:SD卡文件系统不支持\n"),
    QT_TRANSLATE_NOOP("QObject", ",错误原因:SD卡修复文件失败\n"),
};

/// In single precision, as the capacities have always been printed.
constexpr float kibibytes(std::uint64_t bytes)
{
    return static_cast<float>(bytes) / 1024;
}

constexpr float mebibytes(std::uint64_t bytes)
{
    return kibibytes(bytes) / 1024;
}

void checkUsage(CheckItemLog &item)
{
    item.result = verdict::failed;
    TFCardStatus status;
    if (noteRequest(item, Camera::Get()->getTFCardStatus(&status)) != requestResult::success) {
        item.message = QObject::tr("获取TF卡状态失败\n");
        return;
    }
    item.measurements.append(measured(Field::CardState, status.state));
    item.measurements.append(measured(Field::CardReason, status.reason));
    if (status.state != stateReady) {
        item.message = translatedEntry(states, status.state) + translatedEntry(reasons, status.reason);
        return;
    }
    TFCardUsedStatus used;
    if (noteRequest(item, Camera::Get()->getTFCardUsedStatus(&used)) != requestResult::success) {
        item.message = QObject::tr("获取TF卡使用状态失败\n");
        return;
    }
    reportNumber(item, QObject::tr("扇区大小:%1K\n"), Field::CardSectorSize, kibibytes(used.sectorSize));
    reportNumber(item, QObject::tr("总内存:%1MB\n"), Field::CardTotal, mebibytes(used.total));
    reportNumber(item, QObject::tr("可用内存:%1MB\n"), Field::CardAvailable, mebibytes(used.available));
    reportNumber(item, QObject::tr("已用内存:%1MB\n"), Field::CardUsed, mebibytes(used.used));
    qDebug().noquote() << item.detail;
    item.result = verdict::ok;
}

void checkSpeed(CheckItemLog &item)
{
    item.result = verdict::failed;
    QString reply;
    if (noteShellCall(item, shellCall(QStringLiteral("mount\n"), shellStep::mount, &reply)) != 0) {
        item.message = QObject::tr("mount SD Card faild\n");
        return;
    }
    const bool mounted = isCardMounted(reply);
    item.measurements.append(measured(Field::CardMounted, mounted ? 1 : 0));
    if (!mounted) {
        item.message = QObject::tr("SD卡未挂载\n");
        return;
    }
    if (noteShellCall(item, shellCall(QStringLiteral("cat /proc/mci/mci_info\n"), shellStep::cardInfo, &reply)) != 0) {
        item.message = QObject::tr("获取SD卡信息失败\n");
        return;
    }
    const bool fast = isCardFast(reply);
    item.measurements.append(measured(Field::CardFast, fast ? 1 : 0));
    item.result = fast ? verdict::ok : verdict::warning;
    item.message = fast ? QObject::tr("SD Card OK\n") : QObject::tr("警告:非高SD速卡\n");
}

constexpr std::array itemTable = {
    CheckItem{itemId::tfCard::usage, QT_TRANSLATE_NOOP("QObject", "Use condition"), checkUsage},
    CheckItem{itemId::tfCard::speed, QT_TRANSLATE_NOOP("QObject", "Literacy rate"), checkSpeed},
};
} // namespace

QString checkTFCard(int *verdict, const QList<int> &items)
{
    return checkComponent(componentId::tfCard, verdict::failed, itemTable, verdict, items);
}

QList<int> tfCardItems()
{
    return itemsOf(itemTable);
}

QString checkTFCardStatus(int *verdict, QString &info)
{
    return checkItem(checkUsage, verdict, info);
}

QString checkTFCardSpeed(int *verdict, QString &info)
{
    return checkItem(checkSpeed, verdict, info);
}

bool isCardMounted(const QString &reply)
{
    return reply.contains(QStringLiteral("mmcblk0p1"));
}

bool isCardFast(const QString &reply)
{
    return reply.contains(QStringLiteral("UHS SDR104"));
}
