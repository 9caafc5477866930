#pragma once

#include "record/Limit.h"

#include <optional>
#include <QString>
#include <QVector>

// How the values of a measurement lie. Plain values, for any thread.

struct MeasurementName
{
    QString item; ///< key of the item that measures it
    QString name;
    QString unit;
};

struct Distribution
{
    QString item; ///< key of the item that measures it
    QString name;
    QString unit;
    Limit limit; ///< that of the latest run; either bound may be missing
    qint64 count = 0;
    qint64 outside = 0; ///< of the limit that held in their own run
    double least = 0;   ///< of the values
    double most = 0;
    double mean = 0;
    double deviation = 0; ///< standard deviation of the population that these are a sample of; 0 below two values

    double binBegin = 0;  ///< where the first of `bins` begins
    double binWidth = 0;  ///< 0 only without values
    QVector<qint64> bins; ///< a value at a border is in the upper one
    qint64 below = 0;     ///< values so far off that no bin was made for them
    qint64 above = 0;
};

/// Fills in everything but item, name, unit, limit and `outside`. Values that are not finite are left out.
void describe(QVector<double> values, Distribution *distribution);

/// How far the nearer limit is from the mean, in three standard deviations; nothing without a limit or without spread.
std::optional<double> cpk(const Distribution &distribution);

/// The smallest 1, 2 or 5 times a power of ten that is at least `step`, which is above 0.
double roundStep(double step);
