#include "apps/browser/page/thumbnail_source.h"

#include "devicehost/open_error.h"
#include "photolib/host/vdev.h"

namespace browser
{

// Looked up only where the database leaves it open: each look is a question to the device.
bool LibraryThumbnails::lacksOriginal(qint64 id)
{
    const Photo *photo = opened->snapshot().find(id);
    if (photo == nullptr || !photo->is(InCloud))
        return false;
    VDev *const device = vDevOpen(VDevDevice, opened->deviceName().toUtf8().constData());
    if (device == nullptr)
        return false;
    const QString path = QLatin1Char('/') + opened->devicePath(id);
    VFile *const file = vFileOpen(device, path.toUtf8().constData(), 0);
    const bool isAbsent = file == nullptr && devicehost::lastOpenError().absent;
    if (file != nullptr)
        vFileClose(file);
    vDevClose(device);
    return isAbsent;
}

} // namespace browser
