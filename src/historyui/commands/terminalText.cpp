#include "historyui/commands/terminalText.h"

#include "record/plainText.h"

#include <algorithm>
#include <array>

namespace {
struct Range
{
    uint first;
    uint last;
};

/// What terminals draw in two columns.
constexpr std::array wide = {
    Range{0x1100, 0x115F},   Range{0x2E80, 0x303E},   Range{0x3041, 0x33FF}, Range{0x3400, 0x4DBF},
    Range{0x4E00, 0x9FFF},   Range{0xA000, 0xA4CF},   Range{0xAC00, 0xD7A3}, Range{0xF900, 0xFAFF},
    Range{0xFE30, 0xFE6F},   Range{0xFF00, 0xFF60},   Range{0xFFE0, 0xFFE6}, Range{0x1F300, 0x1F64F},
    Range{0x1F900, 0x1F9FF}, Range{0x20000, 0x3FFFD},
};

int columnsOf(uint character)
{
    switch (QChar::category(character)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_Enclosing:
    case QChar::Other_Format:
        return 0;
    default:
        break;
    }
    const bool isWide = std::any_of(wide.begin(), wide.end(), [character](const Range &range) {
        return character >= range.first && character <= range.last;
    });
    return isWide ? 2 : 1;
}

/// Controls, and marks that turn the direction of what follows.
bool steers(QChar c)
{
    return c.category() == QChar::Other_Control || (c.unicode() >= 0x202A && c.unicode() <= 0x202E) ||
           (c.unicode() >= 0x2066 && c.unicode() <= 0x2069);
}

QString harmless(const QString &text, bool keepsLines)
{
    QString result = wellFormed(text);
    for (QChar &c : result) {
        const bool isBreak = c == QLatin1Char('\n');
        if (isBreak && !keepsLines) {
            c = QLatin1Char(' ');
        } else if (!isBreak && steers(c)) {
            c = c == QLatin1Char('\t') ? QChar(QLatin1Char(' ')) : QChar(QChar::ReplacementCharacter);
        }
    }
    return result;
}
} // namespace

QString terminalText(const QString &text)
{
    return harmless(text.trimmed(), false);
}

QString terminalLines(const QString &text)
{
    return harmless(text, true);
}

int terminalWidth(const QString &text)
{
    int width = 0;
    const QVector<uint> characters = text.toUcs4();
    for (const uint character : characters) {
        width += columnsOf(character);
    }
    return width;
}

QString terminalColumn(const QString &text, int width, bool isNumber)
{
    const QString blanks(std::max(0, width - terminalWidth(text)), QLatin1Char(' '));
    return isNumber ? blanks + text : text + blanks;
}

QString textTable(const QVector<TextColumn> &columns, const QVector<QStringList> &rows)
{
    QVector<QStringList> lines = {{}};
    for (const TextColumn &column : columns) {
        lines[0].append(column.name);
    }
    QVector<int> widths(columns.size(), 0);
    for (const QStringList &row : rows) {
        QStringList cells;
        for (int i = 0; i < columns.size(); ++i) {
            cells.append(terminalText(row.value(i)));
            widths[i] = std::max(widths.at(i), terminalWidth(cells.constLast()));
        }
        lines.append(cells);
    }
    QString table;
    for (const QStringList &cells : qAsConst(lines)) {
        QString line;
        for (int i = 0; i < columns.size(); ++i) {
            if (widths.at(i) == 0) {
                continue;
            }
            const int width = std::max(widths.at(i), terminalWidth(columns.at(i).name));
            line += (line.isEmpty() ? QString() : QStringLiteral("  ")) +
                    terminalColumn(cells.at(i), width, columns.at(i).isNumber);
        }
        while (line.endsWith(QLatin1Char(' '))) {
            line.chop(1);
        }
        table += line + QLatin1Char('\n');
    }
    return table;
}
