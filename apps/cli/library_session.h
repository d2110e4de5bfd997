#ifndef APPS_CLI_LIBRARY_SESSION_H
#define APPS_CLI_LIBRARY_SESSION_H

#include "apps/cli/exit_code.h"
#include "apps/cli/interrupt.h"
#include "apps/cli/log_watch.h"
#include "apps/cli/options/common_options.h"
#include "devicehost/device_host.h"
#include "photolib/photolib.h"

#include <memory>

namespace photocli
{

/// Makes the waiting for devices on USB as long as `options` say.
void applyUsbOptions(const UsbOptions &options);

/// A device with its photo library open. Everything that the opening made on this computer goes with the object.
class LibrarySession
{
public:
    /// Opens the library; throws a Failure when that cannot be done or the user interrupts. Prints a warning for what
    /// the device says of itself, and one at most for what was read in part only, or else for what the library lacks.
    explicit LibrarySession(const DeviceOptions &options);

    /// Ctrl-C ends the process also while the library is freed, which takes seconds for a million photos.
    ~LibrarySession();
    LibrarySession(const LibrarySession &) = delete;
    LibrarySession &operator=(const LibrarySession &) = delete;

    photo_manager_int &library() { return *manager; }

    /// The device, for those who read its files.
    devicehost::DeviceHost &device() { return *host; }

    /// The device's name with its scheme.
    QString deviceName() { return host->devicePath(); }

    /// For a command that found a file missing: says what backups do not hold, when the device is one.
    void noteOnMissingFiles();

    /// The status to exit with when all else went well: a damaged database has given some of its records only.
    ExitCode status() const { return readInPart ? ExitSomeFailed : ExitOk; }

private:
    /// Leaves the memory to the end of the process when the user interrupts: freeing a million photos takes a while.
    struct Releaser {
        void operator()(photo_manager_int *manager) const;
    };

    void unlock(const DeviceOptions &options);
    void open(bool showProgress);
    ExitCode unreadable() const;  ///< the status for a library that did not open
    QString damageReport() const; ///< empty when all could be read
    void warnOfShortcoming();
    void warn(const QString &message);
    [[noreturn]] void fail(ExitCode code, const QString &fallback);

    // Destroyed from the bottom up: the manager before its device, the log last of all.
    LogWatch log;
    std::unique_ptr<devicehost::DeviceHost> host;
    std::unique_ptr<InterruptScope> interrupts;
    std::unique_ptr<photo_manager_int, Releaser> manager;
    bool readInPart = false;
};

} // namespace photocli

#endif
