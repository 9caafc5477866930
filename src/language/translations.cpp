#include "language/translations.h"

#include <QTranslator>

/// The linker leaves out of a library what nobody names. (The macro works outside of namespaces only.)
static void takeTranslations()
{
    Q_INIT_RESOURCE(translations);
}

QStringList translatedLanguages()
{
    return {QStringLiteral("en"), QStringLiteral("zh_CN")};
}

bool loadTranslation(const QString &language, QTranslator *translator)
{
    takeTranslations();
    return translator->load(QStringLiteral("kest_") + language, QStringLiteral(":/translations"));
}
