#include "support/ScriptedSocket.h"
#include "telnet/engine/KestTelnet.h"
#include "telnet/engine/KestTelnetAuth.h"
#include "telnet/engine/KestTelnetAuthNull.h"
#include "telnet/engine/KestTelnetPrivate.h"

#include <array>
#include <functional>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QtTest>

using Pieces = QByteArrayList;

namespace {
/// IAC WILL AUTHENTICATION, IAC DO SUPPRESS-GO-AHEAD, IAC WILL LINEMODE, IAC DO STATUS
constexpr char opening[] = "fffb25fffd03fffb22fffd05";
constexpr char dontAuthentication[] = "fffe25";
constexpr quint32 seed = 20240301;

/// An engine in a session that has just begun, and all that it reports in one list.
struct Session
{
    KestTelnet telnet;
    ScriptedSocket *socket = new ScriptedSocket; // the engine takes it over
    QStringList events;

    Session()
    {
        QObject::connect(&telnet, &KestTelnet::message, &telnet, [this](const QString &text) { events << text; });
        QObject::connect(&telnet, &KestTelnet::loginRequired, &telnet, report(QStringLiteral("<loginRequired>")));
        QObject::connect(&telnet, &KestTelnet::loginFailed, &telnet, report(QStringLiteral("<loginFailed>")));
        QObject::connect(&telnet, &KestTelnet::loggedIn, &telnet, report(QStringLiteral("<loggedIn>")));
        QObject::connect(&telnet, &KestTelnet::loggedOut, &telnet, report(QStringLiteral("<loggedOut>")));
        telnet.setSocket(socket);
    }

    std::function<void()> report(const QString &event)
    {
        return [this, event] { events << event; };
    }

    void clearPatterns()
    {
        telnet.setLoginPattern(TextPattern());
        telnet.setPasswordPattern(TextPattern());
    }

    /// The server says `hex`; what the engine writes in answer, as hex digits.
    QByteArray answer(const QByteArray &hex)
    {
        socket->takeWritten();
        socket->deliver(QByteArray::fromHex(hex));
        return socket->takeWritten().toHex();
    }

    void settleAuthentication() { answer(dontAuthentication); }
};

/// A method that takes two steps, the second of which ends in `outcome`.
class TwoStepAuth final : public KestTelnetAuth
{
public:
    explicit TwoStepAuth(AuthState outcome) : m_outcome(outcome) {}

    QByteArray authStep(const QByteArray &data) override
    {
        steps << data.toHex();
        if (steps.size() == 2) {
            authState = m_outcome;
        }
        return steps.size() == 1 ? QByteArrayLiteral("step") : QByteArray();
    }

    QByteArrayList steps;

private:
    AuthState m_outcome;
};

/// An engine whose parts can be looked at, in a session that has just begun.
struct OpenSession
{
    KestTelnet telnet;
    KestTelnetPrivate engine{&telnet};
    ScriptedSocket *socket = new ScriptedSocket; // the engine takes it over

    OpenSession()
    {
        engine.replaceSocket(socket);
        socket->takeWritten();
    }
};
} // namespace

class tst_KestTelnet : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void sessionOpensWithFourOptions();
    void fieldsStartAsDocumented();
    void negotiation_data();
    void negotiation();
    void doTerminalTypeSetsItsOptionMode();
    void wontLogoutEndsSession();
    void dontAuthenticationLogsInWithoutPatterns();
    void subNegotiation_data();
    void subNegotiation();
    void unknownSubOptionWarns();
    void splitInputIsHeldBack_data();
    void splitInputIsHeldBack();
    void commandsBesideGatheredText_data();
    void commandsBesideGatheredText();
    void gatheredTextSpansNoCommand_data();
    void gatheredTextSpansNoCommand();
    void gatheredInputOfPastSessionIsDropped();
    void randomCommandsDoNotDependOnSplitting();
    void text_data();
    void text();
    void loneCommandStallsAllThatFollows_data();
    void loneCommandStallsAllThatFollows();
    void newSocketEndsStall();
    void heldBackFloodStaysCheap_data();
    void heldBackFloodStaysCheap();
    void splitCharacterIsNotGarbled_data();
    void splitCharacterIsNotGarbled();
    void textIsSentInLocalEncoding();
    void controlFunctions_data();
    void controlFunctions();
    void logoutAsksServer();
    void windowSize();
    void windowSizeIsOfferedInNextSession();
    void promptsAreIgnoredBeforeAuthentication();
    void loginDialogue();
    void firstPromptsReachOwnerWithoutLogin();
    void secondLoginPromptAsksOwner();
    void loginForgetsPassword();
    void promptPatternLogsIn();
    void formsOfPatterns_data();
    void formsOfPatterns();
    void nullAuthentication();
    void nullAuthenticationWithoutPatterns();
    void registeredAuthentication_data();
    void registeredAuthentication();
    void truncatedAuthenticationIsIgnored_data();
    void truncatedAuthenticationIsIgnored();
    void nullMethodAnswersSendOnly_data();
    void nullMethodAnswersSendOnly();
    void closeReportsOnce();
    void sendsAreDroppedWithoutConnection();
    void nestedInputKeepsItsOrder();
    void inputOfPastSessionIsDropped();
};

void tst_KestTelnet::initTestCase()
{
    // The locale of the test run must not matter.
    takeLocaleForUtf8();
}

void tst_KestTelnet::sessionOpensWithFourOptions()
{
    Session session;
    QCOMPARE(session.socket->takeWritten().toHex(), QByteArray(opening));
    QCOMPARE(session.events, QStringList());
    QCOMPARE(session.telnet.socket(), session.socket);
}

void tst_KestTelnet::fieldsStartAsDocumented()
{
    KestTelnet telnet;
    const KestTelnetPrivate engine(&telnet);
    QVERIFY(engine.optionModes.isEmpty());
    QVERIFY(engine.pendingSent.isEmpty());
    QVERIFY(engine.pendingInput.isEmpty());
    QCOMPARE(engine.socket->parent(), &engine);
    QVERIFY(!engine.exceptionNotifier);
    QCOMPARE(engine.windowDims, QSize(-1, -1));
    QVERIFY(!engine.isConnected);
    QVERIFY(!engine.promptDone);
    QVERIFY(!engine.loginSent);
    QVERIFY(!engine.passwordSent);
    QVERIFY(engine.firstPrompt);
    QVERIFY(engine.authMethods.isEmpty());
    QVERIFY(engine.activeAuth == nullptr);
    QVERIFY(!engine.authSettled);
    QCOMPARE(engine.loginPattern.pattern(), QStringLiteral("ogin:\\s*$"));
    QCOMPARE(engine.passwordPattern.pattern(), QStringLiteral("assword:\\s*$"));
    QVERIFY(engine.promptPattern.isEmpty());
    QVERIFY(engine.loginName.isEmpty());
    QVERIFY(engine.loginPassword.isEmpty());
}

void tst_KestTelnet::negotiation_data()
{
    QTest::addColumn<QByteArray>("server");
    QTest::addColumn<QByteArray>("client");
    const auto row = [](const char *name, const char *server, const char *client) {
        QTest::newRow(name) << QByteArray(server) << QByteArray(client);
    };
    row("WILL ECHO is refused", "fffb01", "fffe01");
    row("WONT ECHO is confirmed", "fffc01", "fffe01");
    row("DO ECHO is refused", "fffd01", "fffc01");
    row("DO TERMINAL-TYPE is accepted", "fffd18", "fffb18");
    row("WILL TERMINAL-TYPE is accepted", "fffb18", "fffd18");
    row("DO LOGOUT is accepted", "fffd12", "fffb12");
    row("DO SUPPRESS-GO-AHEAD is accepted", "fffd03", "fffb03");
    row("DO STATUS is accepted", "fffd05", "fffb05");
    row("DO NAWS is refused without a window size", "fffd1f", "fffc1f");
    row("WILL NAWS is refused without a window size", "fffb1f", "fffe1f");
    row("DO answers our WILL AUTHENTICATION: no second WILL", "fffd25", "");
    row("DO answers our WILL LINEMODE: no second WILL", "fffd22", "");
    row("WILL answers our DO SUPPRESS-GO-AHEAD: no second DO", "fffb03", "");
    row("WILL answers our DO STATUS: no second DO", "fffb05", "");
    row("the second WILL SUPPRESS-GO-AHEAD is answered", "fffb03fffb03", "fffd03");
    row("DO of an enabled option is not answered", "fffd18fffd18", "fffb18");
    row("DONT of an option that was never enabled is not answered", "fffe18", "");
    row("DONT AUTHENTICATION is not answered", "fffe25", "");
    row("DONT of an enabled option is confirmed", "fffd18fffe18", "fffb18fffc18");
    row("the second DONT is not answered", "fffd18fffe18fffe18", "fffb18fffc18");
    row("a refused DO counts as the server's wish: its repetition is not answered", "fffd01fffd01", "fffc01");
    row("option 255", "fffdff", "fffcff");
    row("data marks are skipped", "f2fffbf2fff2f2fffd18", "fffef2fffb18");
}

void tst_KestTelnet::negotiation()
{
    QFETCH(QByteArray, server);
    QFETCH(QByteArray, client);
    Session session;
    QCOMPARE(session.answer(server), client);
    QCOMPARE(session.events, QStringList());
}

void tst_KestTelnet::doTerminalTypeSetsItsOptionMode()
{
    OpenSession session;
    session.socket->deliver("\xFF\xFD\x18");
    QCOMPARE(session.engine.optionModes.value(24), true);
    session.socket->deliver("\xFF\xFE\x18");
    QCOMPARE(session.engine.optionModes.value(24, true), false);
}

void tst_KestTelnet::wontLogoutEndsSession()
{
    Session session;
    QCOMPARE(session.answer("fffc12"), QByteArray());
    QCOMPARE(session.events, QStringList{QStringLiteral("<loggedOut>")});
    QVERIFY(!session.socket->isOpen());
}

void tst_KestTelnet::dontAuthenticationLogsInWithoutPatterns()
{
    Session session;
    session.clearPatterns();
    session.answer("fffe25");
    QCOMPARE(session.events, QStringList{QStringLiteral("<loggedIn>")});
}

void tst_KestTelnet::subNegotiation_data()
{
    QTest::addColumn<QByteArray>("server");
    QTest::addColumn<QByteArray>("client");
    const auto row = [](const char *name, const char *server, const char *client) {
        QTest::newRow(name) << QByteArray(server) << QByteArray(client);
    };
    row("TERMINAL-TYPE SEND", "fffa1801fff0", "fffa1800554e4b4e4f574efff0");
    row("TERMINAL-TYPE SEND twice", "fffa1801fff0fffa1801fff0", "fffa1800554e4b4e4f574efff0fffa1800554e4b4e4f574efff0");
    row("TERMINAL-TYPE IS", "fffa1800fff0", "");
    row("TERMINAL-TYPE without a code", "fffa18fff0", "");
    row("NAWS is ignored", "fffa1f00500018fff0", "");
    row("AUTHENTICATION SEND", "fffa25010203fff0", "fffa25000000fff0");
    row("a command behind it", "fffa1f00fff0fffd18", "fffb18");
    row("the end mark does not begin with the option", "fffafff0fff0fffd18", "fffb18");
}

void tst_KestTelnet::subNegotiation()
{
    QFETCH(QByteArray, server);
    QFETCH(QByteArray, client);
    if (server.startsWith("fffaff")) {
        QTest::ignoreMessage(QtWarningMsg, "KestTelnetPrivate::parseIAC: unknown suboption 255");
    }
    Session session;
    QCOMPARE(session.answer(server), client);
    QCOMPARE(session.events, QStringList());
}

void tst_KestTelnet::unknownSubOptionWarns()
{
    Session session;
    QTest::ignoreMessage(QtWarningMsg, "KestTelnetPrivate::parseIAC: unknown suboption 200");
    QCOMPARE(session.answer("fffac80102fff0fffd18"), QByteArray("fffb18"));
}

void tst_KestTelnet::splitInputIsHeldBack_data()
{
    QTest::addColumn<Pieces>("pieces");
    const QByteArray input = QByteArray::fromHex("fffd18fffa1801fff0fff2fffb01fffa25010203fff0fffa1801fff0");
    for (int position = 1; position < input.size(); ++position) {
        QTest::addRow("split at byte %d", position) << Pieces{input.left(position), input.mid(position)};
    }
    Pieces single;
    for (const char byte : input) {
        single << QByteArray(1, byte);
    }
    QTest::newRow("byte by byte") << single;
}

void tst_KestTelnet::splitInputIsHeldBack()
{
    QFETCH(Pieces, pieces);
    Session session;
    session.socket->takeWritten();
    for (const QByteArray &piece : qAsConst(pieces)) {
        session.socket->deliver(piece);
    }
    QCOMPARE(session.socket->takeWritten().toHex(),
             QByteArray("fffb18fffa1800554e4b4e4f574efff0fffe01fffa25000000fff0fffa1800554e4b4e4f574efff0"));
    QCOMPARE(session.events, QStringList());
}

void tst_KestTelnet::commandsBesideGatheredText_data()
{
    QTest::addColumn<Pieces>("reads");
    QTest::addColumn<QByteArray>("answer");

    const QByteArray before("banner\r\n");
    const QByteArray behind("more\r\n");
    struct Command
    {
        const char *name;
        QByteArray bytes;
        QByteArray answer;
    };
    const std::array commands = {
        Command{"negotiation", QByteArray::fromHex("fffd18"), "fffb18"},
        Command{"negotiation of option 255", QByteArray::fromHex("fffdff"), "fffcff"},
        Command{"sub-negotiation", QByteArray::fromHex("fffa1801fff0"), "fffa1800554e4b4e4f574efff0"},
        Command{"data mark and negotiation", QByteArray::fromHex("fff2fffb01"), "fffe01"},
    };
    for (const auto &[name, bytes, answer] : commands) {
        for (int split = 0; split < bytes.size(); ++split) {
            const Pieces apart = split == 0 ? Pieces{bytes} : Pieces{bytes.left(split), bytes.mid(split)};
            QTest::addRow("%s split at %d, in front of the text", name, split)
                << apart + Pieces{before, behind} << answer;
            QTest::addRow("%s split at %d, between two texts", name, split)
                << Pieces{before} + apart + Pieces{behind} << answer;
            QTest::addRow("%s split at %d, behind the text", name, split) << Pieces{before, behind} + apart << answer;
            Pieces glued = apart;
            glued.last() += behind;
            QTest::addRow("%s split at %d, text in the last read", name, split) << Pieces{before} + glued << answer;
            // Only NUL ends a text within a read.
            glued.first().prepend(before + '\0');
            QTest::addRow("%s split at %d, all texts in its reads", name, split) << glued << answer;
        }
        Pieces single;
        for (const char byte : bytes) {
            single << QByteArray(1, byte);
        }
        QTest::addRow("%s byte by byte", name) << Pieces{before} + single + Pieces{behind} << answer;
    }
}

void tst_KestTelnet::commandsBesideGatheredText()
{
    QFETCH(Pieces, reads);
    QFETCH(QByteArray, answer);
    Session session;
    session.telnet.gatherInput({"~ # "});
    session.socket->takeWritten();
    // All within the time in which texts are gathered: no event is served in between.
    for (const QByteArray &read : qAsConst(reads)) {
        session.socket->deliver(read);
    }
    session.telnet.flushInput();
    QCOMPARE(session.socket->takeWritten().toHex(), answer);
    QCOMPARE(session.events.join(QString()), QStringLiteral("banner\r\nmore\r\n"));
}

void tst_KestTelnet::gatheredTextSpansNoCommand_data()
{
    QTest::addColumn<Pieces>("reads");
    QTest::addColumn<QStringList>("messages");
    const QString a = QStringLiteral("a");
    const QString b = QStringLiteral("b");
    QTest::newRow("text alone") << Pieces{"a", "b"} << QStringList{QStringLiteral("ab")};
    QTest::newRow("negotiation") << Pieces{"a", "\xFF\xFE\x18", "b"} << QStringList{a, b};
    QTest::newRow("half a negotiation") << Pieces{"a", "\xFF", "\xFE\x18", "b"} << QStringList{a, b};
    QTest::newRow("data mark") << Pieces{"a", "\xFF\xF2", "b"} << QStringList{a, b};
    // As if the network had joined them: taken as a command it would end all reading.
    QTest::newRow("byte 255, doubled") << Pieces{"a", "\xFF\xFF", "b"}
                                       << QStringList{QString::fromUtf8("a\uFFFD\uFFFDb")};
}

void tst_KestTelnet::gatheredTextSpansNoCommand()
{
    QFETCH(Pieces, reads);
    QFETCH(QStringList, messages);
    Session session;
    session.telnet.gatherInput({"~ # "});
    for (const QByteArray &read : qAsConst(reads)) {
        session.socket->deliver(read);
    }
    session.telnet.flushInput();
    QCOMPARE(session.events, messages);
}

void tst_KestTelnet::gatheredInputOfPastSessionIsDropped()
{
    Session session;
    session.telnet.gatherInput({"~ # "});
    auto *const next = new ScriptedSocket; // the engine takes it over
    QObject::connect(&session.telnet, &KestTelnet::message, next, [&session, next](const QString &text) {
        if (text == QLatin1String("a")) {
            session.telnet.setSocket(next);
        }
    });
    session.socket->deliver("a");
    session.socket->deliver("\xFF\xFD\x18");
    QCOMPARE(session.events, QStringList{QStringLiteral("a")});
    QCOMPARE(next->takeWritten(), QByteArray());
}

void tst_KestTelnet::randomCommandsDoNotDependOnSplitting()
{
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    const auto code = [&random] { return static_cast<char>(random.bounded(240)); }; // neither IAC nor SE
    for (int round = 0; round < 200; ++round) {
        QByteArray input;
        for (int command = 0; command < 40; ++command) {
            switch (random.bounded(3)) {
            case 0:
                input += '\xFF';
                input += static_cast<char>(random.bounded(251, 255));
                input += static_cast<char>(random.bounded(19, 256)); // not LOGOUT, which ends the session
                break;
            case 1:
                input += QByteArrayLiteral("\xFF\xFA\x18") + code() + code() + QByteArrayLiteral("\xFF\xF0");
                break;
            default:
                input += QByteArrayLiteral("\xFF\xF2\xF2");
            }
        }
        Session whole;
        const QByteArray expected = whole.answer(input.toHex());
        QVERIFY(!expected.isEmpty());

        Session split;
        split.socket->takeWritten();
        for (int position = 0; position < input.size();) {
            const int length = random.bounded(1, 12);
            split.socket->deliver(input.mid(position, length));
            position += length;
        }
        QCOMPARE(split.socket->takeWritten().toHex(), expected);
        QCOMPARE(split.events, QStringList());
    }
}

void tst_KestTelnet::text_data()
{
    QTest::addColumn<Pieces>("pieces");
    QTest::addColumn<QStringList>("messages");
    const auto row = [](const char *name, const Pieces &hex, const QStringList &messages) {
        Pieces pieces;
        for (const QByteArray &piece : hex) {
            pieces << QByteArray::fromHex(piece);
        }
        QTest::newRow(name) << pieces << messages;
    };
    const QString a = QStringLiteral("a");
    const QString b = QStringLiteral("b");
    row("text", {"7e202320"}, {QStringLiteral("~ # ")});
    row("each read is a message", {"61", "62"}, {a, b});
    row("NUL ends a piece", {"610062"}, {a, b});
    row("NULs alone", {"00", "0000"}, {});
    row("text behind a command", {"fffe1861"}, {a});
    row("text behind a data mark", {"f261"}, {a});
    row("data mark within text is text", {"61c3b262"}, {QString::fromUtf8("aòb")});
    row("command behind NUL", {"6100fffe1862"}, {a, b});
    row("line ends are kept", {"610d0a62"}, {QStringLiteral("a\r\nb")});
    row("UTF-8", {"e79bb8e69cba"}, {QString::fromUtf8("相机")});
    row("IAC within text is passed on", {"61fff162"}, {QString::fromUtf8("a\uFFFD\uFFFDb")});
}

void tst_KestTelnet::text()
{
    QFETCH(Pieces, pieces);
    QFETCH(QStringList, messages);
    Session session;
    session.socket->takeWritten();
    for (const QByteArray &piece : qAsConst(pieces)) {
        session.socket->deliver(piece);
    }
    QCOMPARE(session.events, messages);
    QCOMPARE(session.socket->takeWritten(), QByteArray());
}

void tst_KestTelnet::loneCommandStallsAllThatFollows_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::newRow("IAC NOP") << QByteArray("6100fff162");
    QTest::newRow("IAC GA") << QByteArray("6100fff962");
    QTest::newRow("IAC IAC") << QByteArray("6100ffff62");
    QTest::newRow("IAC SE") << QByteArray("6100fff062");
    QTest::newRow("IAC NUL") << QByteArray("6100ff0062");
}

void tst_KestTelnet::loneCommandStallsAllThatFollows()
{
    QFETCH(QByteArray, input);
    Session session;
    QCOMPARE(session.answer(input), QByteArray());
    QCOMPARE(session.answer("63fffd18fff0"), QByteArray());
    QCOMPARE(session.answer("fffa1801fff06400"), QByteArray());
    QCOMPARE(session.events, QStringList{QStringLiteral("a")});
}

void tst_KestTelnet::newSocketEndsStall()
{
    Session session;
    session.answer("fff161");
    session.socket = new ScriptedSocket;
    session.telnet.setSocket(session.socket);
    QCOMPARE(session.answer("62"), QByteArray());
    QCOMPARE(session.events, QStringList{QStringLiteral("b")});
}

void tst_KestTelnet::heldBackFloodStaysCheap_data()
{
    QTest::addColumn<QByteArray>("beginning");
    QTest::addColumn<QByteArray>("piece");
    QTest::newRow("behind IAC NOP") << QByteArray("fff1") << QByteArray(512, 'x');
    QTest::newRow("sub-negotiation without an end") << QByteArray("fffa18") << QByteArray(512, '\xFF');
    QTest::newRow("sub-negotiation full of SE") << QByteArray("fffa18") << QByteArray(512, '\xF0');
}

void tst_KestTelnet::heldBackFloodStaysCheap()
{
    QFETCH(QByteArray, beginning);
    QFETCH(QByteArray, piece);
    OpenSession session;
    session.engine.consume(QByteArray::fromHex(beginning));
    QElapsedTimer timer;
    timer.start();
    // 16 MiB: joining them anew with every piece would move 256 GiB.
    for (int i = 0; i < 32768; ++i) {
        session.engine.consume(piece);
        QVERIFY2(timer.elapsed() < 30000, "hangs");
    }
    int heldBack = 0;
    for (const QByteArray &bytes : qAsConst(session.engine.pendingInput)) {
        heldBack += bytes.size();
    }
    QCOMPARE(heldBack, beginning.size() / 2 + 32768 * 512);
}

void tst_KestTelnet::splitCharacterIsNotGarbled_data()
{
    QTest::addColumn<Pieces>("pieces");
    QTest::addColumn<QStringList>("messages");
    QTest::newRow("three bytes, split behind the first")
        << Pieces{"a\xE7", "\x9B\xB8z"} << QStringList{QStringLiteral("a"), QString::fromUtf8("相z")};
    QTest::newRow("three bytes, split behind the second")
        << Pieces{"\xE7\x9B", "\xB8"} << QStringList{QString::fromUtf8("相")};
    QTest::newRow("byte by byte") << Pieces{"\xE7", "\x9B", "\xB8", "b"}
                                  << QStringList{QString::fromUtf8("相"), QStringLiteral("b")};
    QTest::newRow("a command in between")
        << Pieces{"\xE7\x9B", "\xFF\xFE\x18\xB8"} << QStringList{QString::fromUtf8("相")};
    QTest::newRow("cut short by NUL") << Pieces{QByteArray("\xE7\x9B\0a", 4)}
                                      << QStringList{QString::fromUtf8("\uFFFD\uFFFD"), QStringLiteral("a")};
    QTest::newRow("never continued") << Pieces{"\xE7", "abc"} << QStringList{QString::fromUtf8("\uFFFDabc")};
}

void tst_KestTelnet::splitCharacterIsNotGarbled()
{
    QFETCH(Pieces, pieces);
    QFETCH(QStringList, messages);
    Session session;
    for (const QByteArray &piece : qAsConst(pieces)) {
        session.socket->deliver(piece);
    }
    QCOMPARE(session.events, messages);
}

void tst_KestTelnet::textIsSentInLocalEncoding()
{
    Session session;
    session.socket->takeWritten();
    session.telnet.sendData(QString::fromUtf8("ls 相\n\xC3\xBF"));
    QCOMPARE(session.socket->takeWritten().toHex(), QByteArray("6c7320e79bb80ac3bf"));
}

void tst_KestTelnet::controlFunctions_data()
{
    QTest::addColumn<int>("control");
    QTest::addColumn<QByteArray>("bytes");
    constexpr std::array bytes{"fff9", "fff4", "fff6", "fff5", "fff7", "fff8", "fff3", "ffec", "ffed", "ffee"};
    constexpr std::array names{
        "go ahead", "interrupt process", "are you there", "abort output", "erase character", "erase line",
        "break",    "end of file",       "suspend",       "abort"};
    static_assert(bytes.size() == names.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        QTest::newRow(names[i]) << static_cast<int>(i) << QByteArray(bytes[i]);
    }
    QTest::newRow("below the first") << -1 << QByteArray();
    QTest::newRow("above the last") << 10 << QByteArray();
}

void tst_KestTelnet::controlFunctions()
{
    QFETCH(int, control);
    QFETCH(QByteArray, bytes);
    Session session;
    session.socket->takeWritten();
    session.telnet.sendControl(static_cast<KestTelnet::Control>(control));
    QCOMPARE(session.socket->takeWritten().toHex(), bytes);
}

void tst_KestTelnet::logoutAsksServer()
{
    Session session;
    session.socket->takeWritten();
    session.telnet.logout();
    QCOMPARE(session.socket->takeWritten().toHex(), QByteArray("fffd12"));
}

void tst_KestTelnet::windowSize()
{
    Session session;
    session.socket->takeWritten();
    session.telnet.setWindowSize(80, 24);
    QCOMPARE(session.socket->takeWritten(), QByteArray());
    QCOMPARE(session.telnet.windowSize(), QSize(-1, -1));
    QVERIFY(!session.telnet.isValidWindowSize());

    // The first DO NAWS is refused, as the option is not enabled yet; it enables it nevertheless.
    QCOMPARE(session.answer("fffd1f"), QByteArray("fffc1ffffa1f00500018fff0"));
    QCOMPARE(session.telnet.windowSize(), QSize(80, 24));
    QVERIFY(session.telnet.isValidWindowSize());
    QCOMPARE(session.answer("fffb1f"), QByteArray("fffd1f"));

    session.telnet.setWindowSize(QSize(0x1234, 0xFFFE));
    QCOMPARE(session.socket->takeWritten().toHex(), QByteArray("fffa1f1234fffefff0"));
    session.telnet.setWindowSize(80, -1);
    QCOMPARE(session.socket->takeWritten(), QByteArray());
    QVERIFY(!session.telnet.isValidWindowSize());

    session.telnet.setWindowSize(0, 0);
    QCOMPARE(session.socket->takeWritten().toHex(), QByteArray("fffa1f00000000fff0"));
    QCOMPARE(session.answer("fffe1f"), QByteArray()); // drops the pair of the first WONT
    QCOMPARE(session.telnet.windowSize(), QSize(-1, -1));
}

void tst_KestTelnet::windowSizeIsOfferedInNextSession()
{
    Session session;
    session.telnet.setWindowSize(80, 24);
    session.answer("fffd1f");
    session.socket = new ScriptedSocket;
    session.telnet.setSocket(session.socket);
    // Nothing else: the other options are still to be answered from the first session.
    QCOMPARE(session.socket->takeWritten().toHex(), QByteArray("fffb1f"));
}

void tst_KestTelnet::promptsAreIgnoredBeforeAuthentication()
{
    Session session;
    session.telnet.login(QStringLiteral("root"), QStringLiteral("secret"));
    QCOMPARE(session.answer(QByteArray("login: ").toHex()), QByteArray());
    QCOMPARE(session.events, QStringList{QStringLiteral("login: ")});
}

void tst_KestTelnet::loginDialogue()
{
    Session session;
    session.telnet.login(QStringLiteral("root\n"), QStringLiteral("secret\n"));
    session.settleAuthentication();
    QCOMPARE(session.answer(QByteArray("(none) login: ").toHex()), QByteArray("root\n").toHex());
    QCOMPARE(session.answer(QByteArray("Password: ").toHex()), QByteArray("secret\n").toHex());
    QCOMPARE(session.answer(QByteArray("~ # ").toHex()), QByteArray());
    QCOMPARE(session.events, (QStringList{QStringLiteral("(none) login: "), QStringLiteral("<loginRequired>"),
                                          QStringLiteral("Password: "), QStringLiteral("~ # ")}));
}

void tst_KestTelnet::firstPromptsReachOwnerWithoutLogin()
{
    Session session;
    session.settleAuthentication();
    QCOMPARE(session.answer(QByteArray("(none) login: ").toHex()), QByteArray());
    QCOMPARE(session.answer(QByteArray("Password: ").toHex()), QByteArray());
    QCOMPARE(session.events, (QStringList{QStringLiteral("(none) login: "), QStringLiteral("<loginRequired>"),
                                          QStringLiteral("Password: ")}));
}

void tst_KestTelnet::secondLoginPromptAsksOwner()
{
    Session session;
    session.telnet.login(QStringLiteral("root\n"), QStringLiteral("wrong\n"));
    session.settleAuthentication();
    session.answer(QByteArray("login: ").toHex());
    session.answer(QByteArray("Password: ").toHex());
    session.events.clear();
    QCOMPARE(session.answer(QByteArray("Login incorrect\r\nlogin: ").toHex()), QByteArray());
    QCOMPARE(session.events,
             (QStringList{QStringLiteral("Login incorrect\r\nlogin: "), QStringLiteral("<loginRequired>")}));

    // A new login answers the next prompt for the name, but a password is sent only once.
    session.events.clear();
    session.telnet.login(QStringLiteral("admin\n"), QStringLiteral("right\n"));
    QCOMPARE(session.answer(QByteArray("login: ").toHex()), QByteArray("admin\n").toHex());
    QCOMPARE(session.answer(QByteArray("Password: ").toHex()), QByteArray());
    QCOMPARE(session.events,
             (QStringList{QStringLiteral("login: "), QStringLiteral("Password: "), QStringLiteral("<loginRequired>")}));
}

void tst_KestTelnet::loginForgetsPassword()
{
    OpenSession session;
    session.engine.loginPassword = QStringLiteral("secret\n");
    session.socket->deliver("\xFF\xFE\x25");
    session.socket->deliver("Password: ");
    QCOMPARE(session.socket->takeWritten(), QByteArray("secret\n"));
    QVERIFY(session.engine.loginPassword.isEmpty());
    QVERIFY(session.engine.passwordSent);
}

void tst_KestTelnet::promptPatternLogsIn()
{
    Session session;
    session.telnet.setPromptPattern(TextPattern(QStringLiteral("~ # ")));
    session.telnet.login(QStringLiteral("root\n"), QStringLiteral("secret\n"));
    session.settleAuthentication();
    session.answer(QByteArray("welcome\r\n~ # ").toHex());
    QCOMPARE(session.events, (QStringList{QStringLiteral("<loggedIn>"), QStringLiteral("welcome\r\n~ # ")}));
    // From then on no prompt is looked for.
    session.events.clear();
    QCOMPARE(session.answer(QByteArray("login: ").toHex()), QByteArray());
    QCOMPARE(session.answer(QByteArray("~ # ").toHex()), QByteArray());
    QCOMPARE(session.events, (QStringList{QStringLiteral("login: "), QStringLiteral("~ # ")}));
}

void tst_KestTelnet::formsOfPatterns_data()
{
    QTest::addColumn<TextPattern>("pattern");
    QTest::addColumn<bool>("found");

    const auto row = [](const char *name, const char *pattern, bool found,
                        Qt::CaseSensitivity sensitivity = Qt::CaseSensitive,
                        TextPattern::PatternSyntax syntax = TextPattern::RegExp) {
        QTest::newRow(name) << TextPattern(QString::fromLatin1(pattern), sensitivity, syntax) << found;
    };
    row("plain text", "shell> ", true);
    row("plain text that is not there", "shell# ", false);
    row("text before a class", "shel\\w>", true);
    row("optional character", "shells?> ", true);
    row("class first", "[Ss]hell> $", true);
    row("anchor first", "^camera", true);
    row("anchor first, not there", "^shell", false);
    row("alternatives", "root#|shell>", true);
    row("other case", "SHELL>", true, Qt::CaseInsensitive);
    row("other case, not allowed", "SHELL>", false);
    row("wildcard", "camera*> ", true, Qt::CaseSensitive, TextPattern::Wildcard);
    row("fixed string with special characters", "?shell", false, Qt::CaseSensitive, TextPattern::FixedString);
}

void tst_KestTelnet::formsOfPatterns()
{
    QFETCH(TextPattern, pattern);
    QFETCH(bool, found);
    Session session;
    session.telnet.setPromptPattern(pattern);
    session.settleAuthentication();
    session.answer(QByteArray("camera shell> ").toHex());
    QCOMPARE(session.events.contains(QStringLiteral("<loggedIn>")), found);
}

void tst_KestTelnet::nullAuthentication()
{
    Session session;
    session.telnet.login(QStringLiteral("root\n"), QString());
    // Offered: Kerberos 5 and SRP, neither of which is known.
    QCOMPARE(session.answer("fffa250102030502fff0"), QByteArray("fffa25000000fff0"));
    QCOMPARE(session.events, QStringList());
    QCOMPARE(session.answer(QByteArray("login: ").toHex()), QByteArray("root\n").toHex());
}

void tst_KestTelnet::nullAuthenticationWithoutPatterns()
{
    Session session;
    session.clearPatterns();
    session.telnet.setPromptPattern(TextPattern(QStringLiteral("~ # ")));
    QCOMPARE(session.answer("fffa2501fff0"), QByteArray("fffa25000000fff0"));
    QCOMPARE(session.events, QStringList{QStringLiteral("<loggedIn>")});
    // That is the login: the prompt does not report another one.
    session.answer(QByteArray("~ # ").toHex());
    QCOMPARE(session.events, (QStringList{QStringLiteral("<loggedIn>"), QStringLiteral("~ # ")}));
}

void tst_KestTelnet::registeredAuthentication_data()
{
    QTest::addColumn<int>("outcome");
    QTest::addColumn<bool>("patterns");
    QTest::addColumn<int>("loggedIn");
    QTest::addColumn<int>("loginFailed");
    QTest::newRow("success without patterns") << int(KestTelnetAuth::Success) << false << 1 << 0;
    QTest::newRow("success with patterns") << int(KestTelnetAuth::Success) << true << 0 << 0;
    QTest::newRow("failure") << int(KestTelnetAuth::Failure) << true << 0 << 1;
    QTest::newRow("in progress") << int(KestTelnetAuth::InProgress) << true << 0 << 0;
}

void tst_KestTelnet::registeredAuthentication()
{
    QFETCH(int, outcome);
    QFETCH(bool, patterns);
    QFETCH(int, loggedIn);
    QFETCH(int, loginFailed);
    TwoStepAuth method(static_cast<KestTelnetAuth::AuthState>(outcome));
    OpenSession session;
    if (!patterns) {
        session.engine.loginPattern = TextPattern();
        session.engine.passwordPattern = TextPattern();
    }
    session.engine.authMethods.insert(6, &method);
    const QSignalSpy required(&session.telnet, &KestTelnet::loginRequired);
    const QSignalSpy successes(&session.telnet, &KestTelnet::loggedIn);
    const QSignalSpy failures(&session.telnet, &KestTelnet::loginFailed);

    session.socket->deliver(QByteArray::fromHex("fffa250102030602fff0")); // second of the two that are offered
    QCOMPARE(session.engine.activeAuth, &method);
    QCOMPARE(required.count(), 1);
    QCOMPARE(session.socket->takeWritten(), QByteArray("step"));
    QVERIFY(!session.engine.promptDone);

    session.socket->deliver(QByteArray::fromHex("fffa2502060000fff0"));
    QCOMPARE(session.socket->takeWritten(), QByteArray());
    QCOMPARE(method.steps, (QByteArrayList{"250102030602", "2502060000"}));
    QCOMPARE(required.count(), 1);
    QCOMPARE(successes.count(), loggedIn);
    QCOMPARE(failures.count(), loginFailed);
    QCOMPARE(session.engine.promptDone, outcome == KestTelnetAuth::Success);
}

void tst_KestTelnet::truncatedAuthenticationIsIgnored_data()
{
    QTest::addColumn<QByteArray>("server");
    QTest::newRow("no code") << QByteArray("fffa25fff0");
    QTest::newRow("IS from the server") << QByteArray("fffa2500fff0");
    QTest::newRow("REPLY before SEND") << QByteArray("fffa2502fff0");
}

void tst_KestTelnet::truncatedAuthenticationIsIgnored()
{
    QFETCH(QByteArray, server);
    Session session;
    session.clearPatterns();
    QCOMPARE(session.answer(server), QByteArray());
    QCOMPARE(session.events, QStringList());
}

void tst_KestTelnet::nullMethodAnswersSendOnly_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QByteArray>("reply");
    QTest::newRow("SEND") << QByteArray("2501") << QByteArray("fffa25000000fff0");
    QTest::newRow("SEND with types") << QByteArray("25010000") << QByteArray("fffa25000000fff0");
    QTest::newRow("IS") << QByteArray("2500") << QByteArray();
    QTest::newRow("REPLY") << QByteArray("2502") << QByteArray();
    QTest::newRow("option alone") << QByteArray("25") << QByteArray();
    QTest::newRow("nothing") << QByteArray() << QByteArray();
}

void tst_KestTelnet::nullMethodAnswersSendOnly()
{
    QFETCH(QByteArray, data);
    QFETCH(QByteArray, reply);
    KestTelnetAuthNull method;
    QCOMPARE(method.authState, KestTelnetAuth::InProgress);
    QCOMPARE(method.authStep(QByteArray::fromHex(data)).toHex(), reply);
    QCOMPARE(method.authState, reply.isEmpty() ? KestTelnetAuth::InProgress : KestTelnetAuth::Success);
}

void tst_KestTelnet::closeReportsOnce()
{
    Session session;
    session.telnet.close();
    session.telnet.close();
    QCOMPARE(session.events, QStringList{QStringLiteral("<loggedOut>")});
    QVERIFY(!session.socket->isOpen());
}

void tst_KestTelnet::sendsAreDroppedWithoutConnection()
{
    Session session;
    session.socket->takeWritten();
    session.telnet.close();
    session.telnet.sendData(QStringLiteral("a"));
    session.telnet.sendControl(KestTelnet::InterruptProcess);
    session.telnet.sendSync();
    session.telnet.logout();
    session.telnet.setWindowSize(80, 24);
    QCOMPARE(session.socket->takeWritten(), QByteArray());

    KestTelnet withoutSocket;
    withoutSocket.setSocket(nullptr);
    QVERIFY(withoutSocket.socket() == nullptr);
    withoutSocket.connectToHost(QStringLiteral("127.0.0.1"), 1);
    withoutSocket.sendData(QStringLiteral("a"));
    withoutSocket.close();
}

void tst_KestTelnet::nestedInputKeepsItsOrder()
{
    Session session;
    bool nested = false;
    QObject::connect(&session.telnet, &KestTelnet::message, &session.telnet, [&session, &nested] {
        if (!nested) {
            nested = true;
            session.socket->deliver("c"); // as if the handler had run the event loop
        }
    });
    session.socket->deliver(QByteArrayLiteral("a\0b\0"));
    QCOMPARE(session.events, (QStringList{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
}

void tst_KestTelnet::inputOfPastSessionIsDropped()
{
    Session session;
    bool first = true;
    QObject::connect(&session.telnet, &KestTelnet::message, &session.telnet, [&session, &first] {
        if (first) {
            first = false;
            session.socket = new ScriptedSocket;
            session.telnet.setSocket(session.socket);
        }
    });
    session.socket->deliver(QByteArrayLiteral("a\0b\0\xFF\xF1"));
    session.socket->deliver("c");
    QCOMPARE(session.events, (QStringList{QStringLiteral("a"), QStringLiteral("c")}));
}

QTEST_GUILESS_MAIN(tst_KestTelnet)

#include "tst_KestTelnet.moc"
