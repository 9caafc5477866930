#pragma once

#include "history/query/Distribution.h"
#include "history/query/Statistics.h"
#include "plots/plotContents.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QWidget>

class Chart;
class HistoryReader;
class QComboBox;
class QLabel;
class QPushButton;
class QTableWidget;

/// What the runs come to when they are counted, as plots and tables: yield, failures, the distribution of a
/// measurement, duration; of all of them or side by side for stations, batches or firmwares. Asks only while it is
/// seen. GUI thread only.
class StatisticsView : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(StatisticsView)

public:
    explicit StatisticsView(HistoryReader *reader, QWidget *parent = nullptr);

    /// `isNarrower`: the runs are narrowed down by more than that, which does not count here.
    void setFilter(const StatisticsFilter &filter, bool isNarrower);
    /// The same once more.
    void refresh();

    Chart *chart() const { return m_chart; }
    void copyPicture();
    void savePicture();
    /// Writes the plot to `path`; an error text, or an empty one.
    QString writePicture(const QString &path) const;

signals:
    /// For the status bar.
    void told(const QString &text);

protected:
    void showEvent(QShowEvent *event) override;

private:
    struct Answer
    {
        Statistics all;
        QList<StatisticsPart> parts;
        int partsLeftOut = 0;
        QList<DistributionPart> distributions;
        QList<MeasurementName> measurements;
    };

    void load();
    void show(const Answer &answer);
    void showMeasurements(const QList<MeasurementName> &measurements);
    void showPlot();
    void showNote();

    HistoryReader *const m_reader;
    StatisticsFilter m_filter;
    bool m_isStale = true;
    bool m_isNarrower = false;
    Answer m_answer;
    QComboBox *m_plot;
    QComboBox *m_split;
    QComboBox *m_measurement;
    QLabel *m_measurementCaption = nullptr;
    QLabel *m_figures;
    QLabel *m_note;
    Chart *m_chart;
    QTableWidget *m_table;
    QPushButton *m_copy;
    QPushButton *m_save;
};
