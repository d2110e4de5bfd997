#ifndef APPS_CLI_DEVICE_PLACE_H
#define APPS_CLI_DEVICE_PLACE_H

#include "devicehost/device_place.h"

#include <QString>

namespace photocli
{

using devicehost::Place;
using devicehost::placeOf;

/// Throws a usage Failure when `path`, which is about to be written, lies within the device: nothing is ever written
/// to one.
void refuseToWriteToDevice(const QString &path, const QString &device);

} // namespace photocli

#endif
