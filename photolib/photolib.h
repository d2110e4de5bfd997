#ifndef PHOTOLIB_PHOTOLIB_H
#define PHOTOLIB_PHOTOLIB_H

#include "photolib/album_item.h"
#include "photolib/export.h"
#include "photolib/photo_group.h"
#include "photolib/photo_item.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

class IIPod;

/// The photo library of one connected device.
///
/// Made by getPhotolib(), destroyed by releasePhotolib(). The order of the virtual functions is the binary
/// interface with hosts: the destructor is slot 0, openLibrary() slot 1, and so on to slot 20.
///
/// Ids are the Z_PK values of the device's database. Dates are QDateTime in UTC; the database counts seconds since
/// 2001-01-01 00:00:00 UTC. Id pointers must not be null unless a function says so.
///
/// Threads: cancel() and isCancelled() may be called at any time from any thread. The edits (slots 13 to 18) may be
/// called from several threads at once. Queries take no lock: do not run them during openLibrary() or an edit.
///
/// No exception leaves any of these functions: a slot for which memory runs short answers as for a failure.
///
/// In this version slots 8, 9 and 13 to 18 always answer as they do while no library is open.
class PHOTOLIB_EXPORT photo_manager_int
{
public:
    explicit photo_manager_int(IIPod *device);
    photo_manager_int(const photo_manager_int &other);
    photo_manager_int &operator=(const photo_manager_int &other);

    /// Slot 0. No operation may be running. Use releasePhotolib().
    virtual ~photo_manager_int();

    /// Slot 1. Copies the device's database, reads it and groups the photos. Takes as long as the copy takes.
    /// Meant to be called once on a fresh manager; a second call adds the photos to their groups again.
    /// False when the device object is null, the database cannot be copied or opened, or IIPod::shouldStop()
    /// answers true; logs "Can not parse photo lib" (level 2) but for the null device.
    virtual bool openLibrary() = 0;

    /// Slot 2. Asks running thumbnail and file reads to end, and returns when no openLibrary() is running. The
    /// request stays until the next openLibrary().
    virtual void cancel() = 0;

    /// Slot 3. Whether cancel() was called since the last openLibrary().
    virtual bool isCancelled() = 0;

    /// Slot 4. The UUID of the device's current library, else of its database; empty when no library is open.
    virtual QString getLibraryUuid() = 0;

    /// Slot 5. Number of elements of getPhotoList().
    virtual int getPhotoCount() = 0;

    /// Slot 6. Ids of all photos, ascending; empty when no library is open.
    virtual QList<qint64> getPhotoList() = 0;

    /// Slot 7. Fills `*out`. False, with `*out` untouched, when no library is open, `out` is null or the id unknown.
    virtual bool getPhotoItem(const qint64 *photoId, photoItem *out) = 0;

    /// Slot 8. A small picture of a photo: JPEG bytes replace `*out`, or a 24-bit bottom-up BMP is appended to it.
    /// Returns 0, also (with `*out` untouched) when cancelled, no library is open or the id is unknown; -1 on failure.
    virtual int getThumbnail(const qint64 *photoId, QByteArray *out) = 0;

    /// Slot 9. The whole stored file of a photo or video, at most 2 GiB. Returns 1 when `*out` was replaced by the
    /// file's bytes; 0 when nothing was read; -1 when cancelled or the device cannot be opened.
    virtual int readPhotoFile(const qint64 *photoId, QByteArray *out) = 0;

    /// Slot 10. Number of elements of getAlbumList().
    virtual int getAlbumCount() = 0;

    /// Slot 11. Ids of all albums, ascending; empty when no library is open.
    virtual QList<qint64> getAlbumList() = 0;

    /// Slot 12. Fills `*out`. False when no library is open or `out` is null. An unknown id is true and leaves
    /// `*out` untouched.
    virtual bool getAlbumItem(const qint64 *albumId, albumItem *out) = 0;

    /// Slot 13. Adds a photo to an album as addPhoto() does, and to `album->photoIds`. 0, or -1 on failure.
    virtual int addPhotoToAlbum(photoItem *photo, albumItem *album) = 0;

    /// Slot 14. Adds a photo to the album `*albumId`, after creating it when `photo->id` is 0 (its id, entity and
    /// uuid are then written into `*photo`). 0, or -1 with "no photolib or photo" (level 2).
    virtual int addPhoto(photoItem *photo, const qint64 *albumId) = 0;

    /// Slot 15. Creates a user album from the item's title, photoIds and trashedState, and writes its id, entity,
    /// kind, albumType and uuid into the item. 0, or -1 with "no photolib or album" (level 2).
    virtual int createAlbum(albumItem *album) = 0;

    /// Slot 16. Removes a user album (kind 1550). 0, also for an album of another kind, which stays; -1 when no
    /// library is open.
    virtual int deleteAlbum(const qint64 *albumId) = 0;

    /// Slot 17. Stores the item's title and photoIds. 0, also for an unknown album; -1 with "can not get the
    /// album: %d" (level 2) when no library is open. `album` must not be null.
    virtual int updateAlbum(albumItem *album) = 0;

    /// Slot 18. Removes a photo from the library and from the group of synced photos (28, "0"). Always 0; a null
    /// id is ignored.
    virtual int deletePhoto(const qint64 *photoId) = 0;

    /// Slot 19. The keys of the groups of one category, ascending as text; empty for an unknown category.
    virtual QStringList getGroupKeys(int category) = 0;

    /// Slot 20. A copy of one group; an empty one with a null key when there is none.
    virtual photoGroup getPhotoGroup(int category, const QString &key) = 0;
};

/// Makes a manager for `device`, which stays the host's and must outlive the manager; it must not be null. The
/// device's files are not touched. The host owns the result and gives it back with releasePhotolib(). Null, with
/// "Can not malloc photo manager" (level 2), when IIPod::isAvailable() answers false or memory is short.
PHOTOLIB_EXPORT photo_manager_int *getPhotolib(IIPod *device);

/// Destroys `*manager` with all its records and sets it to null. Null pointers are ignored. No operation of the
/// manager may be running.
PHOTOLIB_EXPORT void releasePhotolib(photo_manager_int **manager);

#endif
