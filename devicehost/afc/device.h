#ifndef DEVICEHOST_AFC_DEVICE_H
#define DEVICEHOST_AFC_DEVICE_H

#include "devicehost/afc/session.h"
#include "devicehost/vdev/backend.h"

#include <memory>

namespace devicehost::afc
{

/// The media folder of the device behind `session`, for reading. Null, with `*error` filled, when the device cannot be
/// reached.
std::unique_ptr<VDev> openDevice(std::shared_ptr<Session> session, VError *error);

} // namespace devicehost::afc

#endif
