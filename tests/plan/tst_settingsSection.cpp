#include "plan/settingsSection.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using Lines = QList<QPair<QString, QString>>;
Q_DECLARE_METATYPE(Lines)

/// The lines of a section of the settings file, as somebody has written them.
class tst_settingsSection : public QObject
{
    Q_OBJECT

private slots:
    void readsLines_data();
    void readsLines();
    void readsNothingWithoutAFile();
    void tellsAWrongLine();
};

void tst_settingsSection::readsLines_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<Lines>("lines");
    const auto row = [](const char *title, const QByteArray &content, const Lines &lines) {
        QTest::newRow(title) << content << lines;
    };
    row("no section", "[BaseOption]\nwifi=1\n", {});
    row("an empty section", "[RunPlan]\n[Limits]\na=1\n", {});
    row("a value", "[RunPlan]\ncamera=1\n", {{"camera", "1"}});
    row("a value with commas", "[RunPlan]\ncamera=0,1\n", {{"camera", "0,1"}});
    row("commas in quotes", "[RunPlan]\ncamera=\"0,1\"\n", {{"camera", "0,1"}});
    row("an empty value", "[RunPlan]\ncamera=\n", {{"camera", ""}});
    row("a comma at the end", "[RunPlan]\ncamera=0,\n", {{"camera", "0,"}});
    row("a key with points, a value with points", "[RunPlan]\nbattery.voltage=3.6..4.35\n",
        {{"battery.voltage", "3.6..4.35"}});
    row("bars", "[RunPlan]\nfirmware=1.2.3|1.2.4\n", {{"firmware", "1.2.3|1.2.4"}});
    row("in the order of their keys", "[RunPlan]\ngimbal=4\ncamera=1\n", {{"camera", "1"}, {"gimbal", "4"}});
    row("a key below a key", "[RunPlan]\na/b=1\n", {{"a/b", "1"}});
}

void tst_settingsSection::readsLines()
{
    QFETCH(QByteArray, content);
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("option.ini")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
    file.close();
    Lines lines;
    const QList<SettingsLine> read = readSettingsSection(file.fileName(), QStringLiteral("RunPlan"));
    for (const SettingsLine &line : read) {
        lines.append({line.key, line.value});
    }
    QTEST(lines, "lines");
}

void tst_settingsSection::readsNothingWithoutAFile()
{
    const QTemporaryDir folder;
    QVERIFY(readSettingsSection(folder.filePath(QStringLiteral("option.ini")), QStringLiteral("RunPlan")).isEmpty());
}

void tst_settingsSection::tellsAWrongLine()
{
    QCOMPARE(wrongLine(QStringLiteral("option.ini"), QStringLiteral("Limits"),
                       {QStringLiteral("firm%2ware"), QStringLiteral("%1")}, QStringLiteral("why")),
             QStringLiteral("option.ini: Limits/firm%2ware=\"%1\": why"));
}

QTEST_GUILESS_MAIN(tst_settingsSection)
#include "tst_settingsSection.moc"
