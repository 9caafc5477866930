#include "ui/window/NoticeBar.h"

#include "detector/store/Notices.h"
#include "ui/widgets/ElidedText.h"

#include <QDesktopServices>
#include <QHBoxLayout>
#include <QLabel>
#include <QStringList>
#include <QToolButton>
#include <QUrl>

namespace {
constexpr int linkMargin = 4; ///< pixels that the link's frame takes from its text, on both sides together

/// Takes what room there is and asks for none: the permanent labels keep theirs, and the status bar its height.
void yieldRoom(QWidget *widget)
{
    widget->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
}
} // namespace

NoticeBar::NoticeBar(Notices *notices, QWidget *parent)
    : QWidget(parent), m_notices(notices), m_text(new QLabel(this)), m_link(new QToolButton(this))
{
    m_text->setObjectName(QStringLiteral("lbNotices"));
    m_text->setTextFormat(Qt::PlainText);
    new ElidedText(m_text, Qt::ElideRight);
    m_link->setObjectName(QStringLiteral("tbResults"));
    m_link->setAutoRaise(true);
    m_link->setStyleSheet(QStringLiteral("color: palette(link); text-decoration: underline; border: none; "
                                         "text-align: left;"));
    m_link->setCursor(Qt::PointingHandCursor);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    for (QWidget *part : {static_cast<QWidget *>(m_text), static_cast<QWidget *>(m_link)}) {
        yieldRoom(part);
        row->addWidget(part, 1);
    }
    yieldRoom(this);

    connect(m_link, &QToolButton::clicked, this, [this] { QDesktopServices::openUrl(QUrl::fromLocalFile(m_folder)); });
    connect(notices, &Notices::changed, this, &NoticeBar::refresh, Qt::QueuedConnection); // told from any thread
    refresh();
}

void NoticeBar::refresh()
{
    QStringList texts;
    m_linkText.clear();
    m_folder.clear();
    const QList<Notice> current = m_notices->current();
    for (const Notice &notice : current) {
        const QString line = notice.text.simplified();
        if (notice.path.isEmpty()) {
            texts.append(line);
        } else {
            m_linkText = line;
            m_folder = notice.path;
        }
    }
    m_text->setText(texts.join(QStringLiteral("   |   ")));
    m_text->setVisible(!texts.isEmpty());
    m_link->setAccessibleName(m_linkText);
    // A tool tip guesses its format from the text; an escaped text reads the same in either.
    m_link->setToolTip(QStringLiteral("<p>%1</p>").arg(m_linkText.toHtmlEscaped()));
    m_link->setVisible(!m_linkText.isEmpty());
    layout()->activate();
    shortenLink();
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
    layout()->activate(); // the link has its new width only then
    shortenLink();
}
