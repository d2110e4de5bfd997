#include "devicehost/usb_devices.h"

#include <algorithm>
#include <atomic>

namespace devicehost
{

namespace
{

std::atomic<qint64> timeoutMs{30'000};

} // namespace

void setUsbTimeout(std::chrono::milliseconds timeout)
{
    timeoutMs = std::max<qint64>(timeout.count(), 1);
}

std::chrono::milliseconds usbTimeout()
{
    return std::chrono::milliseconds(timeoutMs.load());
}

} // namespace devicehost
