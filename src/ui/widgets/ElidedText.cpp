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

QString ElidedText::shownIn(const QSize &room) const
{
    QString text = m_label->text();
    const QFontMetrics metrics = m_label->fontMetrics();
    if (!m_label->wordWrap()) {
        return metrics.elidedText(text, m_mode, room.width());
    }
    const auto fits = [&](const QString &candidate) {
        const QRect column(0, 0, room.width(), QWIDGETSIZE_MAX);
        const QSize needed = metrics.boundingRect(column, Qt::TextWordWrap, candidate).size();
        return needed.width() <= room.width() && needed.height() <= room.height();
    };
    const auto beginning = [&text](int length) { return text.left(length) + QChar(0x2026); };
    if (fits(text)) {
        return text;
    }
    int length = 0;
    for (int tooMuch = static_cast<int>(text.size()); tooMuch - length > 1;) {
        const int middle = (length + tooMuch) / 2;
        (fits(beginning(middle)) ? length : tooMuch) = middle;
    }
    return beginning(length);
}

bool ElidedText::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Paint && event->type() != QEvent::ToolTip) {
        return QObject::eventFilter(watched, event);
    }
    const QRect room = m_label->contentsRect();
    const QString shown = shownIn(room.size());
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
    const int flags = static_cast<int>(m_label->alignment()) | (m_label->wordWrap() ? Qt::TextWordWrap : 0);
    m_label->style()->drawItemText(&painter, room, flags, m_label->palette(), m_label->isEnabled(), shown,
                                   m_label->foregroundRole());
    return true;
}
