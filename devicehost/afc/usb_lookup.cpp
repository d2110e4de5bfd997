#include "devicehost/afc/usb_lookup.h"

#include "devicehost/afc/errors.h"

#include <cerrno>

namespace devicehost::afc
{

QByteArrayList connectedUdids(VError *error)
{
    char **names = nullptr;
    int count = 0;
    if (idevice_get_device_list(&names, &count) != IDEVICE_E_SUCCESS) {
        *error = {ENODEV, QStringLiteral("no device is connected, or usbmuxd, which finds devices, does not run"),
                  QStringLiteral("connect the device with a cable and unlock it; if that does not help, check that "
                                 "usbmuxd is installed and runs")};
        return {};
    }
    QByteArrayList udids;
    for (int i = 0; i < count; ++i)
        if (!udids.contains(names[i]))
            udids += names[i];
    idevice_device_list_free(names);
    return udids;
}

DeviceHandle openUsbDevice(const QByteArray &udid, VError *error)
{
    QByteArray name = udid;
    if (name.isEmpty()) {
        const QByteArrayList udids = connectedUdids(error);
        if (error->code != 0)
            return nullptr;
        if (udids.size() > 1) {
            *error = {ENODEV, QStringLiteral("several devices are connected"),
                      QStringLiteral("name one of them: afc:") + QString::fromUtf8(udids.join(", afc:"))};
            return nullptr;
        }
        name = udids.isEmpty() ? QByteArray() : udids.front();
    }
    idevice_t device = nullptr;
    const idevice_error_t result = idevice_new(&device, name.isEmpty() ? nullptr : name.constData());
    if (result != IDEVICE_E_SUCCESS)
        *error = explain(ErrorSource::Link, result);
    return DeviceHandle(device);
}

} // namespace devicehost::afc
