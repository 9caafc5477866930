#include "detector/checks/knownItems.h"
#include "detector/run/components.h"
#include "detector/store/KestDetectorFace.h"
#include "record/itemKeys.h"
#include "ui/window/KestDetectorUI.h"
#include "ui/window/stopRun.h"
#include "ui/window/stopServices.h"

#include <algorithm>
#include <QCheckBox>
#include <QTest>
#include <QToolButton>

/// Nothing runs here that could be stopped.
void stopServices() {}
bool stopRun()
{
    return false;
}

namespace {
/// The ids, ascending.
QList<int> everyComponent()
{
    QList<int> ids;
    for (const ComponentKey &component : componentKeys) {
        ids.append(component.id);
    }
    return ids;
}
} // namespace

/// Holds the tables of components and items against each other: an item that the check routines do not know would be
/// skipped, and its component pass untested; a component that the runner does not know would fail each run.
class tst_knownItems : public QObject
{
    Q_OBJECT

private slots:
    void everyItemHasAKey();
    void everyComponentCanBeRun();
    void windowsPlanNamesOnlyKnownItems();
};

/// What the checks know has a key in records and can be planned, and nothing else has.
void tst_knownItems::everyItemHasAKey()
{
    for (int id = -1; id <= static_cast<int>(componentKeys.size()); ++id) {
        QCOMPARE(itemNumbers(id), knownItems(id));
        QCOMPARE(componentKey(id).isEmpty(), knownItems(id).isEmpty());
    }
}

void tst_knownItems::everyComponentCanBeRun()
{
    QList<int> known;
    for (const RunComponent &component : runComponents()) {
        known.append(component.id);
    }
    std::sort(known.begin(), known.end());
    QCOMPARE(known, everyComponent());
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
    QList<int> planned;
    for (const ComponentTask &task : plan) {
        planned.append(task.component);
        const QList<int> known = knownItems(task.component);
        QVERIFY(!task.items.isEmpty());
        for (const int item : task.items) {
            QVERIFY2(known.contains(item), qPrintable(QStringLiteral("%1:%2").arg(task.component).arg(item)));
        }
    }
    std::sort(planned.begin(), planned.end());
    QCOMPARE(planned, everyComponent());
}

QTEST_MAIN(tst_knownItems)
#include "tst_knownItems.moc"
