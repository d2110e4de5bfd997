#ifndef DEVICEHOST_DEVICE_PLACE_H
#define DEVICEHOST_DEVICE_PLACE_H

#include <QString>

namespace devicehost
{

/// Where a path of this computer lies, seen from the folder that a device is read from.
enum class Place {
    Apart,  ///< neither of the two below, or the device is in no folder
    Within, ///< the device's folder itself, or something in it
    Around, ///< a folder that holds the device's folder
};

/// `device` is the device's name with its scheme. `path` need not be there. Folders are compared, not names: symbolic
/// links and second mounts deceive nobody.
Place placeOf(const QString &path, const QString &device);

} // namespace devicehost

#endif
