#ifndef APPS_BROWSER_PAGE_THUMBNAIL_CACHE_H
#define APPS_BROWSER_PAGE_THUMBNAIL_CACHE_H

#include "apps/browser/page/thumbnail_loader.h"

#include <QCache>

namespace browser
{

/// The thumbnails that were shown lately. What was not looked at for longest goes first.
class ThumbnailCache
{
public:
    /// `limit` is in bytes of pixels, counted in KiB for each picture.
    explicit ThumbnailCache(qint64 limit);

    void insert(const LoadedThumbnail &thumbnail);

    /// Counts as looked at. Null for what was never loaded, or has gone; a null picture is one that the device lacks.
    /// Valid until the next insert().
    const LoadedThumbnail *find(qint64 id) const { return cache.object(id); }

    qint64 bytes() const { return qint64(cache.totalCost()) * 1024; }
    qint64 limit() const { return qint64(cache.maxCost()) * 1024; }
    int count() const { return cache.count(); }

private:
    QCache<qint64, LoadedThumbnail> cache;
};

} // namespace browser

#endif
