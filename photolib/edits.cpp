#include "photolib/photo_manager.h"

#include "photolib/boundary.h"
#include "photolib/category_rules.h"
#include "photolib/db/photos_db.h"
#include "photolib/host/log.h"
#include "photolib/item_values.h"
#include "photolib/logging.h"
#include "photolib/record_items.h"

#include <QMutexLocker>

using namespace photolib;

namespace
{

constexpr int done = 0;
constexpr int failed = -1;

} // namespace

// addPhoto() goes through the table of virtual functions, and takes the recursive mutex again.
int photo_manager::addPhotoToAlbum(photoItem *photo, albumItem *album)
{
    const QMutexLocker lock(&editMutex);
    return guarded(failed, [&] {
        const qint64 key = album ? album->id : 0;
        if (addPhoto(photo, &key) != done)
            return failed;
        if (album)
            album->photoIds.append(photo->id);
        return done;
    });
}

// An id that is not 0 is taken at its word: it is not looked up, and may come twice in one album.
int photo_manager::addPhoto(photoItem *photo, const qint64 *albumId)
{
    const QMutexLocker lock(&editMutex);
    return guarded(failed, [&] {
        if (!photosDb || !photo) {
            Log(logTag, logError, "no photolib or photo");
            return failed;
        }
        if (photo->id == 0)
            createAsset(photo);
        if (albumRecord *album = photosDb->findAlbum(static_cast<quint64>(*albumId)))
            album->memberIds.append(photo->id);
        return done;
    });
}

// The host's item is written last: when memory runs short it stays a new photo, and the host can try again.
void photo_manager::createAsset(photoItem *photo)
{
    photoItem created(*photo);
    created.id = photosDb->nextAssetPk();
    created.entity = photosDb->assetEntityNumber();
    created.uuid = generateUuid();
    photosDb->addAsset(assetOf(created, referenceDate).release());
    photo->id = created.id;
    photo->entity = created.entity;
    photo->uuid = created.uuid;
}

int photo_manager::createAlbum(albumItem *album)
{
    const QMutexLocker lock(&editMutex);
    return guarded(failed, [&] {
        if (!photosDb || !album) {
            Log(logTag, logError, "no photolib or album");
            return failed;
        }
        album->id = photosDb->nextAlbumPk();
        album->entity = photosDb->albumEntityNumber();
        album->albumType = userAlbumType;
        album->kind = userAlbumKind;
        album->uuid = generateUuid();
        photosDb->addAlbum(albumOf(*album).release());
        return done;
    });
}

// An album that may not be deleted stays, and hosts are not told.
int photo_manager::deleteAlbum(const qint64 *albumId)
{
    const QMutexLocker lock(&editMutex);
    return guarded(failed, [&] {
        if (!photosDb)
            return failed;
        photosDb->removeAlbum(static_cast<quint64>(*albumId));
        return done;
    });
}

// An album that is not known is no fault: it may have been deleted meanwhile.
int photo_manager::updateAlbum(albumItem *album)
{
    const QMutexLocker lock(&editMutex);
    return guarded(failed, [&] {
        if (!album || !photosDb) {
            Log(logTag, logError, "can not get the album: %d", album ? static_cast<int>(album->id) : 0);
            return failed;
        }
        if (albumRecord *record = photosDb->findAlbum(static_cast<quint64>(album->id))) {
            record->title = album->title;
            record->memberIds = album->photoIds;
        }
        return done;
    });
}

// Null when no photo was synced.
photoGroup *photo_manager::syncedPhotos()
{
    const auto groups = categoryGroups.find(syncedCategory);
    if (groups == categoryGroups.end())
        return nullptr;
    const auto group = groups->find(singleGroupKey());
    return group == groups->end() ? nullptr : &*group;
}

// Of the groups only the one of synced photos is kept up to date.
int photo_manager::deletePhoto(const qint64 *photoId)
{
    if (!photoId)
        return done;
    const QMutexLocker lock(&editMutex);
    return guarded(done, [&] {
        if (photoGroup *group = syncedPhotos())
            deletedSyncedPhotos.remove(&group->assetIds, *photoId);
        if (photosDb)
            photosDb->removeAsset(static_cast<quint64>(*photoId));
        return done;
    });
}
