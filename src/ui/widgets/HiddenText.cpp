#include "ui/widgets/HiddenText.h"

#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <utility>

namespace {
constexpr int dotCount = 8;

bool asksToToggle(QEvent *event)
{
    if (event->type() == QEvent::MouseButtonRelease) {
        return static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton;
    }
    if (event->type() != QEvent::KeyPress) {
        return false;
    }
    const auto *keys = static_cast<QKeyEvent *>(event);
    return !keys->isAutoRepeat() &&
           (keys->key() == Qt::Key_Space || keys->key() == Qt::Key_Return || keys->key() == Qt::Key_Enter);
}
} // namespace

HiddenText::HiddenText(QLabel *label, QString frame) : QObject(label), m_label(label), m_frame(std::move(frame))
{
    label->setFocusPolicy(Qt::StrongFocus);
    label->installEventFilter(this);
    show();
}

void HiddenText::setSecret(const QString &secret)
{
    m_hidden = m_hidden || secret != m_secret;
    m_secret = secret;
    show();
}

bool HiddenText::eventFilter(QObject *watched, QEvent *event)
{
    if (!asksToToggle(event)) {
        return QObject::eventFilter(watched, event);
    }
    m_hidden = !m_hidden;
    show();
    return true;
}

void HiddenText::show()
{
    const bool dots = m_hidden && !m_secret.isEmpty();
    m_label->setText(m_frame.arg(dots ? QString(dotCount, QChar(0x2022)) : m_secret));
}
