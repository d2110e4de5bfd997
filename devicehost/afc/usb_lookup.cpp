#include "devicehost/afc/usb_lookup.h"

#include "devicehost/afc/bounded.h"
#include "devicehost/afc/errors.h"

#include <algorithm>
#include <cerrno>

namespace devicehost::afc
{

namespace
{

constexpr auto bothWays = static_cast<idevice_options>(IDEVICE_LOOKUP_USBMUX | IDEVICE_LOOKUP_NETWORK);

struct Answer {
    QList<ConnectedDevice> devices;
    VError error;
};

void add(QList<ConnectedDevice> *devices, const idevice_info &info)
{
    const ConnectedDevice device{info.udid, info.conn_type == CONNECTION_NETWORK};
    const auto known = std::find_if(devices->begin(), devices->end(),
                                    [&device](const ConnectedDevice &other) { return other.udid == device.udid; });
    if (known == devices->end())
        devices->append(device);
    else
        known->overNetwork = known->overNetwork && device.overNetwork;
}

VError severalDevices(const QList<ConnectedDevice> &devices)
{
    QStringList names;
    for (const ConnectedDevice &device : devices)
        names += QStringLiteral("afc:") + QString::fromUtf8(device.udid);
    return {ENODEV, QStringLiteral("several devices are connected"),
            QStringLiteral("name one of them: ") + names.join(QStringLiteral(", ")), true};
}

} // namespace

QList<ConnectedDevice> connectedDevices(VError *error)
{
    idevice_info_t *list = nullptr;
    int count = 0;
    if (idevice_get_device_list_extended(&list, &count) != IDEVICE_E_SUCCESS) {
        *error = {ENODEV, QStringLiteral("no device is connected, or usbmuxd, which finds devices, does not run"),
                  QStringLiteral("connect the device with a cable and unlock it; if that does not help, check that "
                                 "usbmuxd is installed and runs"),
                  true};
        return {};
    }
    const std::unique_ptr<idevice_info_t[], idevice_error_t (*)(idevice_info_t *)> owner(
        list, &idevice_device_list_extended_free);
    QList<ConnectedDevice> devices;
    for (int i = 0; i < count; ++i)
        add(&devices, *list[i]);
    return devices;
}

QList<ConnectedDevice> connectedDevices(std::chrono::milliseconds timeout, VError *error)
{
    const std::function<Answer()> ask = [] {
        Answer answer;
        answer.devices = connectedDevices(&answer.error);
        return answer;
    };
    VError gaveUp;
    const std::optional<Answer> answer = runBounded(
        ask, timeout, [] { return false; }, &gaveUp);
    if (answer) {
        *error = answer->error;
        return answer->devices;
    }
    *error = gaveUp.code != ETIMEDOUT
                 ? gaveUp
                 : VError{ETIMEDOUT, QStringLiteral("usbmuxd, which finds devices, does not answer"),
                          QStringLiteral("try again; if that does not help, start usbmuxd anew"), true};
    return {};
}

DeviceHandle openUsbDevice(const QByteArray &udid, VError *error)
{
    QByteArray name = udid;
    if (name.isEmpty()) {
        const QList<ConnectedDevice> devices = meantWithoutName(connectedDevices(error));
        if (error->code != 0)
            return nullptr;
        if (devices.size() > 1) {
            *error = severalDevices(devices);
            return nullptr;
        }
        name = devices.isEmpty() ? QByteArray() : devices.front().udid;
    }
    idevice_t device = nullptr;
    const idevice_error_t result =
        idevice_new_with_options(&device, name.isEmpty() ? nullptr : name.constData(), bothWays);
    if (result != IDEVICE_E_SUCCESS)
        *error = explain(ErrorSource::Link, result);
    return DeviceHandle(device);
}

} // namespace devicehost::afc
