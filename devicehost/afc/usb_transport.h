#ifndef DEVICEHOST_AFC_USB_TRANSPORT_H
#define DEVICEHOST_AFC_USB_TRANSPORT_H

#include "devicehost/afc/transport.h"
#include "devicehost/afc/usb_handles.h"

namespace devicehost::afc
{

/// A connection that libimobiledevice made, in the clear or encrypted.
class UsbTransport final : public Transport
{
public:
    UsbTransport(DeviceHandle usbDevice, ConnectionHandle usbConnection);

    bool send(const char *bytes, std::size_t size) override;
    qint64 receive(char *buffer, std::size_t size, std::chrono::milliseconds timeout) override;
    int socket() const override { return descriptor; }

private:
    const DeviceHandle device; ///< the connection refers to it
    const ConnectionHandle connection;
    int descriptor = -1;
};

} // namespace devicehost::afc

#endif
