#include "photolib/photo_manager.h"

#include "photolib/category_rules.h"
#include "photolib/db/photos_db.h"

#include <algorithm>

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

} // namespace

void photo_manager::buildModel()
{
    if (!photosDb)
        return;
    for (const albumRecord *album : photosDb->albumRecords())
        knownUuids.insert(album->uuid, true);
    groupAssets();
    groupFaces();
    groupMemories();
    knownUuids.insert(databaseUuid.toUtf8(), true);
}

void photo_manager::groupAssets()
{
    for (const assetRecord *asset : photosDb->assetRecords()) {
        if (!asset)
            continue;
        knownUuids.insert(asset->uuid, true);
        if (isRecentlyDeleted(*asset)) {
            addAssetToGroup(recentlyDeletedCategory, *asset, singleGroupKey(), false);
            continue;
        }
        if (const int category = directoryCategory(*asset))
            addAssetToGroup(category, *asset, singleGroupKey(), false);
        for (const CategoryRule &rule : categoryRules()) {
            if (const int category = rule.categoryOf(*asset))
                addAssetToGroup(category, *asset, rule.keyOf(*asset), rule.isCover(*asset));
        }
    }
}

// The cover is what the reader kept for the group: its own number when its key face was seen, not a photo.
void photo_manager::groupFaces()
{
    QStringList keys = photosDb->faceGroupKeys();
    // A key comes once for each face, in a row. Not removeDuplicates(): a stranger has chosen what that would hash.
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
    for (const QString &key : keys) {
        photoGroup group;
        group.category = peopleCategory;
        group.key = key;
        group.coverAssetId = photosDb->faceGroupKeyFace(key);
        group.assetIds = photosDb->faceGroupAssetIds(key);
        categoryGroups[peopleCategory].insert(key, group);
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
    QMap<QString, photoGroup> &groups = categoryGroups[category];
    auto group = groups.find(key);
    if (group == groups.end()) {
        photoGroup fresh;
        fresh.category = category;
        fresh.key = key;
        group = groups.insert(key, fresh);
    }
    group->assetIds.append(asset.pk);
    if (setCover)
        group->coverAssetId = asset.pk;
}
