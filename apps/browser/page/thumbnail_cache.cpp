#include "apps/browser/page/thumbnail_cache.h"

#include <algorithm>

namespace browser
{

ThumbnailCache::ThumbnailCache(qint64 limit) : cache(static_cast<int>(limit / 1024)) {}

void ThumbnailCache::insert(const LoadedThumbnail &thumbnail)
{
    constexpr qint64 ofARecord = 1; // KiB, also for a photo without a picture
    const qint64 cost = ofARecord + thumbnail.square.sizeInBytes() / 1024;
    cache.insert(thumbnail.id, new LoadedThumbnail(thumbnail),
                 static_cast<int>(std::min<qint64>(cost, std::numeric_limits<int>::max())));
}

} // namespace browser
