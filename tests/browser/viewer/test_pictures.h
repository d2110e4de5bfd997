#ifndef TESTS_BROWSER_VIEWER_TEST_PICTURES_H
#define TESTS_BROWSER_VIEWER_TEST_PICTURES_H

#include "apps/browser/viewer/picture.h"

#include <QByteArray>
#include <QImage>

/// A picture whose corners differ: red, green, blue, white, from the upper left to the lower right one.
QImage cornersPicture(const QSize &size = {64, 32});

/// "RGBW" when the corners are where cornersPicture() has them, else in another order; "?" for another colour.
QString cornersOf(const QImage &image);
QString cornersOf(const browser::SharedPicture &picture);

/// The pixels as a camera stores them that was held in this EXIF orientation.
QImage storedFor(const QImage &upright, int orientation);

/// Whole files. `orientation` 0: the file names none.
QByteArray jpegBytes(const QImage &image, int orientation = 0);
QByteArray encodedBytes(const QImage &image, const char *format);
/// A HEIC file whose transformations are those of the orientation; empty when it could not be made.
QByteArray heicBytes(const QImage &stored, int orientation = 1);
/// The structure of a RAW file around a ready picture, which may be empty.
QByteArray rawBytes(const QByteArray &previewJpeg, int orientation = 1);
/// A PNG file that claims to have so many pixels, in 70 bytes.
QByteArray pngThatClaims(quint32 width, quint32 height);

#endif
