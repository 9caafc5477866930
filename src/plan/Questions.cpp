#include "plan/Questions.h"

#include <algorithm>
#include <iterator>
#include <QCoreApplication>

namespace {
struct Word
{
    Question question;
    const char *word;
};

constexpr Word words[] = {
    {Question::Serial, "serial"},
    {Question::Operator, "operator"},
    {Question::Batch, "batch"},
};

QString knownWords()
{
    QStringList known;
    for (const Word &word : words) {
        known.append(QLatin1String(word.word));
    }
    return known.join(QStringLiteral(", "));
}

/// Appends what the list asks for; an error text, or an empty one.
QString readAsked(const QString &list, QList<Question> *asked)
{
    if (list.trimmed().isEmpty()) {
        return {};
    }
    const QStringList entries = list.split(QLatin1Char(','));
    for (const QString &entry : entries) {
        const QString name = entry.trimmed();
        const auto *const word = std::find_if(std::begin(words), std::end(words),
                                              [&](const Word &row) { return name == QLatin1String(row.word); });
        if (word == std::end(words)) {
            return QCoreApplication::translate("Questions", "\"%1\" cannot be asked for; known are %2")
                .arg(name, knownWords());
        }
        if (asked->contains(word->question)) {
            return QCoreApplication::translate("Questions", "\"%1\" stands there twice").arg(name);
        }
        asked->append(word->question);
    }
    return {};
}
} // namespace

Questions readQuestions(const QList<SettingsLine> &lines, const QString &file)
{
    Questions questions;
    const auto complain = [&](const SettingsLine &line, const QString &reason) {
        if (!reason.isEmpty()) {
            questions.errors.append(wrongLine(file, QStringLiteral("Station"), line, reason));
        }
    };
    for (const SettingsLine &line : lines) {
        if (line.key == QLatin1String("ask")) {
            complain(line, readAsked(line.value, &questions.asked));
        } else if (line.key == QLatin1String("serialPattern")) {
            questions.serialPattern = SerialPattern(line.value);
            complain(line, questions.serialPattern.error());
        }
    }
    if (!questions.errors.isEmpty()) {
        questions.asked.clear();
    }
    return questions;
}
