#ifndef DEVICEHOST_VDEV_BACKUP_DEVICE_H
#define DEVICEHOST_VDEV_BACKUP_DEVICE_H

#include "devicehost/vdev/backend.h"

namespace devicehost
{

/// A device whose unpacked computer backup is the folder `root`. Nothing is ever written to it. `host`, or null,
/// keeps the backup open between two openings, and its keys; an encrypted one has to be unlocked there first.
/// Null, with `*error` filled, on failure.
std::unique_ptr<VDev> openBackupDevice(const char *root, const std::shared_ptr<HostState> &host, VError *error);

/// Whether `deviceName`, with its scheme, is an encrypted backup. False when it cannot be read.
bool isEncryptedBackup(const QString &deviceName);

/// Opens the backup that the host's device is with a password, and leaves it with the host. True also for a device that
/// needs none. False, with `*error` filled, on failure: EKEYREJECTED for a wrong password.
bool unlockBackup(HostState &host, const QByteArray &password, VError *error);

} // namespace devicehost

#endif
