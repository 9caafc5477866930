#include "detector/store/KestDetectorFace.h"
#include "support/fileContent.h"
#include "support/MessageSpy.h"
#include "support/ScriptedShellServer.h"
#include "telnet/session/shellStep.h"
#include "telnet/session/TelnetInteractive.h"
#include "telnet/session/TelnetInteractiveFace.h"

#include <atomic>
#include <future>
#include <memory>
#include <QtTest>
#include <thread>

namespace {
/// Not too early at all, and not late by more than a busy machine makes it.
bool isAbout(qint64 elapsed, qint64 expected)
{
    constexpr qint64 slack = 1500;
    return elapsed >= expected && elapsed < expected + slack;
}

Settings loginAs(const QString &password)
{
    Settings settings;
    settings.username = QStringLiteral("root");
    settings.password = password;
    return settings;
}
} // namespace

/// The blocking shell session from worker threads, with the worker and a scripted shell in this thread's event loop.
class tst_TelnetInteractive : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void commandBeforeAnyConnectTimesOut();
    void silentShellEndsTheLogin();
    void loginSendsNameAndPassword();
    void passwordWaitsForItsPrompt();
    void passwordIsSentWithoutAKnownPrompt();
    void passwordIsSentAgainAtALatePrompt();
    void shellWithoutPasswordGetsNone_data();
    void shellWithoutPasswordGetsNone();
    void lateNamePromptBringsNoPasswordIntoACommand();
    void bannerWithoutTrailingBlankDoesNotAdvance();
    void reconnectLogsInAgain();
    void lateLoginDoesNotAnswerTheNextConnect();
    void replyRunsFromEchoToPrompt();
    void promptInTheMiddleOfAPieceCompletes();
    void promptSplitAcrossPiecesTimesOut();
    void stepsTakeTheReply_data();
    void stepsTakeTheReply();
    void latePromptDoesNotCompleteTheNextCommand();
    void endlessReplyIsGivenUp();
    void callersAreServedOneAtATime();
    void disconnectAnswersAtOnce();
    void connectionErrorCompletesTheCommand();
    void callFromTheServingThreadIsRefused();
    void trafficIsInTheDiagnosticLog();
    void secretsInTheDiagnosticLog_data();
    void secretsInTheDiagnosticLog();
    void quitFlagEndsAPendingCommand();
    void stoppedRunGivesItsCommandUp();
    void stoppedRunLeavesTheLine();
    void giveUpEndsPendingAndLaterCalls();

private:
    struct Reply
    {
        int result = 99;
        QString text;
    };

    template <class Call>
    auto onWorker(Call call);
    template <class Call>
    auto result(Call call);
    int connectNow();
    Reply command(const QString &line, int step = shellStep::systemInfo);

    std::unique_ptr<ScriptedShellServer> m_peer;
};

/// Starts a blocking call on a thread of its own.
template <class Call>
auto tst_TelnetInteractive::onWorker(Call call)
{
    return std::async(std::launch::async, call);
}

/// Runs a blocking call on a thread of its own while this thread serves it.
template <class Call>
auto tst_TelnetInteractive::result(Call call)
{
    auto future = onWorker(call);
    while (future.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
        QTest::qWait(1);
    }
    return future.get();
}

int tst_TelnetInteractive::connectNow()
{
    return result([] { return TelnetInteractiveFace::Get()->telnetConnectToHost(); });
}

tst_TelnetInteractive::Reply tst_TelnetInteractive::command(const QString &line, int step)
{
    return result([line, step] {
        Reply reply;
        reply.text = QStringLiteral("left over");
        reply.result = TelnetInteractiveFace::Get()->telnet(line, step, &reply.text);
        return reply;
    });
}

void tst_TelnetInteractive::initTestCase()
{
    KestDetectorFace *face = KestDetectorFace::Get();
    face->cameraAddress = QStringLiteral("127.0.0.10");
    TelnetInteractive::Get();
    TelnetInteractiveFace::Get();
}

void tst_TelnetInteractive::init()
{
    KestDetectorFace::Get()->setSettings(loginAs(QStringLiteral("secret")));
    m_peer = std::make_unique<ScriptedShellServer>();
    QVERIFY2(m_peer->isListening(), "127.0.0.10:23 cannot be opened here");
}

void tst_TelnetInteractive::cleanup()
{
    m_peer.reset();
}

void tst_TelnetInteractive::commandBeforeAnyConnectTimesOut()
{
    QElapsedTimer clock;
    clock.start();
    const Reply reply = command(QStringLiteral("mount\n"));
    QVERIFY(isAbout(clock.elapsed(), 5000));
    QCOMPARE(TelnetInteractive::commandLimitMs, 5000);
    QCOMPARE(reply.result, -1);
    QCOMPARE(reply.text, QString());
    QCOMPARE(m_peer->connections(), 0);
}

void tst_TelnetInteractive::silentShellEndsTheLogin()
{
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(connectNow(), -1);
    QVERIFY(isAbout(clock.elapsed(), 5000));
    QCOMPARE(TelnetInteractive::loginLimitMs, 5000);
    QCOMPARE(m_peer->connections(), 1);
}

void tst_TelnetInteractive::loginSendsNameAndPassword()
{
    m_peer->autoLogin();
    QCOMPARE(connectNow(), 0);
    QCOMPARE(m_peer->received(), QByteArray("root\nsecret\n"));
}

void tst_TelnetInteractive::passwordWaitsForItsPrompt()
{
    // A login throws away what was typed before it printed its prompt.
    bool promptSaid = false;
    QByteArray beforeThePrompt;
    m_peer->autoLogin();
    m_peer->onLine = [&](const QByteArray &line) {
        if (line == "root") {
            m_peer->say("root\r\n");
            QTimer::singleShot(200, m_peer.get(), [&] {
                beforeThePrompt = m_peer->received();
                promptSaid = true;
                m_peer->say("Password: ");
            });
        } else if (promptSaid) {
            m_peer->say("\r\n~ # ");
        }
    };
    QCOMPARE(connectNow(), 0);
    QCOMPARE(beforeThePrompt, QByteArray("root\n"));
    QCOMPARE(m_peer->received(), QByteArray("root\nsecret\n"));
}

void tst_TelnetInteractive::passwordIsSentWithoutAKnownPrompt()
{
    m_peer->autoLogin();
    m_peer->onLine = [&](const QByteArray &line) { m_peer->say(line == "root" ? "Kennwort? " : "\r\n~ # "); };
    QCOMPARE(connectNow(), 0);
    QCOMPARE(m_peer->received(), QByteArray("root\nsecret\n"));
}

void tst_TelnetInteractive::passwordIsSentAgainAtALatePrompt()
{
    // So late that the password has gone out without it, and was thrown away.
    bool promptSaid = false;
    m_peer->autoLogin();
    m_peer->onLine = [&](const QByteArray &line) {
        if (line == "root") {
            m_peer->say("root\r\n");
        } else if (!promptSaid) {
            promptSaid = true;
            m_peer->say("Password: ");
        } else {
            m_peer->say("\r\n~ # ");
        }
    };
    QCOMPARE(connectNow(), 0);
    QCOMPARE(m_peer->received(), QByteArray("root\nsecret\nsecret\n"));
}

void tst_TelnetInteractive::shellWithoutPasswordGetsNone_data()
{
    QTest::addColumn<QString>("password");
    QTest::addColumn<QByteArrayList>("pieces");
    const QString secret = QStringLiteral("secret");
    const QByteArrayList apart{"root\r\n", "~ # "};
    const QByteArrayList together{"root\r\n~ # "};
    QTest::newRow("prompt behind the echo of the name") << secret << apart;
    QTest::newRow("prompt with the echo of the name") << secret << together;
    QTest::newRow("empty password, prompt behind the echo of the name") << QString() << apart;
    QTest::newRow("empty password, prompt with the echo of the name") << QString() << together;
}

void tst_TelnetInteractive::shellWithoutPasswordGetsNone()
{
    QFETCH(QString, password);
    QFETCH(QByteArrayList, pieces);
    KestDetectorFace::Get()->setSettings(loginAs(password));
    m_peer->autoLogin();
    m_peer->onLine = [&](const QByteArray &) {
        m_peer->say(pieces.first());
        QTimer::singleShot(50, m_peer.get(), [&] { m_peer->say(pieces.mid(1).join()); });
    };
    QCOMPARE(connectNow(), 0);
    // The command goes on for longer than a password waits for its prompt.
    m_peer->onLine = [&](const QByteArray &line) {
        QTimer::singleShot(1300, m_peer.get(), [this, line] { m_peer->say(line + "\r\n~ # "); });
    };
    const Reply reply = command(QStringLiteral("cat mac\n"));
    QCOMPARE(reply.text, QStringLiteral("cat mac\r\n~ # "));
    QCOMPARE(m_peer->received(), QByteArray("root\ncat mac\n"));
}

void tst_TelnetInteractive::lateNamePromptBringsNoPasswordIntoACommand()
{
    m_peer->onLine = [&](const QByteArray &line) { m_peer->say(line + "\r\n"); };
    m_peer->onConnection = [&] {
        QTimer::singleShot(4500, Qt::PreciseTimer, m_peer.get(), [&] { m_peer->say("(none) login: "); });
    };
    QCOMPARE(connectNow(), -1);
    QCOMPARE(m_peer->received(), QByteArray("root\n"));
    m_peer->onLine = [&](const QByteArray &line) {
        QTimer::singleShot(1300, m_peer.get(), [this, line] { m_peer->say(line + "\r\n~ # "); });
    };
    QCOMPARE(command(QStringLiteral("cat mac\n")).result, 0);
    QCOMPARE(m_peer->received(), QByteArray("root\ncat mac\n"));
}

void tst_TelnetInteractive::bannerWithoutTrailingBlankDoesNotAdvance()
{
    m_peer->onConnection = [&] { m_peer->say("(none) login:"); };
    QCOMPARE(connectNow(), -1);
    QCOMPARE(m_peer->received(), QByteArray());
}

void tst_TelnetInteractive::reconnectLogsInAgain()
{
    m_peer->autoLogin();
    QCOMPARE(connectNow(), 0);
    QCOMPARE(connectNow(), 0);
    QCOMPARE(m_peer->connections(), 2);
    QCOMPARE(m_peer->received(), QByteArray("root\nsecret\nroot\nsecret\n"));
}

void tst_TelnetInteractive::lateLoginDoesNotAnswerTheNextConnect()
{
    // The first connect is given up before the shell's prompt comes.
    m_peer->autoLogin();
    m_peer->onLine = [&](const QByteArray &line) {
        if (line == "root") {
            m_peer->say("root\r\nPassword: ");
        }
    };
    QCOMPARE(connectNow(), -1);
    TelnetInteractive::Get()->slot_telnetReplyFinished(QStringLiteral("~ # "));
    m_peer->onLine = nullptr;
    QCOMPARE(connectNow(), -1);
}

void tst_TelnetInteractive::replyRunsFromEchoToPrompt()
{
    m_peer->autoLogin();
    QCOMPARE(connectNow(), 0);
    m_peer->clear();
    m_peer->onLine = [&](const QByteArray &line) {
        m_peer->say(line + "\r\nLinux (none) 4.9\r\n");
        QTimer::singleShot(20, m_peer.get(), [this] { m_peer->say("~ # "); });
    };
    const Reply reply = command(QStringLiteral("uname -a\n"));
    QCOMPARE(reply.result, 0);
    QCOMPARE(reply.text, QStringLiteral("uname -a\r\nLinux (none) 4.9\r\n~ # "));
    QCOMPARE(m_peer->received(), QByteArray("uname -a\n"));
}

void tst_TelnetInteractive::promptInTheMiddleOfAPieceCompletes()
{
    m_peer->autoLogin();
    QCOMPARE(connectNow(), 0);
    m_peer->onLine = [&](const QByteArray &) { m_peer->say("first\r\n~ # second\r\n"); };
    const Reply reply = command(QStringLiteral("cat notes\n"));
    QCOMPARE(reply.result, 0);
    QCOMPARE(reply.text, QStringLiteral("first\r\n~ # second\r\n"));
}

void tst_TelnetInteractive::promptSplitAcrossPiecesTimesOut()
{
    m_peer->autoLogin();
    QCOMPARE(connectNow(), 0);
    m_peer->onLine = [&](const QByteArray &) {
        m_peer->say("done\r\n~ ");
        QTimer::singleShot(300, m_peer.get(), [this] { m_peer->say("# "); });
    };
    const Reply reply = command(QStringLiteral("true\n"));
    QCOMPARE(reply.result, -1);
    QCOMPARE(reply.text, QString());
}

void tst_TelnetInteractive::stepsTakeTheReply_data()
{
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("text");
    const QString text = QStringLiteral("date\r\n~ # ");
    for (int step = 3; step <= 20; ++step) {
        QTest::addRow("step %d is that of a command", step) << step << 0 << text;
    }
    QTest::newRow("step 21 is beyond the last command") << 21 << -1 << QString();
    QTest::newRow("a negative step is none") << -1 << -1 << QString();
}

void tst_TelnetInteractive::stepsTakeTheReply()
{
    QFETCH(int, step);
    QFETCH(int, result);
    QFETCH(QString, text);
    m_peer->autoLogin();
    QCOMPARE(connectNow(), 0);
    m_peer->onLine = [&](const QByteArray &line) { m_peer->say(line + "\r\n~ # "); };
    const Reply reply = command(QStringLiteral("date\n"), step);
    QCOMPARE(reply.result, result);
    QCOMPARE(reply.text, text);
}

void tst_TelnetInteractive::latePromptDoesNotCompleteTheNextCommand()
{
    m_peer->autoLogin();
    QCOMPARE(connectNow(), 0);
    m_peer->onLine = nullptr;
    QCOMPARE(command(QStringLiteral("sleep 6\n")).result, -1);
    TelnetInteractive::Get()->slot_telnetReplyFinished(QStringLiteral("sleep 6\r\n~ # "));

    m_peer->onLine = [&](const QByteArray &) { m_peer->say("mounted\r\n~ # "); };
    const Reply reply = command(QStringLiteral("mount\n"));
    QCOMPARE(reply.result, 0);
    QCOMPARE(reply.text, QStringLiteral("mounted\r\n~ # "));
}

void tst_TelnetInteractive::endlessReplyIsGivenUp()
{
    m_peer->autoLogin();
    QCOMPARE(connectNow(), 0);
    const MessageSpy spy;
    m_peer->onLine = [](const QByteArray &) {
        const QString piece(40 * 1024 * 1024, QLatin1Char('y'));
        TelnetInteractive::Get()->slot_telnetReplyFinished(piece);
        TelnetInteractive::Get()->slot_telnetReplyFinished(piece);
        TelnetInteractive::Get()->slot_telnetReplyFinished(piece);
    };
    const Reply reply = command(QStringLiteral("yes\n"));
    QCOMPARE(reply.result, -1);
    QCOMPARE(reply.text, QString());
    QCOMPARE(spy.containing(QStringLiteral("does not stop talking: the command is given up")).size(), 1);
}

void tst_TelnetInteractive::callersAreServedOneAtATime()
{
    m_peer->autoLogin();
    QCOMPARE(connectNow(), 0);
    int running = 0;
    bool overlapped = false;
    m_peer->onLine = [&](const QByteArray &line) {
        overlapped = overlapped || running != 0;
        ++running;
        QTimer::singleShot(5, m_peer.get(), [this, line, &running] {
            --running;
            m_peer->say(line + "\r\n~ # ");
        });
    };
    constexpr int rounds = 20;
    const auto caller = [](const QString &name) {
        int good = 0;
        for (int round = 0; round < rounds; ++round) {
            QString reply;
            const QString line = name + QString::number(round);
            const int result = TelnetInteractiveFace::Get()->telnet(line + QLatin1Char('\n'), 4, &reply);
            good += result == 0 && reply == line + QStringLiteral("\r\n~ # ") ? 1 : 0;
        }
        return good;
    };
    auto runner = onWorker([caller] { return caller(QStringLiteral("runner")); });
    const int good = result([caller] { return caller(QStringLiteral("supervisor")); });
    while (runner.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
        QTest::qWait(1);
    }
    QCOMPARE(good, rounds);
    QCOMPARE(runner.get(), rounds);
    QVERIFY(!overlapped);
}

void tst_TelnetInteractive::disconnectAnswersAtOnce()
{
    QCOMPARE(result([] { return TelnetInteractiveFace::Get()->telnetDisConnectToHost(); }), 0);
}

void tst_TelnetInteractive::connectionErrorCompletesTheCommand()
{
    m_peer->autoLogin();
    QCOMPARE(connectNow(), 0);
    m_peer->onLine = [&](const QByteArray &) {
        TelnetInteractive::Get()->slot_telnetConnectionError(QAbstractSocket::NetworkError);
    };
    const Reply reply = command(QStringLiteral("true\n"));
    QCOMPARE(reply.result, -1);
    QCOMPARE(reply.text, QString());
}

void tst_TelnetInteractive::callFromTheServingThreadIsRefused()
{
    const MessageSpy spy;
    QCOMPARE(TelnetInteractiveFace::Get()->telnetConnectToHost(), -1);
    QCOMPARE(spy.messages(), QStringList{QStringLiteral("A shell call from the thread that has to serve it")});
}

void tst_TelnetInteractive::trafficIsInTheDiagnosticLog()
{
    QFile file(QCoreApplication::applicationDirPath() + QStringLiteral("/log.txt"));
    file.remove();
    m_peer->autoLogin();
    QCOMPARE(connectNow(), 0);
    m_peer->onLine = [&](const QByteArray &) {
        m_peer->say("one\r\n");
        QTimer::singleShot(100, m_peer.get(), [this] { m_peer->say("two\r\n~ # "); });
    };
    QCOMPARE(command(QStringLiteral("cat\n")).result, 0);
    // The two blanks belong to each piece of a record; the time stamps are cut away.
    QByteArray texts;
    const QByteArrayList records = fileContent(file.fileName()).replace("$#$\r\n", "\x01").split('\x01');
    for (const QByteArray &record : records) {
        texts += record.mid(int(qstrlen("2024.05.06 07:08:09 : "))) + '|';
    }
    QCOMPARE(texts, QByteArray("(none) login:   |root\r\nPassword:   |\r\n~ #   |one\r\n  |one\r\ntwo\r\n~ #   ||"));
}

void tst_TelnetInteractive::secretsInTheDiagnosticLog_data()
{
    QTest::addColumn<bool>("safeguards");
    QTest::newRow("with safeguards") << true;
    QTest::newRow("without") << false;
}

void tst_TelnetInteractive::secretsInTheDiagnosticLog()
{
    QFETCH(bool, safeguards);
    Settings settings = loginAs(QStringLiteral("hunter2"));
    settings.safeguards = safeguards;
    KestDetectorFace::Get()->setSettings(settings);
    const QString log = QCoreApplication::applicationDirPath() + QStringLiteral("/log.txt");
    QFile::remove(log);
    // A login that shows what is typed, and an access point's file in two pieces.
    m_peer->autoLogin();
    m_peer->onLine = [&](const QByteArray &line) {
        m_peer->say(line == "root" ? "root\r\nPassword: " : line + "\r\n~ # ");
    };
    QCOMPARE(connectNow(), 0);
    m_peer->onLine = [&](const QByteArray &) {
        m_peer->say("ssid=Cam1\r\nwpa_passphrase=1234");
        QTimer::singleShot(100, m_peer.get(), [this] { m_peer->say("5678\r\n~ # "); });
    };
    const Reply reply = command(QStringLiteral("cat\n"));
    QCOMPARE(reply.text, QStringLiteral("ssid=Cam1\r\nwpa_passphrase=12345678\r\n~ # "));
    const QByteArray logged = fileContent(log);
    QVERIFY(logged.contains("Cam1"));
    QCOMPARE(logged.contains("hunter2"), !safeguards);
    QCOMPARE(logged.contains("1234"), !safeguards);
    QCOMPARE(bool(QFile::permissions(log) & (QFile::ReadGroup | QFile::ReadOther)), !safeguards);
}

void tst_TelnetInteractive::quitFlagEndsAPendingCommand()
{
    m_peer->autoLogin();
    QCOMPARE(connectNow(), 0);
    m_peer->onLine = [](const QByteArray &) { KestDetectorFace::Get()->quitFlag = -1; };
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(command(QStringLiteral("sleep 100\n")).result, -1);
    QVERIFY(clock.elapsed() < 4000);
    KestDetectorFace::Get()->quitFlag = 0;
}

void tst_TelnetInteractive::stoppedRunGivesItsCommandUp()
{
    RunExchange &run = KestDetectorFace::Get()->run;
    TelnetInteractiveFace *face = TelnetInteractiveFace::Get();
    m_peer->autoLogin();
    QCOMPARE(connectNow(), 0);
    run.post({});
    m_peer->onLine = [&](const QByteArray &) {
        run.stop();
        face->heedStop();
    };
    QElapsedTimer clock;
    clock.start();
    const int outcome = result([&] {
        run.take(QString());
        QString reply;
        const int first = face->telnet(QStringLiteral("sleep 100\n"), 3, &reply);
        const int second = face->telnet(QStringLiteral("echo\n"), 3, &reply);
        return first == -1 && second == -1 && reply.isEmpty() ? 0 : 1;
    });
    QCOMPARE(outcome, 0);
    QVERIFY(clock.elapsed() < 1000);
    QCOMPARE(m_peer->received(), QByteArray("root\nsecret\nsleep 100\n"));
    // What the command still says must not answer another one: its connection is gone, and told so.
    QVERIFY(!face->connected());
    QTRY_VERIFY(!m_peer->isConnected());
    run.finish();

    m_peer->onLine = nullptr;
    m_peer->autoLogin();
    QCOMPARE(connectNow(), 0);
    m_peer->onLine = [this](const QByteArray &) { m_peer->say("~ # "); };
    QCOMPARE(command(QStringLiteral("echo\n")).result, 0);
}

/// A run that waits for its turn behind the supervisor's login leaves at once; the login goes on.
void tst_TelnetInteractive::stoppedRunLeavesTheLine()
{
    RunExchange &run = KestDetectorFace::Get()->run;
    TelnetInteractiveFace *face = TelnetInteractiveFace::Get();
    run.post({});
    QElapsedTimer clock;
    clock.start();
    qint64 stoppedAt = 0;
    qint64 returnedAt = 0;
    std::future<int> call;
    // While the login waits for a peer that says nothing, this thread serves it.
    m_peer->onConnection = [&] {
        call = onWorker([&] {
            run.take(QString());
            QString reply;
            const int outcome = face->telnet(QStringLiteral("echo\n"), 3, &reply);
            returnedAt = clock.elapsed();
            return outcome;
        });
        QTimer::singleShot(300, this, [&] {
            stoppedAt = clock.elapsed();
            QVERIFY(run.stop());
            face->heedStop();
        });
    };
    QCOMPARE(connectNow(), -1);
    QVERIFY(clock.elapsed() >= 5000);
    QCOMPARE(call.get(), -1);
    QVERIFY2(returnedAt - stoppedAt < 1000, qPrintable(QString::number(returnedAt - stoppedAt)));
    run.finish();
    QTest::qWait(100);
    QCOMPARE(m_peer->received(), QByteArray());
}

void tst_TelnetInteractive::giveUpEndsPendingAndLaterCalls()
{
    m_peer->autoLogin();
    QCOMPARE(connectNow(), 0);
    m_peer->onLine = [](const QByteArray &) { TelnetInteractiveFace::Get()->giveUp(); };
    QElapsedTimer clock;
    clock.start();
    auto future = onWorker([] {
        QString reply;
        return TelnetInteractiveFace::Get()->telnet(QStringLiteral("sleep 100\n"), 3, &reply);
    });
    QTRY_VERIFY(future.wait_for(std::chrono::seconds(0)) == std::future_status::ready);
    QCOMPARE(future.get(), -1);
    QCOMPARE(connectNow(), -1);
    QCOMPARE(command(QStringLiteral("true\n")).result, -1);
    QVERIFY(clock.elapsed() < 10000);
}

QTEST_GUILESS_MAIN(tst_TelnetInteractive)
#include "tst_TelnetInteractive.moc"
