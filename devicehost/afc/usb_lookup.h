#ifndef DEVICEHOST_AFC_USB_LOOKUP_H
#define DEVICEHOST_AFC_USB_LOOKUP_H

#include "devicehost/afc/connected_device.h"
#include "devicehost/afc/usb_handles.h"
#include "devicehost/vdev/verror.h"

#include <QByteArray>
#include <QList>

#include <chrono>

namespace devicehost::afc
{

/// The name under which this program introduces itself to a device.
constexpr const char *lockdownLabel = "photolib";

/// The devices on USB and on the network, each once: where both ways lead to one, it is on USB. `*error` is filled when
/// nobody can be asked, else its code is 0. The second function gives up after `timeout`.
QList<ConnectedDevice> connectedDevices(VError *error);
QList<ConnectedDevice> connectedDevices(std::chrono::milliseconds timeout, VError *error);

/// The device of this UDID, over USB when it is there; the only one that is meant by an empty UDID. Null, with `*error`
/// filled, when there is none.
DeviceHandle openUsbDevice(const QByteArray &udid, VError *error);

} // namespace devicehost::afc

#endif
