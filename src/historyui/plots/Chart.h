#pragma once

#include "plots/PlotContent.h"

#include <memory>
#include <QImage>
#include <QPair>
#include <QSize>
#include <QString>
#include <QWidget>

/// Draws a plot. Across, it can be zoomed and moved: with the wheel and by pulling a rectangle; and with the keys + and
/// - (zoom), left and right (move), and 0 (the whole again). The pointer tells what it stands on. Where the program was
/// built without the library for plots, it says so in their place.
class Chart : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(Chart)

public:
    explicit Chart(QWidget *parent = nullptr);
    ~Chart() override;

    /// Whether this program can draw.
    static bool canDraw();

    /// The part across that is shown stays where `content` is the same plot with newer numbers.
    void show(const PlotContent &content);

    /// What is seen across, from and to.
    QPair<double, double> range() const;
    /// Above 1: nearer. About the middle.
    void zoom(double factor);
    /// By so much of what is seen; to the right where it is above 0.
    void move(double share);
    void showWhole();

    /// What the pointer tells at that point of this widget; empty where there is nothing.
    QString hintAt(const QPoint &point) const;

    /// The plot as it is seen, with so many pixels; null where nothing can be drawn.
    QImage picture(const QSize &size) const;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Drawing;

    void setRange(double from, double to);

    PlotContent m_content;
    QPair<double, double> m_whole{0, 1};
    std::unique_ptr<Drawing> m_drawing;
};
