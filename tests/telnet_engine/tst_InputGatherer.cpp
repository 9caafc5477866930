#include "telnet/engine/InputGatherer.h"

#include <QtTest>

/// Pieces of a connection's input: what is handed on, and when.
class tst_InputGatherer : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void withoutUrgentTextsEveryReadIsAPiece();
    void urgentTextIsHandedOnAtOnce();
    void urgentTextInTwoReadsIsSeen();
    void quietInputIsHandedOnSoon();
    void longReplyComesInGrowingPieces();
    void flushStartsANewReply();
    void clearDropsWhatIsThere();

private:
    QByteArrayList m_pieces;
    std::unique_ptr<InputGatherer> m_gatherer;
};

void tst_InputGatherer::init()
{
    m_pieces.clear();
    m_gatherer = std::make_unique<InputGatherer>([this](const QByteArray &piece) { m_pieces.append(piece); });
    if (qstrcmp(QTest::currentTestFunction(), "withoutUrgentTextsEveryReadIsAPiece") != 0) {
        m_gatherer->setUrgentTexts({"~ # ", "login: "});
    }
}

void tst_InputGatherer::withoutUrgentTextsEveryReadIsAPiece()
{
    m_gatherer->add("one");
    m_gatherer->add("two");
    QCOMPARE(m_pieces, QByteArrayList({"one", "two"}));
}

void tst_InputGatherer::urgentTextIsHandedOnAtOnce()
{
    m_gatherer->add("uname\r\n");
    m_gatherer->add("Linux\r\n~ # ");
    m_gatherer->add("(none) login: ");
    QCOMPARE(m_pieces, QByteArrayList({"uname\r\nLinux\r\n~ # ", "(none) login: "}));
}

void tst_InputGatherer::urgentTextInTwoReadsIsSeen()
{
    m_gatherer->add("Linux\r\n~");
    m_gatherer->add(" # ");
    QCOMPARE(m_pieces, QByteArrayList({"Linux\r\n~ # "}));
}

void tst_InputGatherer::quietInputIsHandedOnSoon()
{
    m_gatherer->add("first ");
    m_gatherer->add("second");
    QCOMPARE(m_pieces, QByteArrayList());
    QTRY_COMPARE(m_pieces, QByteArrayList({"first second"}));
}

void tst_InputGatherer::longReplyComesInGrowingPieces()
{
    const QByteArray read(4096, 'x');
    constexpr int reads = 1024; // 4 MiB
    for (int count = 0; count < reads; ++count) {
        m_gatherer->add(read);
    }
    m_gatherer->flush();
    QList<int> sizes;
    for (const QByteArray &piece : std::as_const(m_pieces)) {
        sizes.append(piece.size());
    }
    QCOMPARE(sizes, QList<int>({65536, 65536, 131072, 262144, 524288, 1048576, 2097152}));
}

void tst_InputGatherer::flushStartsANewReply()
{
    m_gatherer->add(QByteArray(200000, 'x'));
    m_gatherer->add("rest");
    m_gatherer->flush();
    m_gatherer->add(QByteArray(65536, 'y'));
    QCOMPARE(m_pieces.size(), 3);
    QCOMPARE(m_pieces.at(1), QByteArray("rest"));
    QCOMPARE(m_pieces.at(2).size(), 65536);
}

void tst_InputGatherer::clearDropsWhatIsThere()
{
    m_gatherer->add("of the connection before");
    m_gatherer->clear();
    m_gatherer->add("~ # ");
    QCOMPARE(m_pieces, QByteArrayList({"~ # "}));
}

QTEST_GUILESS_MAIN(tst_InputGatherer)
#include "tst_InputGatherer.moc"
