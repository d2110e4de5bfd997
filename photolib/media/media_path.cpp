#include "photolib/media/media_path.h"

namespace photolib
{

namespace
{

// Characters, far beyond any path. QString::arg() counts its result with 32 bits and writes beyond its buffer when the
// count wraps around, so a directory full of place markers must not meet a long file name.
constexpr qint64 longestPath = 1 << 20;

} // namespace

QByteArray mediaPath(const QString &pattern, const QString &directory, const QString &fileName)
{
    const qint64 markers = 1 + directory.count(QLatin1Char('%'));
    if (pattern.size() + directory.size() + markers * fileName.size() > longestPath)
        return QByteArray(); // opens nowhere
    return pattern.arg(directory).arg(fileName).toUtf8();
}

} // namespace photolib
