#include "apps/cli/commands/commands.h"
#include "apps/cli/commands/listing.h"
#include "apps/cli/log_watch.h"
#include "apps/cli/messages.h"
#include "apps/cli/output/table.h"
#include "devicehost/usb_devices.h"

#include <CLI/CLI.hpp>

namespace photocli
{

namespace
{

using devicehost::UsbDevice;

struct DevicesOptions : DeviceOptions, FormatOptions {
};

// In a word for programs, and in words for people.
struct TrustName {
    UsbDevice::Trust trust;
    const char *word;
    const char *text;
};
constexpr TrustName trustNames[] = {
    {UsbDevice::Trust::Unknown, "unknown", "does not answer"},
    {UsbDevice::Trust::Trusted, "trusted", "trusts this computer"},
    {UsbDevice::Trust::NotYet, "not-yet", "was not asked yet; reading it asks"},
    {UsbDevice::Trust::Asked, "asked", "asks on its screen; tap Trust"},
    {UsbDevice::Trust::Refused, "refused", "refused; connect it again and tap Trust"},
    {UsbDevice::Trust::Forgotten, "forgotten", "forgot this computer; use --pair"},
};

struct LockName {
    UsbDevice::Lock lock;
    const char *word;
    const char *text;
};
constexpr LockName lockNames[] = {
    {UsbDevice::Lock::Unknown, "unknown", "-"},
    {UsbDevice::Lock::Unlocked, "unlocked", "unlocked"},
    {UsbDevice::Lock::Locked, "locked", "locked; unlock it"},
};

const TrustName &nameOf(UsbDevice::Trust trust)
{
    for (const TrustName &name : trustNames)
        if (name.trust == trust)
            return name;
    return trustNames[0];
}

const LockName &nameOf(UsbDevice::Lock lock)
{
    for (const LockName &name : lockNames)
        if (name.lock == lock)
            return name;
    return lockNames[0];
}

struct ConnectionName {
    const char *word;
    const char *text;
};

ConnectionName nameOf(UsbDevice::Connection connection)
{
    return connection == UsbDevice::Connection::Network ? ConnectionName{"network", "network"}
                                                        : ConnectionName{"usb", "USB"};
}

QString orDash(const QString &text)
{
    return text.isEmpty() ? QStringLiteral("-") : text;
}

void printTable(Output &out, const QList<UsbDevice> &devices)
{
    QList<QStringList> rows;
    for (const UsbDevice &device : devices)
        rows += QStringList{orDash(device.name),
                            QStringLiteral("afc:") + device.udid,
                            orDash(device.model),
                            orDash(device.systemVersion),
                            QLatin1String(nameOf(device.connection).text),
                            QLatin1String(nameOf(device.lock).text),
                            QLatin1String(nameOf(device.trust).text)};
    TableWriter::print(out,
                       {{QStringLiteral("NAME")},
                        {QStringLiteral("DEVICE")},
                        {QStringLiteral("MODEL")},
                        {QStringLiteral("SYSTEM")},
                        {QStringLiteral("CONNECTED")},
                        {QStringLiteral("LOCK")},
                        {QStringLiteral("TRUST")}},
                       rows);
}

void printJson(Output &out, const QList<UsbDevice> &devices)
{
    Json json(out);
    json.beginArray();
    for (const UsbDevice &device : devices) {
        json.newLine();
        json.beginObject();
        json.member("device", QStringLiteral("afc:") + device.udid);
        json.member("udid", device.udid);
        json.member("name", device.name);
        json.member("model", device.model);
        json.member("systemVersion", device.systemVersion);
        json.member("connection", QString::fromLatin1(nameOf(device.connection).word));
        json.member("lock", QString::fromLatin1(nameOf(device.lock).word));
        json.member("trust", QString::fromLatin1(nameOf(device.trust).word));
        json.endObject();
    }
    json.newLine();
    json.endArray();
    out.put('\n');
}

ExitCode runDevices(const DevicesOptions &options)
{
    const LogWatch log(QString::fromStdString(options.logFile), options.verbose);
    applyUsbOptions(options);
    const devicehost::UsbDevices found = devicehost::listUsbDevices();
    if (!found.failure.isEmpty())
        throw Failure{ExitDeviceUnreachable, found.failure};
    Output out;
    if (options.json)
        printJson(out, found.devices);
    else if (!found.devices.isEmpty())
        printTable(out, found.devices);
    out.finish();
    if (found.devices.isEmpty())
        printNote(QStringLiteral("photolib: no device is connected; connect it with a cable and unlock it"));
    return ExitOk;
}

} // namespace

void addDevicesCommand(CLI::App &app, Action &action)
{
    const auto options = std::make_shared<DevicesOptions>();
    CLI::App *command = app.add_subcommand("devices", "List the devices on USB and on the network");
    addDeviceSearchOptions(*command, *options);
    addJsonOption(*command, *options);
    command->callback([options, &action] { action = [options] { return runDevices(*options); }; });
}

} // namespace photocli
