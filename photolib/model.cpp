#include "photolib/photo_manager.h"

#include "photolib/asset_groups.h"
#include "photolib/category_rules.h"
#include "photolib/db/photos_db.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <vector>

using namespace photolib;

namespace
{

// Characters. QString::arg() counts its result with 32 bits and writes beyond its buffer when the count wraps around,
// so a subtitle full of place markers must not meet a long title.
constexpr qint64 longestFilledTitle = 1 << 24;

// Three substitutions, one after the other: a place marker inside a subtitle is filled by the next.
QString memoryTitle(const memoryRecord &memory)
{
    const bool both = !memory.subtitle.isEmpty() && !memory.title.trimmed().isEmpty();
    const QString separator = both ? QStringLiteral(" ") : QString();
    const qint64 markers = 1 + memory.subtitle.count(QLatin1Char('%'));
    if (memory.subtitle.size() + markers * (memory.title.size() + 1) > longestFilledTitle)
        return memory.subtitle + separator + memory.title;
    return QStringLiteral("%1%2%3").arg(memory.subtitle).arg(separator).arg(memory.title);
}

// In ascending order each one goes behind the last, and no place has to be searched: a tree of a million identifiers
// takes a million searches otherwise. Comparing their first bytes as one number is most of sorting them.
class UuidsInOrder
{
public:
    void reserve(int count) { uuids.reserve(static_cast<std::size_t>(count)); }
    void add(const QByteArray &uuid) { uuids.push_back({beginningOf(uuid), &uuid}); }

    void insertInto(QMap<QByteArray, bool> *known)
    {
        std::sort(uuids.begin(), uuids.end());
        for (const Uuid &uuid : uuids)
            known->insert(known->constEnd(), *uuid.bytes, true);
    }

private:
    struct Uuid {
        quint64 beginning;
        const QByteArray *bytes;

        bool operator<(const Uuid &other) const
        {
            return beginning != other.beginning ? beginning < other.beginning : *bytes < *other.bytes;
        }
    };

    static quint64 beginningOf(const QByteArray &uuid)
    {
        std::array<char, sizeof(quint64)> beginning = {};
        std::copy_n(uuid.constData(), std::min<std::size_t>(static_cast<std::size_t>(uuid.size()), beginning.size()),
                    beginning.begin());
        return qFromBigEndian<quint64>(beginning.data());
    }

    std::vector<Uuid> uuids;
};

} // namespace

void photo_manager::buildModel()
{
    if (!photosDb)
        return;
    if (photoGroup *group = syncedPhotos()) // of an earlier opening: a deleted photo may come back
        deletedSyncedPhotos.apply(&group->assetIds);
    groupAssets();
    groupFaces();
    groupMemories();
    knownUuids.insert(databaseUuid.toUtf8(), true);
}

// One walk over the assets for both.
void photo_manager::groupAssets()
{
    const QList<albumRecord *> albums = photosDb->albumRecords();
    const QMap<quint64, assetRecord *> &assets = photosDb->assetMap();
    UuidsInOrder uuids;
    uuids.reserve(albums.size() + assets.size());
    for (const albumRecord *album : albums)
        uuids.add(album->uuid);
    AssetGroups groups(&categoryGroups);
    for (const assetRecord *asset : assets) {
        if (!asset)
            continue;
        uuids.add(asset->uuid);
        groups.add(*asset);
    }
    uuids.insertInto(&knownUuids);
}

// The cover is what the reader kept for the group: its own number when its key face was seen, not a photo.
void photo_manager::groupFaces()
{
    const QMultiMap<QString, qint64> &faces = photosDb->faceMap();
    for (auto face = faces.cbegin(); face != faces.cend();) {
        photoGroup group;
        group.category = peopleCategory;
        group.key = face.key();
        group.coverAssetId = photosDb->faceGroupKeyFace(group.key);
        for (; face != faces.cend() && face.key() == group.key; ++face)
            group.assetIds.append(*face);
        categoryGroups[peopleCategory].insert(group.key, group);
    }
}

void photo_manager::groupMemories()
{
    for (const QString &key : photosDb->memoryKeys()) {
        memoryRecord memory;
        if (!photosDb->copyMemory(key, &memory))
            continue;
        photoGroup group;
        group.category = memoriesCategory;
        group.key = key;
        group.title = memoryTitle(memory);
        group.coverAssetId = memory.keyAsset;
        group.favorite = memory.favorite;
        group.assetIds = memory.curatedAssets;
        categoryGroups[memoriesCategory].insert(key, group);
    }
}

void photo_manager::addAssetToGroup(int category, const assetRecord &asset, const QString &key, bool setCover)
{
    addToGroup(&groupOf(&categoryGroups, category, key), asset, setCover);
}
