#ifndef DEVICEHOST_VDEV_FOLDER_H
#define DEVICEHOST_VDEV_FOLDER_H

#include "devicehost/vdev/backend.h"

namespace devicehost
{

/// A device whose media root is mounted as the folder `root`. Nothing is ever written to it. Null, with `*error`
/// filled, when the folder cannot be entered.
std::unique_ptr<VDev> openFolderDevice(const char *root, VError *error);

} // namespace devicehost

#endif
