#include "app/station/Chime.h"

#include <QLibrary>
#include <QRegularExpression>
#include <QTest>

namespace {
const QString fakeSounds = QStringLiteral(KEST_FAKE_SOUNDS);

QByteArray whatWasAsked()
{
    QLibrary library(fakeSounds);
    const auto function = reinterpret_cast<const char *(*)()>(library.resolve("whatWasAsked"));
    return function == nullptr ? QByteArray("(no library)") : QByteArray(function());
}
} // namespace

class tst_Chime : public QObject
{
    Q_OBJECT

private slots:
    void init() { whatWasAsked(); }
    void cleanup() { qunsetenv("FAKE_SOUNDS_FAIL"); }

    void soundsOfTheVerdicts();
    void silentWithoutTheLibrary();
    void silentWithoutAContext();
};

void tst_Chime::soundsOfTheVerdicts()
{
    {
        Chime chime(fakeSounds);
        chime.tell(true);
        chime.tell(false);
        QCOMPARE(whatWasAsked(), QByteArray("0 event.id complete\n0 event.id dialog-error\n"));
    }
    QCOMPARE(whatWasAsked(), QByteArray("destroyed\n"));
}

void tst_Chime::silentWithoutTheLibrary()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^No sounds: .*no-such-library")));
    Chime chime(QStringLiteral("no-such-library"));
    chime.tell(true);
    chime.tell(false);
}

void tst_Chime::silentWithoutAContext()
{
    qputenv("FAKE_SOUNDS_FAIL", "1");
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^No sounds: ")));
    {
        Chime chime(fakeSounds);
        chime.tell(true);
    }
    QCOMPARE(whatWasAsked(), QByteArray());
}

QTEST_APPLESS_MAIN(tst_Chime)
#include "tst_Chime.moc"
