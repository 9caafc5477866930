#include "historyui/commands/HistoryCommandLine.h"

#include "historyui/commands/HistoryTexts.h"
#include "language/languageOption.h"
#include "record/itemKeys.h"

#include <algorithm>
#include <array>
#include <QCommandLineParser>
#include <QRegularExpression>
#include <QUuid>

namespace {
using Command = HistoryCommandLine::Command;
using Format = HistoryCommandLine::Format;

struct CommandRow
{
    Command command;
    const char *name;
    const char *targets; ///< what follows the name; ends in "..." where it may be several
    const char *options; ///< that go with it, beside those that go with every command
    const char *meaning;
};

constexpr std::array commandRows = {
    CommandRow{Command::List, "list", "", "mac serial since until station batch firmware failed item limit json csv",
               QT_TRANSLATE_NOOP("HistoryTexts", "the latest runs, the latest first")},
    CommandRow{Command::Show, "show", "RUN", "json junit",
               QT_TRANSLATE_NOOP("HistoryTexts", "a run with all that it found")},
    CommandRow{Command::Unit, "unit", "MAC", "json",
               QT_TRANSLATE_NOOP("HistoryTexts", "every run of a camera, and what changed when it began to fail")},
    CommandRow{Command::Stats, "stats", "", "since until station batch firmware json",
               QT_TRANSLATE_NOOP("HistoryTexts", "yields, and what fails")},
    CommandRow{Command::Report, "report", "", "since until station batch firmware out",
               QT_TRANSLATE_NOOP("HistoryTexts", "the same as a page or on paper")},
    CommandRow{Command::Export, "export", "",
               "mac serial since until station batch firmware failed item limit json csv junit out",
               QT_TRANSLATE_NOOP("HistoryTexts", "records, the oldest first")},
    CommandRow{Command::Import, "import", "PATH...", "",
               QT_TRANSLATE_NOOP("HistoryTexts", "records in JSON, and folders that earlier runs have left")},
    CommandRow{Command::Status, "status", "", "json",
               QT_TRANSLATE_NOOP("HistoryTexts", "what the store holds, and what the server does not have yet")},
    CommandRow{Command::Forward, "forward", "", "",
               QT_TRANSLATE_NOOP("HistoryTexts", "send to the server what it does not have yet, now")},
    CommandRow{Command::Prune, "prune", "", "before unsent",
               QT_TRANSLATE_NOOP("HistoryTexts", "remove all runs before a day, and give the space back")},
};

struct OptionRow
{
    const char *name;
    const char *value; ///< null: a switch
    const char *meaning;
};

constexpr std::array optionRows = {
    OptionRow{"store", "store",
              QT_TRANSLATE_NOOP("HistoryTexts",
                                "A store's file, or postgresql://user@host/db (default: that of option.ini).")},
    OptionRow{"mac", "mac", QT_TRANSLATE_NOOP("HistoryTexts", "The camera's MAC address, or its beginning.")},
    OptionRow{"serial", "text", QT_TRANSLATE_NOOP("HistoryTexts", "The serial number, or its beginning.")},
    OptionRow{"since", "day",
              QT_TRANSLATE_NOOP("HistoryTexts", "From this day on: 2026-11-21, or 7d for the last seven days.")},
    OptionRow{"until", "day", QT_TRANSLATE_NOOP("HistoryTexts", "Up to this day, which is included.")},
    OptionRow{"station", "name", QT_TRANSLATE_NOOP("HistoryTexts", "Runs of this station.")},
    OptionRow{"batch", "text", QT_TRANSLATE_NOOP("HistoryTexts", "Runs of this batch.")},
    OptionRow{"firmware", "version", QT_TRANSLATE_NOOP("HistoryTexts", "Runs of cameras with this firmware.")},
    OptionRow{"failed", nullptr, QT_TRANSLATE_NOOP("HistoryTexts", "Only runs that failed.")},
    OptionRow{
        "item", "key",
        QT_TRANSLATE_NOOP("HistoryTexts", "Only runs in which this item failed or warned, such as battery.info.")},
    OptionRow{"limit", "count", QT_TRANSLATE_NOOP("HistoryTexts", "The most runs (list: 100, export: all; 0: all).")},
    OptionRow{"json", nullptr, QT_TRANSLATE_NOOP("HistoryTexts", "As JSON.")},
    OptionRow{"csv", nullptr, QT_TRANSLATE_NOOP("HistoryTexts", "As comma-separated values, for spreadsheets.")},
    OptionRow{"junit", nullptr, QT_TRANSLATE_NOOP("HistoryTexts", "As JUnit reports, one file a run.")},
    OptionRow{"out", "path",
              QT_TRANSLATE_NOOP("HistoryTexts", "Into this file (JUnit: this folder), not to standard output.")},
    OptionRow{"results", "folder",
              QT_TRANSLATE_NOOP("HistoryTexts", "Window: the folder that was chosen for results at the station.")},
    OptionRow{"before", "day", QT_TRANSLATE_NOOP("HistoryTexts", "The first day whose runs stay.")},
    OptionRow{"unsent", nullptr, QT_TRANSLATE_NOOP("HistoryTexts", "Also runs that the server does not have yet.")},
};

/// Go with every command.
const QStringList commonOptions()
{
    return {QStringLiteral("store"), QStringLiteral("language"), QStringLiteral("help"), QStringLiteral("version")};
}

/// Go with the window, which opens without a command.
const QStringList windowOptions()
{
    return {QStringLiteral("store"), QStringLiteral("language"), QStringLiteral("mac"), QStringLiteral("results")};
}

QString usage()
{
    QString text = HistoryTexts::tr("Keeps and finds the runs of KestDetector. Without a command it opens its window. "
                                    "Commands:") +
                   QLatin1Char('\n');
    for (const CommandRow &row : commandRows) {
        const QString name = QStringLiteral("%1 %2").arg(QLatin1String(row.name), QLatin1String(row.targets));
        text += QStringLiteral("  %1 %2\n").arg(name, -15).arg(HistoryTexts::tr(row.meaning));
    }
    return text + HistoryTexts::tr("Exit codes: 0 done, 1 nothing found or not everything taken in, 2 wrong usage, "
                                   "3 store, file or server failed, 130 interrupted.");
}

const CommandRow *findCommand(const QString &name)
{
    const auto *row = std::find_if(commandRows.begin(), commandRows.end(),
                                   [&name](const CommandRow &entry) { return name == QLatin1String(entry.name); });
    return row == commandRows.end() ? nullptr : row;
}

/// A day as people write it; null if it is none.
QDate readDay(const QString &text, const QDate &today)
{
    static const QRegularExpression daysAgo(QStringLiteral(R"(\A(\d{1,5})d\z)"));
    const QRegularExpressionMatch match = daysAgo.match(text);
    // The last day of seven is today.
    return match.hasMatch() ? today.addDays(1 - match.captured(1).toLongLong()) : QDate::fromString(text, Qt::ISODate);
}

class Reading
{
    Q_DECLARE_TR_FUNCTIONS(HistoryTexts)

public:
    Reading(const QCommandLineParser &parser, QDate today) : m_parser(parser), m_today(today) {}

    /// What is wrong, or an empty text.
    QString read(const CommandRow &row, HistoryCommandLine *line)
    {
        m_line = line;
        checkOptions(row);
        readTargets(row);
        readBounds();
        readFormat(row);
        line->store = value("store");
        line->removesUnsent = m_parser.isSet(QStringLiteral("unsent"));
        return m_error;
    }

private:
    QString value(const char *option) const { return m_parser.value(QString::fromLatin1(option)); }

    /// Only the first thing that is wrong is told.
    void wrong(const QString &error)
    {
        if (m_error.isEmpty()) {
            m_error = error;
        }
    }

    void checkOptions(const CommandRow &row)
    {
        const QStringList allowed = QString::fromLatin1(row.options).split(QLatin1Char(' ')) + commonOptions();
        const QStringList given = m_parser.optionNames();
        for (const QString &option : given) {
            if (!allowed.contains(option)) {
                wrong(tr("--%1 does not go with %2").arg(option, QLatin1String(row.name)));
            } else if (given.count(option) > 1) {
                wrong(tr("--%1 is given twice").arg(option));
            }
        }
    }

    void readTargets(const CommandRow &row)
    {
        const QString wanted = QString::fromLatin1(row.targets);
        m_line->targets = m_parser.positionalArguments().mid(1);
        const int count = static_cast<int>(m_line->targets.size());
        if (wanted.isEmpty() && count > 0) {
            wrong(tr("Unexpected argument \"%1\"").arg(m_line->targets.constFirst()));
        } else if (!wanted.isEmpty() && count == 0) {
            wrong(tr("%1 wants %2").arg(QLatin1String(row.name), wanted));
        } else if (!wanted.isEmpty() && !wanted.endsWith(QLatin1String("...")) && count > 1) {
            wrong(tr("Unexpected argument \"%1\"").arg(m_line->targets.at(1)));
        }
    }

    QDate readDayOption(const char *option)
    {
        const QString text = value(option);
        const QDate day = text.isEmpty() ? QDate() : readDay(text, m_today);
        if (m_parser.isSet(QString::fromLatin1(option)) && !day.isValid()) {
            wrong(tr("--%1: \"%2\" is no day such as 2026-11-21 or 7d").arg(QLatin1String(option), text));
        }
        return day;
    }

    void readBounds()
    {
        StatisticsFilter &period = m_line->period;
        period.since = readDayOption("since");
        period.until = readDayOption("until");
        period.station = value("station");
        period.batch = value("batch");
        period.firmware = value("firmware");
        if (period.since.isValid() && period.until.isValid() && period.since > period.until) {
            wrong(tr("--since lies behind --until"));
        }
        m_line->before = readDayOption("before");
        if (m_line->command == Command::Prune && !m_parser.isSet(QStringLiteral("before"))) {
            wrong(tr("prune wants --before"));
        }

        RunFilter &filter = m_line->filter;
        filter.mac = value("mac");
        filter.serial = value("serial");
        filter.station = period.station;
        filter.batch = period.batch;
        filter.firmware = period.firmware;
        if (period.since.isValid()) {
            filter.since = period.since.startOfDay();
        }
        if (period.until.isValid()) {
            filter.until = period.until.addDays(1).startOfDay();
        }
        if (m_parser.isSet(QStringLiteral("failed"))) {
            filter.outcome = Outcome::Failed;
        }
        readItem(&filter);
        readLimit(&filter);
    }

    /// Records may come from a later program, with items that this one does not know; but whoever mistypes is told.
    void readItem(RunFilter *filter)
    {
        static const QRegularExpression key(QStringLiteral(R"(\A[A-Za-z][A-Za-z0-9]*(\.[A-Za-z0-9]+)+\z)"));
        filter->item = value("item");
        if (m_parser.isSet(QStringLiteral("item")) && !key.match(filter->item).hasMatch()) {
            wrong(tr("--item: \"%1\" is no key such as battery.info").arg(filter->item));
        }
    }

    void readLimit(RunFilter *filter)
    {
        constexpr int listed = 100;
        filter->limit = m_line->command == Command::List ? listed : 0;
        if (m_parser.isSet(QStringLiteral("limit"))) {
            bool isNumber = false;
            filter->limit = value("limit").toInt(&isNumber);
            if (!isNumber || filter->limit < 0) {
                wrong(tr("--limit: \"%1\" is not a whole number of 0 or more").arg(value("limit")));
            }
        }
    }

    void readFormat(const CommandRow &row)
    {
        struct FormatRow
        {
            Format format;
            const char *option;
        };
        constexpr std::array formats = {FormatRow{Format::Json, "json"}, FormatRow{Format::Csv, "csv"},
                                        FormatRow{Format::Junit, "junit"}};
        for (const FormatRow &entry : formats) {
            if (m_parser.isSet(QString::fromLatin1(entry.option))) {
                if (m_line->format != Format::Text) {
                    wrong(tr("Only one of --json, --csv and --junit"));
                }
                m_line->format = entry.format;
            }
        }
        m_line->out = value("out");
        if (row.command == Command::Export && m_line->format == Format::Text) {
            m_line->format = Format::Json;
        }
        if (row.command == Command::Export && m_line->format == Format::Junit && m_line->out.isEmpty()) {
            wrong(tr("--junit wants --out with a folder"));
        }
        const bool isReport = m_line->out.endsWith(QLatin1String(".html"), Qt::CaseInsensitive) ||
                              m_line->out.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive);
        if (row.command == Command::Report && !isReport) {
            wrong(tr("report wants --out with a file that ends in .html or .pdf"));
        }
    }

    const QCommandLineParser &m_parser;
    const QDate m_today;
    HistoryCommandLine *m_line = nullptr;
    QString m_error;
};
} // namespace

HistoryCommandLine HistoryCommandLine::parse(const QStringList &arguments, const QDate &today)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(usage());
    parser.addPositionalArgument(QStringLiteral("command"), HistoryTexts::tr("What to do."));
    for (const OptionRow &row : optionRows) {
        parser.addOption({QString::fromLatin1(row.name), HistoryTexts::tr(row.meaning),
                          row.value == nullptr ? QString() : QString::fromLatin1(row.value)});
    }
    const QCommandLineOption language = languageOption();
    parser.addOption(language);
    parser.addOption({{QStringLiteral("help"), QStringLiteral("h")}, HistoryTexts::tr("Show this text.")});
    parser.addOption({QStringLiteral("version"), HistoryTexts::tr("Show the program's version.")});

    HistoryCommandLine line;
    const auto end = [&line](Command what, const QString &text) {
        line.command = what;
        line.message = text;
        return line;
    };
    if (!parser.parse(arguments)) {
        return end(Command::Wrong, parser.errorText());
    }
    if (parser.isSet(QStringLiteral("help"))) {
        return end(Command::Help, parser.helpText());
    }
    if (parser.isSet(QStringLiteral("version"))) {
        return end(Command::Help, QStringLiteral("KestHistory " KEST_VERSION));
    }
    const QString wrongLanguage = languageProblem(parser, language);
    if (!wrongLanguage.isEmpty()) {
        return end(Command::Wrong, wrongLanguage);
    }
    const QString name = parser.positionalArguments().value(0);
    if (name.isEmpty()) {
        const QStringList given = parser.optionNames();
        for (const QString &option : given) {
            if (!windowOptions().contains(option)) {
                return end(Command::Wrong, HistoryTexts::tr("--%1 wants a command").arg(option));
            }
        }
        line.store = parser.value(QStringLiteral("store"));
        line.filter.mac = parser.value(QStringLiteral("mac"));
        line.results = parser.value(QStringLiteral("results"));
        return line;
    }
    const CommandRow *row = findCommand(name);
    if (row == nullptr) {
        return end(Command::Wrong, HistoryTexts::tr("There is no command \"%1\"").arg(name));
    }
    line.command = row->command;
    const QString error = Reading(parser, today).read(*row, &line);
    return error.isEmpty() ? line : end(Command::Wrong, error);
}
