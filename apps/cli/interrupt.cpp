#include "apps/cli/interrupt.h"

#include "devicehost/device_host.h"

#include <atomic>
#include <csignal>

namespace photocli
{

namespace
{

std::atomic<bool> requested{false};
std::atomic<devicehost::DeviceHost *> current{nullptr};
static_assert(std::atomic<bool>::is_always_lock_free && std::atomic<devicehost::DeviceHost *>::is_always_lock_free,
              "a signal handler may use lock-free atomics only");

extern "C" void onStopSignal(int)
{
    requested.store(true);
    if (devicehost::DeviceHost *host = current.load())
        host->requestStop();
}

void handle(int signalNumber)
{
    struct sigaction old {
    };
    // A process started with the signal ignored, as nohup does, is not to be stopped by it.
    if (::sigaction(signalNumber, nullptr, &old) != 0 || old.sa_handler == SIG_IGN)
        return;
    struct sigaction action {
    };
    action.sa_handler = onStopSignal;
    action.sa_flags = static_cast<int>(SA_RESETHAND); // no SA_RESTART: a blocked write has to return
    ::sigemptyset(&action.sa_mask);
    ::sigaction(signalNumber, &action, nullptr);
}

} // namespace

InterruptScope::InterruptScope(devicehost::DeviceHost &host) : InterruptScope()
{
    current.store(&host);
}

InterruptScope::InterruptScope()
{
    // Also those that a lost terminal sends: the private copy of the database must go in any case.
    for (const int signalNumber : {SIGINT, SIGTERM, SIGHUP, SIGQUIT})
        handle(signalNumber);
}

InterruptScope::~InterruptScope()
{
    current.store(nullptr);
}

bool interruptRequested()
{
    return requested.load();
}

} // namespace photocli
