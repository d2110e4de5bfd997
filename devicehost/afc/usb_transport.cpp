#include "devicehost/afc/usb_transport.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace devicehost::afc
{

namespace
{

std::uint32_t bounded(std::size_t size)
{
    return static_cast<std::uint32_t>(std::min<std::size_t>(size, std::numeric_limits<int>::max()));
}

} // namespace

UsbTransport::UsbTransport(DeviceHandle usbDevice, ConnectionHandle usbConnection)
    : device(std::move(usbDevice)), connection(std::move(usbConnection))
{
    if (idevice_connection_get_fd(connection.get(), &descriptor) != IDEVICE_E_SUCCESS)
        descriptor = -1;
}

bool UsbTransport::send(const char *bytes, std::size_t size)
{
    const PipeSignalBlock block;
    while (size > 0) {
        std::uint32_t count = 0;
        const idevice_error_t result = idevice_connection_send(connection.get(), bytes, bounded(size), &count);
        if (result != IDEVICE_E_SUCCESS || count == 0 || count > size)
            return false;
        bytes += count;
        size -= count;
    }
    return true;
}

qint64 UsbTransport::receive(char *buffer, std::size_t size, std::chrono::milliseconds timeout)
{
    const PipeSignalBlock block; // encrypted connections may have to write in order to read
    std::uint32_t count = 0;     // an error leaves it as it is
    // 0 would wait for ever.
    const auto wait = static_cast<unsigned>(std::clamp<qint64>(timeout.count(), 1, std::numeric_limits<int>::max()));
    const idevice_error_t result =
        idevice_connection_receive_timeout(connection.get(), buffer, bounded(size), &count, wait);
    if (result == IDEVICE_E_TIMEOUT)
        return timedOut;
    return result == IDEVICE_E_SUCCESS ? static_cast<qint64>(count) : ended;
}

} // namespace devicehost::afc
