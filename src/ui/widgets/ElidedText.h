#pragma once

#include <QObject>

class QLabel;

/// Draws a label's text shortened with an ellipsis where it does not fit; the full text stays in `text()` and, while it
/// is cut off, shows in the tool tip. What the label asks for is not changed: whoever wants a long folder or WiFi name
/// not to widen the window gives the label a minimum width or an ignored size policy.
class ElidedText : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(ElidedText)

public:
    /// Lives as long as the label. `mode`: where the ellipsis stands.
    ElidedText(QLabel *label, Qt::TextElideMode mode);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QLabel *const m_label;
    const Qt::TextElideMode m_mode;
};
