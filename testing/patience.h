#ifndef TESTING_PATIENCE_H
#define TESTING_PATIENCE_H

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <thread>
#include <vector>

// For tests with several threads. None of them fails for want of time on a busy machine.

namespace testkit
{

/// Long enough for another thread to do something wrong: what a test waits for here must not happen at all.
constexpr std::chrono::milliseconds opportunity(100);

/// What should happen at once, and has not after this time, will not happen any more.
constexpr std::chrono::seconds forever(60);

/// Whether something happened that must not happen yet.
template <typename Result>
bool isReady(const std::future<Result> &future)
{
    return future.wait_for(opportunity) == std::future_status::ready;
}

/// Waits for the end of what must end. False means that it hangs, and then the test's process will not end either.
template <typename Result>
bool ends(const std::future<Result> &future)
{
    return future.wait_for(forever) == std::future_status::ready;
}

/// Waits for what another thread does. Gives up only to report a failure instead of hanging.
inline bool comesTrue(const std::function<bool()> &condition)
{
    const auto end = std::chrono::steady_clock::now() + forever;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::yield();
    }
    return true;
}

/// Runs `body` on this many threads, numbered from 0, which begin at the same moment. Returns when all have ended;
/// reports a failure when one hangs.
inline void runTogether(int count, const std::function<void(int thread)> &body)
{
    std::atomic<int> waiting{count};
    std::vector<std::future<void>> runs;
    for (int thread = 0; thread < count; ++thread) {
        runs.push_back(std::async(std::launch::async, [&, thread] {
            for (--waiting; waiting > 0;)
                std::this_thread::yield();
            body(thread);
        }));
    }
    for (const auto &run : runs)
        EXPECT_TRUE(ends(run)) << "a thread hangs";
}

} // namespace testkit

#endif
