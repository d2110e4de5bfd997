#ifndef APPS_BROWSER_VIEWER_PICTURE_SOURCE_H
#define APPS_BROWSER_VIEWER_PICTURE_SOURCE_H

#include "apps/browser/library/opened_library.h"
#include "apps/browser/viewer/picture_decoder.h"

namespace browser
{

/// Where the viewer has its pictures from. Its functions are called on the loader's thread and may block; nothing may
/// be thrown but std::bad_alloc.
class PictureSource
{
public:
    virtual ~PictureSource() = default;

    /// Null when there is none.
    virtual QImage thumbnail(qint64 id) = 0;

    /// The original, decoded; a Picture with its problem when that is not possible.
    virtual SharedPicture original(qint64 id, const GiveUp &givenUp) = 0;

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
    SharedPicture original(qint64 id, const GiveUp &givenUp) override;

private:
    const std::shared_ptr<OpenedLibrary> opened;
};

} // namespace browser

#endif
