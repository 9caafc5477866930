#pragma once

#include <QList>
#include <QString>

// TF card: its state and usage as the camera reports them, and its bus mode as the camera's shell shows it. Runner
// thread only; verdicts are those of verdict.h.

/// Component routine: 0 Use condition, 1 Literacy rate.
QString checkTFCard(int *verdict, const QList<int> &items);
/// The items that it knows.
QList<int> tfCardItems();

/// The text is empty when the card is ready; `info` then receives its capacities.
QString checkTFCardStatus(int *verdict, QString &info);
/// A mounted card that does not run in the fast bus mode is a warning. `info` stays empty.
QString checkTFCardSpeed(int *verdict, QString &info);

// The pure readers behind `checkTFCardSpeed`. `reply` is a whole shell reply with its echo and prompt.

/// Whether a line of the mount table names the card's partition.
bool isCardMounted(const QString &reply);
/// Whether the card's information names the fast bus mode.
bool isCardFast(const QString &reply);
