#include "apps/browser/library/device_title.h"

#include "devicehost/backup/backup_facts.h"
#include "devicehost/usb_devices.h"

#include <QDir>
#include <QFileInfo>

namespace browser
{

namespace
{

QString afterScheme(const QString &device, const char *scheme)
{
    const QLatin1String prefix(scheme);
    return device.startsWith(prefix) ? device.mid(prefix.size()) : QString();
}

QString phoneName(const QString &udid)
{
    for (const devicehost::UsbDevice &phone : devicehost::listUsbDevices().devices)
        if (phone.udid == udid)
            return phone.name;
    return {};
}

QString backupName(const QString &path)
{
    devicehost::VError error;
    devicehost::BackupFacts facts;
    const devicehost::PathTree tree =
        devicehost::PathTree::below(path.toUtf8().constData(), &error, devicehost::Links::Refused);
    return tree.valid() && facts.read(tree, &error) ? facts.deviceName : QString();
}

} // namespace

QString localPathOf(const QString &device)
{
    const QString folder = afterScheme(device, "folder:");
    return folder.isEmpty() ? afterScheme(device, "backup:") : folder;
}

QString deviceTitle(const QString &device)
{
    QString title;
    const QString udid = afterScheme(device, "afc:");
    if (!udid.isEmpty())
        title = phoneName(udid);
    else if (device.startsWith(QLatin1String("backup:")))
        title = backupName(localPathOf(device));
    if (title.trimmed().isEmpty())
        title = QFileInfo(localPathOf(device)).fileName();
    return title.trimmed().isEmpty() ? device : title.simplified();
}

} // namespace browser
