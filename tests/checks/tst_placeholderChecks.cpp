#include "detector/checks/placeholderChecks.h"
#include "detector/store/KestDetectorFace.h"
#include "support/CheckTest.h"

#include <QTest>

using ComponentRoutine = QString (*)(int *, const QList<int> &);
using ItemRoutine = QString (*)(int *);
Q_DECLARE_METATYPE(ComponentRoutine)
Q_DECLARE_METATYPE(ItemRoutine)

/// Fan, keys and audio.
class tst_placeholderChecks : public QObject
{
    Q_OBJECT

private slots:
    void walksItems_data();
    void walksItems();
    void itemPasses_data();
    void itemPasses();
};

void tst_placeholderChecks::walksItems_data()
{
    QTest::addColumn<ComponentRoutine>("routine");
    QTest::addColumn<QList<int>>("items");
    QTest::addColumn<QStringList>("events");
    QTest::newRow("fan") << ComponentRoutine(checkFan) << QList<int>{0}
                         << QStringList{"progress 0", "item Fan", "progress 100"};
    QTest::newRow("keys") << ComponentRoutine(checkKeyBoard) << QList<int>{0}
                          << QStringList{"progress 0", "item Button", "progress 100"};
    QTest::newRow("audio, with its line break") << ComponentRoutine(checkVoice) << QList<int>{0}
                                                << QStringList{"progress 0", "item audio test\n", "progress 100"};
    QTest::newRow("no items: only the first progress")
        << ComponentRoutine(checkFan) << QList<int>() << QStringList{"progress 0"};
    QTest::newRow("an unknown item only advances the progress")
        << ComponentRoutine(checkVoice) << QList<int>{1, 0, 5}
        << QStringList{"progress 0", "progress 33", "item audio test\n", "progress 66", "progress 100"};
}

void tst_placeholderChecks::walksItems()
{
    QFETCH(ComponentRoutine, routine);
    QFETCH(QList<int>, items);
    const FacadeSpy spy;
    const Outcome outcome = runComponent(routine, items);
    QCOMPARE(outcome.verdict, 0);
    QCOMPARE(outcome.text, QString());
    QTEST(spy.events(), "events");
    QVERIFY(KestDetectorFace::Get()->checkLogList().isEmpty());
}

void tst_placeholderChecks::itemPasses_data()
{
    QTest::addColumn<ItemRoutine>("routine");
    QTest::newRow("fan") << ItemRoutine(checkFanOpen);
    QTest::newRow("keys") << ItemRoutine(checkKeyBoardClicked);
    QTest::newRow("audio") << ItemRoutine(checkVoiceSignal);
}

void tst_placeholderChecks::itemPasses()
{
    QFETCH(ItemRoutine, routine);
    int verdict = 99;
    QCOMPARE(routine(&verdict), QString());
    QCOMPARE(verdict, 0);
}

QTEST_GUILESS_MAIN(tst_placeholderChecks)
#include "tst_placeholderChecks.moc"
