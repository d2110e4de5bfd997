#ifndef PHOTOLIB_RECORD_ITEMS_H
#define PHOTOLIB_RECORD_ITEMS_H

#include "photolib/album_item.h"
#include "photolib/photo_item.h"

struct albumRecord;
struct assetRecord;

namespace photolib
{

/// Fills the exported records from the store's. `referenceDate` is the zero of the store's dates.
void fillAlbumItem(const albumRecord &album, albumItem *out);
void fillPhotoItem(const assetRecord &asset, const QDateTime &referenceDate, photoItem *out);

} // namespace photolib

#endif
