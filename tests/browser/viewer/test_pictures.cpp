#include "tests/browser/viewer/test_pictures.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPainter>
#include <QtEndian>

#include <libheif/heif.h>

namespace
{

void appendShort(QByteArray &bytes, int value)
{
    bytes.append(static_cast<char>(value >> 8)).append(static_cast<char>(value));
}

void appendLong(QByteArray &bytes, quint32 value)
{
    appendShort(bytes, static_cast<int>(value >> 16));
    appendShort(bytes, static_cast<int>(value & 0xFFFF));
}

void appendEntry(QByteArray &bytes, int tag, int type, quint32 value)
{
    appendShort(bytes, tag);
    appendShort(bytes, type);
    appendLong(bytes, 1);
    appendLong(bytes, type == 3 ? value << 16 : value);
}

QByteArray tiffWithOrientation(int orientation)
{
    QByteArray tiff("MM\0*", 4);
    appendLong(tiff, 8);
    appendShort(tiff, 1);
    appendEntry(tiff, 0x0112, 3, static_cast<quint32>(orientation));
    appendLong(tiff, 0);
    return tiff;
}

QChar letterOf(QRgb colour)
{
    const bool red = qRed(colour) > 150, green = qGreen(colour) > 150, blue = qBlue(colour) > 150;
    if (red && green && blue)
        return QLatin1Char('W');
    if (red && !green && !blue)
        return QLatin1Char('R');
    if (green && !red && !blue)
        return QLatin1Char('G');
    return blue && !red && !green ? QLatin1Char('B') : QLatin1Char('?');
}

heif_error appendOutput(heif_context *, const void *data, std::size_t size, void *bytes)
{
    static_cast<QByteArray *>(bytes)->append(static_cast<const char *>(data), static_cast<int>(size));
    return {heif_error_Ok, heif_suberror_Unspecified, "Success"};
}

quint32 checksum(const QByteArray &bytes)
{
    quint32 crc = 0xFFFFFFFF;
    for (const char byte : bytes) {
        crc ^= static_cast<uchar>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xEDB88320 : 0);
    }
    return ~crc;
}

void appendChunk(QByteArray &png, const QByteArray &typeAndData)
{
    appendLong(png, static_cast<quint32>(typeAndData.size() - 4));
    png += typeAndData;
    appendLong(png, checksum(typeAndData));
}

} // namespace

QImage cornersPicture(const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    const int w = size.width() / 2, h = size.height() / 2;
    painter.fillRect(0, 0, w, h, Qt::red);
    painter.fillRect(w, 0, size.width() - w, h, Qt::green);
    painter.fillRect(0, h, w, size.height() - h, Qt::blue);
    painter.fillRect(w, h, size.width() - w, size.height() - h, Qt::white);
    return image;
}

QString cornersOf(const QImage &image)
{
    QString letters;
    for (const int y : {image.height() / 4, image.height() * 3 / 4})
        for (const int x : {image.width() / 4, image.width() * 3 / 4})
            letters += letterOf(image.pixel(x, y));
    return letters;
}

QString cornersOf(const browser::SharedPicture &picture)
{
    if (picture->levels.empty())
        return QStringLiteral("problem %1").arg(static_cast<int>(picture->problem));
    return cornersOf(picture->levels.front());
}

QImage storedFor(const QImage &upright, int orientation)
{
    const int right = upright.width() - 1, bottom = upright.height() - 1;
    QImage stored(orientation < 5 ? upright.size() : upright.size().transposed(), upright.format());
    for (int row = 0; row < stored.height(); ++row) {
        for (int column = 0; column < stored.width(); ++column) {
            // EXIF: which sides of the scene the first row and the first column are.
            const QPoint of[] = {
                {column, row}, {right - column, row}, {right - column, bottom - row}, {column, bottom - row},
                {row, column}, {right - row, column}, {right - row, bottom - column}, {row, bottom - column}};
            stored.setPixel(column, row, upright.pixel(of[orientation - 1]));
        }
    }
    return stored;
}

QByteArray encodedBytes(const QImage &image, const char *format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setQuality(95);
    return writer.write(image) ? bytes : QByteArray();
}

QByteArray jpegBytes(const QImage &image, int orientation)
{
    QByteArray bytes = encodedBytes(image, "jpeg");
    if (orientation == 0)
        return bytes;
    const QByteArray body = QByteArray("Exif\0\0", 6) + tiffWithOrientation(orientation);
    QByteArray segment("\xFF\xE1", 2);
    appendShort(segment, body.size() + 2);
    return bytes.insert(2, segment + body);
}

QByteArray heicBytes(const QImage &stored, int orientation)
{
    QByteArray bytes;
    heif_context *context = heif_context_alloc();
    heif_encoder *encoder = nullptr;
    heif_image *image = nullptr;
    const QImage pixels = stored.convertToFormat(QImage::Format_RGB888);
    heif_context_get_encoder_for_format(context, heif_compression_HEVC, &encoder);
    heif_image_create(pixels.width(), pixels.height(), heif_colorspace_RGB, heif_chroma_interleaved_RGB, &image);
    heif_image_add_plane(image, heif_channel_interleaved, pixels.width(), pixels.height(), 8);
    int stride = 0;
    uint8_t *plane = heif_image_get_plane(image, heif_channel_interleaved, &stride);
    for (int y = 0; plane != nullptr && y < pixels.height(); ++y)
        memcpy(plane + y * stride, pixels.constScanLine(y), static_cast<std::size_t>(pixels.width()) * 3);
    heif_encoding_options *options = heif_encoding_options_alloc();
    options->image_orientation = static_cast<heif_orientation>(orientation);
    heif_writer writer{1, appendOutput};
    if (encoder != nullptr && heif_encoder_set_lossy_quality(encoder, 90).code == heif_error_Ok &&
        heif_context_encode_image(context, image, encoder, options, nullptr).code == heif_error_Ok)
        heif_context_write(context, &writer, &bytes);
    heif_encoding_options_free(options);
    heif_image_release(image);
    heif_encoder_release(encoder);
    heif_context_free(context);
    return bytes;
}

QByteArray rawBytes(const QByteArray &previewJpeg, int orientation)
{
    QByteArray bytes("MM\0*", 4);
    appendLong(bytes, 8);
    appendShort(bytes, 3);
    appendEntry(bytes, 274, 3, static_cast<quint32>(orientation));
    appendEntry(bytes, 330, 4, 50); // further directory
    appendEntry(bytes, 50706, 4, 0x01040000);
    appendLong(bytes, 0);
    Q_ASSERT(bytes.size() == 50);
    appendShort(bytes, 2);
    appendEntry(bytes, 273, 4, 80);
    appendEntry(bytes, 279, 4, static_cast<quint32>(previewJpeg.size()));
    appendLong(bytes, 0);
    return bytes + previewJpeg;
}

QByteArray pngThatClaims(quint32 width, quint32 height)
{
    QByteArray png("\x89PNG\r\n\x1A\n", 8);
    QByteArray header("IHDR");
    appendLong(header, width);
    appendLong(header, height);
    header.append("\x08\x02\x00\x00\x00", 5);
    appendChunk(png, header);
    appendChunk(png, QByteArray("IDAT") + qCompress(QByteArray(16, 0)).mid(4));
    appendChunk(png, "IEND");
    return png;
}
