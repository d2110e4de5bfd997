#include "photolib/db/photos_db.h"
#include "photolib/db/schema.h"

#include <memory>

using namespace photolib;

namespace
{

constexpr int deletableAlbumKind = 1550;

template <typename Record>
QList<qint64> signedKeys(const QMap<quint64, Record *> &records)
{
    QList<qint64> ids;
    ids.reserve(records.size());
    for (auto record = records.cbegin(); record != records.cend(); ++record)
        ids.append(static_cast<qint64>(record.key()));
    return ids;
}

int entityNumberOf(const QMap<QString, entityInfo> &entities, const QString &name, int fallback)
{
    const auto entity = entities.constFind(name);
    return entity == entities.constEnd() ? fallback : entity->entityNumber;
}

// Wraps at 32 bits, as the database's own counter does.
int nextKeyOf(QMap<QString, entityInfo> *entities, const QString &name)
{
    const auto entity = entities->find(name);
    if (entity == entities->end())
        return 0;
    entity->maxPk = static_cast<int>(static_cast<unsigned>(entity->maxPk) + 1u);
    return entity->maxPk;
}

// Puts `record` under its key; a record that it replaces moves to `unlinked`. Short memory frees `record`.
template <typename Record>
void store(QMap<quint64, Record *> *records, QSet<Record *> *unlinked, Record *record)
{
    unlinked->remove(record);
    std::unique_ptr<Record> owned(record);
    const auto key = static_cast<quint64>(record->pk);
    if (records->isEmpty() || records->lastKey() < key) { // as most rows come: there is nothing to search
        Record *&last = *records->insert(records->constEnd(), key, nullptr); // before the record is let go
        last = owned.release();
        return;
    }
    Record *&place = (*records)[key];
    if (place && place != record)
        unlinked->insert(place);
    place = owned.release();
}

} // namespace

albumRecord *Photos_DB::findAlbum(quint64 key) const
{
    return albums.value(key, nullptr);
}

assetRecord *Photos_DB::findAsset(quint64 key) const
{
    return assets.value(key, nullptr);
}

QList<qint64> Photos_DB::albumIdList() const
{
    return signedKeys(albums);
}

QList<qint64> Photos_DB::assetIdList() const
{
    return signedKeys(assets);
}

QList<albumRecord *> Photos_DB::albumRecords() const
{
    return albums.values();
}

QList<assetRecord *> Photos_DB::assetRecords() const
{
    return assets.values();
}

int Photos_DB::albumEntityNumber() const
{
    return entityNumberOf(entities, genericAlbumEntity, defaultAlbumEntityNumber);
}

int Photos_DB::assetEntityNumber() const
{
    return entityNumberOf(entities, assetEntityName, defaultAssetEntityNumber);
}

int Photos_DB::nextAlbumPk()
{
    return nextKeyOf(&entities, genericAlbumEntity);
}

qint64 Photos_DB::nextAssetPk()
{
    return nextKeyOf(&entities, assetEntityName);
}

void Photos_DB::addAlbum(albumRecord *album)
{
    store(&albums, &unlinkedAlbums, album);
}

void Photos_DB::addAsset(assetRecord *asset)
{
    store(&assets, &unlinkedAssets, asset);
}

bool Photos_DB::removeAlbum(quint64 key)
{
    const auto album = albums.find(key);
    if (album == albums.end() || (*album)->kind != deletableAlbumKind)
        return false;
    unlinkedAlbums.insert(*album);
    albums.erase(album);
    return true;
}

bool Photos_DB::removeAsset(quint64 key)
{
    delete assets.take(key);
    return true;
}

QStringList Photos_DB::faceGroupKeys() const
{
    return faceGroupAssets.keys();
}

QList<qint64> Photos_DB::faceGroupAssetIds(const QString &key) const
{
    return faceGroupAssets.values(key);
}

qint64 Photos_DB::faceGroupKeyFace(const QString &key) const
{
    return faceGroupKeyFaces.value(key, 0);
}

QStringList Photos_DB::memoryKeys() const
{
    return memories.keys();
}

bool Photos_DB::copyMemory(const QString &key, memoryRecord *memory) const
{
    const auto found = memories.constFind(key);
    if (found == memories.constEnd())
        return false;
    *memory = *found;
    return true;
}
