#include "detector/store/Notices.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <QTest>
#include <thread>

class tst_Notices : public QObject
{
    Q_OBJECT

private slots:
    void texts_data();
    void texts();
    void gravestStandsFirst();
    void sameNoticeIsToldOnce();
    void withdrawnKindIsGone();
    void withdrawnRunLeavesSettingsAndHistory();
    void withdrawingNothingChangesNothing();
    void arrivesFromAnotherThread();
};

namespace {
QStringList texts(const QList<Notice> &notices)
{
    QStringList list;
    for (const Notice &notice : notices) {
        list.append(notice.text);
    }
    return list;
}
} // namespace

void tst_Notices::texts_data()
{
    QTest::addColumn<Notice>("notice");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("problem");

    const auto row = [](const char *name, const Notice &notice, const char *text, const char *path, bool problem) {
        QTest::newRow(name) << notice << QString::fromUtf8(text) << QString::fromUtf8(path) << problem;
    };
    row("a setting", Notices::settings(QStringLiteral("BaseOption/usb: missing: this link is not used")),
        "option.ini: BaseOption/usb: missing: this link is not used", "", true);
    row("what Start wants",
        Notices::notStarted({QStringLiteral("no component is ticked"), QStringLiteral("no camera")}),
        "not started: no component is ticked; no camera", "", true);
    row("waiting", Notices::waitingForShell(), "waiting for the camera's shell", "", false);
    row("nothing tested", Notices::nothingTested(), "nothing was tested", "", true);
    row("camera changed", Notices::cameraChanged(), "another camera came during the run", "", true);
    row("camera lost", Notices::cameraLost(), "the camera was lost during the run", "", true);
    row("not saved", Notices::notSaved(QStringLiteral("/a/%1/DetectorLog.txt"), QStringLiteral("No space left")),
        "not saved: /a/%1/DetectorLog.txt: No space left", "", true);
    row("history", Notices::history(QStringLiteral("/a.sqlite: the disk is full")),
        "history: /a.sqlite: the disk is full", "", true);
    row("attempts", Notices::attempts(3), "queries that had to be sent again: 3", "", false);
    row("results", Notices::results(QStringLiteral("/a/log/2024-05-06_A")), "results: /a/log/2024-05-06_A",
        "/a/log/2024-05-06_A", false);
}

void tst_Notices::texts()
{
    QFETCH(const Notice, notice);
    QTEST(notice.text, "text");
    QTEST(notice.path, "path");
    QTEST(notice.isProblem(), "problem");
}

void tst_Notices::gravestStandsFirst()
{
    Notices notices;
    notices.tell(Notices::results(QStringLiteral("/a")));
    notices.tell(Notices::notSaved(QStringLiteral("/a/1"), QStringLiteral("x")));
    notices.tell(Notices::cameraLost());
    notices.tell(Notices::notSaved(QStringLiteral("/a/0"), QStringLiteral("x")));
    notices.tell(Notices::settings(QStringLiteral("y")));
    QCOMPARE(::texts(notices.current()), QStringList({"option.ini: y", "the camera was lost during the run",
                                                      "not saved: /a/1: x", "not saved: /a/0: x", "results: /a"}));
}

void tst_Notices::sameNoticeIsToldOnce()
{
    Notices notices;
    const QSignalSpy told(&notices, &Notices::told);
    const QSignalSpy changed(&notices, &Notices::changed);
    notices.tell(Notices::cameraLost());
    notices.tell(Notices::cameraLost());
    QCOMPARE(told.size(), 1);
    QCOMPARE(told.at(0).at(0).value<Notice>().text, QStringLiteral("the camera was lost during the run"));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(notices.current().size(), 1);
    notices.withdraw(Notice::Kind::CameraLost);
    notices.tell(Notices::cameraLost());
    QCOMPARE(told.size(), 2);
}

void tst_Notices::withdrawnKindIsGone()
{
    Notices notices;
    notices.tell(Notices::notSaved(QStringLiteral("/a"), QStringLiteral("x")));
    notices.tell(Notices::notSaved(QStringLiteral("/b"), QStringLiteral("x")));
    notices.tell(Notices::waitingForShell());
    const QSignalSpy changed(&notices, &Notices::changed);
    notices.withdraw(Notice::Kind::NotSaved);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(::texts(notices.current()), QStringList{"waiting for the camera's shell"});
}

void tst_Notices::withdrawnRunLeavesSettingsAndHistory()
{
    Notices notices;
    notices.tell(Notices::settings(QStringLiteral("y")));
    notices.tell(Notices::history(QStringLiteral("z")));
    for (const Notice &notice :
         {Notices::notStarted({}), Notices::waitingForShell(), Notices::nothingTested(), Notices::cameraChanged(),
          Notices::cameraLost(), Notices::notSaved({}, {}), Notices::attempts(1), Notices::results({})}) {
        notices.tell(notice);
    }
    notices.withdrawRun();
    QCOMPARE(::texts(notices.current()), QStringList({"option.ini: y", "history: z"}));
}

void tst_Notices::withdrawingNothingChangesNothing()
{
    Notices notices;
    notices.tell(Notices::settings(QStringLiteral("y")));
    const QSignalSpy changed(&notices, &Notices::changed);
    notices.withdraw(Notice::Kind::Results);
    notices.withdrawRun();
    QCOMPARE(changed.size(), 0);
}

void tst_Notices::arrivesFromAnotherThread()
{
    Notices notices;
    QStringList received;
    connect(&notices, &Notices::told, this, [&received](const Notice &notice) { received.append(notice.text); });
    std::thread runner([&notices] { notices.tell(Notices::nothingTested()); });
    runner.join();
    QVERIFY(received.isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(received, QStringList{"nothing was tested"});
}

QTEST_GUILESS_MAIN(tst_Notices)
#include "tst_Notices.moc"
