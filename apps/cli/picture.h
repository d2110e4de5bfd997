#ifndef APPS_CLI_PICTURE_H
#define APPS_CLI_PICTURE_H

#include <QByteArray>
#include <QSize>
#include <QString>

namespace photocli
{

/// The formats in which a library delivers thumbnails, and that a picture may be converted to.
enum class PictureFormat { Unknown, Jpeg, Bmp, Png };

/// The format that the first bytes tell; the rest is not looked at.
PictureFormat formatOf(const QByteArray &picture);

/// "JPEG", "BMP", "PNG"; "picture" for an unknown format.
QString formatName(PictureFormat format);

/// Size in pixels, from the picture's header alone; invalid when it does not tell.
QSize sizeOf(const QByteArray &picture);

/// The picture in another format, JPEG or PNG. Empty when it cannot be decoded, or is far larger than a thumbnail is:
/// the bytes come from a device and may say anything.
QByteArray converted(const QByteArray &picture, PictureFormat format);

} // namespace photocli

#endif
