#pragma once

#include <QString>
#include <QStringList>

class QTranslator;

/// The names of the languages into which the sources' texts are translated.
QStringList translatedLanguages();

/// Has `translator` know the texts of a language by its name; false if it is none of them.
bool loadTranslation(const QString &language, QTranslator *translator);
