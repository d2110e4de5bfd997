#include "apps/browser/viewer/viewer_texts.h"

#include <QCoreApplication>

namespace browser
{

namespace
{

// A name without places to break would not fit into the panel.
PhotoPlace withShortName(PhotoPlace place)
{
    constexpr int longest = 34, end = 10;
    if (place.fileName.size() > longest)
        place.fileName = place.fileName.left(longest - end - 1) + QChar(0x2026) + place.fileName.right(end);
    return place;
}

class ViewerTexts
{
    Q_DECLARE_TR_FUNCTIONS(browser::ViewerTexts)

public:
    static QString absent(const PhotoPlace &place)
    {
        if (place.onlyInCloud)
            return tr("%1 is only in the cloud, not on this device. Open it on the device once, so that it is "
                      "downloaded, and try again.")
                .arg(place.fileName);
        if (place.inBackup)
            return tr("%1 is not in this backup. Connect the device itself, or make a new backup.").arg(place.fileName);
        return tr("%1 is not on the device any more.").arg(place.fileName);
    }

    static QString deviceGone()
    {
        return tr("The device cannot be reached any more. Check the cable, unlock the device, and try again.");
    }

    static QString readFailed(const PhotoPlace &place, const QString &reason)
    {
        if (reason.isEmpty())
            return tr("%1 could not be read from the device. Check the cable, unlock the device, and try again.")
                .arg(place.fileName);
        return tr("%1 could not be read: %2.").arg(place.fileName, reason);
    }

    static QString unusable(PictureProblem problem, const PhotoPlace &place)
    {
        switch (problem) {
        case PictureProblem::Empty:
            return tr("%1 is an empty file. There is nothing to show.").arg(place.fileName);
        case PictureProblem::UnknownFormat:
            return tr("%1 has a format that cannot be shown here. Export it to open it with another program.")
                .arg(place.fileName);
        case PictureProblem::RawWithoutPreview:
            return tr("%1 is a RAW photo without a preview in it. Export it to develop it with another program.")
                .arg(place.fileName);
        case PictureProblem::TooLarge:
            return tr("%1 is too large to be shown here. Export it to open it with another program.")
                .arg(place.fileName);
        case PictureProblem::OutOfMemory:
            return tr("%1 could not be loaded, as memory is short. Close other programs and try again.")
                .arg(place.fileName);
        default:
            return tr("%1 is damaged and cannot be shown.").arg(place.fileName);
        }
    }

    static QString noRoom()
    {
        return tr("There is not enough room on this computer's disk to open the video. Make room and try again.");
    }

    static QString cannotWrite(const QString &reason)
    {
        return tr("The video could not be copied to this computer's folder for temporary files: %1. Check that folder "
                  "and try again.")
            .arg(reason);
    }

    static QString noPlayer()
    {
        return tr("No program on this computer plays this video. Install a video player, or export the video.");
    }
};

} // namespace

QString problemText(const Picture &picture, const PhotoPlace &photo)
{
    const PhotoPlace place = withShortName(photo);
    switch (picture.problem) {
    case PictureProblem::None:
    case PictureProblem::GivenUp:
        return {};
    case PictureProblem::OriginalAbsent:
        return ViewerTexts::absent(place);
    case PictureProblem::DeviceGone:
        return ViewerTexts::deviceGone();
    case PictureProblem::ReadFailed:
        return ViewerTexts::readFailed(place, picture.reason);
    default:
        return ViewerTexts::unusable(picture.problem, place);
    }
}

QString problemText(const Film &film, const PhotoPlace &photo)
{
    const PhotoPlace place = withShortName(photo);
    switch (film.state) {
    case CopyEnd::Complete:
    case CopyEnd::Cancelled:
        return {};
    case CopyEnd::Absent:
        return ViewerTexts::absent(place);
    case CopyEnd::DeviceGone:
        return ViewerTexts::deviceGone();
    case CopyEnd::ReadFailed:
        return ViewerTexts::readFailed(place, film.reason);
    case CopyEnd::NoRoom:
        return ViewerTexts::noRoom();
    case CopyEnd::CannotWrite:
        return ViewerTexts::cannotWrite(film.reason);
    }
    return {};
}

QString noPlayerText()
{
    return ViewerTexts::noPlayer();
}

} // namespace browser
