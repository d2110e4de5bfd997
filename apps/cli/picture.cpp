#include "apps/cli/picture.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>

namespace photocli
{

namespace
{

constexpr qint64 mostPixels = 40 * 1000 * 1000;
constexpr int jpegQuality = 85;

// Only the decoder for the format that the bytes show is tried, never one for an exotic format.
QByteArray decoderFor(const QByteArray &picture)
{
    switch (formatOf(picture)) {
    case PictureFormat::Jpeg:
        return "jpeg";
    case PictureFormat::Bmp:
        return "bmp";
    case PictureFormat::Png:
        return "png";
    case PictureFormat::Unknown:
        break;
    }
    return {};
}

} // namespace

PictureFormat formatOf(const QByteArray &picture)
{
    if (picture.startsWith("\xFF\xD8\xFF"))
        return PictureFormat::Jpeg;
    if (picture.startsWith("BM"))
        return PictureFormat::Bmp;
    if (picture.startsWith("\x89PNG\r\n\x1A\n"))
        return PictureFormat::Png;
    return PictureFormat::Unknown;
}

QString formatName(PictureFormat format)
{
    switch (format) {
    case PictureFormat::Jpeg:
        return QStringLiteral("JPEG");
    case PictureFormat::Bmp:
        return QStringLiteral("BMP");
    case PictureFormat::Png:
        return QStringLiteral("PNG");
    case PictureFormat::Unknown:
        break;
    }
    return QStringLiteral("picture");
}

QSize sizeOf(const QByteArray &picture)
{
    QBuffer buffer;
    buffer.setData(picture);
    const QByteArray decoder = decoderFor(picture);
    return decoder.isEmpty() ? QSize() : QImageReader(&buffer, decoder).size();
}

QByteArray converted(const QByteArray &picture, PictureFormat format)
{
    const QSize size = sizeOf(picture);
    if (size.isEmpty() || static_cast<qint64>(size.width()) * size.height() > mostPixels)
        return {};
    QBuffer source;
    source.setData(picture);
    const QImage image = QImageReader(&source, decoderFor(picture)).read();
    QBuffer result;
    const bool asPng = format == PictureFormat::Png;
    if (image.isNull() || !result.open(QIODevice::WriteOnly) ||
        !image.save(&result, asPng ? "PNG" : "JPEG", asPng ? -1 : jpegQuality))
        return {};
    return result.data();
}

} // namespace photocli
