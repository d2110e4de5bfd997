#ifndef APPS_BROWSER_MEDIA_FREE_SPACE_H
#define APPS_BROWSER_MEDIA_FREE_SPACE_H

#include <QString>

namespace browser
{

/// Bytes that this user may still write to the file system of a file or folder; -1 when not known. Asks the folder
/// itself, as lists of mounted file systems lack some in containers.
qint64 freeSpace(const QString &path);

} // namespace browser

#endif
