#include "ui/widgets/LogTextDelegate.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>

namespace {
/// Whether a cell's text needs more room than it has, wrapped as the view wraps it.
bool isCutOff(const QStyleOptionViewItem &cell)
{
    const QStyle *style = cell.widget != nullptr ? cell.widget->style() : QApplication::style();
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, cell.widget) + 1;
    const QRect room =
        style->subElementRect(QStyle::SE_ItemViewItemText, &cell, cell.widget).adjusted(margin, 0, -margin, 0);
    const int flags = Qt::AlignLeft | (cell.features.testFlag(QStyleOptionViewItem::WrapText) ? Qt::TextWordWrap : 0);
    const QSize needed = cell.fontMetrics.boundingRect(room, flags, cell.text).size();
    return needed.width() > room.width() || needed.height() > room.height();
}

QString withoutLastBreaks(QString text)
{
    while (text.endsWith(QLatin1Char('\n')) || text.endsWith(QChar::LineSeparator)) {
        text.chop(1);
    }
    return text;
}
} // namespace

bool LogTextDelegate::hasSeveralLines(const QString &text)
{
    return withoutLastBreaks(text).contains(QLatin1Char('\n'));
}

QString LogTextDelegate::displayText(const QVariant &value, const QLocale &locale) const
{
    return withoutLastBreaks(QStyledItemDelegate::displayText(value, locale));
}

bool LogTextDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                                const QModelIndex &index)
{
    if (event->type() != QEvent::ToolTip) {
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    }
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    // An initialised option holds its line breaks as line separators.
    const QString text = cell.text.replace(QChar::LineSeparator, QLatin1Char('\n'));
    cell.text = text;
    if (index.isValid() && isCutOff(cell)) {
        // A tool tip guesses its format from the text; an escaped text reads the same in either.
        QToolTip::showText(event->globalPos(),
                           QStringLiteral("<p style='white-space:pre'>%1</p>").arg(text.toHtmlEscaped()), view);
    } else {
        QToolTip::hideText();
    }
    return true;
}
