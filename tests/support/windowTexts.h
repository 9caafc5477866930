#pragma once

#include "language/Language.h"

#include <QList>
#include <QMetaType>
#include <QStringList>
#include <QWidget>

Q_DECLARE_METATYPE(Language)

/// What stands in a window, for tests that look at it in every language. On the GUI thread.
namespace windowTexts {
/// The column "language" of a test's table, and a row for each.
void addLanguages();

/// Every text from now on, in `language`.
void speak(Language language);
/// As before the first speak().
void fallSilent();

/// What a label or a button says, the caption of a frame around a group, and what a field is set to that offers
/// several.
QString textOf(const QWidget *widget);
/// Those of the kinds above that are shown and say something.
QList<QWidget *> shown(const QWidget *window);

/// What is too small for its text or leaves its window, a line each; but for the widgets named in `elided`, which
/// shorten what does not fit and tell it in full in another place. What wraps its text needs the height for its width,
/// and the width of its longest word.
QStringList clipped(const QWidget *window, const QStringList &elided);

/// Those of `texts` that are in another language than `language`, which is a real one. Names stay, such as `names`.
QStringList foreign(const QStringList &texts, Language language, const QStringList &names);
} // namespace windowTexts
