#ifndef DEVICEHOST_AFC_CONNECTED_DEVICE_H
#define DEVICEHOST_AFC_CONNECTED_DEVICE_H

#include <QByteArray>
#include <QList>

#include <algorithm>
#include <iterator>

namespace devicehost
{

/// A device that can be reached now.
struct ConnectedDevice {
    QByteArray udid;
    bool overNetwork = false; ///< and not with a cable
};

/// Those that somebody can mean who names none: the ones on USB, and where there are none the ones on the network.
inline QList<ConnectedDevice> meantWithoutName(const QList<ConnectedDevice> &devices)
{
    QList<ConnectedDevice> withCable;
    std::copy_if(devices.begin(), devices.end(), std::back_inserter(withCable),
                 [](const ConnectedDevice &device) { return !device.overNetwork; });
    return withCable.isEmpty() ? devices : withCable;
}

} // namespace devicehost

#endif
