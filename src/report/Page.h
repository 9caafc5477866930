#pragma once

#include "report/Drawing.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QVector>
#include <variant>

// A report before it is written: what stands in it, in its order. A page in a browser and pages of paper are written
// from the same parts. Plain values, for any thread; texts are data, nothing in them is markup.

struct Heading
{
    QString text;
    int level = 2; ///< 1: the report's own
};

struct Paragraph
{
    QString text;
    bool isMuted = false;
};

/// A few numbers that everything else explains.
struct Figures
{
    struct Figure
    {
        QString name;
        QString value;
    };
    QVector<Figure> figures;
};

struct Table
{
    struct Column
    {
        QString name;
        bool isNumber = false; ///< aligned at the right
        int wholeUpTo = 0;     ///< texts of up to so many characters (a Chinese one counts twice) are never broken
    };
    QVector<Column> columns;
    QVector<QStringList> rows; ///< each with a text for every column
};

struct Picture
{
    Drawing drawing;
    QString caption;
};

using Part = std::variant<Heading, Paragraph, Figures, Table, Picture>;

struct Page
{
    QString title;
    QVector<Part> parts;
};

/// One HTML file, UTF-8, that needs nothing else: styles and pictures are in it, scripts are not. Prints on A4.
QByteArray toHtml(const Page &page);

/// Pages of A4 in `path`; an error text, or an empty one. Needs a QGuiApplication (its fonts). A file that was there
/// stays if that fails.
QString writePdf(const Page &page, const QString &path);
