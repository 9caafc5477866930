#pragma once

#include <QString>

class QCommandLineOption;
class QCommandLineParser;

/// The option --language of every program.
QCommandLineOption languageOption();

/// What is wrong with `option` as the parser has found it; an empty text if nothing is.
QString languageProblem(const QCommandLineParser &parser, const QCommandLineOption &option);
