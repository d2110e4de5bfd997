#include "devicehost/afc/watchdog.h"

#include "devicehost/afc/quiet_thread.h"

#include <sys/socket.h>

#include <algorithm>
#include <system_error>
#include <utility>

namespace devicehost::afc
{

namespace
{

// A signal handler can wake no thread, so a request to stop is looked for from time to time.
constexpr std::chrono::milliseconds lookInterval{20};

} // namespace

Watchdog::Watchdog(std::function<bool()> stopRequested) : stop(std::move(stopRequested)) {}

Watchdog::~Watchdog()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        ending = true;
    }
    changed.notify_all();
    if (thread.joinable())
        thread.join();
}

bool Watchdog::start()
{
    const std::lock_guard<std::mutex> lock(mutex);
    try {
        if (!thread.joinable())
            thread = threadWithoutSignals([this] { run(); });
        return true;
    } catch (const std::system_error &) {
        return false;
    }
}

void Watchdog::judge(Watch &watch) const
{
    if (watch.reason != Verdict::Quiet)
        return;
    if (stop())
        watch.reason = Verdict::Stopped;
    else if (Clock::now() >= watch.deadline)
        watch.reason = Verdict::TimedOut;
    if (watch.reason != Verdict::Quiet && watch.socket >= 0)
        ::shutdown(watch.socket, SHUT_RDWR);
}

void Watchdog::run()
{
    std::unique_lock<std::mutex> lock(mutex);
    while (!ending) {
        asleep = watches.empty();
        if (asleep)
            changed.wait(lock);
        else
            changed.wait_for(lock, lookInterval);
        for (Watch *watch : watches)
            judge(*watch);
    }
}

Watchdog::Watch::Watch(Watchdog &watchdog, int watched, std::chrono::milliseconds time)
    : owner(watchdog), socket(watched), patience(time), deadline(Clock::now() + time)
{
    const std::lock_guard<std::mutex> lock(owner.mutex);
    place = owner.watches.insert(owner.watches.end(), this);
    if (owner.asleep) {
        owner.asleep = false;
        owner.changed.notify_all();
    }
}

Watchdog::Watch::~Watch()
{
    const std::lock_guard<std::mutex> lock(owner.mutex);
    owner.watches.erase(place);
}

void Watchdog::Watch::renew()
{
    const std::lock_guard<std::mutex> lock(owner.mutex);
    deadline = Clock::now() + patience;
}

std::chrono::milliseconds Watchdog::Watch::left()
{
    const std::lock_guard<std::mutex> lock(owner.mutex);
    const auto rest = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
    return std::max(rest, std::chrono::milliseconds(0));
}

Watchdog::Verdict Watchdog::Watch::verdict()
{
    const std::lock_guard<std::mutex> lock(owner.mutex);
    owner.judge(*this);
    return reason;
}

} // namespace devicehost::afc
