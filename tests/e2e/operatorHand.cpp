#include <cstdio>
#include <cstring>
#include <QAbstractButton>
#include <QApplication>
#include <QGenericPlugin>
#include <QLabel>
#include <QMessageBox>
#include <QSocketNotifier>
#include <QTimer>
#include <QVector>
#include <unistd.h>

// Stands in for the operator inside the real station, which Qt makes load it: offscreen there is nobody to see the
// window and to click. It obeys the lines that come in by standard input, and tells by standard output what there is to
// be seen:
//   click NAME   clicks the button of that object name
//   read NAME    tells "NAME: " and the label's text
//   close        closes the dialog that is open
// "dialog CLASS: TEXT" is told without being asked whenever a dialog has opened, "no dialog" when it has gone.

namespace {
constexpr int lookEveryMs = 10;

template <class Widget>
Widget *named(const QString &name)
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        if (widget->objectName() == name) {
            return qobject_cast<Widget *>(widget);
        }
    }
    return nullptr;
}

void tell(const QString &text)
{
    std::printf("%s\n", qUtf8Printable(text));
    std::fflush(stdout);
}

class Hand : public QObject
{
public:
    Hand()
    {
        connect(&m_input, &QSocketNotifier::activated, this, [this] { readOrders(); });
        connect(&m_look, &QTimer::timeout, this, [this] { look(); });
        m_look.start(lookEveryMs);
    }

private:
    void readOrders()
    {
        char bytes[256];
        const ssize_t count = ::read(STDIN_FILENO, bytes, sizeof bytes);
        m_input.setEnabled(count > 0);
        m_orders.append(bytes, static_cast<int>(std::max<ssize_t>(count, 0)));
        for (int end = static_cast<int>(m_orders.indexOf('\n')); end >= 0;
             end = static_cast<int>(m_orders.indexOf('\n'))) {
            const QString order = QString::fromUtf8(m_orders.left(end));
            m_orders.remove(0, end + 1);
            obey(order.section(QLatin1Char(' '), 0, 0), order.section(QLatin1Char(' '), 1));
        }
    }

    static void obey(const QString &deed, const QString &name)
    {
        auto *button = named<QAbstractButton>(name);
        const auto *label = named<QLabel>(name);
        if (deed == QLatin1String("click") && button != nullptr) {
            button->click();
        } else if (deed == QLatin1String("read") && label != nullptr) {
            tell(QStringLiteral("%1: %2").arg(name, label->text()));
        } else if (deed == QLatin1String("close") && QApplication::activeModalWidget() != nullptr) {
            QApplication::activeModalWidget()->close();
        } else {
            tell(QStringLiteral("cannot %1 %2").arg(deed, name));
        }
    }

    void look()
    {
        const QWidget *dialog = QApplication::activeModalWidget();
        if (dialog == m_seen) {
            return;
        }
        m_seen = dialog;
        const auto *box = qobject_cast<const QMessageBox *>(dialog);
        tell(dialog == nullptr ? QStringLiteral("no dialog")
                               : QStringLiteral("dialog %1: %2")
                                     .arg(QLatin1String(dialog->metaObject()->className()),
                                          box != nullptr ? box->text() : QString()));
    }

    QSocketNotifier m_input{STDIN_FILENO, QSocketNotifier::Read};
    QTimer m_look;
    QByteArray m_orders;
    const QWidget *m_seen = nullptr;
};

class HandPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "operatorHand.json")

public:
    QObject *create(const QString &, const QString &) override { return new Hand; }
};
} // namespace

#include "operatorHand.moc"
