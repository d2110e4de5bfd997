#include "apps/cli/opening_deadline.h"

#include "apps/cli/exit_code.h"
#include "apps/cli/messages.h"
#include "apps/cli/progress_bar.h"
#include "devicehost/device_host.h"

#include <csignal>
#include <unistd.h>
#include <utility>

namespace photocli
{

namespace
{

constexpr std::chrono::milliseconds lookInterval{20};

// A new thread takes over the signal mask of the one that makes it.
std::thread threadWithoutSignals(std::function<void()> work)
{
    sigset_t all;
    sigset_t before;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before);
    std::thread thread;
    try {
        thread = std::thread(std::move(work));
    } catch (const std::system_error &) { // no more threads: the opening then ends as soon as it can by itself
    }
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return thread;
}

} // namespace

OpeningDeadline::OpeningDeadline(std::function<bool()> isRequested, std::function<void()> endProcess,
                                 std::chrono::milliseconds time)
    : requested(std::move(isRequested)), end(std::move(endProcess)), patience(time),
      watcher(threadWithoutSignals([this] { watch(); }))
{
}

OpeningDeadline::~OpeningDeadline()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        returned = true;
    }
    changed.notify_all();
    if (watcher.joinable())
        watcher.join();
}

bool OpeningDeadline::returnsWithin(std::chrono::milliseconds time)
{
    std::unique_lock<std::mutex> lock(mutex);
    return changed.wait_for(lock, time, [this] { return returned; });
}

// Nothing can be woken from a signal handler, so the request is looked for from time to time.
void OpeningDeadline::watch()
{
    while (!requested())
        if (returnsWithin(lookInterval))
            return;
    if (!returnsWithin(patience))
        end();
}

void endInterruptedOpening(devicehost::DeviceHost &host, ProgressBar &bar)
{
    host.discardLocalData();
    bar.erase();
    printError(QStringLiteral("interrupted"));
    // Not exit(): that would take apart what the opening still works on.
    ::_exit(ExitInterrupted);
}

} // namespace photocli
