#pragma once

#include <QColor>
#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

// What a plot shows, before anything is drawn, and the same as a table: for those who cannot see the plot, for copying,
// and for a build without plots. Plain values, for any thread; texts are data, nothing in them is markup.

/// Numbers in the palette that mean something.
namespace plotColour {
constexpr int failed = 1;
constexpr int passed = 2;
constexpr int stopped = 3;
constexpr int error = 4;
} // namespace plotColour

struct PlotPoint
{
    double across = 0;
    double up = 0;
    QString hint; ///< what the pointer tells there
};

struct PlotLine
{
    enum class Style { Solid, Dashed, Points };

    QString name;
    Style style = Style::Solid;
    int colour = 0; ///< number in the palette: what belongs together has the same
    QVector<PlotPoint> points;
};

struct PlotBar
{
    double from = 0;
    double to = 0;
    double up = 0;
    QString hint;
    QString label; ///< what it says where nothing can be pointed at; empty: nothing
};

struct PlotBars
{
    QString name;
    int colour = 0;
    bool isBehind = false; ///< pale, and by the scale on the right
    QVector<PlotBar> bars;
};

/// A line from bottom to top.
struct PlotMark
{
    double across = 0;
    QString text;
    bool isLimit = false;
};

struct PlotTable
{
    QStringList columns;
    QList<QStringList> rows; ///< each with a text for every column
};

struct PlotContent
{
    /// What the numbers across mean.
    enum class Scale {
        Numbers,
        Names,   ///< places in `names`, each in the middle of its bars
        Days,    ///< as QDate::toJulianDay
        Moments, ///< as `momentNumber`
    };

    QString title;
    QString acrossTitle;
    QString upTitle;
    QString behindTitle; ///< of the scale on the right; empty: there is none
    Scale scale = Scale::Numbers;
    QStringList names;
    bool isShare = false; ///< 1 up is 100 %
    bool isCount = false; ///< whole numbers up
    double upFrom = 0;    ///< where the scale begins
    QList<PlotBars> bars;
    QList<PlotLine> lines;
    QList<PlotMark> marks;
    PlotTable table;

    bool isEmpty() const { return bars.isEmpty() && lines.isEmpty(); }

    /// What there is across, from and to, with a margin; a limit that is far from all values is left out.
    QPair<double, double> across() const;
};

/// The colour of that number: can be told apart by those who do not see red and green as different, too.
QColor colourOfPlot(int number);
inline constexpr QRgb paleColour = 0xFFD5DCE4;  ///< of what is behind
inline constexpr QRgb limitColour = 0xFFC0392B; ///< of limits
inline constexpr QRgb gridColour = 0xFFE6E6E6;
