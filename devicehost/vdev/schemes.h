#ifndef DEVICEHOST_VDEV_SCHEMES_H
#define DEVICEHOST_VDEV_SCHEMES_H

#include "devicehost/vdev/backend.h"

namespace devicehost
{

/// Opens a device by its name, such as "folder:/media/phone". Null, with `*error` filled, on failure; an unknown
/// scheme is one.
std::unique_ptr<VDev> openDevice(const char *name, VError *error);

} // namespace devicehost

#endif
