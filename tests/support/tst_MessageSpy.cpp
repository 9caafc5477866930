#include "support/MessageSpy.h"

#include <atomic>
#include <QtTest>
#include <thread>

namespace {
void discard(QtMsgType, const QMessageLogContext &, const QString &) {}
} // namespace

/// The spy that other tests rely on.
class tst_MessageSpy : public QObject
{
    Q_OBJECT

private slots:
    void collectsWhileItLives();
    void comesAndGoesWhileAnotherThreadTalks();
};

void tst_MessageSpy::collectsWhileItLives()
{
    const MessageSpy spy;
    qWarning("one");
    qDebug("two");
    QCOMPARE(spy.messages(), QStringList({QStringLiteral("one"), QStringLiteral("two")}));
    QCOMPARE(spy.containing(QStringLiteral("w")), QStringList(QStringLiteral("two")));
}

void tst_MessageSpy::comesAndGoesWhileAnotherThreadTalks()
{
    const QtMessageHandler earlier = qInstallMessageHandler(discard);
    std::atomic<bool> enough{false};
    std::thread talker([&enough] {
        while (!enough) {
            qDebug("talk");
        }
    });
    int heard = 0;
    while (heard < 200) {
        const MessageSpy spy;
        std::this_thread::yield();
        heard += spy.messages().isEmpty() ? 0 : 1;
    }
    enough = true;
    talker.join();
    qInstallMessageHandler(earlier);
}

QTEST_APPLESS_MAIN(tst_MessageSpy)
#include "tst_MessageSpy.moc"
