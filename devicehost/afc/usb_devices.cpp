#include "devicehost/usb_devices.h"

#include "devicehost/afc/bounded.h"
#include "devicehost/afc/errors.h"
#include "devicehost/afc/usb_handles.h"
#include "devicehost/afc/usb_lookup.h"

#include <plist/plist.h>
#include <usbmuxd.h>

#include <algorithm>
#include <cstdlib>
#include <optional>

namespace devicehost
{

namespace
{

using namespace afc;

constexpr uint64_t longestText = 1000; ///< bytes; names are short

bool neverStops()
{
    return false;
}

QString toSentence(const VError &error)
{
    return QStringLiteral("%1; %2").arg(error.text, error.advice);
}

LockdownHandle greet(const DeviceHandle &device)
{
    lockdownd_client_t client = nullptr;
    lockdownd_client_new(device.get(), &client, lockdownLabel);
    return LockdownHandle(client);
}

QString valueOf(const LockdownHandle &lockdown, const char *key)
{
    plist_t value = nullptr;
    if (lockdownd_get_value(lockdown.get(), nullptr, key, &value) != LOCKDOWN_E_SUCCESS || value == nullptr)
        return {};
    // Not plist_get_string_val(), which ends the process when there is a zero in the text.
    uint64_t size = 0;
    const char *const text = plist_get_node_type(value) == PLIST_STRING ? plist_get_string_ptr(value, &size) : nullptr;
    const QString result =
        text == nullptr ? QString() : QString::fromUtf8(text, static_cast<int>(std::min<uint64_t>(size, longestText)));
    plist_free(value);
    return result;
}

bool isKnownHere(const QByteArray &udid)
{
    char *record = nullptr;
    uint32_t size = 0;
    const bool known = usbmuxd_read_pair_record(udid.constData(), &record, &size) == 0 && record != nullptr;
    std::free(record);
    return known;
}

UsbDevice::Trust trustAfter(lockdownd_error_t greeted)
{
    switch (greeted) {
    case LOCKDOWN_E_SUCCESS:
    case LOCKDOWN_E_PASSWORD_PROTECTED: // it has to know this computer to say so: there is a pairing record
        return UsbDevice::Trust::Trusted;
    case LOCKDOWN_E_PAIRING_DIALOG_RESPONSE_PENDING:
        return UsbDevice::Trust::Asked;
    case LOCKDOWN_E_USER_DENIED_PAIRING:
        return UsbDevice::Trust::Refused;
    case LOCKDOWN_E_INVALID_HOST_ID:
        return UsbDevice::Trust::Forgotten;
    default:
        return UsbDevice::Trust::Unknown;
    }
}

/// Only with a pairing record: without one the question would appear on the screen.
void lookAtTrust(const DeviceHandle &device, UsbDevice *found)
{
    lockdownd_client_t client = nullptr;
    const lockdownd_error_t greeted = lockdownd_client_new_with_handshake(device.get(), &client, lockdownLabel);
    const LockdownHandle lockdown(client);
    found->trust = trustAfter(greeted);
    if (greeted == LOCKDOWN_E_PASSWORD_PROTECTED)
        found->lock = UsbDevice::Lock::Locked;
    if (greeted != LOCKDOWN_E_SUCCESS)
        return;
    lockdownd_service_descriptor_t service = nullptr;
    const lockdownd_error_t started = lockdownd_start_service(lockdown.get(), "com.apple.afc", &service);
    const ServiceHandle owned(service);
    if (started == LOCKDOWN_E_SUCCESS)
        found->lock = UsbDevice::Lock::Unlocked;
    else if (started == LOCKDOWN_E_PASSWORD_PROTECTED)
        found->lock = UsbDevice::Lock::Locked;
}

/// What is known without asking the device.
UsbDevice silent(const ConnectedDevice &connected)
{
    UsbDevice device;
    device.udid = QString::fromUtf8(connected.udid);
    device.connection = connected.overNetwork ? UsbDevice::Connection::Network : UsbDevice::Connection::Usb;
    return device;
}

UsbDevice describe(const ConnectedDevice &connected)
{
    const PipeSignalBlock block;
    UsbDevice found = silent(connected);
    VError error;
    const DeviceHandle device = openUsbDevice(connected.udid, &error);
    if (device == nullptr)
        return found;
    if (const LockdownHandle lockdown = greet(device)) {
        found.name = valueOf(lockdown, "DeviceName");
        found.model = valueOf(lockdown, "ProductType");
        found.systemVersion = valueOf(lockdown, "ProductVersion");
    }
    if (isKnownHere(connected.udid))
        lookAtTrust(device, &found);
    else
        found.trust = UsbDevice::Trust::NotYet;
    return found;
}

struct Pairing {
    QString problem; ///< empty when they are paired now
    bool wasPaired = false;
};

Pairing pairingFailed(lockdownd_error_t code)
{
    return {toSentence(explain(ErrorSource::Lockdown, code)), false};
}

/// Whether the device answered that the pairing is of no use; not so when it cannot say, or could not be heard.
bool isRejection(lockdownd_error_t greeted)
{
    switch (greeted) {
    case LOCKDOWN_E_PASSWORD_PROTECTED:
    case LOCKDOWN_E_PLIST_ERROR:
    case LOCKDOWN_E_RECEIVE_TIMEOUT:
    case LOCKDOWN_E_MUX_ERROR:
        return false;
    default:
        return true;
    }
}

lockdownd_error_t tryPairing(const DeviceHandle &device)
{
    lockdownd_client_t client = nullptr;
    const lockdownd_error_t greeted = lockdownd_client_new_with_handshake(device.get(), &client, lockdownLabel);
    const LockdownHandle lockdown(client);
    return greeted;
}

Pairing pairNow(const QByteArray &udid)
{
    const PipeSignalBlock block;
    VError error;
    const DeviceHandle device = openUsbDevice(udid, &error);
    if (device == nullptr)
        return {toSentence(error), false};
    if (isKnownHere(udid)) {
        const lockdownd_error_t greeted = tryPairing(device);
        if (greeted == LOCKDOWN_E_SUCCESS)
            return {QString(), true};
        if (!isRejection(greeted))
            return pairingFailed(greeted);
    }
    const LockdownHandle lockdown = greet(device);
    if (lockdown == nullptr)
        return pairingFailed(LOCKDOWN_E_MUX_ERROR);
    lockdownd_unpair(lockdown.get(), nullptr); // which a device that has forgotten this computer refuses
    const lockdownd_error_t paired = lockdownd_pair(lockdown.get(), nullptr);
    return paired == LOCKDOWN_E_SUCCESS ? Pairing() : pairingFailed(paired);
}

} // namespace

bool usbIsSupported()
{
    return true;
}

UsbDevices listUsbDevices()
{
    VError error;
    UsbDevices result;
    const QList<ConnectedDevice> connected = afc::connectedDevices(usbTimeout(), &error);
    for (const ConnectedDevice &device : connected) {
        VError gaveUp;
        const std::function<UsbDevice()> look = [device] { return describe(device); };
        result.devices += runBounded(look, usbTimeout(), neverStops, &gaveUp).value_or(silent(device));
    }
    if (error.code != 0)
        result.failure = toSentence(error);
    return result;
}

QString pairUsbDevice(const QString &udid, bool *wasPaired)
{
    VError error;
    const std::function<Pairing()> pair = [name = udid.toUtf8()] { return pairNow(name); };
    const std::optional<Pairing> pairing = runBounded(pair, usbTimeout(), neverStops, &error);
    if (wasPaired != nullptr)
        *wasPaired = pairing && pairing->wasPaired;
    return pairing ? pairing->problem : toSentence(error);
}

bool usbCallWasLeftBehind()
{
    return callWasAbandoned.load();
}

} // namespace devicehost
