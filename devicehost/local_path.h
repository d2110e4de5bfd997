#ifndef DEVICEHOST_LOCAL_PATH_H
#define DEVICEHOST_LOCAL_PATH_H

#include <QString>

namespace devicehost
{

/// The path from the root of this computer's file system, else unchanged. For names that come from people: QFile and
/// QFileInfo take a relative name that begins with ":" for something inside the program, SQLite for no file at all.
QString absoluteLocalPath(const QString &path);

/// The file on the device that a file in the local folder is the copy of. People know that one; the copy is gone when
/// they read about it.
QString sourceOfLocalCopy(const QString &path);

} // namespace devicehost

#endif
