#ifndef DEVICEHOST_AFC_SCHEME_H
#define DEVICEHOST_AFC_SCHEME_H

#include "devicehost/vdev/backend.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace devicehost
{

/// The device on USB with this UDID; the only one for an empty UDID. The connections stay with `host` until it goes, or
/// with what is returned when there is none. Null, with `*error` filled, on failure.
std::unique_ptr<VDev> openUsbDevice(const char *udid, const std::shared_ptr<HostState> &host, VError *error);

/// The UDIDs of the devices on USB. `*failure` says why nobody can be asked, and what to do; else it stays empty.
QStringList usbUdids(QString *failure);

} // namespace devicehost

#endif
