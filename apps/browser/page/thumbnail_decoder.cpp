#include "apps/browser/page/thumbnail_decoder.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>

namespace browser
{

namespace
{

constexpr int largestSide = 4096;

QByteArray formatOf(const QByteArray &bytes)
{
    if (bytes.startsWith("\xFF\xD8"))
        return "jpeg";
    return bytes.startsWith("BM") ? "bmp" : QByteArray();
}

// The JPEG decoder shrinks in steps much faster than a picture can be scaled; twice the size is left for the latter.
void shrinkWhileReading(QImageReader &reader, const QSize &stored, int side)
{
    const QSize wanted(2 * side, 2 * side);
    if (stored.width() > wanted.width() && stored.height() > wanted.height())
        reader.setScaledSize(stored.scaled(wanted, Qt::KeepAspectRatioByExpanding));
}

} // namespace

QImage squareThumbnail(const QByteArray &bytes, int side)
{
    const QByteArray format = formatOf(bytes);
    if (format.isEmpty() || side < 1)
        return {};
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    const QSize stored = reader.size();
    if (stored.isEmpty() || stored.width() > largestSide || stored.height() > largestSide)
        return {};
    shrinkWhileReading(reader, stored, side);
    QImage picture = reader.read();
    if (picture.isNull())
        return {};
    const int edge = std::min(picture.width(), picture.height());
    picture = picture.copy((picture.width() - edge) / 2, (picture.height() - edge) / 2, edge, edge);
    if (edge > side)
        picture = picture.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return picture.convertToFormat(picture.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                             : QImage::Format_RGB32);
}

} // namespace browser
