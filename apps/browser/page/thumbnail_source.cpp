#include "apps/browser/page/thumbnail_source.h"

#include "apps/browser/library/device_presence.h"
#include "apps/browser/media/device_read.h"
#include "devicehost/device_host.h"
#include "devicehost/open_error.h"

namespace browser
{

// The library tries one file after the other. Where the last one is not there, and the device is, there is no picture.
ThumbnailAnswer LibraryThumbnails::thumbnail(qint64 id)
{
    ThumbnailAnswer answer;
    answer.bytes = opened->thumbnail(id);
    if (answer.bytes.isEmpty()) {
        const devicehost::OpenError error = devicehost::lastOpenError();
        const bool isAbsent = error.absent || error.text.isEmpty(); // none: there, with no bytes
        answer.failed = !isAbsent || !isDeviceThere(opened->host());
    }
    return answer;
}

// Looked up only where the database leaves it open: each look is a question to the device.
bool LibraryThumbnails::lacksOriginal(qint64 id)
{
    const Photo *photo = opened->snapshot().find(id);
    if (photo == nullptr || !photo->is(InCloud))
        return false;
    const std::optional<photoItem> item = opened->item(id);
    return item && lookAtDeviceFile(opened->host(), originalPathOf(*item)).end == ReadEnd::Absent;
}

} // namespace browser
