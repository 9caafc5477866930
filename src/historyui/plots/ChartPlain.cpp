#include "historyui/plots/Chart.h"

#include <QLabel>
#include <QVBoxLayout>

/// The build without the library for plots.
struct Chart::Drawing
{
};

Chart::Chart(QWidget *parent) : QWidget(parent)
{
    auto *label =
        new QLabel(tr("There are no plots in this program: it was built without Qwt. The table tells the same."));
    label->setObjectName(QStringLiteral("lbNoPlots"));
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
}

Chart::~Chart() = default;

bool Chart::canDraw()
{
    return false;
}

void Chart::show(const PlotContent &content)
{
    m_content = content;
    setAccessibleName(content.title);
}

QPair<double, double> Chart::range() const
{
    return m_whole;
}

void Chart::setRange(double /*from*/, double /*to*/) {}

QString Chart::hintAt(const QPoint & /*point*/) const
{
    return {};
}

QImage Chart::picture(const QSize & /*size*/) const
{
    return {};
}

void Chart::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
}

bool Chart::eventFilter(QObject *watched, QEvent *event)
{
    return QWidget::eventFilter(watched, event);
}
