#include "apps/browser/library/snapshot_collections.h"

#include "apps/browser/library/place_areas.h"
#include "apps/browser/library/snapshot_photo.h"
#include "photolib/photolib.h"

#include <QCollator>

#include <algorithm>

namespace browser
{

namespace
{

struct SingleGroup {
    Section section;
    int category;
};

// Categories with one group, in the order of the side bar. Plain photos (3), among which plain videos are, and 22,
// whose meaning nobody knows, tell people nothing.
constexpr SingleGroup beforePeople[] = {{Section::Library, 7}, {Section::Library, 25}};

constexpr SingleGroup kindGroups[] = {
    {Section::Kinds, 1},  {Section::Kinds, 18}, {Section::Kinds, 10}, {Section::Kinds, 8},
    {Section::Kinds, 9},  {Section::Kinds, 11}, {Section::Kinds, 13}, {Section::Kinds, 24},
    {Section::Kinds, 17}, {Section::Kinds, 12}, {Section::Kinds, 14}, {Section::Kinds, 21},
};

constexpr SingleGroup otherGroups[] = {
    {Section::Others, 20}, {Section::Others, 27}, {Section::Others, 28},
    {Section::Others, 29}, {Section::Others, 19}, {Section::Others, 6},
};

constexpr int sharedFiles = 26;

QVector<int> albumKindsOf(Section section)
{
    constexpr int userAlbum = 2;
    constexpr int sharedAlbum = 1505;
    constexpr int importSession = 1506;
    constexpr int syncedAlbum = 1550;
    switch (section) {
    case Section::Albums:
        return {userAlbum, syncedAlbum};
    case Section::SharedAlbums:
        return {sharedAlbum};
    default:
        return {importSession};
    }
}

class Reader
{
public:
    Reader(photo_manager_int &library, Snapshot &target, const std::atomic<bool> &stopFlag)
        : manager(library), snapshot(target), stop(stopFlag), seenIn(target.photos.size(), 0)
    {
    }

    bool read()
    {
        readEverything();
        readSingles(beforePeople);
        readPeople();
        readPlaces();
        readMemories();
        readSingles(kindGroups);
        readParts(category::bursts);
        readParts(category::duplicates);
        readAlbums(Section::Albums);
        readSingle({Section::SharedAlbums, sharedFiles});
        readAlbums(Section::SharedAlbums);
        readAlbums(Section::Others);
        readSingles(otherGroups);
        return !stop.load();
    }

private:
    // Hidden and deleted photos are shown where somebody looks for them, and nowhere else.
    bool belongs(const Photo &photo, int category) const
    {
        if (category == category::recentlyDeleted)
            return photo.is(Deleted);
        return !photo.is(Deleted) && photo.is(Hidden) == (category == category::hidden);
    }

    QList<qint64> known(const QList<qint64> &ids, int category)
    {
        ++pass;
        QList<qint64> result;
        for (const qint64 id : ids) {
            const auto row = snapshot.rows.constFind(id);
            if (row == snapshot.rows.constEnd())
                continue;
            const auto at = static_cast<std::size_t>(*row);
            if (seenIn[at] == pass || !belongs(snapshot.photos[at], category))
                continue;
            seenIn[at] = pass;
            result += id;
        }
        return result;
    }

    void add(Collection collection)
    {
        if (collection.photoIds.isEmpty())
            return;
        if (!collection.photoIds.contains(collection.cover))
            collection.cover = collection.photoIds.first();
        snapshot.collections.push_back(std::move(collection));
    }

    Collection groupOf(Section section, int category, const QString &key)
    {
        const photoGroup group = manager.getPhotoGroup(category, key);
        Collection collection;
        collection.section = section;
        collection.category = category;
        collection.key = key;
        collection.title = group.title.simplified();
        collection.cover = category == category::people ? 0 : group.coverAssetId;
        collection.photoIds = known(group.assetIds, category);
        return collection;
    }

    std::vector<Collection> groupsOf(Section section, int category)
    {
        std::vector<Collection> groups;
        QStringList keys = manager.getGroupKeys(category);
        keys.removeDuplicates();
        for (const QString &key : qAsConst(keys)) {
            if (stop.load(std::memory_order_relaxed))
                return {};
            groups.push_back(groupOf(section, category, key));
        }
        return groups;
    }

    void readEverything()
    {
        Collection everything;
        for (const Photo &candidate : snapshot.photos) {
            if (belongs(candidate, category::everything))
                everything.photoIds += candidate.id;
        }
        everything.cover = everything.photoIds.isEmpty() ? 0 : everything.photoIds.last();
        snapshot.collections.push_back(std::move(everything));
    }

    void readSingle(const SingleGroup &single)
    {
        const QStringList keys = manager.getGroupKeys(single.category);
        for (const QString &key : keys)
            add(groupOf(single.section, single.category, key));
    }

    template <std::size_t size>
    void readSingles(const SingleGroup (&singles)[size])
    {
        for (const SingleGroup &single : singles)
            readSingle(single);
    }

    void readPeople()
    {
        std::vector<Collection> people = groupsOf(Section::People, category::people);
        std::stable_sort(people.begin(), people.end(), [](const Collection &a, const Collection &b) {
            return a.photoIds.size() > b.photoIds.size();
        });
        for (Collection &person : people)
            add(std::move(person));
    }

    void readPlaces();
    void readMemories();
    void readParts(int category);
    void readAlbums(Section section);

    qint64 newest(const Collection &collection) const
    {
        qint64 date = Photo::noDate;
        for (const qint64 id : collection.photoIds) {
            if (const Photo *photo = snapshot.find(id))
                date = std::max(date, photo->created);
        }
        return date;
    }

    void sortByDate(std::vector<Collection> &collections) const
    {
        std::vector<std::pair<qint64, Collection>> dated;
        dated.reserve(collections.size());
        for (Collection &collection : collections)
            dated.emplace_back(newest(collection), std::move(collection));
        std::stable_sort(dated.begin(), dated.end(), [](const auto &a, const auto &b) { return a.first > b.first; });
        for (std::size_t at = 0; at < dated.size(); ++at)
            collections[at] = std::move(dated[at].second);
    }

    photo_manager_int &manager;
    Snapshot &snapshot;
    const std::atomic<bool> &stop;
    std::vector<int> seenIn; ///< the last pass that took the photo
    int pass = 0;
};

void Reader::readPlaces()
{
    std::vector<Collection> places;
    std::vector<Spot> spots;
    for (Collection &place : groupsOf(Section::Places, category::places)) {
        photoItem item;
        if (place.photoIds.isEmpty() || !manager.getPhotoItem(&place.photoIds.first(), &item) ||
            !isOnGlobe(item.latitude, item.longitude))
            continue;
        place.latitude = item.latitude;
        place.longitude = item.longitude;
        spots.push_back({item.latitude, item.longitude, place.photoIds.size()});
        places.push_back(std::move(place));
    }
    for (const Area &area : areasOf(spots)) {
        Collection &whole = places[static_cast<std::size_t>(area.spots.front())];
        for (std::size_t at = 1; at < area.spots.size(); ++at)
            whole.photoIds += places[static_cast<std::size_t>(area.spots[at])].photoIds;
        if (area.spots.size() > 1)
            whole.key.clear();
        add(std::move(whole));
    }
}

void Reader::readMemories()
{
    std::vector<Collection> memories = groupsOf(Section::Memories, category::memories);
    sortByDate(memories);
    for (Collection &memory : memories)
        add(std::move(memory));
}

void Reader::readParts(int category)
{
    std::vector<Collection> parts = groupsOf(Section::Kinds, category);
    sortByDate(parts);
    Collection whole;
    whole.section = Section::Kinds;
    whole.category = category;
    QList<qint64> ids;
    for (const Collection &part : parts)
        ids += part.photoIds;
    whole.photoIds = known(ids, category);
    add(std::move(whole));
    for (Collection &part : parts) {
        part.isPart = true;
        add(std::move(part));
    }
}

void Reader::readAlbums(Section section)
{
    const QVector<int> kinds = albumKindsOf(section);
    std::vector<Collection> albums;
    const QList<qint64> ids = manager.getAlbumList();
    for (const qint64 id : ids) {
        albumItem album;
        album.trashedState = 0;
        if (!manager.getAlbumItem(&id, &album) || !kinds.contains(album.kind) || album.trashedState != 0)
            continue;
        const QString title = album.title.simplified();
        if (title.isEmpty() && section != Section::Others)
            continue;
        Collection collection;
        collection.section = section;
        collection.albumId = id;
        collection.title = title;
        collection.photoIds = known(album.photoIds, category::everything);
        albums.push_back(std::move(collection));
    }
    QCollator order;
    order.setNumericMode(true);
    std::stable_sort(albums.begin(), albums.end(), [&order](const Collection &a, const Collection &b) {
        return order.compare(a.title, b.title) < 0;
    });
    for (Collection &album : albums)
        add(std::move(album));
}

} // namespace

bool readCollections(photo_manager_int &manager, Snapshot &snapshot, const std::atomic<bool> &stop)
{
    return Reader(manager, snapshot, stop).read();
}

} // namespace browser
