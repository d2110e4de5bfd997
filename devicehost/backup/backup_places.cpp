#include "devicehost/backup/backup_places.h"

#include "devicehost/backup/backup_facts.h"

#include <QDir>

#include <sys/stat.h>

#include <cerrno>
#include <utility>
#include <vector>

namespace devicehost
{

namespace
{

/// Of the folders that are looked into for backups. A folder of backups has one for each device and each archived one.
constexpr int mostFolders = 10'000;

bool holds(const QString &folder, const char *name)
{
    struct stat info = {};
    return ::lstat((folder + QLatin1Char('/') + QLatin1String(name)).toUtf8().constData(), &info) == 0;
}

ResolvedDevice unreachable(const QString &message)
{
    return {DeviceStatus::Unreachable, {}, message, {}};
}

/// What is listed of a backup.
QString choice(const QString &folder)
{
    VError error;
    BackupFacts facts;
    const PathTree tree = PathTree::below(folder.toUtf8().constData(), &error, Links::Refused);
    const bool readable = tree.valid() && facts.read(tree, &error);
    return QStringLiteral("%1  (%2)").arg(folder, readable ? facts.description() : error.text);
}

ResolvedDevice resolveOne(const QString &path)
{
    if (!holds(path, "Manifest.db"))
        return unreachable(
            holds(path, "Manifest.mbdb")
                ? QStringLiteral("%1 is a backup of iOS 9 or older (it has a Manifest.mbdb and no Manifest.db), which "
                                 "cannot be read; make a new backup of the device, or mount the device and give its "
                                 "media root, the folder that holds DCIM and PhotoData")
                      .arg(path)
                : QStringLiteral("%1 is an incomplete backup: there is no Manifest.db in it; make a new backup of the "
                                 "device, or copy the backup again")
                      .arg(path));
    VError error;
    BackupFacts facts;
    const PathTree tree = PathTree::below(path.toUtf8().constData(), &error, Links::Refused);
    if (!tree.valid())
        return unreachable(
            QStringLiteral("%1 cannot be entered: %2; make it accessible for you").arg(path, error.text));
    if (!facts.read(tree, &error))
        return unreachable(QStringLiteral("%1 is a backup that cannot be read: %2; make a new backup of the device, or "
                                          "copy the backup again")
                               .arg(path, error.text));
    return {DeviceStatus::Found, QStringLiteral("backup:") + path, {}, {}};
}

} // namespace

bool looksLikeBackup(const QString &folder)
{
    return holds(folder, "Manifest.db") || holds(folder, "Manifest.mbdb") || holds(folder, "Manifest.plist");
}

ResolvedDevice resolveFolderOfBackups(const QString &path)
{
    QStringList choices;
    const QStringList names = QDir(path).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString &name : names.mid(0, mostFolders)) {
        const QString folder = path + QLatin1Char('/') + name;
        if (looksLikeBackup(folder))
            choices += choice(folder);
    }
    if (choices.isEmpty())
        return {};
    ResolvedDevice device = unreachable(
        QStringLiteral("%1 is a folder of backups; give one of them instead, by the name in front of the brackets")
            .arg(path));
    device.choices = std::move(choices);
    return device;
}

ResolvedDevice resolveBackup(const QString &path)
{
    struct stat info = {};
    if (::stat(path.toUtf8().constData(), &info) != 0)
        return unreachable(QStringLiteral("%1 cannot be entered: %2; check the name").arg(path, errnoText(errno)));
    if (!S_ISDIR(info.st_mode))
        return unreachable(QStringLiteral("%1 is a file, not a folder; give the folder of a backup, the one that holds "
                                          "Manifest.db")
                               .arg(path));
    if (looksLikeBackup(path))
        return resolveOne(path);
    const ResolvedDevice several = resolveFolderOfBackups(path);
    if (!several.message.isEmpty())
        return several;
    return unreachable(
        QStringLiteral("%1 is no backup: there is no Manifest.db in it; give the folder of a backup").arg(path));
}

} // namespace devicehost
