#pragma once

#include "detector/store/checkLog.h"

#include <QList>
#include <QMutex>
#include <QObject>
#include <QStringList>

/// Writes down what a component routine tells the window, from whatever thread, in the order of emission.
class FacadeSpy : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(FacadeSpy)

public:
    FacadeSpy();

    /// "item <name>", "progress <percent>", "log <component>".
    QStringList events() const;
    QList<checkLog> logs() const;

private:
    void record(const QString &event);

    mutable QMutex m_mutex;
    QStringList m_events;
    QList<checkLog> m_logs;
};

/// The texts of a record, one entry "<result>|<message>|<detail>" for each item.
QStringList texts(const checkLog &log);
