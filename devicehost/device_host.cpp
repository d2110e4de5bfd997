#include "devicehost/device_host.h"

#include "devicehost/advice.h"
#include "devicehost/backup/backup.h"
#include "devicehost/host_state.h"
#include "devicehost/private_folder.h"
#include "devicehost/vdev/backup_device.h"

#include <cerrno>
#include <new>
#include <utility>
#include <vector>

namespace devicehost
{

namespace
{

/// Nothing can be created below a device node, whoever asks. An empty answer would send the copy to the shared
/// folder of temporary files instead.
const char impossibleFolder[] = "/dev/null/photolib/";

} // namespace

struct DeviceHost::LocalFolders {
    std::mutex mutex;
    std::vector<PrivateFolder> folders;
};

DeviceHost::DeviceHost(const QString &devicePath)
    : state(std::make_shared<HostState>(devicePath)), localFolders(std::make_unique<LocalFolders>())
{
    hosts::add(state);
}

DeviceHost::~DeviceHost()
{
    hosts::remove(state.get());
}

bool DeviceHost::shouldStop()
{
    return state->stopRequested();
}

QString DeviceHost::devicePath()
{
    return state->devicePath();
}

bool DeviceHost::isAvailable()
{
    try {
        VDev *const device = vDevOpen(VDevDevice, state->devicePath().toUtf8().constData());
        vDevClose(device);
        return device != nullptr;
    } catch (const std::bad_alloc &) { // the library asks before it catches anything
        return false;
    }
}

QString DeviceHost::localDataFolder()
{
    PrivateFolder folder;
    if (folder.path().isEmpty()) {
        state->recordFailure(
            QStringLiteral("no private folder for the database copy can be made in %1: %2; %3")
                .arg(QString::fromUtf8(folder.place()), errnoText(folder.error()), localAdvice(folder.error())));
        return QString::fromLatin1(impossibleFolder);
    }
    const QByteArray path = folder.path();
    hosts::addLocalFolder(state, path);
    const std::lock_guard<std::mutex> lock(localFolders->mutex);
    localFolders->folders.push_back(std::move(folder));
    return QString::fromUtf8(path);
}

bool DeviceHost::needsPassword() const
{
    return state->openedBackup() == nullptr && isEncryptedBackup(state->devicePath());
}

UnlockResult DeviceHost::unlock(const QByteArray &password)
{
    VError error;
    if (unlockBackup(*state, password, &error))
        return {Unlocking::Unlocked, {}};
    const bool wrong = error.code == EKEYREJECTED;
    return {wrong ? Unlocking::WrongPassword : Unlocking::Failed,
            QStringLiteral("%1; %2").arg(error.text, deviceAdvice(error))};
}

void DeviceHost::requestStop() noexcept
{
    state->requestStop();
}

void DeviceHost::discardLocalData()
{
    std::vector<PrivateFolder> discarded; // removed when the lock is free again
    const std::lock_guard<std::mutex> lock(localFolders->mutex);
    discarded.swap(localFolders->folders);
}

void DeviceHost::setProgress(std::function<void(const Progress &)> callback)
{
    state->setProgress(std::move(callback));
}

QString DeviceHost::failure() const
{
    return state->failure();
}

QString DeviceHost::notice() const
{
    const std::shared_ptr<const Backup> backup = state->openedBackup();
    return backup == nullptr || backup->isFinished()
               ? QString()
               : QStringLiteral(
                     "the backup was interrupted before its end, so files may be missing or out of date; make "
                     "a new backup of the device");
}

bool DeviceHost::deviceIsUnreachable() const
{
    return state->failedForTheDevice();
}

QString DeviceHost::databaseDamage() const
{
    return state->databaseDamage();
}

bool DeviceHost::databaseIsEmpty() const
{
    return state->databaseIsEmpty();
}

} // namespace devicehost
