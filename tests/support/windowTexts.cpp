#include "support/windowTexts.h"

#include <algorithm>
#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QRegularExpression>
#include <QStyleOptionComboBox>
#include <QTest>
#include <QTranslator>

namespace {
constexpr const char *kinds[] = {"QLabel", "QAbstractButton", "QGroupBox", "QComboBox"};

bool isOfAKind(const QWidget *widget)
{
    return std::any_of(std::begin(kinds), std::end(kinds),
                       [widget](const char *kind) { return widget->inherits(kind); });
}

/// A field takes less than its hint says where it is not to widen its window.
QSize neededByField(const QComboBox *field)
{
    QStyleOptionComboBox option;
    option.initFrom(field);
    const int room =
        field->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, field).width();
    const int text = field->fontMetrics().horizontalAdvance(field->currentText());
    return {field->width() - room + text, field->minimumSizeHint().height()};
}

/// The room that a widget's text takes.
QSize neededBy(const QWidget *widget)
{
    if (const auto *field = qobject_cast<const QComboBox *>(widget)) {
        return neededByField(field);
    }
    const auto *label = qobject_cast<const QLabel *>(widget);
    if (label != nullptr && label->wordWrap()) {
        return {label->minimumSizeHint().width(), label->heightForWidth(label->width())};
    }
    // The size of the frame is that of what is in it.
    return widget->inherits("QGroupBox") ? widget->fontMetrics().size(Qt::TextSingleLine, windowTexts::textOf(widget))
                                         : widget->sizeHint();
}
} // namespace

namespace windowTexts {
void addLanguages()
{
    QTest::addColumn<Language>("language");

    QTest::newRow("as written") << Language::AsWritten;
    QTest::newRow("English") << Language::English;
    QTest::newRow("Chinese") << Language::Chinese;
}

void speak(Language language)
{
    installLanguage(*QCoreApplication::instance(), language);
}

void fallSilent()
{
    speak(Language::AsWritten);
    qDeleteAll(QCoreApplication::instance()->findChildren<QTranslator *>());
}

QString textOf(const QWidget *widget)
{
    const char *property = "text";
    if (widget->inherits("QGroupBox")) {
        property = "title";
    } else if (widget->inherits("QComboBox")) {
        property = "currentText";
    }
    return widget->property(property).toString();
}

QList<QWidget *> shown(const QWidget *window)
{
    QList<QWidget *> shown;
    const QList<QWidget *> widgets = window->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        if (isOfAKind(widget) && widget->isVisible() && !textOf(widget).trimmed().isEmpty()) {
            shown.append(widget);
        }
    }
    return shown;
}

QStringList clipped(const QWidget *window, const QStringList &elided)
{
    QStringList found;
    const QList<QWidget *> widgets = shown(window);
    for (const QWidget *widget : widgets) {
        const QSize needed = neededBy(widget);
        const QRect place(widget->mapTo(window, QPoint()), widget->size());
        const bool isElided = elided.contains(widget->objectName());
        if ((!isElided && (widget->width() < needed.width() || widget->height() < needed.height())) ||
            !window->rect().contains(place)) {
            found.append(QStringLiteral("%1 \"%2\": %3 x %4 for %5 x %6")
                             .arg(widget->objectName(), textOf(widget))
                             .arg(widget->width())
                             .arg(widget->height())
                             .arg(needed.width())
                             .arg(needed.height()));
        }
    }
    return found;
}

QStringList foreign(const QStringList &texts, Language language, const QStringList &names)
{
    static const QRegularExpression chinese(QStringLiteral("\\p{Han}"));
    QStringList found;
    for (const QString &text : texts) {
        const bool isChinese = chinese.match(text).hasMatch();
        if (isChinese != (language == Language::Chinese) && !names.contains(text)) {
            found.append(text);
        }
    }
    return found;
}
} // namespace windowTexts
