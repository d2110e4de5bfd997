#include "devicehost/local_path.h"

#include <QDir>

namespace devicehost
{

QString absoluteLocalPath(const QString &path)
{
    return path.startsWith(QLatin1Char('/')) ? path : QDir::currentPath() + QLatin1Char('/') + path;
}

QString sourceOfLocalCopy(const QString &path)
{
    return QStringLiteral("/PhotoData/") + path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
}

} // namespace devicehost
