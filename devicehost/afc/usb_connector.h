#ifndef DEVICEHOST_AFC_USB_CONNECTOR_H
#define DEVICEHOST_AFC_USB_CONNECTOR_H

#include "devicehost/afc/session.h"

#include <QByteArray>

namespace devicehost::afc
{

/// Connects to the file service of a device on USB. An empty UDID stands for the only device.
class UsbConnector final : public Connector
{
public:
    explicit UsbConnector(QByteArray deviceUdid) : udid(std::move(deviceUdid)) {}

    std::unique_ptr<Transport> connect(std::chrono::milliseconds timeout, const std::function<bool()> &stopRequested,
                                       VError *error) override;

private:
    const QByteArray udid;
};

} // namespace devicehost::afc

#endif
