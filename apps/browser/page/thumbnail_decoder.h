#ifndef APPS_BROWSER_PAGE_THUMBNAIL_DECODER_H
#define APPS_BROWSER_PAGE_THUMBNAIL_DECODER_H

#include <QByteArray>
#include <QImage>

namespace browser
{

/// Makes a square picture of at most `side` pixels, the middle of what the bytes hold. Nothing is enlarged. Devices
/// store thumbnails upright, whatever the orientation of the original; only a mark in the thumbnail itself turns it.
///
/// The bytes may be anything: null for what is no JPEG or BMP, is damaged or larger than 4096 x 4096. Any thread.
QImage squareThumbnail(const QByteArray &bytes, int side);

} // namespace browser

#endif
