#include "historyui/window/StatisticsView.h"

#include "history/query/questions.h"
#include "historyui/plots/Chart.h"
#include "historyui/reader/HistoryReader.h"
#include "historyui/window/tableCopy.h"

#include <algorithm>
#include <array>
#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QImageWriter>
#include <QLabel>
#include <QPushButton>
#include <QSaveFile>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTableWidget>
#include <tuple>

namespace {
constexpr int mostParts = 6;       ///< as many as colours can tell apart
constexpr int mostValues = 100000; ///< of a measurement: read within a blink, and more tell nothing else

enum class Plot { Yield, Failures, Distribution, Duration };

constexpr std::array plotNames = {
    QT_TRANSLATE_NOOP("StatisticsView", "Yield by day"),
    QT_TRANSLATE_NOOP("StatisticsView", "Failures by item"),
    QT_TRANSLATE_NOOP("StatisticsView", "Measurement"),
    QT_TRANSLATE_NOOP("StatisticsView", "Duration of runs"),
};

/// What the runs are split by.
struct Split
{
    const char *name;
    QList<RunGroup> Statistics::*groups; ///< null: they are not
    QString StatisticsFilter::*bound;
};

constexpr std::array splits = {
    Split{QT_TRANSLATE_NOOP("StatisticsView", "All together"), nullptr, nullptr},
    Split{QT_TRANSLATE_NOOP("StatisticsView", "Station"), &Statistics::byStation, &StatisticsFilter::station},
    Split{QT_TRANSLATE_NOOP("StatisticsView", "Batch"), &Statistics::byBatch, &StatisticsFilter::batch},
    Split{QT_TRANSLATE_NOOP("StatisticsView", "Firmware"), &Statistics::byFirmware, &StatisticsFilter::firmware},
};

/// The names of the largest groups; those without a name cannot be asked for.
QStringList largestOf(QList<RunGroup> groups, int *leftOut)
{
    std::stable_sort(groups.begin(), groups.end(),
                     [](const RunGroup &left, const RunGroup &right) { return left.sums.runs > right.sums.runs; });
    QStringList names;
    for (const RunGroup &group : qAsConst(groups)) {
        if (!group.name.isEmpty() && names.size() < mostParts) {
            names.append(group.name);
        }
    }
    *leftOut = static_cast<int>(groups.size() - names.size());
    return names;
}

QComboBox *addChoice(QHBoxLayout *row, const QString &caption, const QString &name, QLabel **shown = nullptr)
{
    auto *choice = new QComboBox;
    choice->setObjectName(name);
    choice->setAccessibleName(QString(caption).remove(QLatin1Char('&')));
    constexpr int characters = 8;
    choice->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    choice->setMinimumContentsLength(characters);
    choice->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto *label = new QLabel(caption);
    label->setBuddy(choice);
    row->addWidget(label);
    row->addWidget(choice);
    if (shown != nullptr) {
        *shown = label;
    }
    return choice;
}

QString nameOfMeasurement(const MeasurementName &measurement)
{
    return QStringLiteral("%1 (%2)").arg(measurement.name, measurement.item);
}
} // namespace

StatisticsView::StatisticsView(HistoryReader *reader, QWidget *parent)
    : QWidget(parent), m_reader(reader), m_figures(new QLabel), m_note(new QLabel), m_chart(new Chart),
      m_table(makeTable(QStringLiteral("twStatistics"), tr("What the plot shows"))),
      m_copy(new QPushButton(tr("Copy Pict&ure"))), m_save(new QPushButton(tr("Save Picture &As…")))
{
    auto *choices = new QHBoxLayout;
    m_plot = addChoice(choices, tr("&Diagram"), QStringLiteral("cbPlot"));
    m_split = addChoice(choices, tr("B&y"), QStringLiteral("cbSplit"));
    auto *measurements = new QHBoxLayout;
    m_measurement = addChoice(measurements, tr("Measurement"), QStringLiteral("cbMeasurement"), &m_measurementCaption);
    for (const char *name : plotNames) {
        m_plot->addItem(tr(name));
    }
    for (const Split &split : splits) {
        m_split->addItem(tr(split.name));
    }
    for (QComboBox *choice : {m_plot, m_split}) {
        choice->setSizeAdjustPolicy(QComboBox::AdjustToContents); // of words that are known, and short
        choice->setMinimumContentsLength(0);                      // else its least width would be that of so many
    }
    for (QComboBox *choice : {m_plot, m_measurement, m_split}) {
        connect(choice, qOverload<int>(&QComboBox::currentIndexChanged), this, &StatisticsView::refresh);
    }
    m_figures->setObjectName(QStringLiteral("lbFigures"));
    m_note->setObjectName(QStringLiteral("lbNote"));
    QSizePolicy keepsItsRoom = m_note->sizePolicy();
    keepsItsRoom.setRetainSizeWhenHidden(true); // so that a plot is not drawn anew for every letter of a search
    m_note->setSizePolicy(keepsItsRoom);
    for (QLabel *label : {m_figures, m_note}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    m_chart->setObjectName(QStringLiteral("chart"));
    m_copy->setObjectName(QStringLiteral("btCopyPicture"));
    m_save->setObjectName(QStringLiteral("btSavePicture"));
    for (QPushButton *button : {m_copy, m_save}) {
        button->setVisible(Chart::canDraw());
    }
    m_note->hide();
    connect(m_copy, &QPushButton::clicked, this, &StatisticsView::copyPicture);
    connect(m_save, &QPushButton::clicked, this, &StatisticsView::savePicture);

    auto *splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(m_chart);
    splitter->addWidget(m_table);
    constexpr int chartShare = 3;
    splitter->setStretchFactor(0, chartShare);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_copy);
    buttons->addWidget(m_save);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(choices);
    layout->addLayout(measurements);
    layout->addWidget(m_figures);
    layout->addWidget(m_note);
    layout->addWidget(splitter, 1);
    layout->addLayout(buttons);
    refresh();
}

void StatisticsView::setFilter(const StatisticsFilter &filter, bool isNarrower)
{
    m_isNarrower = isNarrower;
    showNote();
    const auto bounds = [](const StatisticsFilter &of) {
        return std::tie(of.since, of.until, of.station, of.batch, of.firmware);
    };
    if (bounds(filter) != bounds(m_filter)) {
        m_filter = filter;
        refresh();
    }
}

void StatisticsView::refresh()
{
    const bool wantsMeasurement = m_plot->currentIndex() == static_cast<int>(Plot::Distribution);
    m_measurement->setVisible(wantsMeasurement);
    m_measurementCaption->setVisible(wantsMeasurement);
    m_isStale = true;
    if (isVisible()) {
        load();
    }
}

void StatisticsView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_isStale) {
        load();
    }
}

void StatisticsView::load()
{
    m_isStale = false;
    const Split split = splits.at(static_cast<std::size_t>(m_split->currentIndex()));
    const bool wantsDistribution = m_plot->currentIndex() == static_cast<int>(Plot::Distribution);
    const int chosen = m_measurement->currentIndex();
    const MeasurementName measurement = m_answer.measurements.value(chosen);
    m_reader->ask(
        HistoryReader::Topic::Statistics,
        [filter = m_filter, split, wantsDistribution, measurement](Store &store) -> std::optional<Answer> {
            Answer answer;
            const std::optional<Statistics> all = readStatistics(store, filter);
            const std::optional<QList<MeasurementName>> measurements = readMeasurementNames(store);
            if (!all || !measurements) {
                return {};
            }
            answer.all = *all;
            answer.measurements = *measurements;
            const MeasurementName read =
                measurement.name.isEmpty() && !measurements->isEmpty() ? measurements->constFirst() : measurement;
            QStringList names(QString{});
            if (split.groups != nullptr) {
                names = largestOf((*all).*split.groups, &answer.partsLeftOut);
            }
            for (const QString &name : qAsConst(names)) {
                StatisticsFilter part = filter;
                if (split.groups != nullptr) {
                    part.*split.bound = name;
                }
                const std::optional<Statistics> statistics =
                    split.groups != nullptr ? readStatistics(store, part) : all;
                const std::optional<Distribution> distribution = wantsDistribution && !read.name.isEmpty()
                                                                     ? readDistribution(store, part, read, mostValues)
                                                                     : Distribution();
                if (!statistics || !distribution) {
                    return {};
                }
                answer.parts.append({name, *statistics});
                answer.distributions.append({name, *distribution});
            }
            return answer;
        },
        [this](const Answer &answer) { show(answer); });
}

void StatisticsView::showMeasurements(const QList<MeasurementName> &measurements)
{
    const QSignalBlocker blocker(m_measurement);
    const QString chosen = m_measurement->currentText();
    m_measurement->clear();
    for (const MeasurementName &measurement : measurements) {
        m_measurement->addItem(nameOfMeasurement(measurement));
    }
    m_measurement->setCurrentIndex(qMax(0, m_measurement->findText(chosen)));
}

void StatisticsView::show(const Answer &answer)
{
    m_answer = answer;
    showMeasurements(answer.measurements);
    m_figures->setText(figuresText(answer.all));
    showPlot();
}

void StatisticsView::showPlot()
{
    const QString kind = m_split->currentText();
    PlotContent content;
    switch (static_cast<Plot>(m_plot->currentIndex())) {
    case Plot::Yield:
        content = yieldPlot(m_answer.parts, kind);
        break;
    case Plot::Failures:
        content = failuresPlot(m_answer.parts, kind);
        break;
    case Plot::Distribution:
        content = distributionPlot(m_answer.distributions, kind);
        break;
    case Plot::Duration:
        content = durationPlot(m_answer.parts, kind);
        break;
    }
    m_chart->show(content);
    fillTable(m_table, content.table.columns, content.table.rows);
    showNote();
}

void StatisticsView::showNote()
{
    QStringList notes;
    if (m_answer.partsLeftOut > 0) {
        notes.append(tr("Left out: %n groups with fewer runs or without a name.", nullptr, m_answer.partsLeftOut));
    }
    const bool isCut = std::any_of(m_answer.distributions.constBegin(), m_answer.distributions.constEnd(),
                                   [](const DistributionPart &part) { return part.distribution.count >= mostValues; });
    if (isCut) {
        notes.append(tr("Of the latest %1 values.").arg(mostValues));
    }
    if (m_isNarrower) {
        notes.append(tr("MAC, serial, outcome and finding do not count here."));
    }
    m_note->setText(notes.join(QLatin1Char(' ')));
    m_note->setVisible(!notes.isEmpty());
}

void StatisticsView::copyPicture()
{
    if (Chart::canDraw()) {
        QApplication::clipboard()->setImage(m_chart->picture(m_chart->size()));
        emit told(tr("The picture is in the clipboard"));
    }
}

QString StatisticsView::writePicture(const QString &path) const
{
    constexpr QSize size(1600, 900); // sharp on a page and on a slide
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return file.errorString();
    }
    QImageWriter writer(&file, "png");
    if (!writer.write(m_chart->picture(size))) {
        return writer.errorString();
    }
    return file.commit() ? QString() : file.errorString();
}

void StatisticsView::savePicture()
{
    if (!Chart::canDraw()) {
        return;
    }
    auto *dialog = new QFileDialog(this, tr("Save Picture"), QString(), tr("Pictures (*.png)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("png"));
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &path) {
        const QString error = writePicture(path);
        emit told(error.isEmpty() ? tr("Saved: %1").arg(path) : tr("%1 was not saved: %2").arg(path, error));
    });
    dialog->open();
}
