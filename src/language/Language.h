#pragma once

#include <QCoreApplication>
#include <QLocale>
#include <QString>
#include <QStringList>

/// What the programs speak to people. No record's key, no number and no line of the diagnostic log depends on it.
enum class Language {
    AsWritten, ///< the texts of the sources: English, and Chinese for most results
    English,
    Chinese, ///< Simplified
};

/// The language of a name, which is "en" or "zh_CN", or empty for AsWritten. `isKnown` tells whether it is one of
/// these; any other name counts as AsWritten.
Language languageNamed(const QString &name, bool *isKnown);

/// What a program speaks that was called with `arguments` (its own name first) and has its settings in `settingsFile`:
/// --language, where it names a language, else the setting Interface/language. For main(), which needs it before
/// anything else has a text; who reads the option or the setting for good complains about what is none.
Language chosenLanguage(const QStringList &arguments, const QString &settingsFile);

/// Has every text be looked up in `language` from now on, Qt's own ones included where Qt's translations are installed.
/// Once, in main(), before the first text is made and before there is another thread.
void installLanguage(QCoreApplication &application, Language language);

/// The name of the language that was installed, for a program that this one starts; empty for AsWritten. From any
/// thread.
QString installedLanguageName();

/// In which people are shown a date: that of the language that was installed, else the system's. Nothing else in the
/// program follows it. From any thread.
QLocale shownLocale();
