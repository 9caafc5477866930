#include "exampleRecord.h"
#include "record/itemKeys.h"
#include "record/recordJson.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonValue>
#include <QTest>

/// What docs/record.md says of the record.
class tst_recordDocument : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void showsTheExample();
    void namesEveryComponentAndItem();
    void namesEveryMeasurementAndItsUnit();
    void schemaKnowsEveryComponent();

private:
    QString m_document;
};

void tst_recordDocument::initTestCase()
{
    QFile file(QStringLiteral(KEST_PROJECT "/docs/record.md"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    m_document = QString::fromUtf8(file.readAll());
}

void tst_recordDocument::showsTheExample()
{
    const QString begin = QStringLiteral("```json\n");
    const int from = m_document.indexOf(begin) + begin.size();
    const QString example = m_document.mid(from, m_document.indexOf(QStringLiteral("```"), from) - from);
    QCOMPARE(example, QString::fromUtf8(toJson(exampleRecord())));
}

void tst_recordDocument::namesEveryComponentAndItem()
{
    for (const ComponentKey &component : componentKeys) {
        QStringList items;
        for (const ItemKey &item : itemKeys) {
            if (item.component == component.id) {
                items.append(QStringLiteral("%1 `%2`").arg(item.number).arg(QLatin1String(item.key)));
            }
        }
        const QString row =
            QStringLiteral("| %1 `%2` | %3 |\n")
                .arg(QString::number(component.id), QLatin1String(component.key), items.join(QStringLiteral(", ")));
        QVERIFY2(m_document.contains(row), qPrintable(row));
    }
}

void tst_recordDocument::namesEveryMeasurementAndItsUnit()
{
    for (const FieldInfo &info : fieldInfos) {
        const QString unit = QString::fromUtf8(info.unit);
        const QString row = QStringLiteral("| `%1` |%2")
                                .arg(QLatin1String(info.name),
                                     unit.isEmpty() ? QStringLiteral(" |") : QStringLiteral(" %1 |").arg(unit));
        QVERIFY2(m_document.contains(row), qPrintable(row));
    }
}

void tst_recordDocument::schemaKnowsEveryComponent()
{
    QFile file(QStringLiteral(KEST_PROJECT "/docs/record.schema.json"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QJsonValue key =
        QJsonDocument::fromJson(file.readAll())[QStringLiteral("definitions")][QStringLiteral("componentKey")];
    QStringList keys;
    for (const ComponentKey &component : componentKeys) {
        keys.append(QLatin1String(component.key));
    }
    QCOMPARE(key[QStringLiteral("enum")].toVariant().toStringList(), keys);
}

QTEST_GUILESS_MAIN(tst_recordDocument)
#include "tst_recordDocument.moc"
