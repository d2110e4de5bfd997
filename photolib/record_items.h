#ifndef PHOTOLIB_RECORD_ITEMS_H
#define PHOTOLIB_RECORD_ITEMS_H

#include "photolib/album_item.h"
#include "photolib/photo_item.h"

#include <memory>

struct albumRecord;
struct assetRecord;

namespace photolib
{

/// Fills the exported records from the store's. `referenceDate` is the zero of the store's dates.
void fillAlbumItem(const albumRecord &album, albumItem *out);
void fillPhotoItem(const assetRecord &asset, const QDateTime &referenceDate, photoItem *out);

/// Makes the store's records from exported ones, whose `id`, `entity` and `uuid` must be set already.
std::unique_ptr<albumRecord> albumOf(const albumItem &item);
std::unique_ptr<assetRecord> assetOf(const photoItem &item, const QDateTime &referenceDate);

} // namespace photolib

#endif
