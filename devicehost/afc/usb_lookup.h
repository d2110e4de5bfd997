#ifndef DEVICEHOST_AFC_USB_LOOKUP_H
#define DEVICEHOST_AFC_USB_LOOKUP_H

#include "devicehost/afc/usb_handles.h"
#include "devicehost/vdev/verror.h"

#include <QByteArray>
#include <QByteArrayList>

namespace devicehost::afc
{

/// The name under which this program introduces itself to a device.
constexpr const char *lockdownLabel = "photolib";

/// The UDIDs of the devices on USB, each once. `*error` is filled when nobody can be asked, else its code is 0.
QByteArrayList connectedUdids(VError *error);

/// The device of this UDID; the only one for an empty UDID. Null, with `*error` filled, when there is none.
DeviceHandle openUsbDevice(const QByteArray &udid, VError *error);

} // namespace devicehost::afc

#endif
