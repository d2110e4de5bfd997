#include "apps/cli/process_end.h"

#include "devicehost/usb_devices.h"

#include <cstdio>
#include <cstdlib>

namespace photocli
{

int endProcess(int status)
{
    if (!devicehost::usbCallWasLeftBehind())
        return status;
    std::fflush(nullptr);
    std::_Exit(status);
}

} // namespace photocli
