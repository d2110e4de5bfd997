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

} // namespace

QImage LibraryPictures::thumbnail(qint64 id)
{
    return decodeThumbnail(opened->thumbnail(id));
}

SharedPicture LibraryPictures::original(qint64 id, const GiveUp &givenUp)
{
    const std::optional<photoItem> photo = opened->item(id);
    const QString path = photo ? originalPathOf(*photo) : QString();
    if (path.isEmpty())
        return noPicture(PictureProblem::OriginalAbsent);
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
    return decodePicture(bytes, photo->fileName, photo->orientation, givenUp);
}

} // namespace browser
