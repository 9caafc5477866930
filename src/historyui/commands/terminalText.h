#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

// Texts for a terminal. Pure functions.

/// `text` in one line and without characters that would steer the terminal: each becomes U+FFFD, line breaks a blank.
QString terminalText(const QString &text);
/// Likewise, but with its line breaks.
QString terminalLines(const QString &text);

/// How many columns it takes: Chinese characters take two, accents none.
int terminalWidth(const QString &text);

/// `text` with blanks up to a width of so many columns; in front of it, if it is a number.
QString terminalColumn(const QString &text, int width, bool isNumber = false);

struct TextColumn
{
    QString name;
    bool isNumber = false; ///< aligned at the right
};

/// A table with its heading, two blanks between the columns, and no blanks at the end of a line. Columns without any
/// text in them are left out.
QString textTable(const QVector<TextColumn> &columns, const QVector<QStringList> &rows);
