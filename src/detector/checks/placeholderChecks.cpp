#include "detector/checks/placeholderChecks.h"

#include "detector/checks/itemWalk.h"
#include "detector/store/verdict.h"

#include <array>
#include <QObject>

namespace {
struct PlaceholderItem
{
    int index;
    const char *name;
    QString (*check)(int *verdict);
};
using Placeholder = std::array<PlaceholderItem, 1>;

constexpr Placeholder fan = {{{0, QT_TRANSLATE_NOOP("QObject", "Fan"), checkFanOpen}}};
constexpr Placeholder keyBoard = {{{0, QT_TRANSLATE_NOOP("QObject", "Button"), checkKeyBoardClicked}}};
constexpr Placeholder voice = {{{0, QT_TRANSLATE_NOOP("QObject", "audio test\n"), checkVoiceSignal}}};

QString checkPlaceholder(const Placeholder &table, int *verdict, const QList<int> &items)
{
    *verdict = verdict::ok;
    QString text;
    walkItems(table, items, [&](const PlaceholderItem &item) { text = item.check(verdict); });
    return text;
}

QString pass(int *verdict)
{
    *verdict = verdict::ok;
    return {};
}
} // namespace

QString checkFan(int *verdict, const QList<int> &items)
{
    return checkPlaceholder(fan, verdict, items);
}

QString checkKeyBoard(int *verdict, const QList<int> &items)
{
    return checkPlaceholder(keyBoard, verdict, items);
}

QString checkVoice(int *verdict, const QList<int> &items)
{
    return checkPlaceholder(voice, verdict, items);
}

QString checkFanOpen(int *verdict)
{
    return pass(verdict);
}

QString checkKeyBoardClicked(int *verdict)
{
    return pass(verdict);
}

QString checkVoiceSignal(int *verdict)
{
    return pass(verdict);
}
