#pragma once

#include <QEventLoop>
#include <QMetaObject>
#include <thread>
#include <type_traits>
#include <utility>

/// Runs `work` as the runner would: on a plain thread, while the calling thread serves its events. Returns what `work`
/// returns.
template <class Work>
std::invoke_result_t<Work> onWorkerThread(Work work)
{
    QEventLoop loop;
    const auto leaveLoop = [&loop] { QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection); };
    if constexpr (std::is_void_v<std::invoke_result_t<Work>>) {
        std::thread worker([&] {
            work();
            leaveLoop();
        });
        loop.exec();
        worker.join();
    } else {
        std::invoke_result_t<Work> result{};
        std::thread worker([&] {
            result = work();
            leaveLoop();
        });
        loop.exec();
        worker.join();
        return result;
    }
}
