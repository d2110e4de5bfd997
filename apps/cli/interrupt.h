#ifndef APPS_CLI_INTERRUPT_H
#define APPS_CLI_INTERRUPT_H

namespace devicehost
{
class DeviceHost;
}

namespace photocli
{

/// Makes Ctrl-C (SIGINT) and SIGTERM end the work on `host` cleanly for as long as the object lives. A second signal
/// kills the process. One at a time; `host` must outlive it.
///
/// The handlers stay when the object goes, so that a signal during the removal of local files does not leave any.
class InterruptScope
{
public:
    explicit InterruptScope(devicehost::DeviceHost &host);
    /// For work without a device, which asks interruptRequested() from time to time.
    InterruptScope();
    ~InterruptScope();
    InterruptScope(const InterruptScope &) = delete;
    InterruptScope &operator=(const InterruptScope &) = delete;
};

/// Whether one of the signals came since the first InterruptScope.
bool interruptRequested();

} // namespace photocli

#endif
