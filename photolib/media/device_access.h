#ifndef PHOTOLIB_MEDIA_DEVICE_ACCESS_H
#define PHOTOLIB_MEDIA_DEVICE_ACCESS_H

#include "photolib/host/handles.h"

class IIPod;

namespace photolib
{

/// Opens the device that the host names. A null handle, and a line in the log, when it cannot be opened.
DeviceHandle openDeviceOrLog(IIPod *host);

} // namespace photolib

#endif
