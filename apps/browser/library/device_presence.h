#ifndef APPS_BROWSER_LIBRARY_DEVICE_PRESENCE_H
#define APPS_BROWSER_LIBRARY_DEVICE_PRESENCE_H

class IIPod;
struct VDev;

namespace browser
{

/// Whether the device can be opened and still has its list of photos: a folder whose device was taken off looks like a
/// device without files. May take as long as the device takes to answer. Any thread.
bool isDeviceThere(IIPod &host);
/// The same of a device that is open.
bool hasPhotoDatabase(VDev *device);

} // namespace browser

#endif
