#include "devicehost/vdev/backup_device.h"

#include "devicehost/backup/backup.h"
#include "devicehost/host_state.h"

#include <cerrno>
#include <utility>

namespace devicehost
{

namespace
{

const QString scheme = QStringLiteral("backup:");

/// The folder of a backup, by its name with the scheme; empty for another kind of device.
QByteArray folderOf(const QString &deviceName)
{
    return deviceName.startsWith(scheme) ? deviceName.mid(scheme.size()).toUtf8() : QByteArray();
}

/// What can be done about an error that says nothing of that itself, where deviceAdvice() speaks of mounted devices.
QString backupAdvice(int code)
{
    switch (code) {
    case EACCES:
    case EPERM:
        return QStringLiteral("make it readable for you");
    case EFBIG:
    case EIO:
    case EISDIR:
    case EINVAL:
    case ELOOP:
    case EXDEV:
        return QStringLiteral("make a new backup of the device, or copy the backup again");
    default:
        return {};
    }
}

void advise(VError *error)
{
    if (error->advice.isEmpty())
        error->advice = backupAdvice(error->code);
}

class BackupDevice final : public VDev
{
public:
    explicit BackupDevice(std::shared_ptr<const Backup> opened) : backup(std::move(opened)) {}

    std::unique_ptr<VFile> openFile(const char *path, int mode, Error *error) override
    {
        std::unique_ptr<VFile> file;
        if (mode == 0)
            file = backup->openFile(path, error);
        else
            *error = errnoError(EROFS);
        if (file == nullptr)
            advise(error);
        return file;
    }

private:
    const std::shared_ptr<const Backup> backup;
};

} // namespace

std::unique_ptr<VDev> openBackupDevice(const char *root, const std::shared_ptr<HostState> &host, VError *error)
{
    std::shared_ptr<const Backup> backup = host == nullptr ? nullptr : host->openedBackup();
    if (backup != nullptr)
        return backup->isCurrent(root, error) ? std::make_unique<BackupDevice>(std::move(backup)) : nullptr;
    backup = Backup::open(root, nullptr, error);
    if (backup == nullptr) {
        advise(error);
        return nullptr;
    }
    if (host != nullptr)
        host->keepBackup(backup);
    return std::make_unique<BackupDevice>(std::move(backup));
}

bool isEncryptedBackup(const QString &deviceName)
{
    const QByteArray folder = folderOf(deviceName);
    VError error;
    BackupFacts facts;
    const PathTree tree = PathTree::below(folder.constData(), &error, Links::Refused);
    return !folder.isEmpty() && tree.valid() && facts.read(tree, &error) && facts.encrypted;
}

bool unlockBackup(HostState &host, const QByteArray &password, VError *error)
{
    if (!isEncryptedBackup(host.devicePath()))
        return true;
    const std::shared_ptr<const Backup> backup =
        Backup::open(folderOf(host.devicePath()).constData(), &password, error);
    if (backup == nullptr)
        advise(error);
    else
        host.keepBackup(backup);
    return backup != nullptr;
}

} // namespace devicehost
