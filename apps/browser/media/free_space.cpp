#include "apps/browser/media/free_space.h"

#include <QFile>

#include <sys/statvfs.h>

namespace browser
{

qint64 freeSpace(const QString &path)
{
    struct statvfs facts = {};
    if (::statvfs(QFile::encodeName(path).constData(), &facts) != 0)
        return -1;
    return static_cast<qint64>(facts.f_bavail) * static_cast<qint64>(facts.f_frsize);
}

} // namespace browser
