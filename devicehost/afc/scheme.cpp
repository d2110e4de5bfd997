#include "devicehost/afc/scheme.h"

#include "devicehost/afc/device.h"
#include "devicehost/afc/session.h"
#include "devicehost/afc/usb_connector.h"
#include "devicehost/afc/usb_lookup.h"
#include "devicehost/host_state.h"
#include "devicehost/usb_devices.h"

#include <atomic>

namespace devicehost
{

std::unique_ptr<VDev> openUsbDevice(const char *udid, const std::shared_ptr<HostState> &host, VError *error)
{
    const auto newSession = [&](const std::shared_ptr<const std::atomic<bool>> &stop) {
        return std::make_shared<afc::Session>(std::make_unique<afc::UsbConnector>(udid), usbTimeout(),
                                              [stop] { return stop != nullptr && stop->load(); });
    };
    if (host == nullptr)
        return afc::openDevice(newSession(nullptr), error);
    const std::shared_ptr<BackendSession> session = host->session([&] { return newSession(host->stopFlag()); });
    return afc::openDevice(std::static_pointer_cast<afc::Session>(session), error);
}

QList<ConnectedDevice> connectedDevices(QString *failure)
{
    VError error;
    const QList<ConnectedDevice> devices = afc::connectedDevices(usbTimeout(), &error);
    if (error.code != 0)
        *failure = QStringLiteral("%1; %2").arg(error.text, error.advice);
    return devices;
}

} // namespace devicehost
