#include "exchange/logLines.h"
#include "language/everyLanguage.h"
#include "record/itemKeys.h"

#include <algorithm>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

Q_DECLARE_METATYPE(Verdict)
Q_DECLARE_METATYPE(Limit)
Q_DECLARE_METATYPE(MeasuredValue)

/// The lines of a detection log, one by one, and against what the checks write.
class tst_logLines : public QObject
{
    Q_OBJECT

private slots:
    void headings_data();
    void headings();
    void namesWhateverLeavesLines();
    void verdicts_data();
    void verdicts();
    void measurements_data();
    void measurements();
    void limits_data();
    void limits();
    void knowsWhatTheChecksWrite_data();
    void knowsWhatTheChecksWrite();
    void readsEverySourceOfTheChecks();
};

namespace {
struct CheckSource
{
    const char *title;
    const char *file; ///< below src/detector/checks
    int component;
    int least; ///< texts with a line break that it has
};

constexpr CheckSource checkSources[] = {
    {"camera", "cameraChecks.cpp", 0, 24},   {"gimbal", "gimbalChecks.cpp", 1, 21},
    {"battery", "batteryChecks.cpp", 2, 20}, {"lens", "lensChecks.cpp", 5, 3},
    {"card", "tfCardChecks.cpp", 6, 10},     {"main board", "pcbaChecks.cpp", 8, 18},
};

/// Whether `line` is read as `written`, which is a line of the component or a form for one.
bool meansTheSame(int component, QString line, const QString &written)
{
    if (!written.contains(QLatin1String("%1"))) {
        const std::optional<VerdictLine> meant = readVerdictLine(component, written);
        const std::optional<VerdictLine> read = readVerdictLine(component, line);
        return meant && read && read->item == meant->item && read->verdict == meant->verdict && read->rest.isEmpty();
    }
    // Shown as words, not as values.
    const QStringList words = {QStringLiteral("电池警告:"), QStringLiteral("充电器状态:"),
                               QStringLiteral("麦克风状态:"), QStringLiteral("POGO_PIN状态:")};
    if (words.contains(written.section(QLatin1Char('%'), 0, 0))) {
        return true;
    }
    line.replace(QRegularExpression(QStringLiteral("%\\d")), QStringLiteral("1"));
    const QList<int> items = itemNumbers(component);
    return std::any_of(items.begin(), items.end(),
                       [component, &line](int item) { return readReportLine(component, item, line).has_value(); });
}
} // namespace

void tst_logLines::headings_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("component");
    const auto row = [](const char *line, int component) {
        QTest::newRow(line) << QString::fromUtf8(line) << component;
    };
    row("[Camera]:", 0);
    row("[Gimbal]:", 1);
    row("[Battery]:", 2);
    row("[Lens]:", 5);
    row("[TF Card]:", 6);
    row("[PCBA]:", 8);
    row("[TF card]:", 6);
    row("[电池]:", 2);
    row("[Fan]:", -1);
    row("[camera]:", -1);
    row("[Camera]", -1);
    row(" [Camera]:", -1);
    row("[Camera]: ", -1);
    row("", -1);
}

void tst_logLines::headings()
{
    QFETCH(QString, line);
    QFETCH(int, component);
    QCOMPARE(componentOfHeading(line).value_or(-1), component);
}

void tst_logLines::namesWhateverLeavesLines()
{
    const QStringList noBlock{QStringLiteral("fan"), QStringLiteral("button"), QStringLiteral("audio"),
                              QStringLiteral("log")};
    for (const ComponentKey &component : componentKeys) {
        const bool leavesNone = noBlock.contains(QLatin1String(component.key));
        QVERIFY2(componentHeadingName(component.id).isEmpty() == leavesNone, component.key);
    }
    const QStringList onlyNamed{QStringLiteral("battery.charging"), QStringLiteral("lens.status"),
                                QStringLiteral("pcba.lensDriver")};
    for (const ItemKey &item : itemKeys) {
        const bool leavesNone =
            noBlock.contains(componentKey(item.component)) || onlyNamed.contains(QLatin1String(item.key));
        QVERIFY2(loggedItemName(item.component, item.number).isEmpty() == leavesNone, item.key);
    }
}

void tst_logLines::verdicts_data()
{
    QTest::addColumn<int>("component");
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("item");
    QTest::addColumn<Verdict>("verdict");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("rest");
    const auto row = [](const char *title, int component, const char *line, int item, Verdict verdict,
                        const char *message, const char *rest) {
        QTest::newRow(title) << component << QString::fromUtf8(line) << item << verdict << QString::fromUtf8(message)
                             << QString::fromUtf8(rest);
    };
    const Verdict none = Verdict::NotTested;
    row("passed", 0, "相机视频流OK", 0, Verdict::Passed, "相机视频流OK\n", "");
    row("failed", 0, "相机视频流NG", 0, Verdict::Failed, "相机视频流NG\n", "");
    row("not answered", 0, "获取相机视频流状态失败", 0, Verdict::Failed, "获取相机视频流状态失败\n", "");
    row("of another component", 1, "相机视频流OK", -1, none, "", "");
    row("only the begin of one", 0, "相机视频流", -1, none, "", "");
    row("more than one", 0, "相机视频流OK!", -1, none, "", "");
    row("yaw fails in the words of pitch", 1, "Pitch轴运动检测NG", 4, Verdict::Failed, "Pitch轴运动检测NG\n", "");
    row("yaw fails in its own English words", 1, "Yaw axis motion NG", 4, Verdict::Failed, "Yaw axis motion NG\n", "");
    row("yaw fails in its own Chinese words", 1, "偏航轴运动检测NG", 4, Verdict::Failed, "偏航轴运动检测NG\n", "");
    row("passed, in English", 0, "Video stream OK", 0, Verdict::Passed, "Video stream OK\n", "");
    row("a card's English report", 6, "Sector size: 32 K", 0, Verdict::Passed, "", "");
    row("card with state and reason in Chinese", 6, "SD卡已满，错误原因：SD卡为低速卡", 0, Verdict::Failed,
        "SD卡已满，错误原因：SD卡为低速卡\n", "");
    row("slow card", 6, "警告:非高SD速卡", 1, Verdict::Warning, "警告:非高SD速卡\n", "");
    row("a card's report", 6, "扇区大小:32K", 0, Verdict::Passed, "", "");
    row("card with state and reason", 6, "SD卡被拔出,错误原因:SD卡挂载失败", 0, Verdict::Failed,
        "SD卡被拔出,错误原因:SD卡挂载失败\n", "");
    row("card with a state alone, and the next item on its line", 6, "SD卡满SD Card OK", 0, Verdict::Failed, "SD卡满",
        "SD Card OK");
    row("card with a reason alone", 6, ",错误原因:SD卡低速卡", 0, Verdict::Failed, ",错误原因:SD卡低速卡\n", "");
    row("card that is not mounted", 6, "SD卡未挂载", 1, Verdict::Failed, "SD卡未挂载\n", "");
    row("board without its mark", 8, "云台主控板工厂未检测", 2, Verdict::Warning, "云台主控板工厂未检测\n", "");
    row("board that does not answer", 8, "获取云台主控板工厂检测标志位失败", 2, Verdict::Warning,
        "获取云台主控板工厂检测标志位失败\n", "");
    row("an empty line", 0, "", -1, none, "", "");
}

void tst_logLines::verdicts()
{
    QFETCH(int, component);
    QFETCH(QString, line);
    QFETCH(int, item);
    QFETCH(Verdict, verdict);
    QFETCH(QString, message);
    QFETCH(QString, rest);
    const std::optional<VerdictLine> read = readVerdictLine(component, line);
    QCOMPARE(read ? read->item : -1, item);
    if (read) {
        QCOMPARE(read->verdict, verdict);
        QCOMPARE(read->message, message);
        QCOMPARE(read->rest, rest);
        QCOMPARE(read->isReport, message.isEmpty());
    }
}

void tst_logLines::measurements_data()
{
    QTest::addColumn<int>("component");
    QTest::addColumn<int>("item");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char *line, int component, int item, const char *shown) {
        QTest::addRow("%s of %d.%d", line, component, item)
            << component << item << QString::fromUtf8(line) << QString::fromUtf8(shown);
    };
    row("voltage:3.85V", 2, 2, "battery.voltage=3.85 V");
    row("voltage:3.85V", 2, 1, "battery.voltage=3.85 V");
    row("voltage:3.85V", 2, 0, "");
    row("voltage:3.85", 2, 2, "");
    row("voltage:V", 2, 2, "");
    row("voltage:nanV", 2, 2, "");
    row("voltage:infV", 2, 2, "");
    row("electricity:-250mA", 2, 2, "battery.current=-250 mA");
    row("temperature:25.34℃", 2, 1, "battery.temperature=25.34 °C");
    row("electric quantity:87%", 2, 1, "battery.charge=87 %");
    row("electric quantity :87%", 2, 2, "battery.charge=87 %");
    row("Sub_ID:0x1f", 2, 2, "battery.subId=31 ");
    row("software version:1.2.3.4", 2, 2, "battery.softwareVersion=1.2.3.4 ");
    row("满电容量:1480mAh", 2, 2, "battery.capacity=1480 mAh");
    row("总内存:30436.5MB", 6, 0, "card.total=30436.5 MiB");
}

void tst_logLines::measurements()
{
    QFETCH(int, component);
    QFETCH(int, item);
    QFETCH(QString, line);
    QFETCH(QString, shown);
    const std::optional<Measurement> read = readReportLine(component, item, line);
    QString text;
    if (read) {
        const QString *asText = std::get_if<QString>(&read->value);
        const QString value = asText != nullptr ? *asText : QString::number(std::get<double>(read->value), 'g', 10);
        text = QStringLiteral("%1=%2 %3").arg(read->name, value, read->unit);
    }
    QCOMPARE(text, shown);
}

void tst_logLines::limits_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("name");
    QTest::addColumn<MeasuredValue>("value");
    QTest::addColumn<Limit>("limit");
    const auto row = [](const char *line, const char *name, const MeasuredValue &value, const Limit &limit) {
        QTest::newRow(line) << QString::fromUtf8(line) << QString::fromUtf8(name) << value << limit;
    };
    row("battery.voltage: 4.36 V (3.6..4.35)", "battery.voltage", 4.36, {3.6, 4.35, {}});
    row("battery.temperature: 45.5 °C (..45)", "battery.temperature", 45.5, {{}, 45, {}});
    row("battery.cycles: 301 (..300)", "battery.cycles", 301.0, {{}, 300, {}});
    row("firmware: 1.2.2 (1.2.3|1.2.4)", "firmware", QStringLiteral("1.2.2"),
        {{}, {}, {QStringLiteral("1.2.3"), QStringLiteral("1.2.4")}});
    row("firmware: 1 (beta) (1.2.3)", "firmware", QStringLiteral("1 (beta)"), {{}, {}, {QStringLiteral("1.2.3")}});
    for (const char *none : {"battery.voltage: 4.36 V", "voltage: 4.36 V (3.6..4.35)", "battery.voltage: 4 V (x..y)",
                             "battery.voltage: much (3.6..4.35)", "(3.6..4.35)", ": ()", ""}) {
        QTest::addRow("none: %s", none) << QString::fromUtf8(none) << QString() << MeasuredValue{} << Limit{};
    }
}

void tst_logLines::limits()
{
    QFETCH(QString, line);
    QFETCH(QString, name);
    QFETCH(MeasuredValue, value);
    QFETCH(Limit, limit);
    const std::optional<Measurement> read = readLimitLine(line);
    QCOMPARE(read ? read->name : QString(), name);
    if (read) {
        QVERIFY(read->value == value);
        QVERIFY(read->limit == limit);
    }
}

void tst_logLines::knowsWhatTheChecksWrite_data()
{
    QTest::addColumn<int>("component");
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("least");
    for (const CheckSource &source : checkSources) {
        QTest::newRow(source.title) << source.component << QString::fromLatin1(source.file) << source.least;
    }
}

/// Every text with a line break in a check's source is a verdict or a line of a report, and so are its translations.
void tst_logLines::knowsWhatTheChecksWrite()
{
    QFETCH(int, component);
    QFETCH(QString, file);
    QFETCH(int, least);
    QFile source(QStringLiteral(KEST_PROJECT "/src/detector/checks/") + file);
    QVERIFY(source.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(source.readAll());
    const QRegularExpression literal(QStringLiteral("(?:\"QObject\", |QObject::tr\\()\"([^\"]*)\\\\n\""));
    int seen = 0;
    for (auto matches = literal.globalMatch(text); matches.hasNext();) {
        const QString written = matches.next().captured(1);
        ++seen;
        const QStringList shown = textInEveryLanguage("QObject", written + QLatin1Char('\n'));
        for (const QString &line : shown) {
            QVERIFY2(meansTheSame(component, line.chopped(1), written), qPrintable(line));
        }
    }
    QVERIFY2(seen >= least, qPrintable(QString::number(seen)));
}

/// The placeholders write nothing.
void tst_logLines::readsEverySourceOfTheChecks()
{
    QStringList read{QStringLiteral("placeholderChecks.cpp")};
    for (const CheckSource &source : checkSources) {
        read.append(QString::fromLatin1(source.file));
    }
    read.sort();
    const QDir checks(QStringLiteral(KEST_PROJECT "/src/detector/checks"));
    QCOMPARE(read, checks.entryList({QStringLiteral("*Checks.cpp")}, QDir::Files, QDir::Name));
}

QTEST_APPLESS_MAIN(tst_logLines)
#include "tst_logLines.moc"
