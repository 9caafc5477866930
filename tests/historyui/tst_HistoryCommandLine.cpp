#include "historyui/commands/HistoryCommandLine.h"

#include <QTest>

/// What is understood of a command line, and what is said about one that is wrong.
class tst_HistoryCommandLine : public QObject
{
    Q_OBJECT

private slots:
    void refuses_data();
    void refuses();
    void understandsFilters();
    void understandsFormats_data();
    void understandsFormats();
    void understandsDays_data();
    void understandsDays();
    void understandsTheRest();
    void helps();
};

namespace {
using Command = HistoryCommandLine::Command;
using Format = HistoryCommandLine::Format;

HistoryCommandLine parsed(const QString &words)
{
    return HistoryCommandLine::parse(
        (QStringLiteral("KestHistory ") + words).split(QLatin1Char(' '), Qt::SkipEmptyParts), QDate(2026, 11, 21));
}
} // namespace

void tst_HistoryCommandLine::refuses_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("message");
    const auto row = [](const char *words, const char *message) {
        QTest::newRow(words) << QString::fromLatin1(words) << QString::fromLatin1(message);
    };
    row("lst", "There is no command \"lst\"");
    row("--failed", "--failed wants a command");
    row("list --colour", "Unknown option 'colour'.");
    row("list --language de", "--language: \"de\" is neither en nor zh_CN");
    row("--language= list", "--language: \"\" is neither en nor zh_CN");
    row("list all", "Unexpected argument \"all\"");
    row("stats --failed", "--failed does not go with stats");
    row("list --before 2026-01-01", "--before does not go with list");
    row("list --mac a --mac b", "--mac is given twice");
    row("show", "show wants RUN");
    row("show a b", "Unexpected argument \"b\"");
    row("import", "import wants PATH...");
    row("list --since yesterday", "--since: \"yesterday\" is no day such as 2026-11-21 or 7d");
    row("list --until 2026-02-30", "--until: \"2026-02-30\" is no day such as 2026-11-21 or 7d");
    row("stats --since 2026-11-02 --until 2026-11-01", "--since lies behind --until");
    row("list --limit -1", "--limit: \"-1\" is not a whole number of 0 or more");
    row("list --limit many", "--limit: \"many\" is not a whole number of 0 or more");
    row("list --item battery", "--item: \"battery\" is no key such as battery.info");
    row("list --json --csv", "Only one of --json, --csv and --junit");
    row("export --junit", "--junit wants --out with a folder");
    row("report", "report wants --out with a file that ends in .html or .pdf");
    row("report --out page.txt", "report wants --out with a file that ends in .html or .pdf");
    row("prune", "prune wants --before");
    row("prune --before then", "--before: \"then\" is no day such as 2026-11-21 or 7d");
}

void tst_HistoryCommandLine::refuses()
{
    QFETCH(QString, words);
    QFETCH(QString, message);
    const HistoryCommandLine line = parsed(words);
    QCOMPARE(line.message, message);
    QCOMPARE(line.command, Command::Wrong);
}

void tst_HistoryCommandLine::understandsFilters()
{
    const HistoryCommandLine line =
        parsed(QStringLiteral("list --mac 6060 --serial KC --since 2026-11-01 --until 2026-11-02 --station left "
                              "--batch 47 --firmware 1.2.3 --failed --item battery.info --limit 7"));
    QCOMPARE(line.command, Command::List);
    QCOMPARE(line.filter.mac, QStringLiteral("6060"));
    QCOMPARE(line.filter.serial, QStringLiteral("KC"));
    QCOMPARE(line.filter.since, QDateTime(QDate(2026, 11, 1), QTime(0, 0)));
    QCOMPARE(line.filter.until, QDateTime(QDate(2026, 11, 3), QTime(0, 0)));
    QCOMPARE(line.filter.station + line.filter.batch + line.filter.firmware, QStringLiteral("left471.2.3"));
    QVERIFY(line.filter.outcome == Outcome::Failed);
    QCOMPARE(line.filter.item, QStringLiteral("battery.info"));
    QCOMPARE(line.filter.limit, 7);
    QCOMPARE(line.period.since, QDate(2026, 11, 1));
    QCOMPARE(line.period.until, QDate(2026, 11, 2));
    QCOMPARE(parsed(QStringLiteral("list")).filter.limit, 100);
    QCOMPARE(parsed(QStringLiteral("list --limit 0")).filter.limit, 0);
    QCOMPARE(parsed(QStringLiteral("export")).filter.limit, 0);
    QVERIFY(!parsed(QStringLiteral("list")).filter.outcome);
}

void tst_HistoryCommandLine::understandsFormats_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<int>("format");
    const auto row = [](const char *words, Format format) {
        QTest::newRow(words) << QString::fromLatin1(words) << static_cast<int>(format);
    };
    row("list", Format::Text);
    row("list --json", Format::Json);
    row("list --csv", Format::Csv);
    row("export", Format::Json);
    row("export --csv", Format::Csv);
    row("export --junit --out folder", Format::Junit);
    row("show 0b5f6d0e --junit", Format::Junit);
}

void tst_HistoryCommandLine::understandsFormats()
{
    QFETCH(QString, words);
    QTEST(static_cast<int>(parsed(words).format), "format");
}

void tst_HistoryCommandLine::understandsDays_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QDate>("day");
    QTest::newRow("a day") << QStringLiteral("2026-11-01") << QDate(2026, 11, 1);
    QTest::newRow("today alone") << QStringLiteral("1d") << QDate(2026, 11, 21);
    QTest::newRow("the last seven") << QStringLiteral("7d") << QDate(2026, 11, 15);
}

void tst_HistoryCommandLine::understandsDays()
{
    QFETCH(QString, text);
    QTEST(parsed(QStringLiteral("stats --since ") + text).period.since, "day");
}

void tst_HistoryCommandLine::understandsTheRest()
{
    QCOMPARE(parsed({}).command, Command::None);
    QCOMPARE(parsed(QStringLiteral("--store x")).command, Command::None);
    QCOMPARE(parsed(QStringLiteral("--language zh_CN")).command, Command::None);
    const HistoryCommandLine window =
        parsed(QStringLiteral("--mac 60:60:1F:00:00:01 --results /srv/results --language en"));
    QCOMPARE(window.command, Command::None);
    QCOMPARE(window.filter.mac, QStringLiteral("60:60:1F:00:00:01"));
    QCOMPARE(window.results, QStringLiteral("/srv/results"));
    QCOMPARE(parsed(QStringLiteral("--store x list --language en")).store, QStringLiteral("x"));
    const HistoryCommandLine import = parsed(QStringLiteral("import a - b"));
    QCOMPARE(import.command, Command::Import);
    QCOMPARE(import.targets, QStringList({QStringLiteral("a"), QStringLiteral("-"), QStringLiteral("b")}));
    const HistoryCommandLine prune = parsed(QStringLiteral("prune --before 2026-01-01 --unsent"));
    QCOMPARE(prune.before, QDate(2026, 1, 1));
    QVERIFY(prune.removesUnsent);
    QCOMPARE(parsed(QStringLiteral("report --out Seite.PDF")).out, QStringLiteral("Seite.PDF"));
}

void tst_HistoryCommandLine::helps()
{
    const HistoryCommandLine help = parsed(QStringLiteral("--help"));
    QCOMPARE(help.command, Command::Help);
    for (const char *name :
         {"list", "show", "unit", "stats", "report", "export", "import", "status", "forward", "prune"}) {
        QVERIFY2(help.message.contains(QStringLiteral("\n  %1 ").arg(QLatin1String(name))), name);
    }
    QCOMPARE(parsed(QStringLiteral("--version")).message, QStringLiteral("KestHistory 1.0.3"));
}

QTEST_GUILESS_MAIN(tst_HistoryCommandLine)
#include "tst_HistoryCommandLine.moc"
