#pragma once

#include <QStyledItemDelegate>

/// Shows the event log's texts without the line break that ends most of them, which would push the line out of the
/// middle of its row; what is cut off has a tool tip. The items keep their texts.
class LogTextDelegate : public QStyledItemDelegate
{
    Q_OBJECT
    Q_DISABLE_COPY(LogTextDelegate)

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Whether a text is more than one line when it is shown.
    static bool hasSeveralLines(const QString &text);

    QString displayText(const QVariant &value, const QLocale &locale) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;
};
