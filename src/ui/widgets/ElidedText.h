#pragma once

#include <QObject>

class QLabel;

/// Draws a label's text shortened with an ellipsis where it does not fit; the full text stays in `text()` and in the
/// tool tip. Such a label no longer asks for the width of its text, so that a long folder or WiFi name cannot widen
/// the window.
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
