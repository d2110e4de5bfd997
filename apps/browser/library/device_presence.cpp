#include "apps/browser/library/device_presence.h"

#include "photolib/host/iipod.h"
#include "photolib/host/vdev.h"

namespace browser
{

bool isDeviceThere(IIPod &host)
{
    VDev *const device = vDevOpen(VDevDevice, host.devicePath().toLocal8Bit().constData());
    if (device == nullptr)
        return false;
    const bool isThere = hasPhotoDatabase(device);
    vDevClose(device);
    return isThere;
}

bool hasPhotoDatabase(VDev *device)
{
    VFile *const database = vFileOpen(device, "/PhotoData/Photos.sqlite", 0);
    if (database != nullptr)
        vFileClose(database);
    return database != nullptr;
}

} // namespace browser
