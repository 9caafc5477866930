#pragma once

#include <QList>
#include <QString>

// Fan, keys and audio: nothing is tested yet. The component routines name item 0, report the progress, always pass and
// leave no record. Runner thread only.

QString checkFan(int *verdict, const QList<int> &items);
QString checkKeyBoard(int *verdict, const QList<int> &items);
QString checkVoice(int *verdict, const QList<int> &items);

// The items that they know.
QList<int> fanItems();
QList<int> keyBoardItems();
QList<int> voiceItems();

// Where the tests will stand.
QString checkFanOpen(int *verdict);
QString checkKeyBoardClicked(int *verdict);
QString checkVoiceSignal(int *verdict);
