// Stands in for what needs libimobiledevice in a build without it.

#include "devicehost/afc/scheme.h"
#include "devicehost/usb_devices.h"

#include <cerrno>

namespace devicehost
{

namespace
{

VError missing()
{
    return {EPROTONOSUPPORT, QStringLiteral("this photolib was built without devices on USB (libimobiledevice)"),
            QStringLiteral("use one that was built with them, or mount the device and give its media root, the folder "
                           "that holds DCIM and PhotoData")};
}

QString sentence()
{
    const VError error = missing();
    return QStringLiteral("%1; %2").arg(error.text, error.advice);
}

} // namespace

std::unique_ptr<VDev> openUsbDevice(const char *, const std::shared_ptr<HostState> &, VError *error)
{
    *error = missing();
    return nullptr;
}

QList<ConnectedDevice> connectedDevices(QString *failure)
{
    *failure = sentence();
    return {};
}

bool usbIsSupported()
{
    return false;
}

UsbDevices listUsbDevices()
{
    return {{}, sentence()};
}

QString pairUsbDevice(const QString &, bool *)
{
    return sentence();
}

bool usbCallWasLeftBehind()
{
    return false;
}

} // namespace devicehost
