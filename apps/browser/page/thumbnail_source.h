#ifndef APPS_BROWSER_PAGE_THUMBNAIL_SOURCE_H
#define APPS_BROWSER_PAGE_THUMBNAIL_SOURCE_H

#include "apps/browser/library/opened_library.h"

#include <QByteArray>

#include <memory>

namespace browser
{

/// Where thumbnails come from. Called by several threads at once.
class ThumbnailSource
{
public:
    virtual ~ThumbnailSource() = default;

    /// The bytes of a small picture; empty when there is none or it cannot be read. May wait for the device.
    virtual QByteArray thumbnail(qint64 id) = 0;

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

    QByteArray thumbnail(qint64 id) override { return opened->thumbnail(id); }
    bool lacksOriginal(qint64 id) override;
    bool isStopped() const override { return opened->isStopped(); }

private:
    const std::shared_ptr<OpenedLibrary> opened;
};

} // namespace browser

#endif
