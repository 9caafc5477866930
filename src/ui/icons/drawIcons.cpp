// Draws the images of icon.qrc. Run it after a change and commit what it writes:
//     cmake --build <build folder> --target kest_draw_icons && <build folder>/bin/kest_draw_icons src/ui/window/icons

#include <functional>
#include <QCommandLineParser>
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QTextStream>

namespace {
constexpr int side = 160;
constexpr int jpegQuality = 95;
const QPointF middle(side / 2.0, side / 2.0);

struct Icon
{
    const char *file;
    QRgb background; ///< the window's panel colour where the format has no transparency
    std::function<void(QPainter &)> draw;
};

void stroke(QPainter &painter, const QColor &colour, qreal width)
{
    painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
}

void disc(QPainter &painter, const QColor &colour)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(middle, 72, 72);
}

void drawPassed(QPainter &painter)
{
    disc(painter, QColor(34, 153, 84));
    stroke(painter, Qt::white, 18);
    painter.drawPolyline(QPolygonF({{44, 84}, {70, 110}, {118, 54}}));
}

void drawFailed(QPainter &painter)
{
    disc(painter, QColor(203, 32, 39));
    stroke(painter, Qt::white, 18);
    painter.drawLine(QPointF(53, 53), QPointF(107, 107));
    painter.drawLine(QPointF(107, 53), QPointF(53, 107));
}

void drawWarning(QPainter &painter)
{
    const QColor amber(245, 176, 20);
    painter.setPen(QPen(amber, 20, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(amber);
    painter.drawPolygon(QPolygonF({{80, 22}, {146, 138}, {14, 138}}));
    const QColor dark(60, 42, 0);
    stroke(painter, dark, 16);
    painter.drawLine(QPointF(80, 60), QPointF(80, 98));
    painter.setPen(Qt::NoPen);
    painter.setBrush(dark);
    painter.drawEllipse(QPointF(80, 126), 10, 10);
}

void drawNotTested(QPainter &painter)
{
    const QColor grey(150, 156, 163);
    stroke(painter, grey, 12);
    painter.drawEllipse(middle, 66, 66);
    stroke(painter, grey, 16);
    painter.drawLine(QPointF(56, 80), QPointF(104, 80));
}

void drawNotAvailable(QPainter &painter)
{
    const QColor grey(150, 156, 163);
    stroke(painter, grey, 12);
    painter.drawEllipse(middle, 66, 66);
    painter.drawLine(QPointF(34, 126), QPointF(126, 34));
}

void drawBackdrop(QPainter &painter)
{
    QLinearGradient shade(0, 0, 0, side);
    shade.setColorAt(0, QColor(250, 250, 250));
    shade.setColorAt(1, QColor(210, 247, 255));
    painter.fillRect(0, 0, side, side, shade);
}
} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication app(argc, argv);
    QCommandLineParser parser;
    parser.addPositionalArgument(QStringLiteral("folder"), QStringLiteral("Where the images are written."));
    parser.addHelpOption();
    parser.process(app);
    const QDir folder(parser.positionalArguments().value(0, QStringLiteral(".")));

    constexpr QRgb panel = qRgb(250, 250, 250);
    const Icon icons[] = {
        {"OK.jpg", panel, drawPassed},
        {"NG.jpg", panel, drawFailed},
        {"War.png", qRgba(0, 0, 0, 0), drawWarning},
        {"NA1.jpg", panel, drawNotTested},
        {"NA.jpg", panel, drawNotAvailable},
        {"bg0.jpg", panel, drawBackdrop},
    };
    for (const Icon &icon : icons) {
        const QString path = folder.filePath(QLatin1String(icon.file));
        const bool transparent = qAlpha(icon.background) == 0;
        QImage image(side, side, transparent ? QImage::Format_ARGB32 : QImage::Format_RGB32);
        image.fill(icon.background);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        icon.draw(painter);
        painter.end();
        if (!image.save(path, nullptr, transparent ? -1 : jpegQuality)) {
            QTextStream(stderr) << "cannot write " << path << '\n';
            return 1;
        }
    }
    return 0;
}
