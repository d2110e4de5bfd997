#include "photolib/photo_manager.h"

#include "photolib/host/log.h"
#include "photolib/logging.h"

using namespace photolib;

// Editing is not supported yet: every edit answers as it does while no library is open.

int photo_manager::addPhotoToAlbum(photoItem *photo, albumItem *album)
{
    const qint64 key = album ? album->id : 0;
    return addPhoto(photo, &key);
}

int photo_manager::addPhoto(photoItem *, const qint64 *)
{
    Log(logTag, logError, "no photolib or photo");
    return -1;
}

int photo_manager::createAlbum(albumItem *)
{
    Log(logTag, logError, "no photolib or album");
    return -1;
}

int photo_manager::deleteAlbum(const qint64 *)
{
    return -1;
}

int photo_manager::updateAlbum(albumItem *album)
{
    Log(logTag, logError, "can not get the album: %d", static_cast<int>(album->id));
    return -1;
}

int photo_manager::deletePhoto(const qint64 *)
{
    return 0;
}
