#ifndef DEVICEHOST_STALE_FOLDERS_H
#define DEVICEHOST_STALE_FOLDERS_H

#include "devicehost/vdev/unique_fd.h"

#include <QByteArray>

namespace devicehost
{

/// A program that is killed cannot remove its private folder. So each folder holds a file that its program keeps
/// locked, and the lock ends with the program, however that ends: a later program takes the lock and cleans up.
///
/// Folders without such a file are never touched: their names may be chance. Nor are they ever when the file system
/// has no locks. A folder for temporary files that several computers share must share its locks, too.

/// Marks `folder` (absolute) as in use for as long as the descriptor is open. Empty when that is not possible: then
/// there is no mark in it.
UniqueFd holdFolder(const QByteArray &folder);

/// Removes the files in a folder that holdFolder() marked, the mark last: a program that is killed here leaves no
/// folder that nobody cleans up. When it holds more than files, these and the mark stay.
void emptyHeldFolder(const QByteArray &folder);

/// Removes what this user's ended programs have left in `parent`: the files of folders named photolib-XXXXXX (mode
/// 0700) whose mark no living program holds, and then these folders. No link is followed. Folders below them are not
/// entered; one that holds some stays, with these in it. Failures are ignored.
void removeStaleFolders(const QByteArray &parent);

} // namespace devicehost

#endif
