#include "Stage.h"

#include "isolation.h"
#include "records.h"

#include <algorithm>
#include <atomic>
#include <QtTest>
#include <thread>

namespace {
constexpr int ordinaryStories = 12;
constexpr int calmStories = 4;

bool networksAllowed()
{
    bool allowed = false;
    std::thread([&allowed] { allowed = enterPrivateNetwork(); }).join();
    return allowed;
}

/// The rows that the command line names; empty: all.
QStringList namedRows()
{
    QStringList rows;
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    for (const QString &argument : arguments) {
        const auto colon = static_cast<int>(argument.indexOf(QLatin1Char(':')));
        if (colon >= 0 && !argument.startsWith(QLatin1Char('-'))) {
            rows.append(argument.mid(colon + 1));
        }
    }
    return rows;
}
} // namespace

void inPrivateNetworks(int count, int width, const std::function<void(int)> &work)
{
    std::atomic<int> next{0};
    const auto takeTurns = [&] {
        for (int i = next++; i < count; i = next++) {
            // A thread for each: what it enters ends with it.
            std::thread([&work, i] {
                enterPrivateNetwork();
                work(i);
            }).join();
        }
    };
    const int sideBySide = networksAllowed() ? std::min(width, count) : 1;
    std::vector<std::thread> threads;
    threads.reserve(static_cast<std::size_t>(sideBySide));
    for (int i = 0; i < sideBySide; ++i) {
        threads.emplace_back(takeTurns);
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
}

Stage::Stage(std::vector<Story> stories) : m_stories(std::move(stories)), m_outcomes(m_stories.size())
{
    playAll();
}

void Stage::playAll()
{
    const QStringList named = namedRows();
    std::vector<std::size_t> ordinary;
    std::vector<std::size_t> calm;
    for (std::size_t i = 0; i < m_stories.size(); ++i) {
        if (named.isEmpty() || named.contains(QString::fromUtf8(m_stories.at(i).name))) {
            (m_stories.at(i).calm ? calm : ordinary).push_back(i);
        }
    }
    const auto playThose = [this](const std::vector<std::size_t> &those, int sideBySide) {
        inPrivateNetworks(static_cast<int>(those.size()), sideBySide, [&](int i) {
            const std::size_t index = those.at(static_cast<std::size_t>(i));
            m_outcomes.at(index) = play(m_stories.at(index));
        });
    };
    playThose(ordinary, ordinaryStories);
    playThose(calm, calmStories);

    QList<QByteArray> records;
    std::vector<std::size_t> owners;
    for (std::size_t i = 0; i < m_outcomes.size(); ++i) {
        records += m_outcomes.at(i).records;
        owners.insert(owners.end(), static_cast<std::size_t>(m_outcomes.at(i).records.size()), i);
    }
    const QStringList problems = schemaProblems(records);
    for (std::size_t i = 0; i < owners.size(); ++i) {
        m_outcomes.at(owners.at(i)).recordProblem += problems.at(static_cast<int>(i));
    }
}

void Stage::addRows() const
{
    QTest::addColumn<int>("story");
    for (std::size_t i = 0; i < m_stories.size(); ++i) {
        QTest::newRow(m_stories.at(i).name.constData()) << static_cast<int>(i);
    }
}

void Stage::compareRow() const
{
    QFETCH(int, story);
    const auto index = static_cast<std::size_t>(story);
    compare(m_stories.at(index), m_outcomes.at(index));
}
