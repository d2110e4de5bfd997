#include "apps/browser/device/device_watcher.h"

#include "apps/browser/library/background.h"

namespace browser
{

namespace
{

constexpr std::chrono::seconds phoneInterval{3};
constexpr std::chrono::seconds folderInterval{15};

} // namespace

DeviceWatcher::DeviceWatcher(QObject *parent) : QObject(parent)
{
    phoneTimer.setInterval(phoneInterval);
    folderTimer.setInterval(folderInterval);
    connect(&phoneTimer, &QTimer::timeout, this, &DeviceWatcher::lookForPhones);
    connect(&folderTimer, &QTimer::timeout, this, &DeviceWatcher::lookForFolders);
}

void DeviceWatcher::setBackupFolders(const QStringList &folders)
{
    backupFolders = folders;
}

void DeviceWatcher::start()
{
    phoneTimer.start();
    folderTimer.start();
    lookForPhones();
    lookForFolders();
}

void DeviceWatcher::stop()
{
    phoneTimer.stop();
    folderTimer.stop();
}

void DeviceWatcher::lookForPhones()
{
    if (asksPhones)
        return;
    asksPhones = true;
    inBackground<FoundPhones>(this, findPhones, [this](const FoundPhones &phones) {
        asksPhones = false;
        if (phoneTimer.isActive())
            Q_EMIT phonesFound(phones);
    });
}

void DeviceWatcher::lookForFolders()
{
    if (looksAtFolders)
        return;
    looksAtFolders = true;
    SearchPlaces places = usualPlaces();
    places.backups += backupFolders;
    places.backups.removeDuplicates();
    inBackground<QVector<FoundDevice>>(
        this, [places] { return findMountedPhones(places) + findBackups(places); },
        [this](const QVector<FoundDevice> &devices) {
            looksAtFolders = false;
            if (folderTimer.isActive())
                Q_EMIT foldersFound(devices);
        });
}

} // namespace browser
