#include "detector/checks/tfCardChecks.h"

#include "camera/client/Camera.h"
#include "detector/checks/checkComponent.h"
#include "detector/store/componentId.h"
#include "detector/store/translatedEntry.h"
#include "detector/store/verdict.h"
#include "telnet/session/TelnetInteractiveFace.h"

#include <array>
#include <cstdint>
#include <QDebug>
#include <QObject>

namespace {
constexpr std::array itemTable = {
    CheckItem{0, QT_TRANSLATE_NOOP("QObject", "Use condition"), checkTFCardStatus},
    CheckItem{1, QT_TRANSLATE_NOOP("QObject", "Literacy rate"), checkTFCardSpeed},
};

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

QString filled(const QString &line, float value)
{
    return line.arg(static_cast<double>(value));
}
} // namespace

QString checkTFCard(int *verdict, const QList<int> &items)
{
    return checkComponent(componentId::tfCard, verdict::failed, itemTable, verdict, items);
}

QString checkTFCardStatus(int *verdict, QString &info)
{
    info.clear();
    *verdict = verdict::failed;
    TFCardStatus status;
    if (Camera::Get()->getTFCardStatus(&status) != requestResult::success) {
        return QObject::tr("获取TF卡状态失败\n");
    }
    if (status.state != stateReady) {
        return translatedEntry(states, status.state) + translatedEntry(reasons, status.reason);
    }
    TFCardUsedStatus used;
    if (Camera::Get()->getTFCardUsedStatus(&used) != requestResult::success) {
        return QObject::tr("获取TF卡使用状态失败\n");
    }
    info += filled(QObject::tr("扇区大小:%1K\n"), kibibytes(used.sectorSize));
    info += filled(QObject::tr("总内存:%1MB\n"), mebibytes(used.total));
    info += filled(QObject::tr("可用内存:%1MB\n"), mebibytes(used.available));
    info += filled(QObject::tr("已用内存:%1MB\n"), mebibytes(used.used));
    qDebug().noquote() << info;
    *verdict = verdict::ok;
    return {};
}

QString checkTFCardSpeed(int *verdict, QString &info)
{
    info.clear();
    *verdict = verdict::failed;
    QString reply;
    if (TelnetInteractiveFace::Get()->telnet(QStringLiteral("mount\n"), 5, &reply) != 0) {
        return QObject::tr("mount SD Card faild\n");
    }
    if (!isCardMounted(reply)) {
        return QObject::tr("SD卡未挂载\n");
    }
    if (TelnetInteractiveFace::Get()->telnet(QStringLiteral("cat /proc/mci/mci_info\n"), 6, &reply) != 0) {
        return QObject::tr("获取SD卡信息失败\n");
    }
    if (!isCardFast(reply)) {
        *verdict = verdict::warning;
        return QObject::tr("警告:非高SD速卡\n");
    }
    *verdict = verdict::ok;
    return QObject::tr("SD Card OK\n");
}

bool isCardMounted(const QString &reply)
{
    return reply.contains(QStringLiteral("mmcblk0p1"));
}

bool isCardFast(const QString &reply)
{
    return reply.contains(QStringLiteral("UHS SDR104"));
}
