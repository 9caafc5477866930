#include "app/station/CommandLine.h"
#include "detector/store/checkHelpers.h"
#include "language/everyLanguage.h"
#include "record/itemKeys.h"
#include "support/fileContent.h"

#include <QRegularExpression>
#include <QtTest>

/// The station's command line: what it accepts, and the message for what it does not.
class tst_CommandLine : public QObject
{
    Q_OBJECT

private slots:
    void withoutOptionsIsTheWindow();
    void unattended();
    void allNamesEveryBox();
    void helpNamesEveryOption();
    void manualNamesWhatTheHelpDoes();
    void documentsNameEveryComponent_data();
    void documentsNameEveryComponent();
    void versionIsTold();
    void itemsOfAComponent();
    void recordOptions();
    void labelsAreThoseGivenElseOfTheSettings();
    void serialIsHeldAgainstThePattern_data();
    void serialIsHeldAgainstThePattern();
    void wrongUsage_data();
    void wrongUsage();
};

namespace {
CommandLine parse(const QString &arguments)
{
    return CommandLine::parse(
        (QStringLiteral("KestDetector ") + arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts));
}
} // namespace

void tst_CommandLine::withoutOptionsIsTheWindow()
{
    QVERIFY(parse({}).mode == CommandLine::Mode::Window);
    QVERIFY(parse(QStringLiteral("--language en")).mode == CommandLine::Mode::Window);
}

void tst_CommandLine::unattended()
{
    const CommandLine line = parse(QStringLiteral(
        "--run battery,camera,battery --save-path /data --connect-timeout 7 --screenshot a.PNG --repeat 3"));
    QVERIFY(line.mode == CommandLine::Mode::Unattended);
    QCOMPARE(line.boxes, QStringList({QStringLiteral("cbBattery"), QStringLiteral("cbCamera")}));
    QCOMPARE(line.savePath, QStringLiteral("/data"));
    QCOMPARE(line.connectTimeoutSeconds, 7);
    QCOMPARE(line.screenshot, QStringLiteral("a.PNG"));
    QCOMPARE(line.repeat, 3);
    QCOMPARE(line.closeAfterMs, -1);
    QVERIFY(!line.each);
    QVERIFY(parse(QStringLiteral("--each --run camera")).each);
}

void tst_CommandLine::allNamesEveryBox()
{
    const QStringList boxes{QStringLiteral("cbCamera"),   QStringLiteral("cbGimbal"), QStringLiteral("cbBattery"),
                            QStringLiteral("cbTFCard"),   QStringLiteral("cbLens"),   QStringLiteral("cbFan"),
                            QStringLiteral("cbKeyBoard"), QStringLiteral("cbVoice"),  QStringLiteral("cbPCBA"),
                            QStringLiteral("cbLoadLog")};
    QCOMPARE(parse(QStringLiteral("--run all")).boxes, boxes);
    QCOMPARE(parse(QStringLiteral("--run camera,gimbal,battery,tfcard,lens,fan,button,audio,pcba,log")).boxes, boxes);
}

void tst_CommandLine::helpNamesEveryOption()
{
    const CommandLine line = parse(QStringLiteral("--help"));
    QVERIFY(line.mode == CommandLine::Mode::Help);
    for (const char *option : {"--run", "--json", "--junit", "--operator", "--batch", "--serial", "--save-path",
                               "--connect-timeout", "--screenshot", "--repeat", "--each", "--language", "--version"}) {
        QVERIFY2(line.message.contains(QLatin1String(option)), option);
    }
}

void tst_CommandLine::manualNamesWhatTheHelpDoes()
{
    const QByteArray manual =
        fileContent(QStringLiteral(KEST_PROJECT "/packaging/man/KestDetector.1.in")).replace("\\-", "-");
    static const QRegularExpression option(QStringLiteral("--[a-z-]+"));
    const QString help = parse(QStringLiteral("--help")).message;
    int options = 0;
    for (QRegularExpressionMatchIterator match = option.globalMatch(help); match.hasNext(); ++options) {
        const QByteArray name = match.next().captured().toLatin1();
        QVERIFY2(manual.contains(name), name.constData());
    }
    QVERIFY(options > 0);
}

/// In the order in which a run tests them; the window's boxes in the words of the window.
void tst_CommandLine::documentsNameEveryComponent_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("list");

    const QStringList keys = parse(QStringLiteral("--run nonsense"))
                                 .message.section(QStringLiteral("any of: "), 1)
                                 .split(QStringLiteral(", "));
    QStringList names;
    QStringList chineseNames;
    for (const QString &key : keys) {
        names.append(getComponent(componentOfKey(key).value_or(-1)));
        chineseNames.append(textInEveryLanguage("QObject", names.constLast()).constLast());
    }
    QTest::newRow("manual page") << "packaging/man/KestDetector.1.in"
                                 << QStringLiteral("\n%1.\n").arg(keys.join(QStringLiteral(", ")));
    QTest::newRow("completion") << "packaging/completions/KestDetector"
                                << QStringLiteral("'all %1'").arg(keys.join(QLatin1Char(' ')));
    QTest::newRow("options") << "docs/using.md" << QStringLiteral("`%1`").arg(keys.join(QStringLiteral("`, `")));
    QTest::newRow("boxes") << "README.md" << QStringLiteral(" %1.").arg(names.join(QStringLiteral(", ")));
    QTest::newRow("boxes, in Chinese") << "README.zh_CN.md"
                                       << QStringLiteral("：%1。").arg(chineseNames.join(QStringLiteral("、")));
}

void tst_CommandLine::documentsNameEveryComponent()
{
    QFETCH(const QString, file);
    QFETCH(const QString, list);
    QVERIFY2(QString::fromUtf8(fileContent(QStringLiteral(KEST_PROJECT "/") + file)).contains(list), qPrintable(list));
}

void tst_CommandLine::itemsOfAComponent()
{
    const CommandLine line = parse(QStringLiteral("--run log,camera:1+0,gimbal:0-4"));
    QVERIFY(line.mode == CommandLine::Mode::Unattended);
    QCOMPARE(line.boxes, QStringList({"cbLoadLog", "cbCamera", "cbGimbal"}));
    QCOMPARE(line.items, PlannedItems({{0, {1, 0}}, {1, {0, 1, 2, 3, 4}}}));
}

void tst_CommandLine::recordOptions()
{
    const CommandLine plain = parse(QStringLiteral("--run all"));
    QCOMPARE(plain.json, QString());
    QCOMPARE(plain.junit, QString());
    QVERIFY(plain.labels == RunLabels());
    const CommandLine line = parse(
        QStringLiteral("--run all --json - --junit out/run.xml --operator 王芳 --batch 2026-47 --serial KC0012345"));
    QVERIFY(line.mode == CommandLine::Mode::Unattended);
    QCOMPARE(line.json, QStringLiteral("-"));
    QCOMPARE(line.junit, QStringLiteral("out/run.xml"));
    QVERIFY(line.labels == (RunLabels{QStringLiteral("王芳"), QStringLiteral("2026-47"), QStringLiteral("KC0012345")}));
}

void tst_CommandLine::labelsAreThoseGivenElseOfTheSettings()
{
    Settings settings;
    settings.stationOperator = QStringLiteral("Wang");
    settings.stationBatch = QStringLiteral("47");
    QVERIFY(parse({}).labelsOver(settings) == (RunLabels{QStringLiteral("Wang"), QStringLiteral("47"), QString()}));
    QVERIFY(parse(QStringLiteral("--run all --operator Li --serial 1")).labelsOver(settings) ==
            (RunLabels{QStringLiteral("Li"), QStringLiteral("47"), QStringLiteral("1")}));
}

void tst_CommandLine::serialIsHeldAgainstThePattern_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QStringList>("refusals");

    const auto row = [](const char *name, const QStringList &options, const char *pattern, const char *refusal = "") {
        const QString text = QString::fromUtf8(refusal);
        QTest::newRow(name) << options << QString::fromLatin1(pattern)
                            << (text.isEmpty() ? QStringList() : QStringList{text});
    };
    const auto serial = [](const char *number) {
        return QStringList{QStringLiteral("--serial"), QString::fromUtf8(number)};
    };
    row("a match", serial("KC0012345"), "KC\\d{7}");
    row("too short", serial("KC001234"), "KC\\d{7}",
        R"(--serial: "KC001234" does not match Station/serialPattern="KC\d{7}")");
    row("more behind it", serial("KC0012345 "), "KC\\d{7}",
        R"(--serial: "KC0012345 " does not match Station/serialPattern="KC\d{7}")");
    row("an empty one", serial(""), ".*", R"(--serial: "" does not match Station/serialPattern=".*")");
    row("marks of a message's places", serial("%1%2"), "%2",
        R"(--serial: "%1%2" does not match Station/serialPattern="%2")");
    row("none is given", {}, "KC\\d{7}");
    row("no pattern", serial("anything"), "");
    row("an empty one without a pattern", serial(""), "");
    row("a pattern that is none tells so itself", serial("1"), "(");
}

void tst_CommandLine::serialIsHeldAgainstThePattern()
{
    QFETCH(const QStringList, options);
    QFETCH(const QString, pattern);
    Settings settings;
    settings.questions.serialPattern = SerialPattern(pattern);
    const CommandLine line = CommandLine::parse(
        QStringList{QStringLiteral("KestDetector"), QStringLiteral("--run"), QStringLiteral("all")} + options);
    QVERIFY(line.mode == CommandLine::Mode::Unattended);
    QTEST(line.refusalsBy(settings), "refusals");

    // Behind what is wrong with the settings themselves.
    settings.refusals = QStringList{QStringLiteral("first")};
    QFETCH(const QStringList, refusals);
    QCOMPARE(line.refusalsBy(settings), settings.refusals + refusals);
}

void tst_CommandLine::versionIsTold()
{
    const CommandLine line = parse(QStringLiteral("--version"));
    QVERIFY(line.mode == CommandLine::Mode::Help);
    QCOMPARE(line.message, QStringLiteral("KestDetector 1.0.3"));
}

void tst_CommandLine::wrongUsage_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("message");

    const auto row = [](const char *name, const char *arguments, const char *message) {
        QTest::newRow(name) << QString::fromLatin1(arguments) << QString::fromLatin1(message);
    };
    row("unknown component", "--run camera,gimball",
        "--run: unknown component \"gimball\"; known are all, or any of: camera, gimbal, battery, tfcard, lens, fan, "
        "button, audio, pcba, log");
    row("unknown component beside all", "--run all,x",
        "--run: unknown component \"x\"; known are all, or any of: camera, gimbal, battery, tfcard, lens, fan, button, "
        "audio, pcba, log");
    row("empty component", "--run camera,",
        "--run: unknown component \"\"; known are all, or any of: camera, gimbal, battery, tfcard, lens, fan, button, "
        "audio, pcba, log");
    row("an item that there is not", "--run gimbal:0+5",
        "--run: \"gimbal:0+5\": there is no item 5; the items are 0, 1, 2, 3, 4");
    row("an item twice", "--run camera:0+0", "--run: \"camera:0+0\": item 0 stands there twice");
    row("JUnit on standard output", "--run all --junit -", "--junit: \"-\" is no file");
    row("one file for both", "--run all --json a --junit a", "--json and --junit name the same file");
    row("a record without a run", "--json a", "--json goes with --run");
    row("run without a value", "--run", "Missing value after '--run'.");
    row("unknown option", "--runs all", "Unknown option 'runs'.");
    row("stray argument", "--run all more", "Unexpected argument \"more\"");
    row("option that goes with run", "--save-path /data", "--save-path goes with --run");
    row("time-out no number", "--run all --connect-timeout soon",
        "--connect-timeout: \"soon\" is not a whole number of 1 or more");
    row("time-out of zero", "--run all --connect-timeout 0",
        "--connect-timeout: \"0\" is not a whole number of 1 or more");
    row("time-out too long", "--run all --connect-timeout 2147484", "--connect-timeout: at most 2147483");
    row("no runs", "--run all --repeat 0", "--repeat: \"0\" is not a whole number of 1 or more");
    row("each without a run", "--each", "--each goes with --run");
    row("each camera, and a number of runs", "--run all --each --repeat 2", "--repeat does not go with --each");
    row("each camera, and in time", "--run all --each --connect-timeout 9",
        "--connect-timeout does not go with --each");
    row("each camera, and one picture", "--run all --each --screenshot a.png", "--screenshot does not go with --each");
    row("each camera, and one serial number", "--run all --each --serial KD1", "--serial does not go with --each");
    row("unknown language", "--language de --run all", "--language: \"de\" is neither en nor zh_CN");
    row("negative close time", "--run all --close-after -1",
        "--close-after: \"-1\" is not a whole number of 0 or more");
    row("screenshot of another kind", "--run all --screenshot a.jpg", "--screenshot: \"a.jpg\" does not end in .png");
}

void tst_CommandLine::wrongUsage()
{
    QFETCH(QString, arguments);
    QFETCH(QString, message);
    const CommandLine line = parse(arguments);
    QVERIFY(line.mode == CommandLine::Mode::Wrong);
    QCOMPARE(line.message, message);
}

QTEST_GUILESS_MAIN(tst_CommandLine)
#include "tst_CommandLine.moc"
