#include "apps/browser/viewer/orientation.h"

#include "apps/browser/viewer/tiff_directory.h"

#include <QTransform>

namespace browser
{

namespace
{

constexpr int orientationTag = 0x0112;
constexpr uchar exifSegment = 0xE1;
constexpr uchar scanBegins = 0xDA;

uchar byteAt(const QByteArray &bytes, int at)
{
    return static_cast<uchar>(bytes[at]);
}

std::optional<int> orientationOf(const QByteArray &tiff)
{
    const TiffFile file(tiff);
    const auto directory = file.directory(file.firstDirectory());
    if (!directory)
        return std::nullopt;
    const quint32 value = file.number(*directory, orientationTag).value_or(0);
    return value >= 1 && value <= 8 ? std::optional<int>(static_cast<int>(value)) : std::nullopt;
}

} // namespace

QImage upright(const QImage &stored, int orientation)
{
    switch (orientation) {
    case 2:
        return stored.mirrored(true, false);
    case 3:
        return stored.mirrored(true, true);
    case 4:
        return stored.mirrored(false, true);
    case 5:
        return stored.transformed(QTransform().rotate(90)).mirrored(true, false);
    case 6:
        return stored.transformed(QTransform().rotate(90));
    case 7:
        return stored.transformed(QTransform().rotate(-90)).mirrored(true, false);
    case 8:
        return stored.transformed(QTransform().rotate(-90));
    default:
        return stored;
    }
}

QSize uprightSize(const QSize &stored, int orientation)
{
    return orientation >= 5 && orientation <= 8 ? stored.transposed() : stored;
}

std::optional<int> jpegOrientation(const QByteArray &jpeg)
{
    const QByteArray mark("Exif\0\0", 6);
    int at = 2;
    while (at + 4 <= jpeg.size() && byteAt(jpeg, at) == 0xFF) {
        const uchar kind = byteAt(jpeg, at + 1);
        if (kind == scanBegins)
            break;
        if (kind == 0xFF) { // filling
            ++at;
            continue;
        }
        const int length = byteAt(jpeg, at + 2) * 256 + byteAt(jpeg, at + 3);
        if (length < 2)
            break;
        const QByteArray body = jpeg.mid(at + 4, length - 2);
        if (kind == exifSegment && body.startsWith(mark))
            return orientationOf(body.mid(mark.size()));
        at += 2 + length;
    }
    return std::nullopt;
}

} // namespace browser
