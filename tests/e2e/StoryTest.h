#pragma once

#include "Stage.h"

#include <memory>
#include <QObject>

/// A test whose rows are stories: all are played first, side by side, then compared one by one.
class StoryTest : public QObject
{
    Q_OBJECT

protected:
    virtual std::vector<Story> stories() const = 0;
    static std::vector<Story> joined(std::initializer_list<std::vector<Story>> parts);

private slots:
    void initTestCase();
    void run_data();
    void run();

private:
    std::unique_ptr<Stage> m_stage;
};
