#ifndef PHOTOLIB_MEDIA_THUMBNAIL_PLACES_H
#define PHOTOLIB_MEDIA_THUMBNAIL_PLACES_H

#include "photolib/media/ithmb_frame.h"

#include <QByteArray>

#include <array>
#include <vector>

struct assetRecord;

namespace photolib
{

/// Device paths, in UTF-8, of the ready-made thumbnail files that an asset may have, in the order of preference.
std::vector<QByteArray> thumbnailFiles(const assetRecord &asset);

/// A file of raw frames, one for each asset's thumbnailIndex.
struct ThumbnailContainer {
    const char *path;
    ithmbGeometry geometry;
};

/// Every container that devices were ever seen to have, in the order of preference.
const std::array<ThumbnailContainer, 8> &thumbnailContainers();

} // namespace photolib

#endif
