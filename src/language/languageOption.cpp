#include "language/languageOption.h"

#include "language/Language.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QCoreApplication>

QCommandLineOption languageOption()
{
    return {QStringLiteral("language"),
            QCoreApplication::translate("languageOption", "Speak this language: en or zh_CN (default: by option.ini)."),
            QCoreApplication::translate("languageOption", "language")};
}

QString languageProblem(const QCommandLineParser &parser, const QCommandLineOption &option)
{
    const QString name = parser.value(option);
    bool isKnown = false;
    languageNamed(name, &isKnown);
    return !parser.isSet(option) || (isKnown && !name.isEmpty())
               ? QString()
               : QCoreApplication::translate("languageOption", "--language: \"%1\" is neither en nor zh_CN").arg(name);
}
