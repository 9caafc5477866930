#include "detector/store/requestTally.h"

#include <QTest>
#include <thread>

class tst_requestTally : public QObject
{
    Q_OBJECT

private slots:
    void differenceCountsWhatWasNotedBetween();
    void threadsCountForThemselves();
};

void tst_requestTally::differenceCountsWhatWasNotedBetween()
{
    noteUnansweredRequest();
    const RequestTally before = requestTally();
    noteUnansweredRequest();
    noteUnansweredRequest();
    noteResentRequest();
    const RequestTally difference = requestTally() - before;
    QCOMPARE(difference.unanswered, 2);
    QCOMPARE(difference.resent, 1);
}

void tst_requestTally::threadsCountForThemselves()
{
    const RequestTally before = requestTally();
    RequestTally other;
    std::thread supervisor([&other] {
        noteUnansweredRequest();
        noteResentRequest();
        other = requestTally();
    });
    supervisor.join();
    QCOMPARE(other.unanswered, 1);
    QCOMPARE(other.resent, 1);
    QCOMPARE((requestTally() - before).unanswered, 0);
    QCOMPARE((requestTally() - before).resent, 0);
}

QTEST_GUILESS_MAIN(tst_requestTally)
#include "tst_requestTally.moc"
