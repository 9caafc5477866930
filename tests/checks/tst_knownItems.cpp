#include "detector/checks/knownItems.h"
#include "detector/store/componentId.h"
#include "detector/store/KestDetectorFace.h"
#include "record/itemKeys.h"
#include "ui/window/KestDetectorUI.h"
#include "ui/window/stopRun.h"
#include "ui/window/stopServices.h"

#include <QCheckBox>
#include <QTest>
#include <QToolButton>

/// Nothing runs here that could be stopped.
void stopServices() {}
bool stopRun()
{
    return false;
}

/// Holds the window's plan against what the check routines know: an item that they do not know would be skipped, and
/// its component pass untested.
class tst_knownItems : public QObject
{
    Q_OBJECT

private slots:
    void everyItemHasAKey();
    void windowsPlanNamesOnlyKnownItems();
};

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
