#include "language/everyLanguage.h"

#include "language/translations.h"

#include <memory>
#include <QTranslator>
#include <utility>
#include <vector>

namespace {
using Translators = std::vector<std::unique_ptr<QTranslator>>;

const Translators &translators()
{
    static const Translators all = [] {
        Translators loaded;
        const QStringList languages = translatedLanguages();
        for (const QString &language : languages) {
            auto translator = std::make_unique<QTranslator>();
            if (loadTranslation(language, translator.get())) {
                loaded.push_back(std::move(translator));
            }
        }
        return loaded;
    }();
    return all;
}
} // namespace

QStringList textInEveryLanguage(const char *context, const QString &text, const char *sense)
{
    QStringList texts{text};
    const QByteArray source = text.toUtf8();
    for (const auto &translator : translators()) {
        const QString translation = translator->translate(context, source.constData(), sense);
        if (!translation.isEmpty() && !texts.contains(translation)) {
            texts.append(translation);
        }
    }
    return texts;
}
