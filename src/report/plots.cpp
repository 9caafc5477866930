#include "report/plots.h"

#include "record/limitText.h"
#include "report/ReportTexts.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double pageWidth = 680;
constexpr double smallSize = 10;

const QColor failureColour(0xC0, 0x39, 0x2B);
const QColor barColour(0x5B, 0x8D, 0xB8);
const QColor paleColour(0xD5, 0xDC, 0xE4);
const QColor axisColour(0x88, 0x88, 0x88);
const QColor gridColour(0xE6, 0xE6, 0xE6);
const QColor firstPassColour(0x1F, 0x5A, 0x9E);
const QColor finalColour(0x2E, 0x7D, 0x32);

/// Maps a range of values to a range of pixels.
struct Scale
{
    double from;
    double to;
    double begin;
    double end;

    double at(double value) const
    {
        return to > from ? begin + (value - from) / (to - from) * (end - begin) : (begin + end) / 2;
    }
};

Path line(const QPointF &from, const QPointF &to, const QColor &colour, double width = 1, bool isDashed = false)
{
    return {{from, to}, colour, width, isDashed};
}

Drawing emptyPlot(const QString &title)
{
    Drawing drawing{{pageWidth, 40}, title, {}};
    drawing.shapes.append(Label{{0, 24}, ReportTexts::tr("No data"), Label::Anchor::Begin, 12, axisColour});
    return drawing;
}

/// Lines across at round shares, named at their left.
void addShareGrid(const Scale &y, double right, Drawing *drawing)
{
    const double step = roundStep((y.to - y.from) / 5);
    for (int i = static_cast<int>(std::ceil(y.from / step - 1e-9)); i * step <= y.to + 1e-9; ++i) {
        const double height = y.at(i * step);
        drawing->shapes.append(line({44, height}, {right, height}, gridColour));
        drawing->shapes.append(Label{
            {40, height + 4}, QStringLiteral("%1 %").arg(shortNumber(i * step * 100)), Label::Anchor::End, smallSize});
    }
}

/// The shares of the days as a line; a day without judged cameras interrupts it.
void addYieldLine(const QList<RunGroup> &days, const Scale &x, const Scale &y,
                  std::optional<double> (*yield)(const TallySums &), const QColor &colour, bool isDashed,
                  Drawing *drawing)
{
    QVector<QPointF> points;
    const auto finish = [&] {
        if (points.size() == 1) {
            const QPointF point = points.constFirst();
            drawing->shapes.append(line(point - QPointF(3, 0), point + QPointF(3, 0), colour, 2));
        } else if (!points.isEmpty()) {
            drawing->shapes.append(Path{points, colour, 2, isDashed});
        }
        points.clear();
    };
    for (int i = 0; i < days.size(); ++i) {
        if (const std::optional<double> share = yield(days.at(i).sums)) {
            points.append({x.at(i + 0.5), y.at(*share)});
        } else {
            finish();
        }
    }
    finish();
}

void addLegend(const QPointF &at, const QString &text, const QColor &colour, bool isDashed, Drawing *drawing)
{
    drawing->shapes.append(line(at, at + QPointF(22, 0), colour, 2, isDashed));
    drawing->shapes.append(Label{at + QPointF(27, 4), text, Label::Anchor::Begin, smallSize});
}

/// The least of the days' yields, rounded down to a tenth, so that what differs can be seen.
double lowestShare(const QList<RunGroup> &days)
{
    double lowest = 0.9;
    for (const RunGroup &day : days) {
        lowest = std::min({lowest, firstPassYield(day.sums).value_or(1), finalYield(day.sums).value_or(1)});
    }
    return std::floor(lowest * 10 + 1e-9) / 10;
}
} // namespace

QString percentText(const std::optional<double> &share)
{
    return share ? QString::number(*share * 100, 'f', 1) + QStringLiteral(" %") : QStringLiteral("-");
}

QString shortNumber(double number)
{
    constexpr int digits = 6;
    // What the arithmetic leaves of a zero.
    return QString::number(std::abs(number) < 1e-12 ? 0.0 : number, 'g', digits);
}

Drawing paretoPlot(const QList<ItemGroup> &items, int mostItems)
{
    const QString title = ReportTexts::tr("Failures by item");
    qint64 all = 0;
    QList<ItemGroup> failing;
    for (const ItemGroup &item : items) {
        all += item.sums.failed;
        if (item.sums.failed > 0 && failing.size() < mostItems) {
            failing.append(item);
        }
    }
    if (failing.isEmpty()) {
        return emptyPlot(title);
    }
    constexpr double row = 22;
    constexpr double barHeight = 15;
    constexpr double left = 165;
    constexpr double right = 540;
    Drawing drawing{{pageWidth, static_cast<int>(failing.size()) * row + 8}, title, {}};
    const Scale x{0, static_cast<double>(failing.constFirst().sums.failed), left, right};
    qint64 soFar = 0;
    for (int i = 0; i < failing.size(); ++i) {
        const ItemGroup &item = failing.at(i);
        soFar += item.sums.failed;
        const double top = 4 + i * row;
        const double end = x.at(static_cast<double>(item.sums.failed));
        const QString count = ReportTexts::tr("%1 (%2 of all so far)")
                                  .arg(QString::number(item.sums.failed),
                                       percentText(static_cast<double>(soFar) / static_cast<double>(all)));
        drawing.shapes.append(Label{{left - 8, top + 12}, item.item, Label::Anchor::End, 11});
        drawing.shapes.append(Box{QRectF(QPointF(left, top), QPointF(end, top + barHeight)), failureColour,
                                  item.item + QLatin1String(": ") + count});
        drawing.shapes.append(Label{{end + 6, top + 12}, count, Label::Anchor::Begin, smallSize});
    }
    return drawing;
}

Drawing yieldPlot(const QList<RunGroup> &allDays)
{
    const QString title = ReportTexts::tr("Yield and runs over time");
    const QList<RunGroup> days = groupDays(allDays);
    if (days.isEmpty()) {
        return emptyPlot(title);
    }
    constexpr double height = 230;
    constexpr double top = 26;
    constexpr double bottom = height - 24;
    constexpr double left = 46;
    constexpr double right = pageWidth - 46;
    Drawing drawing{{pageWidth, height}, title, {}};
    const Scale x{0, static_cast<double>(days.size()), left, right};
    const Scale y{lowestShare(days), 1, bottom, top};
    const auto busiest = std::max_element(
        days.begin(), days.end(), [](const RunGroup &a, const RunGroup &b) { return a.sums.runs < b.sums.runs; });
    // Room above the bars, so that they do not hide the lines.
    const Scale bars{0, static_cast<double>(busiest->sums.runs) * 2.5, bottom, top};
    const double gap = days.size() > 120 ? 0 : 0.1;
    for (int i = 0; i < days.size(); ++i) {
        const TallySums &sums = days.at(i).sums;
        const QPointF corner(x.at(i + gap), bars.at(static_cast<double>(sums.runs)));
        drawing.shapes.append(
            Box{QRectF(corner, QPointF(x.at(i + 1 - gap), bottom)), paleColour,
                ReportTexts::tr("%1: %n runs, first-pass %2, final %3", nullptr, static_cast<int>(sums.runs))
                    .arg(days.at(i).name, percentText(firstPassYield(sums)), percentText(finalYield(sums)))});
    }
    addShareGrid(y, right, &drawing);
    addYieldLine(days, x, y, firstPassYield, firstPassColour, true, &drawing);
    addYieldLine(days, x, y, finalYield, finalColour, false, &drawing);
    drawing.shapes.append(line({left, bottom}, {right, bottom}, axisColour));
    const int last = static_cast<int>(days.size()) - 1;
    const int labels = std::min(last + 1, 7);
    for (int i = 0; i < labels; ++i) {
        const int day = labels == 1 ? 0 : i * last / (labels - 1);
        drawing.shapes.append(
            Label{{x.at(day + 0.5), bottom + 15}, days.at(day).name, Label::Anchor::Middle, smallSize});
    }
    drawing.shapes.append(Label{{pageWidth - 2, bars.at(static_cast<double>(busiest->sums.runs)) + 4},
                                ReportTexts::tr("%n runs", nullptr, static_cast<int>(busiest->sums.runs)),
                                Label::Anchor::End,
                                smallSize,
                                axisColour});
    addLegend({left, 10}, ReportTexts::tr("first-pass yield"), firstPassColour, true, &drawing);
    addLegend({left + 140, 10}, ReportTexts::tr("final yield"), finalColour, false, &drawing);
    drawing.shapes.append(Box{{left + 260, 5, 12, 10}, paleColour, {}});
    drawing.shapes.append(Label{{left + 277, 14}, ReportTexts::tr("runs"), Label::Anchor::Begin, smallSize});
    return drawing;
}

Drawing distributionPlot(const Distribution &distribution)
{
    const QString title = ReportTexts::tr("Distribution of %1 in %2").arg(distribution.name, distribution.item);
    if (distribution.bins.isEmpty()) {
        return emptyPlot(title);
    }
    constexpr double height = 170;
    constexpr double top = 24;
    constexpr double bottom = height - 22;
    Drawing drawing{{pageWidth, height}, title, {}};
    const double binsEnd = distribution.binBegin + static_cast<int>(distribution.bins.size()) * distribution.binWidth;
    const double reach = (binsEnd - distribution.binBegin) * 2;
    double from = distribution.binBegin;
    double to = binsEnd;
    const auto isNear = [&](const std::optional<double> &bound) {
        return bound && *bound > distribution.binBegin - reach && *bound < binsEnd + reach;
    };
    if (isNear(distribution.limit.least)) {
        from = std::min(from, *distribution.limit.least);
    }
    if (isNear(distribution.limit.most)) {
        to = std::max(to, *distribution.limit.most);
    }
    const double margin = (to - from) * 0.03;
    const Scale x{from - margin, to + margin, 46, pageWidth - 20};
    const qint64 highest = *std::max_element(distribution.bins.begin(), distribution.bins.end());
    const Scale y{0, static_cast<double>(std::max<qint64>(highest, 1)), bottom, top + 8};
    for (int i = 0; i < distribution.bins.size(); ++i) {
        const double begin = distribution.binBegin + i * distribution.binWidth;
        const double end = begin + distribution.binWidth;
        if (distribution.bins.at(i) > 0) {
            const QPointF corner(x.at(begin) + 0.5, y.at(static_cast<double>(distribution.bins.at(i))));
            drawing.shapes.append(Box{QRectF(corner, QPointF(x.at(end) - 0.5, bottom)), barColour,
                                      QStringLiteral("%1..%2 %3: %4")
                                          .arg(shortNumber(begin), shortNumber(end), distribution.unit,
                                               QString::number(distribution.bins.at(i)))});
        }
    }
    drawing.shapes.append(line({x.begin, bottom}, {x.end, bottom}, axisColour));
    drawing.shapes.append(Label{{x.begin - 4, y.end + 4}, QString::number(highest), Label::Anchor::End, smallSize});
    const double step = roundStep((x.to - x.from) / 8);
    for (double i = std::ceil(x.from / step); i * step <= x.to; ++i) {
        const double at = x.at(i * step);
        drawing.shapes.append(line({at, bottom}, {at, bottom + 4}, axisColour));
        drawing.shapes.append(Label{{at, bottom + 16}, shortNumber(i * step), Label::Anchor::Middle, smallSize});
    }
    const auto mark = [&](double value, const QString &text, const QColor &colour, bool isDashed) {
        const double at = x.at(value);
        const Label::Anchor anchor = at < x.begin + 60 ? Label::Anchor::Begin
                                     : at > x.end - 60 ? Label::Anchor::End
                                                       : Label::Anchor::Middle;
        drawing.shapes.append(line({at, top - 4}, {at, bottom}, colour, 1.5, isDashed));
        drawing.shapes.append(Label{{at, top - 9}, text, anchor, smallSize, colour});
    };
    if (isNear(distribution.limit.least)) {
        mark(*distribution.limit.least, ReportTexts::tr("least %1").arg(shortNumber(*distribution.limit.least)),
             failureColour, true);
    }
    if (isNear(distribution.limit.most)) {
        mark(*distribution.limit.most, ReportTexts::tr("most %1").arg(shortNumber(*distribution.limit.most)),
             failureColour, true);
    }
    if (distribution.mean >= x.from && distribution.mean <= x.to) {
        const double at = x.at(distribution.mean);
        drawing.shapes.append(line({at, top + 4}, {at, bottom}, firstPassColour, 1.5));
    }
    return drawing;
}
