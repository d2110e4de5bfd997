#ifndef DEVICEHOST_VDEV_SCHEMES_H
#define DEVICEHOST_VDEV_SCHEMES_H

#include "devicehost/vdev/backend.h"

namespace devicehost
{

/// Opens a device by its name, such as "folder:/media/phone". Null, with `*error` filled, on failure; an unknown
/// scheme is one. `host` is the device's host, and may be null.
std::unique_ptr<VDev> openDevice(const char *name, const std::shared_ptr<HostState> &host, VError *error);

} // namespace devicehost

#endif
