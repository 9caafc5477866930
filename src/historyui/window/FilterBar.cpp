#include "historyui/window/FilterBar.h"

#include "historyui/reader/runWords.h"
#include "record/itemKeys.h"
#include "record/recordNames.h"

#include <array>
#include <QBoxLayout>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

namespace {
/// Days that end today; 0: all; below: as the two days beside it say.
constexpr int allDays = 0;
constexpr int chosenDays = -1;

struct Period
{
    const char *name;
    int days;
};

constexpr std::array periods = {
    Period{QT_TRANSLATE_NOOP("FilterBar", "All time"), allDays},
    Period{QT_TRANSLATE_NOOP("FilterBar", "Today"), 1},
    Period{QT_TRANSLATE_NOOP("FilterBar", "7 days"), 7},
    Period{QT_TRANSLATE_NOOP("FilterBar", "30 days"), 30},
    Period{QT_TRANSLATE_NOOP("FilterBar", "365 days"), 365},
    Period{QT_TRANSLATE_NOOP("FilterBar", "From … to …"), chosenDays},
};

QLabel *addCaption(QHBoxLayout *row, const QString &text, QWidget *field)
{
    auto *label = new QLabel(text);
    label->setBuddy(field);
    field->setAccessibleName(QString(text).remove(QLatin1Char('&')));
    row->addWidget(label);
    row->addWidget(field);
    return label;
}

/// What is empty in a choice sets no bound.
void addAll(QComboBox *choice, const QStringList &texts)
{
    for (const QString &text : texts) {
        if (!text.isEmpty()) {
            choice->addItem(text, text);
        }
    }
}
} // namespace

FilterBar::FilterBar(QWidget *parent) : QWidget(parent)
{
    auto *rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    auto *search = new QHBoxLayout;
    auto *source = new QHBoxLayout;
    auto *days = new QHBoxLayout;
    for (QHBoxLayout *row : {search, source, days}) {
        rows->addLayout(row);
    }

    m_mac = addText(search, tr("&MAC"), QStringLiteral("edMac"));
    m_mac->setPlaceholderText(tr("60:60:1F or 60601f"));
    m_serial = addText(search, tr("Se&rial"), QStringLiteral("edSerial"));
    m_outcome = addChoice(search, tr("&Outcome"), QStringLiteral("cbOutcome"), tr("All"));
    for (const auto &row : outcomeNames) {
        m_outcome->addItem(outcomeText(row.value), static_cast<int>(row.value));
    }
    m_item = addChoice(search, tr("F&inding"), QStringLiteral("cbItem"), tr("All"));
    for (const ItemKey &item : itemKeys) {
        m_item->addItem(QString::fromLatin1(item.key), QString::fromLatin1(item.key));
    }
    auto *clear = new QPushButton(tr("C&lear"));
    clear->setObjectName(QStringLiteral("btClear"));
    clear->setAutoDefault(false);
    connect(clear, &QPushButton::clicked, this, &FilterBar::reset);
    search->addWidget(clear);

    m_period = addChoice(source, tr("&Period"), QStringLiteral("cbPeriod"), {});
    m_period->clear();
    for (const Period &period : periods) {
        m_period->addItem(tr(period.name), period.days);
    }
    m_since = addDay(days, tr("From"), QStringLiteral("edSince"), &m_sinceCaption);
    m_until = addDay(days, tr("to"), QStringLiteral("edUntil"), &m_untilCaption);
    days->addStretch();
    m_station = addChoice(source, tr("S&tation"), QStringLiteral("cbStation"), tr("All"));
    m_batch = addChoice(source, tr("&Batch"), QStringLiteral("cbBatch"), tr("All"));
    m_firmware = addChoice(source, tr("Firm&ware"), QStringLiteral("cbFirmware"), tr("All"));
    for (QComboBox *choice : {m_outcome, m_period}) {
        choice->setSizeAdjustPolicy(QComboBox::AdjustToContents); // of words that are known, and short
        choice->setMinimumContentsLength(0);                      // else its least width would be that of so many
    }
    connect(m_period, qOverload<int>(&QComboBox::currentIndexChanged), this, &FilterBar::choosePeriod);
    choosePeriod();
}

QLineEdit *FilterBar::addText(QHBoxLayout *row, const QString &label, const QString &name)
{
    auto *field = new QLineEdit;
    field->setObjectName(name);
    field->setClearButtonEnabled(true);
    addCaption(row, label, field);
    connect(field, &QLineEdit::textChanged, this, &FilterBar::say);
    return field;
}

QComboBox *FilterBar::addChoice(QHBoxLayout *row, const QString &label, const QString &name, const QString &all)
{
    auto *choice = new QComboBox;
    choice->setObjectName(name);
    // A long name must not widen the window.
    constexpr int characters = 5;
    choice->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    choice->setMinimumContentsLength(characters);
    choice->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    choice->addItem(all);
    addCaption(row, label, choice);
    connect(choice, qOverload<int>(&QComboBox::currentIndexChanged), this, &FilterBar::say);
    return choice;
}

QDateEdit *FilterBar::addDay(QHBoxLayout *row, const QString &label, const QString &name, QLabel **caption)
{
    auto *day = new QDateEdit(QDate::currentDate());
    day->setObjectName(name);
    day->setCalendarPopup(true);
    day->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
    *caption = addCaption(row, label, day);
    connect(day, &QDateEdit::dateChanged, this, &FilterBar::say);
    return day;
}

void FilterBar::choosePeriod()
{
    const bool isChosen = m_period->currentData().toInt() == chosenDays;
    for (QWidget *widget : std::array<QWidget *, 4>{m_sinceCaption, m_since, m_untilCaption, m_until}) {
        widget->setVisible(isChosen);
    }
}

void FilterBar::say()
{
    if (!m_isQuiet) {
        emit changed();
    }
}

void FilterBar::setChoices(const Statistics &statistics)
{
    struct Source
    {
        QComboBox *choice;
        const QList<RunGroup> &groups;
    };
    const std::array sources = {Source{m_station, statistics.byStation}, Source{m_batch, statistics.byBatch},
                                Source{m_firmware, statistics.byFirmware}};
    for (const Source &source : sources) {
        const QSignalBlocker blocker(source.choice);
        const QString chosen = source.choice->currentData().toString();
        while (source.choice->count() > 1) {
            source.choice->removeItem(1);
        }
        QStringList names;
        for (const RunGroup &group : source.groups) {
            names.append(group.name);
        }
        if (!names.contains(chosen)) {
            names.append(chosen);
        }
        addAll(source.choice, names);
        source.choice->setCurrentIndex(qMax(0, source.choice->findData(chosen)));
    }
}

void FilterBar::setMac(const QString &mac)
{
    m_mac->setText(mac);
}

void FilterBar::focusSearch()
{
    m_mac->setFocus(Qt::ShortcutFocusReason);
    m_mac->selectAll();
}

void FilterBar::reset()
{
    m_isQuiet = true;
    m_mac->clear();
    m_serial->clear();
    for (QComboBox *choice : {m_outcome, m_item, m_period, m_station, m_batch, m_firmware}) {
        choice->setCurrentIndex(0);
    }
    m_isQuiet = false;
    emit changed();
}

StatisticsFilter FilterBar::statistics() const
{
    StatisticsFilter filter;
    const int days = m_period->currentData().toInt();
    if (days == chosenDays) {
        filter.since = m_since->date();
        filter.until = m_until->date();
    } else if (days != allDays) {
        filter.until = QDate::currentDate();
        filter.since = filter.until.addDays(1 - days);
    }
    filter.station = m_station->currentData().toString();
    filter.batch = m_batch->currentData().toString();
    filter.firmware = m_firmware->currentData().toString();
    return filter;
}

RunFilter FilterBar::runs() const
{
    const StatisticsFilter source = statistics();
    RunFilter filter;
    filter.mac = m_mac->text();
    filter.serial = m_serial->text().trimmed();
    if (source.since.isValid()) {
        filter.since = source.since.startOfDay();
    }
    if (source.until.isValid()) {
        filter.until = source.until.addDays(1).startOfDay();
    }
    filter.station = source.station;
    filter.batch = source.batch;
    filter.firmware = source.firmware;
    if (m_outcome->currentData().isValid()) {
        filter.outcome = static_cast<Outcome>(m_outcome->currentData().toInt());
    }
    filter.item = m_item->currentData().toString();
    return filter;
}
