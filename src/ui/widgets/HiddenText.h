#pragma once

#include <QObject>
#include <QString>

class QLabel;

/// Keeps a label's secret behind dots until somebody clicks the label, or presses Space or Enter on it; once more hides
/// it again. The number of dots does not tell the secret's length. GUI thread only.
class HiddenText : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(HiddenText)

public:
    /// Lives as long as the label, which from now on takes the focus. `frame` is the label's text with a %1 for the
    /// secret.
    HiddenText(QLabel *label, QString frame);

    /// Another secret is hidden again.
    void setSecret(const QString &secret);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void show();

    QLabel *const m_label;
    const QString m_frame;
    QString m_secret;
    bool m_hidden = true;
};
