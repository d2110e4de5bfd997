#ifndef APPS_BROWSER_PAGE_THUMBNAIL_SOURCE_H
#define APPS_BROWSER_PAGE_THUMBNAIL_SOURCE_H

#include "apps/browser/library/opened_library.h"

#include <QByteArray>

#include <memory>

namespace browser
{

/// What a request for a thumbnail brought.
struct ThumbnailAnswer {
    QByteArray bytes;    ///< of a small picture; empty when there is none
    bool failed = false; ///< whether there is one was not found out: the device is gone or did not answer
};

/// Where thumbnails come from. Called by several threads at once.
class ThumbnailSource
{
public:
    virtual ~ThumbnailSource() = default;

    /// May wait for the device.
    virtual ThumbnailAnswer thumbnail(qint64 id) = 0;

    /// Whether the original of a photo whose thumbnail was read is certainly not on the device. May wait for it.
    virtual bool lacksOriginal(qint64 id) = 0;

    /// Whether nothing can be read any more, for good: an empty answer then tells nothing of the photo.
    virtual bool isStopped() const = 0;
};

/// The thumbnails of a device.
class LibraryThumbnails : public ThumbnailSource
{
public:
    explicit LibraryThumbnails(std::shared_ptr<OpenedLibrary> library) : opened(std::move(library)) {}

    ThumbnailAnswer thumbnail(qint64 id) override;
    bool lacksOriginal(qint64 id) override;
    bool isStopped() const override { return opened->isStopped(); }

private:
    const std::shared_ptr<OpenedLibrary> opened;
};

} // namespace browser

#endif
