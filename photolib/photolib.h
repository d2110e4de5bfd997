#ifndef PHOTOLIB_PHOTOLIB_H
#define PHOTOLIB_PHOTOLIB_H

/// @file
/// The interface of the library: its two functions, and the class of which they give and take back an object.

#include "photolib/album_item.h"
#include "photolib/export.h"
#include "photolib/photo_group.h"
#include "photolib/photo_item.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

class IIPod;

/// The photo library of one connected device. docs/integrating.md shows how a host uses it.
///
/// Made by getPhotolib(), destroyed by releasePhotolib(). The order of the virtual functions is the binary
/// interface with hosts: the destructor is slot 0, openLibrary() slot 1, and so on to slot 20.
///
/// Ownership: every pointer argument stays the caller's; it is used during the call only and never kept. Results are
/// values of the caller's own. Id pointers, and `out` where nothing else is said, must not be null.
///
/// Units: ids are the Z_PK values of the device's database. Dates are QDateTime in UTC; the database counts seconds
/// since 2001-01-01 00:00:00 UTC. Texts are QString; uuids are bytes as the database holds them.
///
/// Threads: cancel() and isCancelled() may be called at any time from any thread. The edits (slots 13 to 18) may be
/// called from several threads at once; they wait for one another. Queries and the reading of media (slots 4 to 12, 19
/// and 20) take no lock: they may run beside one another, but not during openLibrary() or an edit, and only one
/// getThumbnail() at a time. Different managers share nothing.
///
/// Failure: no exception leaves any of these functions: a slot for which memory runs short answers as for a failure.
/// Log lines have the tag "PHOTOLIB"; a function that names none writes none.
class PHOTOLIB_EXPORT photo_manager_int
{
public:
    /// For getPhotolib(); the device is not looked at.
    explicit photo_manager_int(IIPod *device);

    /// Copies nothing: the interface has no state of its own.
    photo_manager_int(const photo_manager_int &other);

    /// Copies nothing, and returns this object.
    photo_manager_int &operator=(const photo_manager_int &other);

    /// Slot 0. Frees the manager and all its records, and waits for nothing: no operation may be running. Use
    /// releasePhotolib().
    virtual ~photo_manager_int();

    /// Slot 1. Copies the device's database into IIPod::localDataFolder(), reads it and groups the photos. Takes as
    /// long as the copy takes. Withdraws an earlier cancel(). Meant to be called once on a fresh manager; a second
    /// call, also after a failed one, replaces the photos and albums and adds the photos to their groups again.
    ///
    /// True when there is a library, even if only parts of it could be read. False when the device object is null (not
    /// logged), or, with "Can not parse photo lib" (level 2), when the database cannot be copied or opened,
    /// IIPod::shouldStop() answers true or memory is short. Lists may hold what was read before the failure. Progress
    /// and the reason are logged before; docs/integrating.md lists these lines.
    virtual bool openLibrary() = 0;

    /// Slot 2. Asks running thumbnail and file reads to end, and returns when no openLibrary() is running; it does not
    /// end that one (IIPod::shouldStop() does). The request stays until the next openLibrary(): until then every
    /// getThumbnail() and readPhotoFile() answers 0 at once.
    virtual void cancel() = 0;

    /// Slot 3. Whether cancel() was called since the last openLibrary().
    virtual bool isCancelled() = 0;

    /// Slot 4. The UUID of the device's current library, else of its database. Empty when no library is open or
    /// memory is short.
    virtual QString getLibraryUuid() = 0;

    /// Slot 5. Number of elements of getPhotoList(); 0 when no library is open.
    virtual int getPhotoCount() = 0;

    /// Slot 6. Ids of all photos and videos, ascending. Empty when no library is open or memory is short.
    virtual QList<qint64> getPhotoList() = 0;

    /// Slot 7. Fills every field of `*out`. False, with `*out` untouched, when no library is open, `out` is null or the
    /// id is unknown; false also when memory is short, and `*out` may then be filled in part.
    virtual bool getPhotoItem(const qint64 *photoId, photoItem *out) = 0;

    /// Slot 8. A small picture of a photo or video, read from the device now. JPEG bytes replace `*out`; where the
    /// device has a container of frames only, a 24-bit bottom-up BMP is appended to what `*out` holds, so pass an empty
    /// one.
    ///
    /// 0 when `*out` has the picture; also 0, with `*out` untouched, when cancelled before, no library is open or the
    /// id is unknown. -1 on failure or when cancelled meanwhile: `*out` is untouched, but for the BMP's first 54 bytes
    /// when the request came late or memory ran short. Logged at level 2:
    /// "Can not vDevOpen m_pDev , disconnected ?  %s" with the device's name, "Can not decide teh iThmb file",
    /// "Can seek to offset %lld while getting ithmb" with the offset in bytes, "Can not read ithmb data", "Can not read
    /// ithmb info"; at level 1 "This is a newly added photo?" when there is neither a file nor a frame.
    virtual int getThumbnail(const qint64 *photoId, QByteArray *out) = 0;

    /// Slot 9. The whole stored file of a photo or video, at most 2,147,483,622 bytes, read from the device now in one
    /// piece. 1 when the file's bytes replaced `*out`. Else `*out` is untouched: 0 when cancelled before or after the
    /// file was opened, no library is open, the id is unknown, the file cannot be opened, is too large or comes short,
    /// or memory is short; -1 when cancelled in between, or when the device cannot be opened, with "Can not vDevOpen
    /// m_pDev , disconnected ?  %s" and the device's name (level 2).
    virtual int readPhotoFile(const qint64 *photoId, QByteArray *out) = 0;

    /// Slot 10. Number of elements of getAlbumList(); 0 when no library is open.
    virtual int getAlbumCount() = 0;

    /// Slot 11. Ids of all albums, ascending. Empty when no library is open or memory is short.
    virtual QList<qint64> getAlbumList() = 0;

    /// Slot 12. Fills every field of `*out`. False, with `*out` untouched, when no library is open or `out` is null. An
    /// unknown id is true and leaves `*out` untouched, unlike in getPhotoItem().
    virtual bool getAlbumItem(const qint64 *albumId, albumItem *out) = 0;

    /// Slot 13. Adds a photo to the album `album->id` as addPhoto() does, through slot 14, and then its id to
    /// `album->photoIds`. A null `album` is album 0, which no library has. 0, or -1 with the line of addPhoto(); when
    /// only `album->photoIds` ran short of memory, -1 with the photo added.
    virtual int addPhotoToAlbum(photoItem *photo, albumItem *album) = 0;

    /// Slot 14. Adds a photo to the album `*albumId`. A photo whose `id` is 0 is new: the library gets a record of it,
    /// in no group, and its `id`, `entity` and `uuid` (16 bytes) are written into `*photo`. Any other `id` is taken as
    /// it is, without a look whether there is such a photo, and comes as often in the album as it is added. An unknown
    /// album, such as 0, is no failure: the photo is in no album then.
    ///
    /// 0; -1 with "no photolib or photo" (level 2) when no library is open or `photo` is null; -1 without a line when
    /// memory is short. Changes this manager's memory only, as all edits do: nothing is written to the device.
    virtual int addPhoto(photoItem *photo, const qint64 *albumId) = 0;

    /// Slot 15. Creates a user album from the item's `title`, `photoIds` and `trashedState` (which albumItem() does not
    /// set), and writes `id` (above every one used so far), `entity`, `kind` 1550, `albumType` 2 and `uuid` (16 bytes)
    /// into the item. 0; -1 with "no photolib or album" (level 2) when no library is open or `album` is null; -1
    /// without a line when memory is short, and the fields may then be written all the same.
    virtual int createAlbum(albumItem *album) = 0;

    /// Slot 16. Removes a user album (kind 1550); its photos stay. 0, also for an album of another kind, which stays,
    /// and for an unknown one; -1 when no library is open.
    virtual int deleteAlbum(const qint64 *albumId) = 0;

    /// Slot 17. Stores the item's `title` and `photoIds`, and nothing else of it, in the album `album->id`. 0, also for
    /// an unknown album; -1 with "can not get the album: %d" and the id's low 32 bits (level 2) when no library is
    /// open. `album` must not be null.
    virtual int updateAlbum(albumItem *album) = 0;

    /// Slot 18. Removes a photo from the library and from the group of synced photos (28, "0"); other groups and albums
    /// keep its id. Always 0, also when no library is open or the id is unknown; a null id is ignored.
    virtual int deletePhoto(const qint64 *photoId) = 0;

    /// Slot 19. The keys of the groups of one category, ascending as text ("10" before "9"). Empty for a category
    /// without groups, when no library is open or memory is short.
    virtual QStringList getGroupKeys(int category) = 0;

    /// Slot 20. A copy of one group; one with a null key, zeros and an empty list when there is none or memory is
    /// short.
    virtual photoGroup getPhotoGroup(int category, const QString &key) = 0;
};

/// Makes a manager for `device`, which stays the host's and must outlive the manager; it must not be null. Asks
/// IIPod::isAvailable(), and does not touch the device's files. The host owns the result and gives it back with
/// releasePhotolib(). May be called on any thread. Null, with "Can not malloc photo manager" (level 2), when the device
/// is not available or memory is short.
PHOTOLIB_EXPORT photo_manager_int *getPhotolib(IIPod *device);

/// Destroys `*manager` with all its records and sets it to null; a null `manager` or `*manager` is ignored. May be
/// called on any thread, but no operation of the manager may be running. Lists, records and texts that the manager gave
/// stay valid, also after the library was unloaded. Cannot fail.
PHOTOLIB_EXPORT void releasePhotolib(photo_manager_int **manager);

#endif
