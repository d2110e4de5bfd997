#ifndef PHOTOLIB_MEDIA_MEDIA_PATH_H
#define PHOTOLIB_MEDIA_MEDIA_PATH_H

#include <QByteArray>
#include <QString>

namespace photolib
{

/// The device path, in UTF-8, that a pattern with the place markers %1 and %2 gives for an asset's directory and a
/// file name. Both come from the device's database and are passed on as they stand.
QByteArray mediaPath(const QString &pattern, const QString &directory, const QString &fileName);

} // namespace photolib

#endif
