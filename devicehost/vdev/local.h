#ifndef DEVICEHOST_VDEV_LOCAL_H
#define DEVICEHOST_VDEV_LOCAL_H

#include "devicehost/vdev/backend.h"

namespace devicehost
{

/// This computer's file system, readable and writable: all of it when `root` is empty, else what lies below that
/// folder. Null, with `*error` filled, when the folder cannot be entered.
std::unique_ptr<VDev> openLocalDevice(const char *root, VError *error);

} // namespace devicehost

#endif
