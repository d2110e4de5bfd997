#ifndef DEVICEHOST_AFC_SCHEME_H
#define DEVICEHOST_AFC_SCHEME_H

#include "devicehost/afc/connected_device.h"
#include "devicehost/vdev/backend.h"

#include <QString>

#include <memory>

namespace devicehost
{

/// The device on USB or on the network with this UDID; the only one for an empty UDID, of those on USB if there are
/// any. The connections stay with `host` until it goes, or with what is returned when there is none. Null, with
/// `*error` filled, on failure.
std::unique_ptr<VDev> openUsbDevice(const char *udid, const std::shared_ptr<HostState> &host, VError *error);

/// The devices on USB and on the network, each once. `*failure` says why nobody can be asked, and what to do; else it
/// stays empty. Waits for usbTimeout() at most.
QList<ConnectedDevice> connectedDevices(QString *failure);

} // namespace devicehost

#endif
