#pragma once

#include <QObject>
#include <QString>

class QLabel;
class QSize;

/// Draws a label's text shortened with an ellipsis where it does not fit; the full text stays in `text()` and, while it
/// is cut off, shows in the tool tip. A label that wraps words fills its height with lines, and is cut at the end. What
/// the label asks for is not changed: whoever wants a long folder or WiFi name not to widen the window gives the label
/// a minimum width or an ignored size policy.
class ElidedText : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(ElidedText)

public:
    /// Lives as long as the label. `mode`: where the ellipsis stands.
    ElidedText(QLabel *label, Qt::TextElideMode mode);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QString shownIn(const QSize &room) const;

    QLabel *const m_label;
    const Qt::TextElideMode m_mode;
};
