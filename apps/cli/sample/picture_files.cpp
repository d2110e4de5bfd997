#include "apps/cli/sample/picture_files.h"

#include "apps/cli/sample/tiff_writer.h"

#include <QBuffer>
#include <QImageWriter>
#include <QTransform>

#include <cmath>

namespace sample
{

namespace
{

QByteArray encoded(const QImage &picture, const char *format, int quality)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setQuality(quality);
    return writer.write(picture) ? bytes : QByteArray();
}

QByteArray exifTime(const QDateTime &time)
{
    return time.toString(QStringLiteral("yyyy:MM:dd HH:mm:ss")).toLatin1();
}

// Degrees, minutes and hundredths of a second, each as a fraction.
QVector<qint32> sexagesimal(double degrees)
{
    const qint64 hundredths = std::llround(std::abs(degrees) * 360000);
    return {static_cast<qint32>(hundredths / 360000), 1,  static_cast<qint32>(hundredths / 6000 % 60), 1,
            static_cast<qint32>(hundredths % 6000),   100};
}

QByteArray exifOf(const PictureFacts &facts)
{
    const bool placed = facts.latitude > -180 && facts.longitude > -180;
    TiffWriter::Directory main, exif, place;
    main.addShorts(0x0112, {static_cast<quint16>(facts.orientation)});
    if (facts.taken.isValid()) {
        main.addText(0x0132, exifTime(facts.taken));
        exif.addText(0x9003, exifTime(facts.taken));
    }
    main.addLink(0x8769, 1);
    if (placed) {
        main.addLink(0x8825, 2);
        place.addText(1, facts.latitude < 0 ? "S" : "N");
        place.addRationals(2, sexagesimal(facts.latitude));
        place.addText(3, facts.longitude < 0 ? "W" : "E");
        place.addRationals(4, sexagesimal(facts.longitude));
    }
    exif.addShorts(0xA001, {1});
    QVector<TiffWriter::Directory> all{main, exif};
    if (placed)
        all.append(place);
    return TiffWriter::build(all);
}

} // namespace

QImage turnedForStorage(const QImage &upright, int orientation)
{
    switch (orientation) {
    case 2:
        return upright.mirrored(true, false);
    case 3:
        return upright.transformed(QTransform().rotate(180));
    case 6:
        return upright.transformed(QTransform().rotate(-90));
    case 8:
        return upright.transformed(QTransform().rotate(90));
    default:
        return upright;
    }
}

QByteArray jpegFile(const QImage &stored, int quality)
{
    return encoded(stored, "jpeg", quality);
}

QByteArray jpegFile(const QImage &stored, int quality, const PictureFacts &facts)
{
    QByteArray bytes = jpegFile(stored, quality);
    if (bytes.isEmpty())
        return bytes;
    const QByteArray body = QByteArray("Exif\0\0", 6) + exifOf(facts);
    QByteArray segment("\xFF\xE1", 2);
    appendBig(segment, static_cast<quint32>(body.size() + 2), 2);
    return bytes.insert(2, segment + body);
}

QByteArray pngFile(const QImage &picture)
{
    return encoded(picture, "png", 40);
}

QByteArray rawFile(const QImage &picture, const PictureFacts &facts)
{
    const QImage pixels = picture.convertToFormat(QImage::Format_RGB888);
    QByteArray strip;
    for (int y = 0; y < pixels.height(); ++y)
        strip.append(reinterpret_cast<const char *>(pixels.constScanLine(y)), pixels.width() * 3);
    TiffWriter::Directory main;
    main.addLong(254, 0);
    main.addLong(256, static_cast<quint32>(pixels.width()));
    main.addLong(257, static_cast<quint32>(pixels.height()));
    main.addShorts(258, {8, 8, 8});
    main.addShorts(259, {1});
    main.addShorts(262, {34892}); // linear raw
    main.addStrip(273);
    main.addShorts(274, {static_cast<quint16>(facts.orientation)});
    main.addShorts(277, {3});
    main.addLong(278, static_cast<quint32>(pixels.height()));
    main.addLong(279, static_cast<quint32>(strip.size()));
    main.addShorts(284, {1});
    if (facts.taken.isValid())
        main.addText(306, exifTime(facts.taken));
    main.addBytes(50706, QByteArray("\x01\x04\x00\x00", 4));
    main.addBytes(50707, QByteArray("\x01\x01\x00\x00", 4));
    main.addText(50708, "Sample Camera");
    // From XYZ to linear sRGB, whose primaries the painted pixels have.
    main.addRationals(50721,
                      {32405, 10000, -15371, 10000, -4985, 10000, -9693, 10000, 18760, 10000, 416, 10000, 556, 10000,
                       -2040, 10000, 10572, 10000},
                      true);
    main.addRationals(50728, {1, 1, 1, 1, 1, 1});
    main.addShorts(50778, {21}); // D65
    return TiffWriter::build({main}, strip);
}

} // namespace sample
