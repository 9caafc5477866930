#include "camera/client/SparingWarning.h"
#include "support/MessageSpy.h"

#include <QtTest>

class tst_SparingWarning : public QObject
{
    Q_OBJECT

private slots:
    void floodIsToldOnce();
    void laterOneTellsHowManyWereNot();
};

void tst_SparingWarning::floodIsToldOnce()
{
    SparingWarning warning;
    const MessageSpy spy;
    for (int count = 0; count < 1000; ++count) {
        warning.tell(QStringLiteral("number %1").arg(count));
    }
    QCOMPARE(spy.messages(), QStringList{QStringLiteral("number 0")});
}

void tst_SparingWarning::laterOneTellsHowManyWereNot()
{
    SparingWarning warning(std::chrono::seconds(10));
    const MessageSpy spy;
    const auto tellAt = [&](int second, const char *text) {
        warning.tell(QString::fromLatin1(text), SparingWarning::Clock::time_point(std::chrono::seconds(second)));
    };
    tellAt(100, "first");
    tellAt(101, "second");
    tellAt(109, "third");
    tellAt(110, "fourth");
    tellAt(120, "fifth");
    QCOMPARE(spy.messages(),
             QStringList({QStringLiteral("first"), QStringLiteral("fourth (and 2 more since the last one told)"),
                          QStringLiteral("fifth")}));
}

QTEST_APPLESS_MAIN(tst_SparingWarning)
#include "tst_SparingWarning.moc"
