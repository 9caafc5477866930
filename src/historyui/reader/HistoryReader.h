#pragma once

#include "history/address/StoreAddress.h"
#include "history/store/Store.h"

#include <array>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <QObject>
#include <thread>
#include <utility>

/// Asks a store on a thread of its own, so that the window never waits for a disk or a server. Questions and answers
/// are for the thread that has made it.
///
/// Each question belongs to a topic; a newer one of a topic makes the earlier one stale: it is not asked any more, or
/// its answer is thrown away. Among the topics, the more urgent one is asked first.
class HistoryReader : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(HistoryReader)

public:
    /// The most urgent one first.
    enum class Topic {
        Search,       ///< that somebody is typing
        Rows,         ///< that somebody looks at
        Run,          ///< that was chosen
        Unit,         ///< likewise
        Choices,      ///< what there is to filter by
        Statistics,   ///< of the filter
        Distribution, ///< likewise
        Index,        ///< of a long list: what is not looked at yet
    };
    static constexpr int topics = 8;

    explicit HistoryReader(const StoreAddress &address, QObject *parent = nullptr);
    /// Waits for the question under way, and leaves out the others.
    ~HistoryReader() override;

    const StoreAddress &address() const { return m_address; }

    /// `question(Store &)` gives an optional answer, on the reader's thread: nothing where the store has failed. Then
    /// `take` gets the answer, here; where there is none, `failed` is emitted instead. Neither touches anything that
    /// the other one does.
    template <class Question, class Take>
    void ask(Topic topic, Question question, Take take)
    {
        const quint64 number = ++m_asked[index(topic)];
        post(topic, [this, topic, number, question, take](Store *store, const StoreError &trouble) {
            decltype(question(*store)) answer;
            StoreError error = trouble;
            if (store != nullptr) {
                answer = question(*store);
                error = answer ? StoreError() : store->error();
            }
            handBack([this, topic, number, take, answer = std::move(answer), error] {
                if (m_asked[index(topic)] != number) {
                    return; // stale
                }
                if (answer) {
                    emit answered();
                    take(*answer);
                } else {
                    emit failed(error);
                }
            });
            return !error.isError();
        });
    }

    /// What was asked of the topic is not wanted any more.
    void withdraw(Topic topic);
    /// From now on no question is begun. Waits for nothing.
    void end();

signals:
    void answered();
    /// The store did not do what it was asked; the next question opens it anew.
    void failed(const StoreError &error);
    /// From the reader's thread to its owner's, for each answer.
    void answerWaits(QPrivateSignal);

private:
    /// False: the store is better opened anew.
    using Task = std::function<bool(Store *store, const StoreError &trouble)>;
    /// A task's answer, to be called on the owner's thread.
    using Answer = std::function<void()>;

    static std::size_t index(Topic topic) { return static_cast<std::size_t>(topic); }
    void post(Topic topic, Task task);
    void work();
    /// The next task; none at the end.
    Task take();
    void handBack(Answer answer);
    void giveAnswer();

    const StoreAddress m_address;
    std::array<quint64, topics> m_asked{};

    std::mutex m_mutex; ///< guards what follows
    std::condition_variable m_posted;
    std::array<Task, topics> m_tasks;
    std::deque<Answer> m_answers;
    bool m_isEnding = false;

    std::thread m_thread; ///< last: it uses all of these
};
