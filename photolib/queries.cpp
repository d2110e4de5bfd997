#include "photolib/photo_manager.h"

#include "photolib/boundary.h"
#include "photolib/category_rules.h"
#include "photolib/db/photos_db.h"
#include "photolib/record_items.h"

using namespace photolib;

// The counts go through the table of virtual functions: who overrides a list changes its count too.
int photo_manager::getPhotoCount()
{
    return guarded(0, [this] { return getPhotoList().size(); });
}

int photo_manager::getAlbumCount()
{
    return guarded(0, [this] { return getAlbumList().size(); });
}

QList<qint64> photo_manager::getPhotoList()
{
    return guarded(QList<qint64>(), [this] { return photosDb ? photosDb->assetIdList() : QList<qint64>(); });
}

QList<qint64> photo_manager::getAlbumList()
{
    return guarded(QList<qint64>(), [this] { return photosDb ? photosDb->albumIdList() : QList<qint64>(); });
}

bool photo_manager::getPhotoItem(const qint64 *photoId, photoItem *out)
{
    return guarded(false, [&] {
        if (!photosDb || !out)
            return false;
        const assetRecord *asset = photosDb->findAsset(static_cast<quint64>(*photoId));
        if (!asset)
            return false;
        fillPhotoItem(*asset, referenceDate, out);
        return true;
    });
}

// True for an unknown album, unlike getPhotoItem(): hosts tell the two apart by the untouched item.
bool photo_manager::getAlbumItem(const qint64 *albumId, albumItem *out)
{
    if (!photosDb || !out)
        return false;
    if (const albumRecord *album = photosDb->findAlbum(static_cast<quint64>(*albumId)))
        fillAlbumItem(*album, out);
    return true;
}

QStringList photo_manager::getGroupKeys(int category)
{
    return guarded(QStringList(), [&] { return categoryGroups.value(category).keys(); });
}

photoGroup photo_manager::getPhotoGroup(int category, const QString &key)
{
    return guarded(photoGroup(), [&] {
        photoGroup group = categoryGroups.value(category).value(key);
        if (category == syncedCategory && key == singleGroupKey())
            group.assetIds = deletedSyncedPhotos.remains(group.assetIds);
        return group;
    });
}
