#pragma once

#include "history/query/RunFilter.h"
#include "history/query/Statistics.h"

#include <QDate>
#include <QStringList>
#include <QWidget>

class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;

/// The fields that narrow down what the window shows; whatever is typed or chosen counts at once. GUI thread only.
class FilterBar : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(FilterBar)

public:
    explicit FilterBar(QWidget *parent = nullptr);

    /// What is there to choose from: the stations, batches and firmwares of these. What is chosen stays.
    void setChoices(const Statistics &statistics);
    void setMac(const QString &mac);
    void focusSearch();
    /// Everything is shown again.
    void reset();

    RunFilter runs() const;
    /// Counted are all cameras of the period and the source: MAC address, serial number, outcome and item do not count.
    StatisticsFilter statistics() const;

signals:
    /// The runs are others than before.
    void changed();

private:
    QLineEdit *addText(class QHBoxLayout *row, const QString &label, const QString &name);
    QComboBox *addChoice(QHBoxLayout *row, const QString &label, const QString &name, const QString &all);
    QDateEdit *addDay(QHBoxLayout *row, const QString &label, const QString &name, QLabel **caption);
    void choosePeriod();
    void say();

    QLineEdit *m_mac = nullptr;
    QLineEdit *m_serial = nullptr;
    QComboBox *m_outcome = nullptr;
    QComboBox *m_item = nullptr;
    QComboBox *m_period = nullptr;
    QLabel *m_sinceCaption = nullptr;
    QLabel *m_untilCaption = nullptr;
    QDateEdit *m_since = nullptr;
    QDateEdit *m_until = nullptr;
    QComboBox *m_station = nullptr;
    QComboBox *m_batch = nullptr;
    QComboBox *m_firmware = nullptr;
    bool m_isQuiet = false; ///< several fields are being changed at once
};
