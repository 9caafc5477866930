#include "detector/checks/knownItems.h"
#include "detector/run/components.h"
#include "detector/store/checkHelpers.h"
#include "detector/store/KestDetectorFace.h"
#include "detector/store/Safeguards.h"
#include "detector/store/verdict.h"
#include "record/itemKeys.h"
#include "ui/window/KestDetectorUI.h"
#include "ui/window/stopRun.h"
#include "ui/window/stopServices.h"

#include <algorithm>
#include <iterator>
#include <QCheckBox>
#include <QLabel>
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

/// What Start asks the runner for.
QList<ComponentTask> planOf(const KestDetectorUI &window)
{
    window.findChild<QToolButton *>(QStringLiteral("tbStart"))->click();
    const QList<ComponentTask> plan = KestDetectorFace::Get()->taskList();
    KestDetectorFace::Get()->run.finish();
    return plan;
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
    void selectAllTicksWhatIsTested();
    void everyVerdictHasItsIconAndCaption_data();
    void everyVerdictHasItsIconAndCaption();
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
    const QList<ComponentTask> plan = planOf(window);
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

/// The window and the safeguards agree on the components behind which there is no test.
void tst_knownItems::selectAllTicksWhatIsTested()
{
    const KestDetectorUI window;
    window.findChild<QToolButton *>(QStringLiteral("tbChooseAll"))->click();
    QList<int> ticked;
    const QList<ComponentTask> plan = planOf(window);
    for (const ComponentTask &task : plan) {
        ticked.append(task.component);
    }
    std::sort(ticked.begin(), ticked.end());
    QList<int> tested = everyComponent();
    tested.erase(std::remove_if(tested.begin(), tested.end(), [](int id) { return !Safeguards::countsAsTested(id); }),
                 tested.end());
    QCOMPARE(ticked, tested);
}

void tst_knownItems::everyVerdictHasItsIconAndCaption_data()
{
    QTest::addColumn<int>("row");

    const std::vector<RunComponent> &components = runComponents();
    for (std::size_t i = 0; i < components.size(); ++i) {
        if (components.at(i).showResult != nullptr) {
            QTest::newRow(qPrintable(componentKey(components.at(i).id))) << static_cast<int>(i);
        }
    }
}

void tst_knownItems::everyVerdictHasItsIconAndCaption()
{
    QFETCH(const int, row);
    const RunComponent &component = runComponents().at(static_cast<std::size_t>(row));
    const KestDetectorUI window;
    (KestDetectorFace::Get()->*component.showResult)(verdict::failed);
    QList<QLabel *> shown;
    const QList<QLabel *> labels = window.findChildren<QLabel *>();
    std::copy_if(labels.begin(), labels.end(), std::back_inserter(shown),
                 [](const QLabel *label) { return label->accessibleDescription() == QLatin1String("NG"); });
    QCOMPARE(shown.size(), 1);
    const QString name = getComponent(component.id);
    QCOMPARE(shown.constFirst()->accessibleName(), name + QStringLiteral(": NG"));
    const auto *caption = window.findChild<QLabel *>(shown.constFirst()->objectName() + QLatin1Char('_'));
    QVERIFY(caption != nullptr);
    QCOMPARE(caption->text(), name);
}

QTEST_MAIN(tst_knownItems)
#include "tst_knownItems.moc"
