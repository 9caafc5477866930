#include "ui/widgets/ElidedText.h"

#include <QEvent>
#include <QHelpEvent>
#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QToolTip>

ElidedText::ElidedText(QLabel *label, Qt::TextElideMode mode) : QObject(label), m_label(label), m_mode(mode)
{
    label->installEventFilter(this);
}

bool ElidedText::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Paint && event->type() != QEvent::ToolTip) {
        return QObject::eventFilter(watched, event);
    }
    const QRect room = m_label->contentsRect();
    const QString shown = m_label->fontMetrics().elidedText(m_label->text(), m_mode, room.width());
    if (shown == m_label->text()) {
        return QObject::eventFilter(watched, event);
    }
    if (event->type() == QEvent::ToolTip) {
        // A tool tip guesses its format from the text; an escaped text reads the same in either.
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(),
                           QStringLiteral("<p style='white-space:pre'>%1</p>").arg(m_label->text().toHtmlEscaped()),
                           m_label);
        return true;
    }
    QPainter painter(m_label);
    QStyleOptionFrame frame;
    frame.initFrom(m_label);
    m_label->style()->drawControl(QStyle::CE_ShapedFrame, &frame, &painter, m_label);
    m_label->style()->drawItemText(&painter, room, static_cast<int>(m_label->alignment()), m_label->palette(),
                                   m_label->isEnabled(), shown, m_label->foregroundRole());
    return true;
}
