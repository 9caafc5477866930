#include "detector/checks/checkComponent.h"
#include "detector/store/KestDetectorFace.h"
#include "support/CheckTest.h"

#include <array>
#include <QTest>

namespace {
void passes(CheckItemLog &item)
{
    item.result = 0;
    item.message = QStringLiteral("OK\n");
}

/// As an item does whose request is given up.
void failsAsTheProgramCloses(CheckItemLog &item)
{
    KestDetectorFace::Get()->requestStop();
    item.result = 1;
    item.message = QStringLiteral("NG\n");
}

constexpr std::array table = {
    CheckItem{0, "good", passes},
    CheckItem{1, "given up", failsAsTheProgramCloses},
};

QString fakeComponent(int *verdict, const QList<int> &items)
{
    return checkComponent(2, 1, table, verdict, items);
}
} // namespace

/// A component in whose last item the program begins to close; a program of its own, since a stop request cannot be
/// taken back.
class tst_cutShort : public QObject
{
    Q_OBJECT

private slots:
    void itemThatHadNoTimeIsNotRecorded();
};

void tst_cutShort::itemThatHadNoTimeIsNotRecorded()
{
    const Outcome outcome = runComponent(fakeComponent, {0, 1});
    QCOMPARE(outcome.verdict, 3);
    QCOMPARE(outcome.text, QStringLiteral("OK\n"));
    const QList<checkLog> logs = KestDetectorFace::Get()->checkLogList();
    QCOMPARE(logs.size(), 1);
    QCOMPARE(logs.constFirst().itemLogs.size(), 1);
    QCOMPARE(logs.constFirst().itemLogs.constFirst().message, QStringLiteral("OK\n"));
}

QTEST_GUILESS_MAIN(tst_cutShort)
#include "tst_cutShort.moc"
