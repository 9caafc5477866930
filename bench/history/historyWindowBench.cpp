// The window of the history over a store: historyWindowBench STORE
// Prints as JSON how many milliseconds it takes until the first runs are painted, for how long the window was away at
// most while somebody scrolled and typed, with each tab beside the table, and how many runs there were to scroll
// through.

#include "historyui/window/HistoryWindow.h"
#include "probe/Heartbeat.h"
#include "probe/report.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QTabWidget>
#include <random>
#include <vector>

namespace {
constexpr double nsPerMs = 1e6;
constexpr int settleMs = 1000; // until what belongs to a tab is there

/// Calls `painted` when the table has painted its first rows.
class PaintWatch final : public QObject
{
public:
    PaintWatch(QTableView *table, std::function<void()> painted)
        : QObject(table), m_table(table), m_painted(std::move(painted))
    {
        table->viewport()->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && m_table->model()->rowCount() > 0) {
            watched->removeEventFilter(this);
            QTimer::singleShot(0, this, [this] { m_painted(); });
        }
        return false;
    }

private:
    QTableView *const m_table;
    const std::function<void()> m_painted;
};

/// Somebody at the keyboard and at the scroll bar: a step every few milliseconds.
class Person final : public QObject
{
public:
    explicit Person(const HistoryWindow &window)
        : m_table(window.findChild<QTableView *>(QStringLiteral("tvRuns"))),
          m_mac(window.findChild<QLineEdit *>(QStringLiteral("edMac"))),
          m_serial(window.findChild<QLineEdit *>(QStringLiteral("edSerial"))),
          m_tabs(window.findChild<QTabWidget *>(QStringLiteral("tabs")))
    {
    }

    bool isReady() const { return m_table && m_mac && m_serial && m_tabs; }
    QTableView *table() const { return m_table; }

    void choose(int tab) { m_tabs->setCurrentIndex(tab); }

    /// `done` is called when everything has been scrolled through and typed.
    void begin(std::function<void()> done)
    {
        m_done = std::move(done);
        plan();
        m_next = 0;
        m_timer.callOnTimeout(this, &Person::step);
        m_timer.start(stepMs);
    }

    int tabs() const { return m_tabs->count(); }

private:
    static constexpr int stepMs = 40;
    static constexpr int pages = 60;
    static constexpr int pulls = 60;

    void plan()
    {
        m_steps.clear();
        for (int i = 0; i < pages; ++i) {
            m_steps.emplace_back([this] { press(m_table, Qt::Key_PageDown); });
        }
        for (int i = 0; i < pulls; ++i) {
            m_steps.emplace_back([this] {
                QScrollBar *bar = m_table->verticalScrollBar();
                bar->setValue(std::uniform_int_distribution<int>(0, std::max(0, bar->maximum()))(m_chance));
            });
        }
        m_steps.emplace_back([this] { press(m_table, Qt::Key_End); });
        m_steps.emplace_back([this] { press(m_table, Qt::Key_Home); });
        type(m_mac, QStringLiteral("60:60:1F:0A:5F"));
        type(m_serial, QStringLiteral("KC0012"));
    }

    void type(QLineEdit *field, const QString &text)
    {
        for (const QChar letter : text) {
            m_steps.emplace_back([field, letter] { press(field, Qt::Key_unknown, letter); });
        }
        for (int i = 0; i < text.size(); ++i) {
            m_steps.emplace_back([field] { press(field, Qt::Key_Backspace); });
        }
    }

    static void press(QWidget *widget, Qt::Key key, const QString &text = {})
    {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QCoreApplication::postEvent(widget, new QKeyEvent(type, key, Qt::NoModifier, text));
        }
    }

    void step()
    {
        if (m_next < m_steps.size()) {
            m_steps[m_next++]();
            return;
        }
        m_timer.stop();
        m_timer.disconnect(this);
        m_done();
    }

    QTableView *const m_table;
    QLineEdit *const m_mac;
    QLineEdit *const m_serial;
    QTabWidget *const m_tabs;
    std::function<void()> m_done;
    std::vector<std::function<void()>> m_steps;
    std::size_t m_next = 0;
    std::mt19937 m_chance{1};
    QTimer m_timer;
};
} // namespace

int main(int argc, char *argv[])
{
    const std::int64_t start = monotonicNs();
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 2) {
        std::fputs("historyWindowBench STORE\n", stderr);
        return EXIT_FAILURE;
    }
    HistoryWindow window(StoreAddress::file(arguments.at(1)), {});
    Person person(window);
    if (!person.isReady()) {
        std::fputs("historyWindowBench: the window has other names\n", stderr);
        return EXIT_FAILURE;
    }
    Heartbeat heartbeat;
    int mostRows = 0;
    QObject::connect(person.table()->model(), &QAbstractItemModel::rowsInserted, &person,
                     [&] { mostRows = std::max(mostRows, person.table()->model()->rowCount()); });
    const auto tell = [](const char *what, int tab, double value) {
        std::printf(R"("%s%d": %.3f, )", what, tab, value);
    };
    const auto ms = [](std::int64_t ns) { return static_cast<double>(ns) / nsPerMs; };
    std::function<void(int)> work = [&](int tab) {
        if (tab == person.tabs()) {
            std::printf("\"rows\": %d}\n", mostRows);
            QApplication::quit();
            return;
        }
        heartbeat.begin();
        person.choose(tab);
        QTimer::singleShot(settleMs, &person, [&, tab] {
            tell("choice", tab, ms(heartbeat.end().ns));
            heartbeat.begin();
            person.begin([&, tab] {
                const Heartbeat::Absence longest = heartbeat.end();
                tell("stall", tab, ms(longest.ns));
                tell("processor", tab, ms(longest.processorNs));
                work(tab + 1);
            });
        });
    };
    new PaintWatch(person.table(), [&] {
        std::printf(R"({"open": %.3f, )", ms(monotonicNs() - start));
        mostRows = person.table()->model()->rowCount();
        work(0);
    });
    window.show();
    return QApplication::exec();
}
