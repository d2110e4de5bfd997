#ifndef DEVICEHOST_AFC_DEVICE_PATH_H
#define DEVICEHOST_AFC_DEVICE_PATH_H

#include <QByteArray>

namespace devicehost::afc
{

/// The name as the device gets it: absolute from the media root, without doubled slashes and "." parts. Empty when it
/// climbs with "..", wherever that would lead.
QByteArray devicePath(const char *name);

} // namespace devicehost::afc

#endif
