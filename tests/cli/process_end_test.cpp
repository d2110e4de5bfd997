// How the process ends when a thread of it hangs in a call to a device.

#ifdef PHOTOLIB_AFC

#include "apps/cli/process_end.h"

#include "devicehost/usb_devices.h"
#include "tests/unit/devicehost/afc/silent_daemon.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

#include <unistd.h>

namespace
{

constexpr int status = 3;
constexpr int statusOfHandlers = 99;

/// As main() ends. What exit() runs would show in the status.
[[noreturn]] void endAsMain()
{
    std::atexit([] { ::_exit(statusOfHandlers); });
    std::fputs("written", stderr);
    std::exit(photocli::endProcess(status));
}

[[noreturn]] void endWithAThreadLeftBehind()
{
    const QTemporaryDir folder;
    const SilentDaemon daemon(folder.path());
    devicehost::setUsbTimeout(std::chrono::milliseconds(1));
    devicehost::listUsbDevices();
    endAsMain();
}

} // namespace

TEST(ProcessEnd, IsTheUsualOneWhereNoThreadIsLeftBehind)
{
    EXPECT_EXIT(endAsMain(), testing::ExitedWithCode(statusOfHandlers), "written");
}

TEST(ProcessEnd, TakesNothingDownThatAThreadMayUse)
{
    EXPECT_EXIT(endWithAThreadLeftBehind(), testing::ExitedWithCode(status), "written");
}

#endif
