#include "apps/cli/contact_sheet/sheet_pictures.h"

#include "apps/cli/picture.h"

namespace photocli
{

namespace
{

// What every browser shows, and in few bytes: the device's bitmaps are several times larger than as JPEG.
QByteArray forBrowsers(const QByteArray &picture)
{
    switch (formatOf(picture)) {
    case PictureFormat::Jpeg:
    case PictureFormat::Png:
        return picture;
    case PictureFormat::Bmp:
        return converted(picture, PictureFormat::Jpeg);
    case PictureFormat::Unknown:
        break;
    }
    return {};
}

QByteArray dataUri(const QByteArray &picture)
{
    const char *type = formatOf(picture) == PictureFormat::Png ? "data:image/png;base64," : "data:image/jpeg;base64,";
    return type + picture.toBase64();
}

} // namespace

SheetPicture SheetPictures::take(qint64 photo)
{
    const auto known = sizes.constFind(photo);
    if (known != sizes.constEnd())
        return {*known, {}};
    QByteArray bytes;
    SheetPicture picture;
    if (library.getThumbnail(&photo, &bytes) == 0) {
        bytes = forBrowsers(bytes);
        const QSize size = sizeOf(bytes);
        if (!size.isEmpty())
            picture = {size, dataUri(bytes)};
    }
    if (!picture.isThere())
        ++missingCount;
    sizes.insert(photo, picture.size);
    return picture;
}

} // namespace photocli
