#include "photolib/media/device_access.h"

#include "photolib/host/iipod.h"
#include "photolib/host/log.h"
#include "photolib/logging.h"

namespace photolib
{

DeviceHandle openDeviceOrLog(IIPod *host)
{
    const QByteArray name = host->devicePath().toLocal8Bit();
    DeviceHandle device(vDevOpen(VDevDevice, name.constData()));
    if (!device)
        Log(logTag, logError, "Can not vDevOpen m_pDev , disconnected ?  %s", name.constData());
    return device;
}

} // namespace photolib
