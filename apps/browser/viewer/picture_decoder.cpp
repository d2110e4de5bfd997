#include "apps/browser/viewer/picture_decoder.h"

#include "apps/browser/viewer/heif_decoder.h"
#include "apps/browser/viewer/orientation.h"
#include "apps/browser/viewer/raw_preview.h"
#include "apps/browser/viewer/screen_form.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <cmath>
#include <new>

namespace browser
{

namespace
{

constexpr int largestThumbnail = 4096;
constexpr int shortestDelay = 20; // milliseconds; browsers show what claims less at ten pictures a second
constexpr int usualDelay = 100;

// Only decoders that photos need are ever let near the bytes.
QByteArray qtFormatOf(const QByteArray &bytes)
{
    if (bytes.startsWith("\xFF\xD8\xFF"))
        return "jpeg";
    if (bytes.startsWith("\x89PNG\r\n\x1A\n"))
        return "png";
    if (bytes.startsWith("GIF8"))
        return "gif";
    if (bytes.startsWith("BM"))
        return "bmp";
    if (bytes.startsWith("RIFF") && bytes.mid(8, 4) == "WEBP")
        return "webp";
    if (bytes.startsWith(QByteArray("II*\0", 4)) || bytes.startsWith(QByteArray("MM\0*", 4)))
        return "tiff";
    return {};
}

PictureProblem sizeProblem(const QSize &size)
{
    if (size.isEmpty())
        return PictureProblem::Damaged;
    return qint64(size.width()) * size.height() > mostPicturePixels ? PictureProblem::TooLarge : PictureProblem::None;
}

int delayOf(const QImageReader &reader)
{
    const int delay = reader.nextImageDelay();
    return delay < shortestDelay ? usualDelay : delay;
}

// How much smaller the pictures of an animation are kept so that all of them fit into memory.
double animationScale(const QSize &size, int count)
{
    const double bytes = 4.0 * size.width() * size.height() * std::max(count, 1);
    return std::min(1.0, std::sqrt(static_cast<double>(mostAnimationBytes) / bytes));
}

SharedPicture still(QImage image, const GiveUp &givenUp)
{
    auto picture = std::make_shared<Picture>();
    picture->size = image.size();
    if (!givenUp())
        picture->levels = levelsOf(forScreen(std::move(image)), givenUp);
    return picture->levels.empty() ? noPicture(PictureProblem::GivenUp) : picture;
}

class QtDecoder
{
public:
    QtDecoder(const QByteArray &bytes, const QByteArray &wantedFormat, int libraryOrientation)
        : format(wantedFormat), orientation(libraryOrientation)
    {
        buffer.setData(bytes);
        reader.setDevice(&buffer);
        reader.setFormat(format);
        if (format == "jpeg")
            orientation = jpegOrientation(bytes).value_or(libraryOrientation);
        else if (format == "tiff") { // names one always: none means 1
            orientation = 1;
            reader.setAutoTransform(true);
        }
    }

    SharedPicture decode(const GiveUp &givenUp)
    {
        const PictureProblem problem = sizeProblem(reader.size());
        if (problem != PictureProblem::None)
            return noPicture(problem);
        const int count = format == "gif" || format == "webp" ? reader.imageCount() : 1;
        if (count > 1)
            return animation(count, givenUp);
        const QImage image = reader.read();
        if (image.isNull() || sizeProblem(image.size()) != PictureProblem::None)
            return noPicture(PictureProblem::Damaged);
        return still(upright(image, orientation), givenUp);
    }

private:
    SharedPicture animation(int count, const GiveUp &givenUp)
    {
        auto picture = std::make_shared<Picture>();
        const QSize size = reader.size();
        const QSize kept = (QSizeF(size) * animationScale(size, count)).toSize().expandedTo(QSize(1, 1));
        while (picture->frames.size() < static_cast<std::size_t>(count) && picture->bytes() < mostAnimationBytes) {
            if (givenUp())
                return noPicture(PictureProblem::GivenUp);
            QImage image = reader.read();
            if (image.isNull())
                break;
            if (kept != size)
                image = image.scaled(kept, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            picture->frames.push_back({forScreen(upright(image, orientation)), delayOf(reader)});
        }
        if (picture->frames.empty())
            return noPicture(PictureProblem::Damaged);
        picture->size = uprightSize(size, orientation);
        return picture;
    }

    QBuffer buffer;
    QImageReader reader;
    const QByteArray format;
    int orientation;
};

SharedPicture decodeRaw(const RawFile &raw, const GiveUp &givenUp)
{
    if (raw.previewJpeg.isEmpty())
        return noPicture(PictureProblem::RawWithoutPreview);
    QBuffer buffer;
    buffer.setData(raw.previewJpeg);
    QImageReader reader(&buffer, "jpeg");
    if (sizeProblem(reader.size()) != PictureProblem::None)
        return noPicture(PictureProblem::RawWithoutPreview);
    const QImage image = reader.read();
    if (image.isNull())
        return noPicture(PictureProblem::RawWithoutPreview);
    auto picture = std::make_shared<Picture>(*still(upright(image, raw.orientation), givenUp));
    picture->isPreview = true;
    return picture;
}

SharedPicture decodeUnguarded(const QByteArray &bytes, const QString &fileName, int libraryOrientation,
                              const GiveUp &givenUp)
{
    if (bytes.isEmpty())
        return noPicture(PictureProblem::Empty);
    if (isHeif(bytes)) {
        HeifImage decoded = decodeHeif(bytes, mostPicturePixels);
        return decoded.problem == PictureProblem::None ? still(std::move(decoded.image), givenUp)
                                                       : noPicture(decoded.problem);
    }
    const QByteArray format = qtFormatOf(bytes);
    if (format.isEmpty())
        return noPicture(PictureProblem::UnknownFormat);
    if (format == "tiff") {
        if (const RawFile raw = examineRaw(bytes, fileName); raw.isRaw)
            return decodeRaw(raw, givenUp);
    }
    if (!QImageReader::supportedImageFormats().contains(format))
        return noPicture(PictureProblem::UnknownFormat);
    return QtDecoder(bytes, format, libraryOrientation).decode(givenUp);
}

} // namespace

SharedPicture decodePicture(const QByteArray &bytes, const QString &fileName, int libraryOrientation,
                            const GiveUp &givenUp)
{
    try {
        return decodeUnguarded(bytes, fileName, libraryOrientation, givenUp);
    } catch (const std::bad_alloc &) {
        return noPicture(PictureProblem::OutOfMemory);
    }
}

QImage decodeThumbnail(const QByteArray &bytes)
{
    const QByteArray format = qtFormatOf(bytes);
    if (format != "jpeg" && format != "bmp" && format != "png")
        return {};
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer, format);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.isEmpty() || size.width() > largestThumbnail || size.height() > largestThumbnail)
        return {};
    return reader.read();
}

} // namespace browser
