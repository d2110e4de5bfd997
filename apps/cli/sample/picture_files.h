#ifndef APPS_CLI_SAMPLE_PICTURE_FILES_H
#define APPS_CLI_SAMPLE_PICTURE_FILES_H

#include <QByteArray>
#include <QDateTime>
#include <QImage>

namespace sample
{

/// What a picture file tells about itself.
struct PictureFacts {
    int orientation = 1; ///< EXIF: how to turn the stored pixels to see the picture upright
    QDateTime taken;     ///< local time of the place; none when invalid
    double latitude = -180;
    double longitude = -180;
};

/// The stored form of an upright picture for one EXIF orientation.
QImage turnedForStorage(const QImage &upright, int orientation);

/// Each answers the bytes of a whole file; empty when the picture could not be encoded.
QByteArray jpegFile(const QImage &stored, int quality);
QByteArray jpegFile(const QImage &stored, int quality, const PictureFacts &facts);
QByteArray pngFile(const QImage &picture);
/// A digital negative with linear, demosaiced pixels.
QByteArray rawFile(const QImage &picture, const PictureFacts &facts);
/// An endless animation; `centiseconds` is the time of one frame. All frames have the size of the first one.
QByteArray gifFile(const QVector<QImage> &frames, int centiseconds);

} // namespace sample

#endif
