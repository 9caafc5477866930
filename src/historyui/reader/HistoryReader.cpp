#include "historyui/reader/HistoryReader.h"

#include <algorithm>

HistoryReader::HistoryReader(const StoreAddress &address, QObject *parent)
    : QObject(parent), m_address(address), m_thread([this] { work(); })
{
    connect(this, &HistoryReader::answerWaits, this, &HistoryReader::giveAnswer, Qt::QueuedConnection);
}

HistoryReader::~HistoryReader()
{
    end();
    m_thread.join();
}

void HistoryReader::end()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isEnding = true;
    }
    m_posted.notify_one();
}

void HistoryReader::withdraw(Topic topic)
{
    ++m_asked[index(topic)];
    const std::lock_guard lock(m_mutex);
    m_tasks[index(topic)] = nullptr;
}

void HistoryReader::post(Topic topic, Task task)
{
    {
        const std::lock_guard lock(m_mutex);
        m_tasks[index(topic)] = std::move(task);
    }
    m_posted.notify_one();
}

HistoryReader::Task HistoryReader::take()
{
    std::unique_lock lock(m_mutex);
    const auto next = [this] {
        return std::find_if(m_tasks.begin(), m_tasks.end(), [](const Task &task) { return task != nullptr; });
    };
    m_posted.wait(lock, [&] { return m_isEnding || next() != m_tasks.end(); });
    return m_isEnding ? Task() : std::exchange(*next(), nullptr);
}

void HistoryReader::handBack(Answer answer)
{
    {
        const std::lock_guard lock(m_mutex);
        m_answers.push_back(std::move(answer));
    }
    emit answerWaits(QPrivateSignal());
}

void HistoryReader::giveAnswer()
{
    Answer answer;
    {
        const std::lock_guard lock(m_mutex);
        answer = std::move(m_answers.front());
        m_answers.pop_front();
    }
    answer();
}

void HistoryReader::work()
{
    Store::Options options;
    options.access = Connection::Access::Read;
    options.patience = std::chrono::seconds(2);
    constexpr int cacheKiB = 32768; // of a program that people look at, one at a time
    options.cacheKiB = cacheKiB;
    std::unique_ptr<Store> store;
    while (const Task task = take()) {
        StoreError error;
        if (!store) {
            store = Store::open(m_address, options, &error);
        }
        if (!task(store.get(), error)) {
            store.reset();
        }
    }
}
