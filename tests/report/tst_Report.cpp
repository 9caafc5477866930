#include "hostileTexts.h"
#include "language/Language.h"
#include "outsideProgram.h"
#include "plots/plotContents.h"
#include "report/drawPlot.h"
#include "report/Report.h"

#include <cmath>
#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTranslator>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

Q_DECLARE_METATYPE(Language)

/// The report: what stands in it, that nothing from a camera is markup in it, and that a browser shows it without
/// network.
class tst_Report : public QObject
{
    Q_OBJECT

private slots:
    void writesShapesAsSvg();
    void paintsWhatItWrites();
    void plots_data();
    void plots();
    void tellsWhatWasFound();
    void speaksALanguage_data();
    void speaksALanguage();
    void leavesNoEnglishInChinese();
    void cleanup();
    void durations_data();
    void durations();
    void escapesHostileTexts_data();
    void escapesHostileTexts();
    void keepsShortTextsOnOneLine_data();
    void keepsShortTextsOnOneLine();
    void needsNothingElse();
    void isShownByABrowser();
    void isPrinted();
};

namespace {
QString svgText(const Drawing &drawing)
{
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    writeSvg(drawing, &xml);
    return QString::fromUtf8(bytes);
}

TallySums sums(qint64 runs, qint64 passed, qint64 cameras, qint64 firstPassed, qint64 finalPassed)
{
    return {runs, passed, runs - passed, 0, 0, runs * 1500, cameras, firstPassed, finalPassed};
}

Report exampleReport(const QString &text = QStringLiteral("line-2"))
{
    Report report;
    report.store = text;
    report.programName = QStringLiteral("KestHistory 1.0.3");
    report.made = QDateTime(QDate(2026, 11, 21), QTime(18, 0), Qt::OffsetFromUTC, 3600);
    Statistics &statistics = report.statistics;
    statistics.first = QDate(2026, 11, 20);
    statistics.last = QDate(2026, 11, 21);
    statistics.total = sums(12, 9, 10, 8, 9);
    statistics.byDay = {{QStringLiteral("2026-11-20"), sums(5, 4, 4, 3, 4)},
                        {QStringLiteral("2026-11-21"), sums(7, 5, 6, 5, 5)}};
    statistics.byStation = {{text, statistics.total}};
    statistics.byBatch = {{QString(), statistics.total}};
    statistics.byFirmware = {{text, statistics.total}};
    statistics.items = {{QStringLiteral("battery.info"), {12, 2, 0}}, {text, {12, 1, 3}}};
    Distribution voltage;
    voltage.item = QStringLiteral("battery.info");
    voltage.name = QStringLiteral("battery.voltage");
    voltage.unit = text;
    voltage.limit = {3.6, 4.35, {}};
    voltage.outside = 1;
    describe({3.8, 3.9, 3.9, 4.0, 4.4}, &voltage);
    report.distributions = {voltage};
    FailedCamera camera;
    camera.run.mac = QStringLiteral("60:60:1F:0A:5F:2A");
    camera.run.serial = text;
    camera.run.begin = report.made;
    camera.run.station = text;
    camera.findings = {{QStringLiteral("battery.info"), 3, QStringLiteral("failed"), text,
                        QStringLiteral("battery.voltage"), QStringLiteral("4.4"), QStringLiteral("3.6..4.35")},
                       {QStringLiteral("pcba.sensor"), 4, QStringLiteral("warning"), text, {}, {}, {}}};
    report.failed = {camera};
    return report;
}

/// All texts of a page, read by a reader that knows nothing of it: what is well-formed XML is the same HTML.
QStringList textsOf(const QByteArray &html, QString *error)
{
    QByteArray xml = html;
    xml.replace("<!DOCTYPE html>", "");
    xml.replace(QByteArray("<meta charset=\"utf-8\">"), QByteArray());
    QXmlStreamReader reader(xml);
    QStringList texts;
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::Characters && !reader.isWhitespace()) {
            texts.append(reader.text().toString());
        }
    }
    *error = reader.hasError() ? reader.errorString() : QString();
    return texts;
}
} // namespace

void tst_Report::writesShapesAsSvg()
{
    Drawing drawing{{100, 50}, QStringLiteral("a < b"), {}};
    drawing.shapes = {Box{{1, 2, 30.125, 4}, QColor(255, 0, 0), QStringLiteral("<hint>")},
                      Path{{{0, 0}, {10, 20.5}}, QColor(0, 0, 255), 1.5, true},
                      Label{{5, 6}, QStringLiteral("</text>&"), Label::Anchor::End, 10, QColor(0, 0, 0)}};
    QCOMPARE(svgText(drawing),
             QStringLiteral("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 100 50\" width=\"100\" "
                            "height=\"50\" role=\"img\" aria-label=\"a &lt; b\" font-family=\"sans-serif\">"
                            "<rect x=\"1\" y=\"2\" width=\"30.13\" height=\"4\" fill=\"#ff0000\">"
                            "<title>&lt;hint&gt;</title></rect>"
                            "<polyline points=\"0,0 10,20.5\" fill=\"none\" stroke=\"#0000ff\" stroke-width=\"1.5\" "
                            "stroke-dasharray=\"5 3\"/>"
                            "<text x=\"5\" y=\"6\" font-size=\"10\" text-anchor=\"end\" fill=\"#000000\">"
                            "&lt;/text&gt;&amp;</text></svg>"));
}

void tst_Report::paintsWhatItWrites()
{
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    Drawing drawing{{40, 20}, {}, {}};
    drawing.shapes = {Box{{0, 0, 10, 20}, Qt::red, {}}, Path{{{20.5, 0}, {20.5, 20}}, Qt::blue, 1, false}};
    paint(drawing, &painter);
    painter.end();
    QCOMPARE(image.pixelColor(5, 10), QColor(Qt::red));
    QCOMPARE(image.pixelColor(20, 10), QColor(Qt::blue));
    QCOMPARE(image.pixelColor(30, 10), QColor(Qt::white));
}

void tst_Report::plots_data()
{
    QTest::addColumn<QString>("svg");
    QTest::addColumn<int>("bars");
    QTest::addColumn<QStringList>("texts");
    const auto row = [](const char *title, const PlotContent &content, int bars, const QStringList &texts) {
        QTest::newRow(title) << svgText(drawPlot(content)) << bars << texts;
    };
    const QStringList noData = {QStringLiteral(">No data<")};
    Statistics counted;
    counted.items = {{QStringLiteral("battery.info"), {9, 3, 0}},
                     {QStringLiteral("lens.link"), {9, 1, 0}},
                     {QStringLiteral("pcba.sensor"), {9, 0, 5}}};
    row("what fails", failuresPlot({{QString(), counted}}, {}), 2,
        {QStringLiteral(">battery.info<"), QStringLiteral(">3 (75.0 % of all so far)<"),
         QStringLiteral(">1 (100.0 % of all so far)<"),
         QStringLiteral("<title>battery.info: failed in 3 of 9 runs</title>")});
    row("what fails in two parts", failuresPlot({{QStringLiteral("A"), counted}, {QStringLiteral("B"), counted}}, {}),
        4, {QStringLiteral(">lens.link<")});
    row("nothing fails", failuresPlot({{QString(), {}}}, {}), 0, noData);
    const Report report = exampleReport();
    row("yield", yieldPlot({{QString(), report.statistics}}, {}), 3, // one of the legend
        {QStringLiteral(">2026-11-20<"), QStringLiteral(">2026-11-21<"), QStringLiteral(">7 runs<"),
         QStringLiteral(">first-pass yield<"), QStringLiteral(">runs<"), QStringLiteral(">90 %<"),
         QStringLiteral(">100 %<"), QStringLiteral("<title>2026-11-20: ")});
    Statistics weeks;
    weeks.byDay = {{QStringLiteral("2026-11-02"), report.statistics.byDay.constFirst().sums},
                   {QStringLiteral("2026-11-09"), report.statistics.byDay.constFirst().sums}};
    row("weeks", yieldPlot({{QString(), weeks}}, {}), 3,
        {QStringLiteral(">2026-11-02<"), QStringLiteral(">2026-11-09<")});
    row("no days", yieldPlot({{QString(), {}}}, {}), 0, noData);
    row("duration", durationPlot({{QString(), report.statistics}}, {}), 0, {QStringLiteral(">2026-11-21<")});
    Distribution distribution = report.distributions.constFirst();
    const auto plotOf = [&distribution] { return distributionPlot({{QString(), distribution}}, {}); };
    row("distribution", plotOf(), 4, {QStringLiteral(">least 3.6<"), QStringLiteral(">most 4.35<")});
    distribution.limit.most = 1e6;
    row("a limit far away", plotOf(), 4, {QStringLiteral(">least 3.6<")});
    distribution = {};
    row("no values", plotOf(), 0, noData);
    PlotContent moments;
    moments.scale = PlotContent::Scale::Moments;
    moments.lines = {
        {QStringLiteral("Passed"), PlotLine::Style::Points, plotColour::passed, {{0, 1, {}}, {60000, 2, {}}}}};
    row("moments", moments, 2, {});
}

void tst_Report::plots()
{
    QFETCH(QString, svg);
    QFETCH(int, bars);
    QFETCH(QStringList, texts);
    QCOMPARE(svg.count(QStringLiteral("<rect ")), bars);
    for (const QString &text : texts) {
        QVERIFY2(svg.contains(text), qPrintable(text));
        QVERIFY2(!text.startsWith(QStringLiteral(">2026-")) || svg.count(text) == 1, qPrintable(text));
    }
    QVERIFY2(!svg.contains(QStringLiteral("nan")) && !svg.contains(QStringLiteral("inf,")), qPrintable(svg));
    QVERIFY(!svg.contains(QStringLiteral("1e+06")) && !svg.contains(QStringLiteral("width=\"-")));
}

void tst_Report::tellsWhatWasFound()
{
    QString error;
    const QStringList texts = textsOf(toHtml(reportPage(exampleReport())), &error);
    QCOMPARE(error, QString());
    for (const char *text :
         {"2026-11-20 to 2026-11-21", "From line-2, made 2026-11-21 18:00 by KestHistory 1.0.3", "80.0 %", "90.0 %",
          "1.50 s", "Failed cameras (1)", "60:60:1F:0A:5F:2A", "battery.voltage in battery.info, in line-2",
          "battery.info: battery.voltage 4.4 (3.6..4.35)\npcba.sensor (warning): line-2"}) {
        QVERIFY2(texts.contains(QString::fromUtf8(text)), text);
    }
    const QString numbers = QStringLiteral("n = 5, mean 4, standard deviation 0.234521, from 3.8 to 4.4, limit "
                                           "3.6..4.35, Cpk 0.50, 1 outside their limit");
    QVERIFY2(texts.contains(numbers), qPrintable(texts.join(QLatin1Char('\n'))));
    Report empty;
    empty.made = exampleReport().made;
    QVERIFY(textsOf(toHtml(reportPage(empty)), &error).contains(QStringLiteral("There are no runs in this period.")));
}

void tst_Report::cleanup()
{
    qDeleteAll(QCoreApplication::instance()->findChildren<QTranslator *>());
}

void tst_Report::speaksALanguage_data()
{
    QTest::addColumn<Language>("language");
    QTest::addColumn<QString>("html"); // the begin of its element
    QTest::addColumn<QStringList>("texts");
    const auto row = [](const char *title, Language language, const char *html, const QStringList &texts) {
        QTest::newRow(title) << language << QString::fromLatin1(html) << texts;
    };
    const QStringList english = {
        QStringLiteral("Test report"),
        QStringLiteral("2026-11-20 to 2026-11-21"),
        QStringLiteral("From line-2, made 2026-11-21 18:00 by KestHistory 1.0.3"),
        QStringLiteral("First-pass yield"),
        QStringLiteral("7 runs"),
        QStringLiteral("least 3.6"),
        QStringLiteral("1.50 s"),
        QStringLiteral("battery.info: battery.voltage 4.4 (3.6..4.35)\npcba.sensor (warning): line-2")};
    row("as written", Language::AsWritten, "<html lang=\"en\">", english);
    row("English", Language::English, "<html lang=\"en\">", english);
    row("Chinese", Language::Chinese, "<html lang=\"zh-CN\">",
        {QStringLiteral("检测报告"), QStringLiteral("2026-11-20至2026-11-21"),
         QStringLiteral("数据来自line-2，由KestHistory 1.0.3于2026-11-21 18:00生成"), QStringLiteral("一次通过率"),
         QStringLiteral("7次检测"), QStringLiteral("下限3.6"), QStringLiteral("1.50秒"),
         QStringLiteral("battery.info: battery.voltage 4.4 (3.6..4.35)\npcba.sensor（警告）: line-2")});
}

void tst_Report::speaksALanguage()
{
    QFETCH(const Language, language);
    QFETCH(const QString, html);
    QFETCH(const QStringList, texts);
    installLanguage(*QCoreApplication::instance(), language);
    const QByteArray page = toHtml(reportPage(exampleReport()));
    QVERIFY2(page.contains(html.toUtf8()), page.left(200).constData());
    QString error;
    const QStringList shown = textsOf(page, &error);
    QCOMPARE(error, QString());
    for (const QString &text : texts) {
        QVERIFY2(shown.contains(text), qPrintable(text + QLatin1Char('\n') + shown.join(QLatin1Char('\n'))));
    }
}

/// But for keys, names, and what every engineer calls so.
void tst_Report::leavesNoEnglishInChinese()
{
    installLanguage(*QCoreApplication::instance(), Language::Chinese);
    Report empty;
    empty.made = exampleReport().made;
    empty.programName = exampleReport().programName;
    Report sound = exampleReport();
    sound.failed.clear();
    sound.distributions[0].below = 1;
    sound.statistics.byDay.clear();
    sound.statistics.items.clear();
    for (const Report &report : {exampleReport(), sound, empty}) {
        QString html = QString::fromUtf8(toHtml(reportPage(report)));
        html.remove(
            QRegularExpression(QStringLiteral("<style>.*</style>"), QRegularExpression::DotMatchesEverythingOption));
        html.replace(QRegularExpression(QStringLiteral("aria-label=\"([^\"]*)\"")), QStringLiteral(">\\1<"));
        html.remove(QRegularExpression(QStringLiteral("<[^>]*>")));
        for (const char *name :
             {"battery.info", "battery.voltage", "pcba.sensor", "line-2", "KestHistory", "Cpk", "60:60:1F:0A:5F:2A"}) {
            html.remove(QLatin1String(name));
        }
        const QRegularExpressionMatch english = QRegularExpression(QStringLiteral("[A-Za-z]{2}.*")).match(html);
        QVERIFY2(!english.hasMatch(), qPrintable(english.captured()));
        QVERIFY(html.contains(QStringLiteral("检测报告")));
    }
}

void tst_Report::durations_data()
{
    QTest::addColumn<qint64>("milliseconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << qint64{0} << QStringLiteral("0.00 s");
    QTest::newRow("below a second") << qint64{481} << QStringLiteral("0.48 s");
    QTest::newRow("seconds") << qint64{12340} << QStringLiteral("12.3 s");
    QTest::newRow("minutes") << qint64{72000} << QStringLiteral("1 min 12 s");
    QTest::newRow("hours") << qint64{7500000} << QStringLiteral("2 h 05 min");
}

void tst_Report::durations()
{
    QFETCH(qint64, milliseconds);
    QTEST(durationText(std::chrono::milliseconds(milliseconds)), "text");
}

void tst_Report::escapesHostileTexts_data()
{
    addHostileTexts();
    QTest::newRow("a script") << QStringLiteral("<script>alert(1)</script>") << QString()
                              << QStringLiteral("<script>alert(1)</script>");
    QTest::newRow("an attribute") << QStringLiteral("\" onload=\"alert(1)") << QString()
                                  << QStringLiteral("\" onload=\"alert(1)");
}

void tst_Report::escapesHostileTexts()
{
    QFETCH(QString, text);
    QFETCH(QString, xml);
    const QByteArray html = toHtml(reportPage(exampleReport(text)));
    QString error;
    const QStringList texts = textsOf(html, &error);
    QCOMPARE(error, QString());
    QString expected = xml;
    // A reader takes every line break for the same.
    expected.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    QVERIFY(texts.contains(expected));
    QCOMPARE(html.count("<script"), 0);
    QCOMPARE(html.count("<td"), toHtml(reportPage(exampleReport())).count("<td"));
}

void tst_Report::keepsShortTextsOnOneLine_data()
{
    QTest::addColumn<QString>("station");
    QTest::addColumn<QString>("cell");
    const auto row = [](const char *title, const char *station, const char *cell) {
        QTest::newRow(title) << QString::fromUtf8(station) << QString::fromUtf8(cell);
    };
    row("ten characters", "line-1-001", "<td class=\"whole\">line-1-001</td>");
    row("eleven", "line-1-0001", "<td>line-1-0001</td>");
    row("five Chinese ones", "第一生产线", "<td class=\"whole\">第一生产线</td>");
    row("six of them", "第十一生产线", "<td>第十一生产线</td>");
    row("two lines", "a\nb", "<td>a\nb</td>");
    row("nothing", "", "<td class=\"whole\"></td>");
}

/// In the list of failed cameras: a MAC address of two lines is hard to read, and a name of a hundred characters must
/// not take the room from the failure.
void tst_Report::keepsShortTextsOnOneLine()
{
    QFETCH(QString, station);
    QFETCH(QString, cell);
    Report report = exampleReport();
    report.failed.first().run.station = station;
    const QString html = QString::fromUtf8(toHtml(reportPage(report)));
    const QString failed = html.mid(html.indexOf(QStringLiteral("Failed cameras")));
    QVERIFY2(failed.contains(QStringLiteral("<td class=\"whole\">60:60:1F:0A:5F:2A</td>")), qPrintable(failed));
    QVERIFY2(failed.contains(QStringLiteral("<td class=\"whole\">2026-11-21 18:00</td>")), qPrintable(failed));
    QVERIFY2(failed.contains(QStringLiteral("<th class=\"whole\">Firmware</th>")), qPrintable(failed));
    QVERIFY2(failed.contains(cell), qPrintable(failed));
}

void tst_Report::needsNothingElse()
{
    const QString html = QString::fromUtf8(toHtml(reportPage(exampleReport())));
    QString without = html;
    without.remove(QStringLiteral("http://www.w3.org/2000/svg")); // a name, not a place
    const QRegularExpression elsewhere(QStringLiteral("https?:|//[a-z]|@import|url\\(|\\ssrc=|\\shref=|<link|<iframe"));
    QVERIFY2(!without.contains(elsewhere), qPrintable(elsewhere.match(without).captured()));
    QVERIFY(html.contains(QStringLiteral("default-src 'none'")));
    QVERIFY(html.contains(QStringLiteral("size: A4")));
}

void tst_Report::isShownByABrowser()
{
    const QString browser = QStandardPaths::findExecutable(QStringLiteral("chromium"));
    if (browser.isEmpty()) {
        QSKIP("there is no chromium");
    }
    QTemporaryDir folder;
    const QString page = folder.filePath(QStringLiteral("report.html"));
    QFile file(page);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(toHtml(reportPage(exampleReport(QStringLiteral("<b>相机</b>")))));
    file.close();
    // Its socket lies in a temporary folder, and the name of a socket has room for 107 bytes alone.
    const QStringList shortNames = {QStringLiteral("TMPDIR=/tmp"), browser};
    const QStringList quietly = {QStringLiteral("--headless"),
                                 QStringLiteral("--no-sandbox"),
                                 QStringLiteral("--disable-gpu"),
                                 QStringLiteral("--disable-dev-shm-usage"),
                                 QStringLiteral("--user-data-dir=") + folder.path(),
                                 QStringLiteral("--proxy-server=127.0.0.1:1")};
    const auto browse = [&](const QStringList &arguments) {
        return runOutside(QStringLiteral("env"),
                          shortNames + quietly + arguments + QStringList(QStringLiteral("file://") + page));
    };
    const ProgramEnd dom = browse({QStringLiteral("--dump-dom")});
    QCOMPARE(dom.exitCode, 0);
    QVERIFY2(dom.output.contains(QStringLiteral("<td>&lt;b&gt;相机&lt;/b&gt;</td>")), qPrintable(dom.output));
    QCOMPARE(dom.output.count(QStringLiteral("<svg ")), 3);

    const QString picture = folder.filePath(QStringLiteral("report.png"));
    const ProgramEnd shot =
        browse({QStringLiteral("--window-size=860,1400"), QStringLiteral("--screenshot=") + picture});
    QCOMPARE(shot.exitCode, 0);
    const QImage shown(picture);
    QCOMPARE(shown.width(), 860);
    int red = 0;
    for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x) {
            red += shown.pixelColor(x, y) == colourOfPlot(plotColour::failed) ? 1 : 0;
        }
    }
    // The bars of two items that failed, the longer one 375 by 15 pixels.
    QVERIFY2(red > 5000, qPrintable(QString::number(red)));
}

void tst_Report::isPrinted()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("report.pdf"));
    QCOMPARE(writePdf(reportPage(exampleReport(QStringLiteral("<b>相机</b>"))), path), QString());
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray pdf = file.readAll();
    QVERIFY(pdf.startsWith("%PDF-"));
    QVERIFY(pdf.trimmed().endsWith("%%EOF"));
    QVERIFY(pdf.contains("/MediaBox [0 0 595"));
    QVERIFY(!writePdf(reportPage(exampleReport()), folder.filePath(QStringLiteral("nowhere/report.pdf"))).isEmpty());
    QVERIFY(!QFile::exists(folder.filePath(QStringLiteral("nowhere/report.pdf"))));
}

QTEST_MAIN(tst_Report)
#include "tst_Report.moc"
