#ifndef APPS_BROWSER_LIBRARY_SNAPSHOT_H
#define APPS_BROWSER_LIBRARY_SNAPSHOT_H

#include <QHash>
#include <QList>
#include <QString>

#include <atomic>
#include <limits>
#include <memory>
#include <vector>

class photo_manager_int;

namespace browser
{

/// What a photo is, as bits of Photo::traits.
enum PhotoTrait : quint32 {
    Favorite = 1U << 0,
    LivePhoto = 1U << 1,
    Burst = 1U << 2,
    CloudOnly = 1U << 3, ///< the original is not on the device
    Hidden = 1U << 4,
    Deleted = 1U << 5, ///< recently deleted
    Raw = 1U << 6,
    Panorama = 1U << 7,
    Screenshot = 1U << 8,
    SlowMotion = 1U << 9,
    TimeLapse = 1U << 10,
    Edited = 1U << 11,
    Located = 1U << 12, ///< has coordinates
    InCloud = 1U << 13, ///< in the cloud library; the database does not tell whether the original is on the device, too
};

/// What kind of file the original is.
enum class MediaKind : quint8 { Photo, Animation, Video };

/// What lists and the grid need to know of a photo. A plain value, kept small: there may be a million.
struct Photo {
    static constexpr qint64 noDate = std::numeric_limits<qint64>::min();

    qint64 id = 0;
    QString fileName;
    qint64 created = noDate; ///< milliseconds since 1970-01-01 UTC
    qint64 fileSize = 0;     ///< bytes
    qint32 width = 0;        ///< pixels, as stored: before the orientation is obeyed
    qint32 height = 0;
    qint32 duration = 0; ///< whole seconds
    quint32 traits = 0;  ///< PhotoTrait bits
    MediaKind kind = MediaKind::Photo;

    bool is(PhotoTrait trait) const { return (traits & trait) != 0; }
};

/// Under which heading of the side bar a collection stands, in this order.
enum class Section : quint8 { Library, People, Places, Memories, Kinds, Albums, SharedAlbums, Others };

/// A group or album of the library that people can choose.
struct Collection {
    Section section = Section::Library;
    int category = 0;       ///< of photo_manager_int::getPhotoGroup(); 0 for an album and for all photos
    QString key;            ///< of the group; empty where several groups are shown as one
    qint64 albumId = 0;     ///< 0 for a group
    QString title;          ///< as the device has it; empty where the category says it all
    qint64 cover = 0;       ///< id of a photo, 0 for none
    QList<qint64> photoIds; ///< those that the snapshot knows, each once, in the device's order
    double latitude = 0;    ///< of a place, degrees
    double longitude = 0;
    bool isPart = false; ///< its photos are also in the collection above it that is no part: one of all bursts
};

/// Codes of photo_manager_int::getPhotoGroup() that are treated by themselves.
namespace category
{
constexpr int everything = 0;
constexpr int people = 4;
constexpr int places = 5;
constexpr int recentlyDeleted = 6;
constexpr int memories = 15;
constexpr int bursts = 16;
constexpr int hidden = 19;
constexpr int duplicates = 23;
} // namespace category

/// A library as it was when it was opened. Immutable: any thread may use it.
struct Snapshot {
    std::vector<Photo> photos;           ///< ascending by id
    QHash<qint64, int> rows;             ///< index in `photos` by id
    std::vector<Collection> collections; ///< in the order of the side bar; none is empty but for the first, all photos
    QString libraryUuid;

    /// Null for an id that the library does not have.
    const Photo *find(qint64 id) const
    {
        const auto row = rows.constFind(id);
        return row == rows.constEnd() ? nullptr : &photos[static_cast<std::size_t>(*row)];
    }
};

/// Reads what a manager with an open library holds; some seconds for a million photos. Null when `stop` became true.
/// Throws std::bad_alloc.
std::shared_ptr<const Snapshot> readSnapshot(photo_manager_int &manager, const std::atomic<bool> &stop);

} // namespace browser

#endif
