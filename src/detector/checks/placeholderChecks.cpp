#include "detector/checks/placeholderChecks.h"

#include "detector/checks/checkComponent.h"
#include "detector/store/componentId.h"
#include "detector/store/verdict.h"
#include "record/itemKeys.h"

#include <array>
#include <QObject>

namespace {
QString pass(int *verdict)
{
    *verdict = verdict::ok;
    return {};
}

using Placeholder = std::array<CheckItem, 1>;

constexpr Placeholder fan = {{{itemId::fan::open, QT_TRANSLATE_NOOP("QObject", "Fan"), nullptr}}};
constexpr Placeholder keyBoard = {{{itemId::keyBoard::clicked, QT_TRANSLATE_NOOP("QObject", "Button"), nullptr}}};
constexpr Placeholder voice = {{{itemId::voice::signal, QT_TRANSLATE_NOOP("QObject", "audio test\n"), nullptr}}};

QString checkPlaceholder(int component, const Placeholder &table, int *verdict, const QList<int> &items)
{
    walkItems(component, table, items, [](const CheckItem &) {});
    return pass(verdict);
}
} // namespace

QString checkFan(int *verdict, const QList<int> &items)
{
    return checkPlaceholder(componentId::fan, fan, verdict, items);
}

QList<int> fanItems()
{
    return itemsOf(fan);
}

QString checkKeyBoard(int *verdict, const QList<int> &items)
{
    return checkPlaceholder(componentId::keyBoard, keyBoard, verdict, items);
}

QList<int> keyBoardItems()
{
    return itemsOf(keyBoard);
}

QString checkVoice(int *verdict, const QList<int> &items)
{
    return checkPlaceholder(componentId::voice, voice, verdict, items);
}

QList<int> voiceItems()
{
    return itemsOf(voice);
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
