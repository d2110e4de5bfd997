#include "apps/browser/viewer/picture_source.h"

#include "apps/browser/media/device_read.h"
#include "devicehost/device_host.h"

namespace browser
{

namespace
{

constexpr qint64 mostFileBytes = 512 * 1024 * 1024; // RAW files of the largest sensors have a quarter of that

PictureProblem problemOf(ReadEnd end)
{
    switch (end) {
    case ReadEnd::Complete:
        return PictureProblem::None;
    case ReadEnd::Absent:
        return PictureProblem::OriginalAbsent;
    case ReadEnd::Failed:
        return PictureProblem::ReadFailed;
    case ReadEnd::DeviceGone:
        return PictureProblem::DeviceGone;
    case ReadEnd::GivenUp:
        return PictureProblem::GivenUp;
    }
    return PictureProblem::ReadFailed;
}

SharedPicture withEdits(const SharedPicture &picture, PictureEdits edits)
{
    auto marked = std::make_shared<Picture>(*picture); // which shares the pixels
    marked->edits = edits;
    return marked;
}

} // namespace

QImage LibraryPictures::thumbnail(qint64 id)
{
    return decodeThumbnail(opened->thumbnail(id));
}

SharedPicture LibraryPictures::readPicture(const QString &path, const QString &name, int orientation,
                                           const GiveUp &givenUp)
{
    QByteArray bytes;
    bool tooLarge = false;
    const ReadResult result = readDeviceFile(opened->host(), path, [&](const char *block, int size, qint64 total) {
        tooLarge = total > mostFileBytes;
        if (tooLarge || givenUp())
            return false;
        bytes.append(block, size);
        return true;
    });
    if (tooLarge)
        return noPicture(PictureProblem::TooLarge);
    if (result.end != ReadEnd::Complete)
        return noPicture(problemOf(result.end), result.reason);
    return decodePicture(bytes, name, orientation, givenUp);
}

// The result of the edits, which the device stores upright. OriginalAbsent when it has none.
SharedPicture LibraryPictures::rendered(const photoItem &photo, const GiveUp &givenUp)
{
    constexpr int isUpright = 1;
    for (const QString &path : renderedPathsOf(photo)) {
        SharedPicture picture = readPicture(path, path, isUpright, givenUp);
        if (picture->problem != PictureProblem::OriginalAbsent)
            return picture;
    }
    return noPicture(PictureProblem::OriginalAbsent);
}

SharedPicture LibraryPictures::picture(qint64 id, PictureVersion version, const GiveUp &givenUp)
{
    const std::optional<photoItem> photo = opened->item(id);
    const QString path = photo ? originalPathOf(*photo) : QString();
    if (path.isEmpty())
        return noPicture(PictureProblem::OriginalAbsent);
    const bool isEdited = photo->hasAdjustments != 0;
    if (isEdited && version == PictureVersion::Latest) {
        const SharedPicture result = rendered(*photo, givenUp);
        if (result->isGood())
            return withEdits(result, PictureEdits::Shown);
        if (result->problem == PictureProblem::GivenUp || result->problem == PictureProblem::DeviceGone)
            return result;
    }
    const SharedPicture original = readPicture(path, photo->fileName, photo->orientation, givenUp);
    return isEdited && original->isGood() ? withEdits(original, PictureEdits::Hidden) : original;
}

} // namespace browser
