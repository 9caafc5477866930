#include "ui/window/NoticeBar.h"

#include "detector/store/Notices.h"
#include "ui/widgets/ElidedText.h"

#include <QDesktopServices>
#include <QHBoxLayout>
#include <QLabel>
#include <QMainWindow>
#include <QStringList>
#include <QToolButton>
#include <QUrl>

namespace {
constexpr int linkMargin = 4; ///< pixels that the link's frame takes from its text, on both sides together

// While a text may wrap:
constexpr int mostLines = 4;
constexpr int leastCharacters = 30; ///< of average width, for which there is always room
constexpr int textShare = 3;        ///< of the room, to one of the link

/// Takes what room there is and asks for none: the permanent labels keep theirs, and the status bar its height.
void yieldRoom(QWidget *widget)
{
    widget->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
}
} // namespace

NoticeBar::NoticeBar(Notices *notices, QWidget *parent)
    : QWidget(parent), m_notices(notices), m_text(new QLabel(this)), m_link(new QToolButton(this)),
      m_row(new QHBoxLayout(this))
{
    m_text->setObjectName(QStringLiteral("lbNotices"));
    m_text->setTextFormat(Qt::PlainText);
    new ElidedText(m_text, Qt::ElideRight);
    m_link->setObjectName(QStringLiteral("tbResults"));
    m_link->setAutoRaise(true);
    m_link->setStyleSheet(QStringLiteral("color: palette(link); text-decoration: underline; border: none; "
                                         "text-align: left;"));
    m_link->setCursor(Qt::PointingHandCursor);

    m_row->setContentsMargins(0, 0, 0, 0);
    for (QWidget *part : {static_cast<QWidget *>(m_text), static_cast<QWidget *>(m_link)}) {
        yieldRoom(part);
        m_row->addWidget(part, 1);
    }
    yieldRoom(this);

    connect(m_link, &QToolButton::clicked, this, [this] { QDesktopServices::openUrl(QUrl::fromLocalFile(m_folder)); });
    connect(notices, &Notices::changed, this, &NoticeBar::refresh, Qt::QueuedConnection); // told from any thread
    refresh();
}

bool NoticeBar::hasHeightForWidth() const
{
    return false;
}

void NoticeBar::refresh()
{
    QStringList texts;
    m_linkText.clear();
    m_folder.clear();
    m_mayWrap = false;
    const QList<Notice> current = m_notices->current();
    for (const Notice &notice : current) {
        const QString line = notice.text.simplified();
        m_mayWrap = m_mayWrap || notice.kind == Notice::Kind::NotStarted;
        if (notice.path.isEmpty()) {
            texts.append(line);
        } else {
            m_linkText = line;
            m_folder = notice.path;
        }
    }
    m_text->setText(texts.join(QStringLiteral("   |   ")));
    m_text->setVisible(!texts.isEmpty());
    m_text->setWordWrap(m_mayWrap);
    setMinimumWidth(m_mayWrap ? leastCharacters * fontMetrics().averageCharWidth() : 0);
    m_row->setStretchFactor(m_text, m_mayWrap ? textShare : 1);
    m_link->setAccessibleName(m_linkText);
    // A tool tip guesses its format from the text; an escaped text reads the same in either.
    m_link->setToolTip(QStringLiteral("<p>%1</p>").arg(m_linkText.toHtmlEscaped()));
    m_link->setVisible(!m_linkText.isEmpty());
    layout()->activate();
    takeLines();
    shortenLink();
}

int NoticeBar::linesToSpare() const
{
    const auto *owner = qobject_cast<const QMainWindow *>(window());
    if (owner == nullptr || owner->centralWidget() == nullptr) {
        return 0;
    }
    const int spare = owner->height() - owner->centralWidget()->minimumSizeHint().height();
    return spare / fontMetrics().lineSpacing() - 1; // the status bar itself has a line and its margins
}

void NoticeBar::takeLines()
{
    const auto heightOf = [this](const QString &text) {
        const QRect column(0, 0, m_text->width(), QWIDGETSIZE_MAX);
        return m_text->fontMetrics().boundingRect(column, Qt::TextWordWrap, text).height();
    };
    const int most = qMin(mostLines, linesToSpare());
    int height = 0;
    if (m_mayWrap && most > 1) {
        const int needed = heightOf(m_text->text());
        const int granted = heightOf(QStringLiteral("M") + QStringLiteral("\nM").repeated(most - 1));
        height = needed > m_text->fontMetrics().height() ? qMin(needed, granted) : 0;
    }
    setMinimumHeight(height);
}

void NoticeBar::shortenLink()
{
    const QString shortened =
        m_link->fontMetrics().elidedText(m_linkText, Qt::ElideMiddle, m_link->width() - linkMargin);
    // A single ampersand would underline the letter behind it.
    m_link->setText(QString(shortened).replace(QLatin1Char('&'), QStringLiteral("&&")));
}

void NoticeBar::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    layout()->activate(); // text and link have their new widths only then
    takeLines();
    shortenLink();
}
