#ifndef DEVICEHOST_USB_DEVICES_H
#define DEVICEHOST_USB_DEVICES_H

/// @file
/// Devices on USB and on the network: which there are, pairing with them, and how long to wait for them.

#include <QList>
#include <QString>

#include <chrono>

namespace devicehost
{

/// A device on USB or on the network. A plain value.
struct UsbDevice {
    /// How it is reached.
    enum class Connection {
        Usb,     ///< with a cable, even if it is on the network, too
        Network, ///< over the network only: as far as the daemon that finds devices (usbmuxd) finds those
    };
    /// Whether the device lets this computer read it.
    enum class Trust {
        Unknown,   ///< it did not say
        Trusted,   ///< paired
        NotYet,    ///< it was never asked; opening it asks, and the question appears on its screen
        Asked,     ///< the question is on its screen
        Refused,   ///< somebody tapped "Don't Trust"
        Forgotten, ///< this computer knows it, but it does not know this computer any more: pairUsbDevice() mends that
    };
    /// Whether its files can be read now: they cannot while it is locked.
    enum class Lock {
        Unknown,  ///< it did not say, or does not trust this computer
        Unlocked, ///< it gives its files away
        Locked,   ///< somebody has to unlock it
    };

    QString udid;                            ///< its lasting name; "afc:" before it makes a name for DeviceHost
    QString name;                            ///< what its owner calls it; empty when it did not say, as the two below
    QString model;                           ///< the kind of device, as a code of its maker
    QString systemVersion;                   ///< such as 17.5.1
    Connection connection = Connection::Usb; ///< how it is reached
    Trust trust = Trust::Unknown;            ///< whether it lets this computer read it
    Lock lock = Lock::Unknown;               ///< whether it is locked
};

/// The answer of listUsbDevices().
struct UsbDevices {
    QList<UsbDevice> devices; ///< each once, in no order of meaning
    QString failure;          ///< why nobody can be asked, and what to do; one line without a final full stop, or empty
};

/// Whether this build reaches devices on USB; otherwise the functions below say in their messages that it does not.
bool usbIsSupported();

/// The devices on USB and on the network, as far as they tell of themselves. Nothing changes on them, and no question
/// appears on their screens. Waits for usbTimeout() for the list and for each of them at most. Any thread.
UsbDevices listUsbDevices();

/// Pairs this computer and the device. A pairing that works is left as it is, and `*wasPaired`, unless it is null, says
/// so. One that the device does not accept any more is forgotten on both sides first; the device then asks its owner.
/// Empty when they are paired now; else what is wrong and what to do, one line without a final full stop: often that
/// somebody has to tap Trust on the device and call this again. Where the device is locked or the connection breaks,
/// nothing is known of the pairing, and it stays as it is. Any thread.
QString pairUsbDevice(const QString &udid, bool *wasPaired = nullptr);

/// Whether a call that took longer than usbTimeout(), or that the user stopped, was left to itself on a thread of this
/// process. Such a thread may be in the middle of agreeing upon encryption when main() returns, while exit() takes that
/// library apart: a program then ends with _Exit() after it has written all that it has to. Any thread.
bool usbCallWasLeftBehind();

/// How long devices that are opened from now on may take for one answer before the operation fails; 30 seconds unless
/// set. Any thread.
void setUsbTimeout(std::chrono::milliseconds timeout);

/// What setUsbTimeout() has set. Any thread.
std::chrono::milliseconds usbTimeout();

} // namespace devicehost

#endif
