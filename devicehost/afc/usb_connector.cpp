#include "devicehost/afc/usb_connector.h"

#include "devicehost/afc/bounded.h"
#include "devicehost/afc/errors.h"
#include "devicehost/afc/usb_handles.h"
#include "devicehost/afc/usb_lookup.h"
#include "devicehost/afc/usb_transport.h"

#include <sys/socket.h>
#include <sys/time.h>

#include <utility>

namespace devicehost::afc
{

namespace
{

constexpr const char *fileService = "com.apple.afc";

struct Connected {
    std::unique_ptr<Transport> transport;
    VError error;
};

Connected lockdownFailure(lockdownd_error_t code)
{
    return {nullptr, explain(ErrorSource::Lockdown, code)};
}

Connected linkFailure(idevice_error_t code)
{
    return {nullptr, explain(ErrorSource::Link, code)};
}

/// The encryption is agreed upon without a time-out of its own; whoever waits for it is gone after `timeout`.
void limitWaiting(idevice_connection_t connection, std::chrono::milliseconds timeout)
{
    int socket = -1;
    if (idevice_connection_get_fd(connection, &socket) != IDEVICE_E_SUCCESS)
        return;
    const timeval time = {static_cast<time_t>(timeout.count() / 1000),
                          static_cast<suseconds_t>(timeout.count() % 1000 * 1000)};
    ::setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &time, sizeof time);
    ::setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &time, sizeof time);
}

Connected connectTo(DeviceHandle device, const lockdownd_service_descriptor &service, std::chrono::milliseconds timeout)
{
    idevice_connection_t made = nullptr;
    const idevice_error_t connected = idevice_connect(device.get(), service.port, &made);
    ConnectionHandle connection(made);
    if (connected != IDEVICE_E_SUCCESS)
        return linkFailure(connected);
    limitWaiting(connection.get(), timeout);
    if (service.ssl_enabled != 0) {
        const idevice_error_t encrypted = idevice_connection_enable_ssl(connection.get());
        if (encrypted != IDEVICE_E_SUCCESS)
            return linkFailure(encrypted);
    }
    auto transport = std::make_unique<UsbTransport>(std::move(device), std::move(connection));
    if (transport->socket() < 0)
        return linkFailure(IDEVICE_E_UNKNOWN_ERROR);
    return {std::move(transport), {}};
}

Connected connectNow(const QByteArray &udid, std::chrono::milliseconds timeout)
{
    const PipeSignalBlock block;
    VError error;
    DeviceHandle device = openUsbDevice(udid, &error);
    if (device == nullptr)
        return {nullptr, error};
    lockdownd_client_t client = nullptr;
    const lockdownd_error_t greeted = lockdownd_client_new_with_handshake(device.get(), &client, lockdownLabel);
    const LockdownHandle lockdown(client);
    if (greeted != LOCKDOWN_E_SUCCESS)
        return lockdownFailure(greeted);
    lockdownd_service_descriptor_t descriptor = nullptr;
    const lockdownd_error_t started = lockdownd_start_service(lockdown.get(), fileService, &descriptor);
    const ServiceHandle service(descriptor);
    if (started != LOCKDOWN_E_SUCCESS || service == nullptr)
        return lockdownFailure(started != LOCKDOWN_E_SUCCESS ? started : LOCKDOWN_E_UNKNOWN_ERROR);
    return connectTo(std::move(device), *service, timeout);
}

} // namespace

std::unique_ptr<Transport> UsbConnector::connect(std::chrono::milliseconds timeout,
                                                 const std::function<bool()> &stopRequested, VError *error)
{
    std::optional<Connected> result = runBounded<Connected>(
        [name = udid, timeout] { return connectNow(name, timeout); }, timeout, stopRequested, error);
    if (!result)
        return nullptr;
    *error = result->error;
    return std::move(result->transport);
}

} // namespace devicehost::afc
