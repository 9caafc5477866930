#include "exampleRecord.h"
#include "exchange/csv.h"
#include "hostileTexts.h"
#include "outsideProgram.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>

/// Records as comma-separated values, read again by a reader that is not ours.
class tst_csv : public QObject
{
    Q_OBJECT

private slots:
    void cells_data();
    void cells();
    void rendersARun();
    void keepsHostileTexts_data();
    void keepsHostileTexts();
};

void tst_csv::cells_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("cell");
    const auto row = [](const char *title, const QString &text, const char *cell) {
        QTest::newRow(title) << text << QByteArray(cell);
    };
    row("empty", {}, "");
    row("plain", QStringLiteral("Hall 3"), "Hall 3");
    row("Chinese", QStringLiteral("王芳"), "王芳");
    row("comma", QStringLiteral("a,b"), "\"a,b\"");
    row("quotes", QStringLiteral("a\"b"), "\"a\"\"b\"");
    row("line break", QStringLiteral("a\nb"), "\"a\nb\"");
    row("blank at its end", QStringLiteral("a "), "\"a \"");
    row("formula", QStringLiteral("=1+1"), "'=1+1");
    row("formula in quotes", QStringLiteral("=HYPERLINK(\"http://x\",\"y\")"),
        "\"'=HYPERLINK(\"\"http://x\"\",\"\"y\"\")\"");
    row("plus", QStringLiteral("+cmd|x"), "'+cmd|x");
    row("minus", QStringLiteral("-2+3"), "'-2+3");
    row("at", QStringLiteral("@SUM(A1)"), "'@SUM(A1)");
    row("formula in full width", QStringLiteral(u"\uFF1D1"), "'＝1");
    row("formula behind a tab", QStringLiteral("\t=1"), "'\t=1");
    row("formula behind a line break", QStringLiteral("\n=1"), "\"'\n=1\"");
    row("negative number", QStringLiteral("-250"), "-250");
    row("negative fraction", QStringLiteral("-2.5e-3"), "-2.5e-3");
    row("number with a sign", QStringLiteral("+3"), "+3");
    row("only a sign", QStringLiteral("-"), "'-");
    row("a sign within", QStringLiteral("a=b"), "a=b");
    row("zero", QStringLiteral("a") + QChar(0), "a\xEF\xBF\xBD");
}

void tst_csv::cells()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, cell);
    QCOMPARE(csvCell(text), cell);
}

void tst_csv::rendersARun()
{
    const QByteArray begin = "0b5f6d0e-8f0a-4c57-9c1e-3a2f5d7b9e10,2026-11-21T09:30:00.250+01:00,"
                             "2026-11-21T09:30:00.731+01:00,481.25,line-2-left,Hall 3,王芳,2026-47,KC0012345,"
                             "60:60:1F:0A:5F:2A,Camera-5F2A,wifi,1.2.3,1.0.3,failed,battery.info,";
    const QByteArray info = begin + "battery,failed,battery.info,failed,1.204,获取电池信息成功,";
    const QList<QByteArray> expected = {
        begin + "camera,passed,camera.video,passed,0.812,相机视频流OK,camera.statusWord,0x000000000008001a,,,,",
        begin + "battery,failed,battery.link,passed,0.79,相机电池通信OK,,,,,,",
        info + "battery.voltage,4.36,V,3.6,4.35,",
        info + "battery.current,-250,mA,,,",
        info + "battery.temperature,25.34,°C,,45,",
        info + "battery.softwareVersion,1.2.3.4,,,,",
        begin + "log,passed,log.version,passed,30.5,,firmware,1.2.3,,,,1.2.3|1.2.4",
    };
    QByteArray lines = csvLines(exampleRecord());
    QVERIFY(lines.endsWith("\r\n"));
    lines.chop(2);
    QCOMPARE(lines.replace("\r\n", "\n").split('\n'), expected);
    QCOMPARE(csvBegin(), QByteArray("\xEF\xBB\xBF"));
    QCOMPARE(csvHeading(),
             QByteArray("run,begin,end,duration ms,station,location,operator,batch,serial,mac,wifi name,link,firmware,"
                        "program version,outcome,reason,component,component verdict,item,item verdict,"
                        "item duration ms,message,measurement,value,unit,least,most,one of\r\n"));
    RunRecord empty = exampleRecord();
    empty.components.clear();
    QCOMPARE(csvLines(empty), begin + ",,,,,,,,,,,\r\n");
}

void tst_csv::keepsHostileTexts_data()
{
    addHostileTexts();
}

void tst_csv::keepsHostileTexts()
{
    QFETCH(QString, text);
    QFETCH(QString, xml);
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("runs.csv")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(csvBegin() + csvHeading() + csvLine({text, QStringLiteral("end")}));
    file.close();
    const ProgramEnd end = runOutside(QStringLiteral("python3"),
                                      {QStringLiteral("-IS"), QStringLiteral("-c"),
                                       QStringLiteral("import csv, json, sys\n"
                                                      "csv.field_size_limit(1 << 20)\n"
                                                      "with open(sys.argv[1], newline='', encoding='utf-8-sig') as f:\n"
                                                      "    print(json.dumps(list(csv.reader(f))[1]))"),
                                       file.fileName()});
    QCOMPARE(end.exitCode, 0);
    const QJsonArray cells = QJsonDocument::fromJson(end.output.toUtf8()).array();
    QCOMPARE(cells.size(), 2);
    QCOMPARE(cells.at(0).toString(), xml);
    QCOMPARE(cells.at(1).toString(), QStringLiteral("end"));
}

QTEST_APPLESS_MAIN(tst_csv)
#include "tst_csv.moc"
