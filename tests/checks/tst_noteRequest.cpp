#include "detector/checks/noteRequest.h"
#include "detector/store/requestTally.h"

#include <QTest>

namespace {
using Kind = RequestEnd::Kind;
}
Q_DECLARE_METATYPE(Kind)

class tst_noteRequest : public QObject
{
    Q_OBJECT

private slots:
    void oneRequest_data();
    void oneRequest();
    void shellCall_data();
    void shellCall();
    void firstUnansweredRequestStays_data();
    void firstUnansweredRequestStays();
};

void tst_noteRequest::oneRequest_data()
{
    QTest::addColumn<int>("result");
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<int>("code");

    QTest::newRow("answered") << 0 << Kind::Answered << 0;
    QTest::newRow("no reply") << 118 << Kind::NoReply << 0;
    QTest::newRow("reply of the wrong size") << -1 << Kind::WrongSize << 0;
    QTest::newRow("refused") << 77 << Kind::Refused << 77;
    QTest::newRow("refused with the highest code") << 255 << Kind::Refused << 255;
}

void tst_noteRequest::oneRequest()
{
    QFETCH(const int, result);
    CheckItemLog item;
    QVERIFY(!item.request);
    const RequestTally before = requestTally();
    QCOMPARE(noteRequest(item, result), result);
    QTEST(item.request->kind, "kind");
    QTEST(item.request->code, "code");
    QCOMPARE((requestTally() - before).unanswered, 0); // the client that sent it has counted it
}

void tst_noteRequest::shellCall_data()
{
    QTest::addColumn<int>("result");
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<int>("unanswered");

    QTest::newRow("the prompt came back") << 0 << Kind::Answered << 0;
    QTest::newRow("it did not") << -1 << Kind::NoReply << 1;
}

void tst_noteRequest::shellCall()
{
    QFETCH(const int, result);
    CheckItemLog item;
    const RequestTally before = requestTally();
    QCOMPARE(noteShellCall(item, result), result);
    QTEST(item.request->kind, "kind");
    QTEST((requestTally() - before).unanswered, "unanswered");
}

void tst_noteRequest::firstUnansweredRequestStays_data()
{
    QTest::addColumn<QList<int>>("results");
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<int>("code");

    QTest::newRow("all answered") << QList<int>{0, 0} << Kind::Answered << 0;
    QTest::newRow("the last one refused") << QList<int>{0, 5} << Kind::Refused << 5;
    QTest::newRow("no reply, then answered") << QList<int>{118, 0} << Kind::NoReply << 0;
    QTest::newRow("refused twice") << QList<int>{5, 6} << Kind::Refused << 5;
}

void tst_noteRequest::firstUnansweredRequestStays()
{
    QFETCH(const QList<int>, results);
    CheckItemLog item;
    for (const int result : results) {
        noteRequest(item, result);
    }
    QTEST(item.request->kind, "kind");
    QTEST(item.request->code, "code");
}

QTEST_GUILESS_MAIN(tst_noteRequest)
#include "tst_noteRequest.moc"
