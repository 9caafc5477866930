// Reports when the first window has been painted. Linked into a program, it needs no word in its sources.

#include "probe/report.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>

namespace {
class FirstPaint final : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && watched->isWidgetType()) {
            qApp->removeEventFilter(this);
            // The event loop comes back when all widgets of the window are painted.
            QTimer::singleShot(0, this, [] { reportNow("first-paint"); });
        }
        return false;
    }
};

void watchForFirstPaint()
{
    qApp->installEventFilter(new FirstPaint(qApp));
}
} // namespace

Q_COREAPP_STARTUP_FUNCTION(watchForFirstPaint)
