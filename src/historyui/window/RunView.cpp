#include "historyui/window/RunView.h"

#include "historyui/reader/HistoryReader.h"
#include "historyui/reader/runFolderOf.h"
#include "historyui/reader/runWords.h"
#include "historyui/window/tableCopy.h"
#include "record/limitText.h"
#include "report/Report.h"
#include "ui/widgets/FolderQuestion.h"

#include <algorithm>
#include <array>
#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QDesktopServices>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTreeWidget>
#include <QUrl>

namespace {
enum Column { Name, State, Value, Limits, Duration };

constexpr int detailRole = Qt::UserRole;

/// What somebody looks for stands above the rest.
int rankOf(Verdict verdict)
{
    constexpr std::array order = {Verdict::Failed, Verdict::Warning, Verdict::NotTested, Verdict::Passed};
    return static_cast<int>(std::find(order.begin(), order.end(), verdict) - order.begin());
}

bool isOutside(const Measurement &measurement)
{
    return measurement.limit && !measurement.limit->admits(measurement.value);
}

template <class Entry>
QList<Entry> failuresFirst(QList<Entry> entries)
{
    std::stable_sort(entries.begin(), entries.end(), [](const Entry &left, const Entry &right) {
        return rankOf(left.verdict) < rankOf(right.verdict);
    });
    return entries;
}

QList<Measurement> outsideFirst(QList<Measurement> measurements)
{
    std::stable_partition(measurements.begin(), measurements.end(), isOutside);
    return measurements;
}

void setVerdict(QTreeWidgetItem *row, Verdict verdict)
{
    row->setText(State, verdictText(verdict));
    row->setForeground(State, verdictColour(verdict));
}

QString measuredText(const Measurement &measurement)
{
    const QString text = valueText(measurement.value);
    return measurement.unit.isEmpty() ? text : QStringLiteral("%1 %2").arg(text, measurement.unit);
}

QTreeWidgetItem *measurementRow(const Measurement &measurement)
{
    auto *row = new QTreeWidgetItem({measurement.name,
                                     {},
                                     measuredText(measurement),
                                     measurement.limit ? limitText(*measurement.limit) : QString()});
    if (isOutside(measurement)) {
        setVerdict(row, Verdict::Failed);
        row->setText(State, RunView::tr("Outside"));
        row->setForeground(Value, verdictColour(Verdict::Failed));
    }
    return row;
}

QString detailOf(const ItemRecord &item)
{
    QStringList parts;
    for (const QString &text : {item.message, item.detail}) {
        if (!text.trimmed().isEmpty()) {
            parts.append(text.trimmed());
        }
    }
    for (const CollectedFile &file : item.files) {
        parts.append(RunView::tr("%1, %2 bytes, SHA-256 %3").arg(file.name, QString::number(file.size), file.sha256));
    }
    return parts.join(QLatin1Char('\n'));
}

QTreeWidgetItem *itemRow(const ItemRecord &item)
{
    auto *row = new QTreeWidgetItem({item.key});
    setVerdict(row, item.verdict);
    row->setText(Value, item.message.trimmed().section(QLatin1Char('\n'), 0, 0));
    row->setText(Duration, durationText(item.duration));
    row->setData(Name, detailRole, detailOf(item));
    const QList<Measurement> measurements = outsideFirst(item.measurements);
    for (const Measurement &measurement : measurements) {
        row->addChild(measurementRow(measurement));
    }
    return row;
}

/// The rows below `row` as text, a line each, as far in as they stand.
void writeRows(const QTreeWidgetItem *row, int depth, QString *text)
{
    for (int i = 0; i < row->childCount(); ++i) {
        const QTreeWidgetItem *child = row->child(i);
        QStringList cells;
        for (int column = 0; column < child->columnCount(); ++column) {
            cells.append(child->text(column));
        }
        while (!cells.isEmpty() && cells.constLast().isEmpty()) {
            cells.removeLast();
        }
        *text += QString(2 * depth, QLatin1Char(' ')) + cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
        writeRows(child, depth + 1, text);
    }
}
} // namespace

RunView::RunView(HistoryReader *reader, const QString &results, QWidget *parent)
    : QWidget(parent), m_reader(reader), m_question(new FolderQuestion(this)), m_results(results),
      m_outcome(new QLabel), m_head(new QLabel), m_tree(new QTreeWidget), m_detail(new QPlainTextEdit),
      m_open(new QPushButton(tr("Open &Folder"))), m_copy(new QPushButton(tr("&Copy Run")))
{
    m_outcome->setObjectName(QStringLiteral("lbOutcome"));
    m_head->setObjectName(QStringLiteral("lbRun"));
    m_head->setTextFormat(Qt::PlainText);
    m_head->setWordWrap(true);
    m_head->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_head->setAccessibleName(tr("The run"));

    m_tree->setObjectName(QStringLiteral("twRun"));
    m_tree->setAccessibleName(tr("Components, items and measurements of the run"));
    m_tree->setHeaderLabels({tr("Item"), tr("Verdict"), tr("Value"), tr("Limits"), tr("Duration")});
    m_tree->setUniformRowHeights(true);
    constexpr int indentation = 12; // so that the limits are seen on a small screen, too
    m_tree->setIndentation(indentation);
    m_tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    copyRowsOnDemand(m_tree);
    connect(m_tree, &QTreeWidget::currentItemChanged, this, &RunView::showDetail);

    m_detail->setObjectName(QStringLiteral("teDetail"));
    m_detail->setAccessibleName(tr("What the item reported"));
    m_detail->setReadOnly(true);
    m_detail->setTabChangesFocus(true);

    m_open->setObjectName(QStringLiteral("btOpenFolder"));
    m_copy->setObjectName(QStringLiteral("btCopyRun"));
    connect(m_open, &QPushButton::clicked, this, &RunView::openFolder);
    connect(m_copy, &QPushButton::clicked, this, &RunView::copy);
    connect(m_question, &FolderQuestion::answered, this, &RunView::lookIn);

    auto *head = new QHBoxLayout;
    head->addWidget(m_outcome);
    head->addStretch();
    head->addWidget(m_open);
    head->addWidget(m_copy);
    auto *splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(m_tree);
    splitter->addWidget(m_detail);
    constexpr int treeShare = 3;
    splitter->setStretchFactor(0, treeShare);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(head);
    layout->addWidget(m_head);
    layout->addWidget(splitter, 1);
    setRun({});
}

void RunView::setRun(const std::optional<RunSummary> &run)
{
    if (run && m_run && run->id == m_run->id) {
        return;
    }
    m_run = run;
    m_record = {};
    m_tree->clear();
    m_detail->clear();
    m_open->setEnabled(run.has_value());
    m_copy->setEnabled(false);
    showHead();
    if (!run) {
        m_reader->withdraw(HistoryReader::Topic::Run);
        return;
    }
    m_reader->ask(
        HistoryReader::Topic::Run,
        [id = run->id](Store &store) {
            // That it is not there any more is an answer, too.
            std::optional<RunRecord> record = store.read(id);
            const bool isAnswer = record || !store.error().isError();
            return isAnswer ? std::optional<std::optional<RunRecord>>(std::move(record)) : std::nullopt;
        },
        [this](const std::optional<RunRecord> &record) {
            if (record) {
                show(*record);
            } else {
                m_head->setText(tr("This run is not in the store any more."));
            }
        });
}

void RunView::showHead()
{
    if (!m_run) {
        m_outcome->clear();
        m_head->setText(tr("No run is chosen."));
        return;
    }
    const RunSummary &run = *m_run;
    QFont font = m_outcome->font();
    font.setBold(true);
    m_outcome->setFont(font);
    m_outcome->setText(outcomeText(run.outcome));
    m_outcome->setAccessibleName(tr("Outcome: %1").arg(outcomeText(run.outcome)));
    QPalette palette = m_outcome->palette();
    palette.setColor(QPalette::WindowText, outcomeColour(run.outcome));
    m_outcome->setPalette(palette);

    struct Fact
    {
        QString name;
        QString value;
    };
    const std::array facts = {
        Fact{tr("MAC"), run.mac},           Fact{tr("Serial"), run.serial},         Fact{tr("Station"), run.station},
        Fact{tr("Location"), run.location}, Fact{tr("Operator"), run.operatorName}, Fact{tr("Batch"), run.batch},
        Fact{tr("Firmware"), run.firmware}, Fact{tr("Reason"), run.reason},
    };
    QStringList texts = {
        tr("%1, %2").arg(run.begin.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss t")), durationText(run.duration))};
    for (const Fact &fact : facts) {
        if (!fact.value.isEmpty()) {
            texts.append(QStringLiteral("%1: %2").arg(fact.name, fact.value));
        }
    }
    m_head->setText(texts.join(QStringLiteral("   ")));
}

void RunView::show(const RunRecord &run)
{
    m_record = run;
    m_copy->setEnabled(true);
    const QList<ComponentRecord> components = failuresFirst(run.components);
    QTreeWidgetItem *first = nullptr;
    for (const ComponentRecord &component : components) {
        auto *row = new QTreeWidgetItem(m_tree, {component.name.isEmpty() ? component.key : component.name});
        setVerdict(row, component.verdict);
        row->setText(Duration, durationText(component.duration));
        const QList<ItemRecord> items = failuresFirst(component.items);
        for (const ItemRecord &item : items) {
            QTreeWidgetItem *child = itemRow(item);
            row->addChild(child);
            const bool isFinding = item.verdict == Verdict::Failed || item.verdict == Verdict::Warning;
            child->setExpanded(isFinding);
            if (isFinding && first == nullptr) {
                first = child;
            }
        }
        row->setExpanded(true);
    }
    for (int column = 0; column < m_tree->columnCount(); ++column) {
        constexpr int widest = 240;
        m_tree->resizeColumnToContents(column);
        m_tree->setColumnWidth(column, qMin(m_tree->columnWidth(column), widest));
    }
    m_tree->setCurrentItem(first != nullptr ? first : m_tree->topLevelItem(0));
}

void RunView::showDetail()
{
    const QTreeWidgetItem *row = m_tree->currentItem();
    // A measurement's row tells what its item said.
    while (row != nullptr && row->data(Name, detailRole).toString().isEmpty() && row->parent() != nullptr) {
        row = row->parent();
    }
    m_detail->setPlainText(row == nullptr ? QString() : row->data(Name, detailRole).toString());
}

void RunView::openFolder()
{
    if (m_run) {
        const QDateTime end =
            m_run->begin.addMSecs(std::chrono::duration_cast<std::chrono::milliseconds>(m_run->duration).count());
        const QString folder = runFolderOf(m_results, m_run->mac, m_run->begin, end);
        if (folder.isEmpty()) {
            emit told(tr("This run has no folder below %1: which folder was chosen for results at its station?")
                          .arg(m_results));
            m_question->ask(m_results);
        } else if (!QDesktopServices::openUrl(QUrl::fromLocalFile(folder))) {
            emit told(tr("There is no program to show %1").arg(folder));
        } else {
            emit told(folder);
        }
    }
}

void RunView::lookIn(const QString &results)
{
    m_results = results;
    if (m_run) {
        const QDateTime end =
            m_run->begin.addMSecs(std::chrono::duration_cast<std::chrono::milliseconds>(m_run->duration).count());
        if (runFolderOf(results, m_run->mac, m_run->begin, end).isEmpty()) {
            emit told(tr("This run has no folder below %1").arg(results)); // asking again would never end
            return;
        }
        openFolder();
    }
}

void RunView::copy()
{
    QString text = QStringLiteral("%1\n%2\n").arg(m_outcome->text(), m_head->text());
    writeRows(m_tree->invisibleRootItem(), 0, &text);
    QApplication::clipboard()->setText(text);
    emit told(tr("The run is in the clipboard"));
}
