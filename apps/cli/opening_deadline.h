#ifndef APPS_CLI_OPENING_DEADLINE_H
#define APPS_CLI_OPENING_DEADLINE_H

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace devicehost
{
class DeviceHost;
}

namespace photocli
{

class ProgressBar;

/// Sees to it that Ctrl-C ends an opening within a second. The library asks nobody while it sorts photos into groups,
/// which takes seconds for a million of them, nor while it is released: when an opening has not returned `patience`
/// after the request, a thread of this object calls `end`, which ends the process.
///
/// The destructor tells that the opening has returned. While `end` runs it waits, so that nothing is taken down twice.
class OpeningDeadline
{
public:
    /// Leaves time within the second to remove a large database copy.
    static constexpr std::chrono::milliseconds usualPatience{700};

    /// `requested` tells whether the user interrupts. Both are called on the thread of this object, which takes no
    /// signals: they are for the thread that reads.
    OpeningDeadline(std::function<bool()> requested, std::function<void()> end,
                    std::chrono::milliseconds patience = usualPatience);
    ~OpeningDeadline();
    OpeningDeadline(const OpeningDeadline &) = delete;
    OpeningDeadline &operator=(const OpeningDeadline &) = delete;

private:
    void watch();
    bool returnsWithin(std::chrono::milliseconds time);

    const std::function<bool()> requested;
    const std::function<void()> end;
    const std::chrono::milliseconds patience;
    std::mutex mutex;
    std::condition_variable changed;
    bool returned = false; ///< guarded by `mutex`
    std::thread watcher;   ///< last: it uses all of the above
};

/// Removes the database copies of `host`, erases `bar`, says that the command was interrupted and ends the process with
/// status 130, whatever its other threads do.
[[noreturn]] void endInterruptedOpening(devicehost::DeviceHost &host, ProgressBar &bar);

} // namespace photocli

#endif
