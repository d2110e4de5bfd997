#ifndef APPS_BROWSER_VIEWER_PICTURE_DECODER_H
#define APPS_BROWSER_VIEWER_PICTURE_DECODER_H

#include "apps/browser/viewer/picture.h"

namespace browser
{

/// Most pixels of one picture, and most bytes of all pictures of an animation.
inline constexpr qint64 mostPicturePixels = 128 * 1000 * 1000;
inline constexpr qint64 mostAnimationBytes = 256 * 1024 * 1024;

/// Decodes a picture file of a device: JPEG, PNG, GIF, TIFF, BMP, WebP, HEIF; of RAW the preview in it. The first bytes
/// say what it is, not the name.
///
/// The orientation that the file names is obeyed: EXIF data in JPEG, TIFF's tag, HEIF's own transformations. The other
/// formats name none, and neither do JPEG files without that entry: there `libraryOrientation`, what the device's
/// library says (1 to 8, else unknown), counts.
///
/// Any thread; nothing is thrown. Bytes may be hostile: sizes are looked at before memory is taken.
SharedPicture decodePicture(const QByteArray &bytes, const QString &fileName, int libraryOrientation,
                            const GiveUp &givenUp);

/// A thumbnail of a device, which is upright unless it says otherwise itself. Null when it cannot be decoded or is
/// larger than 4096 x 4096.
QImage decodeThumbnail(const QByteArray &bytes);

} // namespace browser

#endif
