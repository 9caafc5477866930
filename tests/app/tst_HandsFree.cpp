#include "app/station/HandsFree.h"

#include <QTest>

/// A station that works by itself, told in words what happens: "up" and "down" for the link, "A" or "-" for the MAC
/// address that is read, "begin", "end A" for a run of camera A, "lost A" for one that lost it.
class tst_HandsFree : public QObject
{
    Q_OBJECT

private slots:
    void starts_data();
    void starts();
};

void tst_HandsFree::starts_data()
{
    QTest::addColumn<QString>("events");
    QTest::addColumn<QString>("started"); // the camera of each start

    QTest::newRow("nothing happens") << ""
                                     << "";
    QTest::newRow("a link without a MAC address") << "up, -"
                                                  << "";
    QTest::newRow("a MAC address without a link") << "A"
                                                  << "";
    QTest::newRow("a camera") << "up, A"
                              << "A";
    QTest::newRow("the address first") << "A, up"
                                       << "A";
    QTest::newRow("the address is told again") << "up, A, A, begin, A, end A, A"
                                               << "A";
    QTest::newRow("once, while it stays") << "up, A, begin, end A, up, A"
                                          << "A";
    QTest::newRow("its address cannot be read for a while") << "up, A, begin, end A, -, A"
                                                            << "A";
    QTest::newRow("it has been away") << "up, A, begin, end A, -, down, up, A"
                                      << "A A";
    QTest::newRow("another one within a second") << "up, A, begin, end A, B"
                                                 << "A B";
    QTest::newRow("another one after a while") << "up, A, begin, end A, down, up, B"
                                               << "A B";
    QTest::newRow("and the first one again") << "up, A, begin, end A, B, begin, end B, A"
                                             << "A B A";
    QTest::newRow("another one during the run") << "up, A, begin, B, lost A"
                                                << "A B";
    QTest::newRow("another one during the run, and back") << "up, A, begin, B, A, lost A"
                                                          << "A A";
    QTest::newRow("lost during the run, and back") << "up, A, begin, down, up, A, lost A"
                                                   << "A A";
    QTest::newRow("lost during the run, back behind it") << "up, A, begin, down, lost A, up, A"
                                                         << "A A";
    QTest::newRow("gone before its end is told") << "up, A, begin, down, end A, up, A"
                                                 << "A A";
    QTest::newRow("another one before its end is told") << "up, A, begin, B, end A"
                                                        << "A B";
    QTest::newRow("another one took the run over") << "up, A, B, begin, end B"
                                                   << "A B";
    QTest::newRow("a start that comes to nothing") << "up, A, A"
                                                   << "A";
    QTest::newRow("the next one after such a start") << "up, A, B"
                                                     << "A B";
    QTest::newRow("started by hand before the address was there") << "up, begin, A, end A"
                                                                  << "";
    QTest::newRow("started by hand again") << "up, A, begin, end A, begin, end A"
                                           << "A";
    QTest::newRow("three in a row") << "up, A, begin, end A, B, begin, end B, C, begin, end C"
                                    << "A B C";
}

void tst_HandsFree::starts()
{
    QFETCH(const QString, events);
    QStringList started;
    QString present;
    HandsFree handsFree([&] { started.append(present); });
    const QStringList list = events.split(QStringLiteral(", "), Qt::SkipEmptyParts);
    for (const QString &event : list) {
        if (event == QLatin1String("up") || event == QLatin1String("down")) {
            handsFree.linkIs(event == QLatin1String("up"));
        } else if (event == QLatin1String("begin")) {
            handsFree.runBegins();
        } else if (event.contains(QLatin1Char(' '))) {
            handsFree.runEnds(event.right(1), event.startsWith(QLatin1String("end")));
        } else {
            present = event == QLatin1String("-") ? QString() : event;
            handsFree.cameraIs(present);
        }
    }
    QTEST(started.join(QLatin1Char(' ')), "started");
}

QTEST_APPLESS_MAIN(tst_HandsFree)
#include "tst_HandsFree.moc"
