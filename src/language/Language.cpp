#include "language/Language.h"

#include "language/translations.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <QLatin1String>
#include <QSettings>
#include <qt/versions.h>
#include <QTranslator>

namespace {
struct NamedLanguage
{
    const char *name;
    Language language;
};

constexpr NamedLanguage languages[] = {
    {"", Language::AsWritten},
    {"en", Language::English},
    {"zh_CN", Language::Chinese},
};

/// Written before there is another thread.
Language installedLanguage = Language::AsWritten;

/// The value of the last --language among the arguments; empty if there is none.
QString languageArgument(const QStringList &arguments)
{
    const QString option = QStringLiteral("--language");
    QString value;
    for (int i = 1; i < arguments.size() && arguments.at(i) != QLatin1String("--"); ++i) {
        if (arguments.at(i) == option) {
            value = arguments.value(i + 1);
        } else if (arguments.at(i).startsWith(option + QLatin1Char('='))) {
            value = arguments.at(i).mid(option.size() + 1);
        }
    }
    return value;
}

/// Qt's own texts, where their translation is installed.
bool loadQtTranslation(const QString &language, QTranslator *translator)
{
    return translator->load(QStringLiteral("qtbase_") + language, qtTranslationsFolder());
}
} // namespace

Language languageNamed(const QString &name, bool *isKnown)
{
    const auto *const found =
        std::find_if(std::begin(languages), std::end(languages),
                     [&name](const NamedLanguage &row) { return name == QLatin1String(row.name); });
    *isKnown = found != std::end(languages);
    return *isKnown ? found->language : Language::AsWritten;
}

Language chosenLanguage(const QStringList &arguments, const QString &settingsFile)
{
    bool isKnown = false;
    const Language asked = languageNamed(languageArgument(arguments), &isKnown);
    if (asked != Language::AsWritten) {
        return asked;
    }
    const QSettings settings(settingsFile, QSettings::IniFormat);
    return languageNamed(settings.value(QStringLiteral("Interface/language")).toString(), &isKnown);
}

void installLanguage(QCoreApplication &application, Language language)
{
    installedLanguage = language;
    if (language == Language::AsWritten) {
        return;
    }
    const QString name = installedLanguageName();
    // The one that is installed last is asked first.
    for (const auto load : {loadQtTranslation, loadTranslation}) {
        auto translator = std::make_unique<QTranslator>(&application);
        if (load(name, translator.get())) {
            QCoreApplication::installTranslator(translator.release());
        }
    }
}

QString installedLanguageName()
{
    const auto *const row =
        std::find_if(std::begin(languages), std::end(languages),
                     [](const NamedLanguage &candidate) { return candidate.language == installedLanguage; });
    return QString::fromLatin1(row->name);
}

QLocale shownLocale()
{
    switch (installedLanguage) {
    case Language::English:
        return QLocale::c(); // has the month in words: no two countries read 3/4 alike
    case Language::Chinese:
        return QLocale(QLocale::Chinese, QLocale::China);
    case Language::AsWritten:
        break;
    }
    return {};
}
