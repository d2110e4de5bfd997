#include "apps/browser/device/search.h"

#include "devicehost/backup/backup_facts.h"
#include "devicehost/backup/backup_places.h"
#include "devicehost/usb_devices.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QStandardPaths>

namespace browser
{

namespace
{

constexpr int mostFolders = 1000; ///< that are looked at in one place

QStringList foldersIn(const QString &place)
{
    QStringList paths;
    const QStringList names = QDir(place).entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Name);
    for (const QString &name : names.mid(0, mostFolders))
        paths += place + QLatin1Char('/') + name;
    return paths;
}

class Finder
{
    Q_DECLARE_TR_FUNCTIONS(DeviceSearch)

public:
    static FoundDevice phone(const devicehost::UsbDevice &device)
    {
        return {FoundDevice::Kind::Phone, QStringLiteral("afc:") + device.udid,
                device.name.isEmpty() ? tr("Phone without a name") : device.name.simplified(), stateOf(device)};
    }

    static FoundDevice backup(const QString &path, const devicehost::BackupFacts &facts)
    {
        return {FoundDevice::Kind::Backup, QStringLiteral("backup:") + path,
                facts.deviceName.isEmpty() ? QFileInfo(path).fileName() : facts.deviceName.simplified(),
                describe(facts)};
    }

private:
    static QString stateOf(const devicehost::UsbDevice &device)
    {
        using devicehost::UsbDevice;
        switch (device.trust) {
        case UsbDevice::Trust::NotYet:
        case UsbDevice::Trust::Asked:
            return tr("New here: unlock it, and tap “Trust” when it asks");
        case UsbDevice::Trust::Refused:
            return tr("Does not trust this computer: unplug it, connect it again, and tap “Trust”");
        case UsbDevice::Trust::Forgotten:
            return tr("Has to be paired again");
        default:
            break;
        }
        if (device.lock == UsbDevice::Lock::Locked)
            return tr("Locked: unlock it first");
        return device.systemVersion.isEmpty() ? QString() : tr("Connected, iOS %1").arg(device.systemVersion);
    }

    static QString describe(const devicehost::BackupFacts &facts)
    {
        if (!facts.finished)
            return tr("Backup that was not finished");
        if (!facts.lastBackup.isValid())
            return facts.encrypted ? tr("Backup, protected by a password") : tr("Backup");
        const QString date = QLocale().toString(facts.lastBackup.toLocalTime().date(), QLocale::LongFormat);
        return facts.encrypted ? tr("Backup of %1, protected by a password").arg(date) : tr("Backup of %1").arg(date);
    }
};

void addBackup(const QString &path, QVector<FoundDevice> *found)
{
    devicehost::VError error;
    devicehost::BackupFacts facts;
    const devicehost::PathTree tree =
        devicehost::PathTree::below(path.toUtf8().constData(), &error, devicehost::Links::Refused);
    if (devicehost::looksLikeBackup(path) && tree.valid() && facts.read(tree, &error))
        found->append(Finder::backup(path, facts));
}

} // namespace

FoundDevice::Kind kindOfDevice(const QString &device)
{
    if (device.startsWith(QLatin1String("backup:")))
        return FoundDevice::Kind::Backup;
    return device.startsWith(QLatin1String("afc:")) ? FoundDevice::Kind::Phone : FoundDevice::Kind::Folder;
}

SearchPlaces usualPlaces()
{
    const QString home = QDir::homePath();
    const QString user = QFileInfo(home).fileName();
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    SearchPlaces places;
    places.mounts = QStringList{QStringLiteral("/media/") + user, QStringLiteral("/media"),
                                QStringLiteral("/run/media/") + user, QStringLiteral("/mnt")};
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!runtime.isEmpty())
        places.mounts += runtime + QStringLiteral("/gvfs");
    for (const QString &base : {home, data, home + QStringLiteral("/Library/Application Support"),
                                QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)}) {
        for (const char *name : {"/MobileSync/Backup", "/Backups", "/Backup", "/backups"})
            places.backups += base + QLatin1String(name);
    }
    places.backups += data;
    places.backups.removeDuplicates();
    return places;
}

QVector<FoundDevice> findMountedPhones(const SearchPlaces &places)
{
    QVector<FoundDevice> found;
    for (const QString &place : places.mounts)
        for (const QString &path : foldersIn(place))
            if (QFileInfo(path + QStringLiteral("/PhotoData/Photos.sqlite")).isFile())
                found.append({FoundDevice::Kind::Folder, QStringLiteral("folder:") + path, QFileInfo(path).fileName(),
                              QDir::toNativeSeparators(path)});
    return found;
}

QVector<FoundDevice> findBackups(const SearchPlaces &places)
{
    QVector<FoundDevice> found;
    for (const QString &place : places.backups) {
        if (devicehost::looksLikeBackup(place)) {
            addBackup(place, &found);
            continue;
        }
        for (const QString &path : foldersIn(place))
            addBackup(path, &found);
    }
    return found;
}

FoundPhones findPhones()
{
    FoundPhones found;
    found.supported = devicehost::usbIsSupported();
    if (!found.supported)
        return found;
    const devicehost::UsbDevices answer = devicehost::listUsbDevices();
    found.daemonRuns = answer.failure.isEmpty();
    for (const devicehost::UsbDevice &device : answer.devices)
        found.phones.append(Finder::phone(device));
    return found;
}

} // namespace browser
