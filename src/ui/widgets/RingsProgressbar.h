#pragma once

#include <QString>
#include <QWidget>

/// A percentage as a ring that fills clockwise and ends at twelve o'clock, with a caption and the number in its
/// middle. The ring takes the largest square at the widget's top left corner.
class RingsProgressbar : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(RingsProgressbar)

public:
    explicit RingsProgressbar(QWidget *parent = nullptr, QString captionText = QString());

    /// Values outside 0 to 100 are drawn as they are: above 100 the ring is overdrawn, below 0 it grows
    /// counter-clockwise.
    void setPersent(int value);
    /// What stands in the middle, for example "Total:45%".
    QString text() const;

    QString caption; ///< drawn in front of the number

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int angle = 0; ///< sweep of the filled part in degrees
    int percent = 0;
};
