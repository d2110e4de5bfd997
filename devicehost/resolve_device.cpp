#include "devicehost/resolve_device.h"

#include "devicehost/afc/scheme.h"
#include "devicehost/backup/backup_places.h"
#include "devicehost/local_path.h"
#include "devicehost/usb_devices.h"
#include "devicehost/vdev/schemes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStringList>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string>
#include <system_error>

namespace devicehost
{

namespace
{

const QString databaseName = QStringLiteral("/PhotoData/Photos.sqlite");

ResolvedDevice malformed(const QString &message)
{
    return {DeviceStatus::Malformed, {}, message, {}};
}

ResolvedDevice unreachable(const QString &message)
{
    return {DeviceStatus::Unreachable, {}, message, {}};
}

ResolvedDevice noLibrary(const QString &message)
{
    return {DeviceStatus::NoLibrary, {}, message, {}};
}

/// Absolute and tidy. A ".." is taken by the file system's rules, which differ from the text's where links are.
QString absolutePath(const QString &path)
{
    const QFileInfo info(absoluteLocalPath(path));
    if (path.split(QLatin1Char('/')).contains(QStringLiteral(".."))) {
        const QString canonical = info.canonicalFilePath();
        return canonical.isEmpty() ? info.absoluteFilePath() : canonical;
    }
    return QDir::cleanPath(info.absoluteFilePath());
}

QString parentOf(const QString &path)
{
    return QFileInfo(path).absolutePath();
}

/// A file that may be used, may be missing, or an errno value in between.
int lookAt(const QString &path, struct stat *info)
{
    return ::stat(path.toUtf8().constData(), info) == 0 ? 0 : errno;
}

bool exists(const QString &path)
{
    struct stat info = {};
    return lookAt(path, &info) == 0;
}

bool isLink(const QString &path)
{
    struct stat info = {};
    return ::lstat(path.toUtf8().constData(), &info) == 0 && S_ISLNK(info.st_mode);
}

ResolvedDevice explainFile(const QString &path)
{
    if (path.endsWith(databaseName))
        return noLibrary(QStringLiteral("%1 is the photo database itself, not a folder; give the device's media root, "
                                        "here %2")
                             .arg(path, parentOf(parentOf(path))));
    return unreachable(QStringLiteral("%1 is a file, not a folder; give the device's media root, the folder that holds "
                                      "DCIM and PhotoData")
                           .arg(path));
}

/// What the link `file` in the device's folder `root` does wrong; empty when it leads to where no database is.
QString faultOfLink(const QString &root, const QString &file)
{
    std::error_code error;
    const std::string target = std::filesystem::canonical(file.toStdString(), error).string();
    if (error)
        return QStringLiteral("is a link to nothing");
    const std::string inside = std::filesystem::canonical(root.toStdString(), error).string() + '/';
    if (target.compare(0, inside.size(), inside) == 0)
        return exists(root + databaseName) ? QStringLiteral("is a link that cannot be followed within the folder")
                                           : QString();
    return QStringLiteral("is a link that leads out of the folder and is not followed");
}

/// A link that the device's folder does not hold the target of looks as if it was not there. No message for none.
ResolvedDevice explainLink(const QString &path)
{
    for (const QString &name : {QStringLiteral("/PhotoData"), databaseName}) {
        const QString file = path + name;
        const QString fault = isLink(file) ? faultOfLink(path, file) : QString();
        if (!fault.isEmpty())
            return noLibrary(QStringLiteral("%1 holds no photo library: %2 %3; a copy of the device must hold the "
                                            "files themselves")
                                 .arg(path, file, fault));
    }
    return {};
}

ResolvedDevice explainMissingDatabase(const QString &path)
{
    if (exists(path + QStringLiteral("/Photos.sqlite")))
        return noLibrary(QStringLiteral("%1 is the folder of the photo database itself; give the device's media root, "
                                        "here %2")
                             .arg(path, parentOf(path)));
    if (looksLikeBackup(path))
        return resolveBackup(path);
    const ResolvedDevice backups = resolveFolderOfBackups(path);
    if (!backups.message.isEmpty())
        return backups;
    return noLibrary(QStringLiteral("%1 holds no photo library: there is no PhotoData/Photos.sqlite in it; give the "
                                    "device's media root, the folder that holds DCIM and PhotoData")
                         .arg(path));
}

ResolvedDevice explainDatabase(const QString &path, const VError &error)
{
    const QString file = path + databaseName;
    switch (error.code) {
    case ENOENT:
    case ENOTDIR: {
        const ResolvedDevice link = explainLink(path);
        return link.message.isEmpty() ? explainMissingDatabase(path) : link;
    }
    case EISDIR:
    case EINVAL:
    case ELOOP:
    case EXDEV:
        return noLibrary(QStringLiteral("%1 holds no photo library: %2 cannot be used: %3; a copy of the device must "
                                        "hold the file itself")
                             .arg(path, file, error.text));
    case EACCES:
    case EPERM: {
        const QString text = QStringLiteral("%1 cannot be opened: %2; make it readable for you, or mount the device as "
                                            "your own user")
                                 .arg(file, error.text);
        const bool folderIsClosed = ::access(QFile::encodeName(QFileInfo(file).path()).constData(), X_OK) != 0;
        return folderIsClosed ? unreachable(text) : noLibrary(text);
    }
    default:
        return unreachable(QStringLiteral("%1 cannot be opened: %2; unlock the device, connect it again and mount it "
                                          "again")
                               .arg(file, error.text));
    }
}

ResolvedDevice explainFolder(const QString &path, int code)
{
    const QString reason = errnoText(code);
    if (code == ENOENT && path.contains(QChar::ReplacementCharacter))
        return unreachable(
            QStringLiteral("%1 cannot be found: the name is not UTF-8; mount or link it under another name").arg(path));
    if (code == ENOENT || code == ENOTDIR)
        return unreachable(
            QStringLiteral("there is no folder %1; check the name, and that the device is mounted").arg(path));
    if (code == EACCES || code == EPERM)
        return unreachable(QStringLiteral("%1 cannot be entered: %2; make it accessible for you, or mount the device "
                                          "as your own user")
                               .arg(path, reason));
    return unreachable(
        QStringLiteral("%1 cannot be entered: %2; unlock the device, connect it again and mount it again")
            .arg(path, reason));
}

ResolvedDevice resolveFolder(const QString &argument)
{
    if (argument.isEmpty())
        return malformed(QStringLiteral("no device folder is named; give the device's media root, the folder that "
                                        "holds DCIM and PhotoData"));
    const QString path = absolutePath(argument);
    struct stat info = {};
    const int code = lookAt(path, &info);
    if (code == 0 && !S_ISDIR(info.st_mode))
        return explainFile(path);
    if (code != 0)
        return explainFolder(path, code);
    const QString name = QStringLiteral("folder:") + path;
    VError error;
    const std::unique_ptr<VDev> device = openDevice(name.toUtf8().constData(), nullptr, &error);
    if (device == nullptr)
        return explainFolder(path, error.code);
    if (device->openFile(databaseName.toUtf8().constData(), 0, &error) == nullptr)
        return explainDatabase(path, error);
    return {DeviceStatus::Found, name, {}, {}};
}

ResolvedDevice resolveNamedBackup(const QString &argument)
{
    return argument.isEmpty()
               ? malformed(QStringLiteral("no backup is named; give the folder of a backup, the one that "
                                          "holds Manifest.db"))
               : resolveBackup(absolutePath(argument));
}

/// Which of the devices is which; their owners know them by name.
QString namedDevices()
{
    QStringList names;
    for (const UsbDevice &device : listUsbDevices().devices) {
        QStringList notes;
        if (!device.name.isEmpty())
            notes += device.name;
        if (device.connection == UsbDevice::Connection::Network)
            notes += QStringLiteral("over the network");
        const QString name = QStringLiteral("afc:") + device.udid;
        names += notes.isEmpty() ? name : QStringLiteral("%1 (%2)").arg(name, notes.join(QStringLiteral(", ")));
    }
    return names.join(QStringLiteral(", "));
}

/// Only whether the device is there: whether it can be read is found out when it is opened.
ResolvedDevice resolveUsb(const QString &argument, const QString &udid)
{
    QString failure;
    const QList<ConnectedDevice> connected = connectedDevices(&failure);
    if (!failure.isEmpty())
        return unreachable(QStringLiteral("%1: %2").arg(argument, failure));
    if (connected.isEmpty())
        return unreachable(QStringLiteral("%1: no device is connected; connect it with a cable, unlock it, tap Trust "
                                          "if it asks, and try again")
                               .arg(argument));
    const QList<ConnectedDevice> meant = meantWithoutName(connected);
    if (udid.isEmpty() && meant.size() > 1)
        return unreachable(
            QStringLiteral("%1: several devices are connected; name one of them: %2").arg(argument, namedDevices()));
    const bool isThere = std::any_of(connected.begin(), connected.end(),
                                     [&udid](const ConnectedDevice &device) { return device.udid == udid.toUtf8(); });
    if (!udid.isEmpty() && !isThere)
        return unreachable(QStringLiteral("%1: no such device is connected; connect it with a cable and unlock it, or "
                                          "name one of those that are: %2")
                               .arg(argument, namedDevices()));
    const QString name = udid.isEmpty() ? QString::fromUtf8(meant.front().udid) : udid;
    return {DeviceStatus::Found, QStringLiteral("afc:") + name, {}, {}};
}

} // namespace

ResolvedDevice resolveDevice(const QString &argument)
{
    static const QRegularExpression withScheme(QStringLiteral("^([A-Za-z][A-Za-z0-9+.-]*):(.*)$"),
                                               QRegularExpression::DotMatchesEverythingOption);
    if (argument == QStringLiteral("usb"))
        return resolveUsb(argument, QString());
    const QRegularExpressionMatch match = withScheme.match(argument);
    if (!match.hasMatch())
        return resolveFolder(argument);
    const QString scheme = match.captured(1);
    if (scheme == QStringLiteral("folder"))
        return resolveFolder(match.captured(2));
    if (scheme == QStringLiteral("afc"))
        return resolveUsb(argument, match.captured(2));
    if (scheme == QStringLiteral("backup"))
        return resolveNamedBackup(match.captured(2));
    if (exists(absolutePath(argument)))
        return resolveFolder(argument);
    return unreachable(
        QStringLiteral("%1: there is no kind of device named \"%2\"; give a folder (./%1 for one of that "
                       "name) or folder:PATH")
            .arg(argument, scheme));
}

} // namespace devicehost
