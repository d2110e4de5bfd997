#ifndef DEVICEHOST_AFC_BOUNDED_H
#define DEVICEHOST_AFC_BOUNDED_H

#include "devicehost/afc/errors.h"
#include "devicehost/afc/quiet_thread.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <new>
#include <optional>
#include <system_error>
#include <utility>

namespace devicehost::afc
{

/// Calls that nobody waits for any more and that have not returned. Tests wait for them to end.
inline std::atomic<int> abandonedCalls{0};

/// Whether there ever was one. A thread whose call has returned still takes down what other libraries keep for it.
inline std::atomic<bool> callWasAbandoned{false};

/// The result of `work`, unless it takes longer than `timeout` or `stopRequested` answers true: then nothing, and
/// `*error` says which. For calls that can wait for minutes and cannot be broken off: they go on on a thread of their
/// own, which throws the result away. So `work` must own all that it uses.
template <class Result>
std::optional<Result> runBounded(std::function<Result()> work, std::chrono::milliseconds timeout,
                                 const std::function<bool()> &stopRequested, VError *error)
{
    struct Shared {
        std::mutex mutex;
        std::condition_variable done;
        std::optional<Result> result;
        bool failed = false;
        bool abandoned = false;
    };
    const auto shared = std::make_shared<Shared>();
    std::thread thread;
    try {
        thread = threadWithoutSignals([shared, doIt = std::move(work)] {
            std::optional<Result> result;
            try {
                result = doIt();
            } catch (const std::bad_alloc &) { // no exception may leave a thread
            }
            const std::lock_guard<std::mutex> lock(shared->mutex);
            if (shared->abandoned) {
                result.reset();
                --abandonedCalls;
                return;
            }
            shared->failed = !result;
            shared->result = std::move(result);
            shared->done.notify_all();
        });
    } catch (const std::system_error &) {
        *error = clientOutcome(NoThread).error;
        return std::nullopt;
    }
    constexpr std::chrono::milliseconds lookInterval{20}; // a signal handler can wake nobody
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    std::unique_lock<std::mutex> lock(shared->mutex);
    const auto isDone = [&shared] { return shared->failed || shared->result.has_value(); };
    while (!shared->done.wait_for(lock, lookInterval, isDone)) {
        const bool stopped = stopRequested();
        if (stopped || std::chrono::steady_clock::now() >= deadline) {
            *error = clientOutcome(stopped ? Stopped : TimedOut).error;
            shared->abandoned = true;
            ++abandonedCalls;
            callWasAbandoned = true;
            thread.detach();
            return std::nullopt;
        }
    }
    std::optional<Result> result = std::move(shared->result);
    if (!result)
        *error = errnoError(ENOMEM);
    lock.unlock();
    thread.join();
    return result;
}

} // namespace devicehost::afc

#endif
