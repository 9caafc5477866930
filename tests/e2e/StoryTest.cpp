#include "StoryTest.h"

std::vector<Story> StoryTest::joined(std::initializer_list<std::vector<Story>> parts)
{
    std::vector<Story> all;
    for (const std::vector<Story> &part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

void StoryTest::initTestCase()
{
    m_stage = std::make_unique<Stage>(stories());
}

void StoryTest::run_data()
{
    m_stage->addRows();
}

void StoryTest::run()
{
    m_stage->compareRow();
}
