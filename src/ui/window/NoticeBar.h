#pragma once

#include <QWidget>

class Notices;
class QHBoxLayout;
class QLabel;
class QToolButton;

/// The left side of the status bar: what stands in `Notices`, in one line, the gravest first. What is cut off is in the
/// tool tip. Why a start was refused is to be read at once: while that stands, the bar asks for some room beside long
/// names, and for further lines where one is too short and the window has the height. A notice that speaks of a folder
/// is a link that opens it. All texts read to the letter. GUI thread only.
class NoticeBar : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(NoticeBar)

public:
    /// `notices` outlives the bar.
    explicit NoticeBar(Notices *notices, QWidget *parent = nullptr);

    /// No: a layout would grant a text that wraps its full height and take it from what stands above. The bar asks for
    /// what the window can spare, as its minimum.
    bool hasHeightForWidth() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void refresh();
    int linesToSpare() const;
    void takeLines();
    void shortenLink();

    Notices *const m_notices;
    QLabel *const m_text;      ///< the notices without a folder
    QToolButton *const m_link; ///< the last one with a folder
    QHBoxLayout *const m_row;
    bool m_mayWrap = false;
    QString m_linkText;
    QString m_folder;
};
