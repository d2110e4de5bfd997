#ifndef DEVICEHOST_BACKUP_BACKUP_PLACES_H
#define DEVICEHOST_BACKUP_BACKUP_PLACES_H

#include "devicehost/resolve_device.h"

namespace devicehost
{

/// Whether the folder is a backup, of any age, by the names in it.
bool looksLikeBackup(const QString &folder);

/// What becomes of a device that is named by the folder `path`, absolute: a backup, or a folder of backups, which are
/// listed. Looks at the property lists only.
ResolvedDevice resolveBackup(const QString &path);

/// Answers like resolveBackup() for a folder of backups; an answer without message for any other folder.
ResolvedDevice resolveFolderOfBackups(const QString &path);

} // namespace devicehost

#endif
