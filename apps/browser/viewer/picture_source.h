#ifndef APPS_BROWSER_VIEWER_PICTURE_SOURCE_H
#define APPS_BROWSER_VIEWER_PICTURE_SOURCE_H

#include "apps/browser/library/opened_library.h"
#include "apps/browser/viewer/picture_decoder.h"

namespace browser
{

/// Which picture of a photo that was edited on the device; others have one only.
enum class PictureVersion {
    Latest,   ///< as the device shows it; the original where the result of the edits is not there
    Original, ///< as it was taken
};

/// Where the viewer has its pictures from. Its functions are called on the loader's thread and may block; nothing may
/// be thrown but std::bad_alloc.
class PictureSource
{
public:
    virtual ~PictureSource() = default;

    /// Null when there is none.
    virtual QImage thumbnail(qint64 id) = 0;

    /// Decoded; a Picture with its problem when that is not possible.
    virtual SharedPicture picture(qint64 id, PictureVersion version, const GiveUp &givenUp) = 0;

protected:
    PictureSource() = default;
    PictureSource(const PictureSource &) = default;
    PictureSource &operator=(const PictureSource &) = default;
};

/// The pictures of an open library.
class LibraryPictures final : public PictureSource
{
public:
    explicit LibraryPictures(std::shared_ptr<OpenedLibrary> library) : opened(std::move(library)) {}

    QImage thumbnail(qint64 id) override;
    SharedPicture picture(qint64 id, PictureVersion version, const GiveUp &givenUp) override;

private:
    SharedPicture readPicture(const QString &path, const QString &name, int orientation, const GiveUp &givenUp);
    SharedPicture rendered(const photoItem &photo, const GiveUp &givenUp);

    const std::shared_ptr<OpenedLibrary> opened;
};

} // namespace browser

#endif
