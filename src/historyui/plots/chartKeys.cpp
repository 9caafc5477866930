#include "historyui/plots/Chart.h"

#include <array>
#include <QKeyEvent>

// What the charts of both builds have in common.

namespace {
constexpr double nearer = 1.5;
constexpr double step = 0.2;

struct Key
{
    int key;
    void (*action)(Chart *chart);
};

constexpr std::array keys = {
    Key{Qt::Key_Plus, [](Chart *chart) { chart->zoom(nearer); }},
    Key{Qt::Key_Equal, [](Chart *chart) { chart->zoom(nearer); }}, // where + needs the shift key
    Key{Qt::Key_Minus, [](Chart *chart) { chart->zoom(1 / nearer); }},
    Key{Qt::Key_Left, [](Chart *chart) { chart->move(-step); }},
    Key{Qt::Key_Right, [](Chart *chart) { chart->move(step); }},
    Key{Qt::Key_0, [](Chart *chart) { chart->showWhole(); }},
};
} // namespace

void Chart::keyPressEvent(QKeyEvent *event)
{
    for (const Key &row : keys) {
        if (row.key == event->key()) {
            row.action(this);
            return;
        }
    }
    QWidget::keyPressEvent(event);
}

void Chart::zoom(double factor)
{
    const QPair<double, double> now = range();
    const double middle = (now.first + now.second) / 2;
    const double half = (now.second - now.first) / 2 / factor;
    setRange(middle - half, middle + half);
}

void Chart::move(double share)
{
    const QPair<double, double> now = range();
    const double by = (now.second - now.first) * share;
    setRange(now.first + by, now.second + by);
}

void Chart::showWhole()
{
    setRange(m_whole.first, m_whole.second);
}
