#include "historyui/reader/runWords.h"

#include <array>
#include <QCoreApplication>

namespace {
constexpr QRgb green = 0xFF2E7D32;
constexpr QRgb red = 0xFFC0392B;
constexpr QRgb amber = 0xFF9A6700;
constexpr QRgb grey = 0xFF666666;

template <class Value>
struct Look
{
    Value value;
    const char *text;
    QRgb colour;
};

constexpr std::array outcomes = {
    Look<Outcome>{Outcome::Passed, QT_TRANSLATE_NOOP("History", "Passed"), green},
    Look<Outcome>{Outcome::Failed, QT_TRANSLATE_NOOP("History", "Failed"), red},
    Look<Outcome>{Outcome::Stopped, QT_TRANSLATE_NOOP("History", "Stopped"), amber},
    Look<Outcome>{Outcome::Error, QT_TRANSLATE_NOOP("History", "Error"), amber},
};

constexpr std::array verdicts = {
    Look<Verdict>{Verdict::Passed, QT_TRANSLATE_NOOP("History", "Passed"), green},
    Look<Verdict>{Verdict::Failed, QT_TRANSLATE_NOOP("History", "Failed"), red},
    Look<Verdict>{Verdict::Warning, QT_TRANSLATE_NOOP("History", "Warning"), amber},
    Look<Verdict>{Verdict::NotTested, QT_TRANSLATE_NOOP("History", "Not tested"), grey},
};

template <class Table, class Value>
const auto &lookUp(const Table &table, Value value)
{
    for (const auto &row : table) {
        if (row.value == value) {
            return row;
        }
    }
    return table.back();
}
} // namespace

QString outcomeText(Outcome outcome)
{
    return QCoreApplication::translate("History", lookUp(outcomes, outcome).text);
}

QColor outcomeColour(Outcome outcome)
{
    return QColor(lookUp(outcomes, outcome).colour);
}

QString verdictText(Verdict verdict)
{
    return QCoreApplication::translate("History", lookUp(verdicts, verdict).text);
}

QColor verdictColour(Verdict verdict)
{
    return QColor(lookUp(verdicts, verdict).colour);
}

QVariant plainToolTip(const QString &text)
{
    return text.isEmpty() ? QVariant()
                          : QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(text.toHtmlEscaped());
}
