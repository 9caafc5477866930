#include "detector/checks/knownItems.h"
#include "detector/store/componentId.h"
#include "detector/store/KestDetectorFace.h"
#include "record/itemKeys.h"
#include "ui/window/KestDetectorUI.h"
#include "ui/window/stopServices.h"

#include <QCheckBox>
#include <QTest>
#include <QToolButton>

/// Nothing runs here that could be stopped.
void stopServices() {}

/// Holds the window's plan against what the check routines know: an item that they do not know would be skipped, and
/// its component pass untested.
class tst_knownItems : public QObject
{
    Q_OBJECT

private slots:
    void component_data();
    void component();
    void everyItemHasAKey();
    void windowsPlanNamesOnlyKnownItems();
};

void tst_knownItems::component_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QList<int>>("items");

    QTest::newRow("camera") << 0 << QList<int>{0, 1};
    QTest::newRow("gimbal") << 1 << QList<int>{0, 1, 2, 3, 4};
    QTest::newRow("battery") << 2 << QList<int>{0, 1, 2, 3};
    QTest::newRow("fan") << 3 << QList<int>{0};
    QTest::newRow("button") << 4 << QList<int>{0};
    QTest::newRow("lens") << 5 << QList<int>{0, 1};
    QTest::newRow("TF card") << 6 << QList<int>{0, 1};
    QTest::newRow("audio") << 7 << QList<int>{0};
    QTest::newRow("main board") << 8 << QList<int>{0, 1, 2, 3, 4, 5, 6};
    QTest::newRow("log") << 9 << QList<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    QTest::newRow("below the components") << -1 << QList<int>{};
    QTest::newRow("above the components") << 10 << QList<int>{};
}

void tst_knownItems::component()
{
    QFETCH(const int, id);
    QTEST(knownItems(id), "items");
}

/// What the checks know has a key in records and can be planned, and nothing else has.
void tst_knownItems::everyItemHasAKey()
{
    for (int id = -1; id <= componentId::log + 1; ++id) {
        QCOMPARE(itemNumbers(id), knownItems(id));
        QCOMPARE(componentKey(id).isEmpty(), knownItems(id).isEmpty());
    }
}

void tst_knownItems::windowsPlanNamesOnlyKnownItems()
{
    const KestDetectorUI window;
    const QList<QCheckBox *> boxes = window.findChildren<QCheckBox *>();
    for (QCheckBox *box : boxes) {
        box->setChecked(true);
    }
    window.findChild<QToolButton *>(QStringLiteral("tbStart"))->click();
    const QList<ComponentTask> plan = KestDetectorFace::Get()->taskList();
    QCOMPARE(plan.size(), 10);
    for (const ComponentTask &task : plan) {
        const QList<int> known = knownItems(task.component);
        QVERIFY(!task.items.isEmpty());
        for (const int item : task.items) {
            QVERIFY2(known.contains(item), qPrintable(QStringLiteral("%1:%2").arg(task.component).arg(item)));
        }
    }
}

QTEST_MAIN(tst_knownItems)
#include "tst_knownItems.moc"
