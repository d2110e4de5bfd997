#include "photolib/db/asset_columns.h"
#include "photolib/db/photos_db.h"
#include "photolib/db/text_pool.h"
#include "photolib/host/log.h"
#include "photolib/logging.h"

#include <algorithm>
#include <memory>
#include <optional>

using namespace photolib;

namespace
{

// Not trimmed(), which makes a text of its own.
bool isBlank(const QString &text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar character) { return character.isSpace(); });
}

qint32 narrowed(qint64 value)
{
    return static_cast<qint32>(static_cast<quint32>(static_cast<quint64>(value)));
}

void readNumbers(const Row &row, assetRecord *asset)
{
    asset->width = row.int32(AssetWidth);
    asset->height = row.int32(AssetHeight);
    asset->kind = row.int32(AssetKind);
    asset->kindSubtype = row.int32(AssetKindSubtype);
    asset->moment = row.int32(AssetMoment);
    asset->avalanchePickType = row.int32(AssetAvalanchePickType);
    asset->visibilityState = row.int32(AssetVisibilityState);
    asset->faceAreaPoints = row.int64(AssetFaceAreaPoints);
    asset->favorite = row.int32(AssetFavorite);
    asset->thumbnailIndex = row.int32(AssetThumbnailIndex);
    asset->orientation = row.int32(AssetOrientation);
    asset->trashedState = row.int32(AssetTrashedState);
    asset->trashedDate = row.int64(AssetTrashedDate);
    asset->dateCreated = row.int64(AssetDateCreated);
    asset->addedDate = row.int64(AssetAddedDate);
    asset->modificationDate = row.int64(AssetModificationDate);
    asset->sortToken = row.real(AssetSortToken);
    asset->duration = row.real(AssetDuration);
    asset->latitude = row.real(AssetLatitude);
    asset->longitude = row.real(AssetLongitude);
    asset->originalFileSize = row.int64(AssetOriginalFileSize);
    asset->localResourcesState = row.int64(AssetLocalResourcesState);
    asset->customRenderedValue = row.int64(AssetCustomRenderedValue);
    asset->cameraCaptureDevice = row.int32(AssetCameraCaptureDevice);
    asset->hasAdjustments = row.int32(AssetHasAdjustments);
    asset->hidden = row.int32(AssetHidden);
    asset->cloudLocalState = row.int32(AssetCloudLocalState);
    asset->importSession = row.int32(AssetImportSession);
    asset->duplicateAssetVisibilityState = narrowed(row.int64(AssetDuplicateAssetVisibilityState));
    asset->packedBadgeAttributes = narrowed(row.int64(AssetPackedBadgeAttributes));
    asset->depthType = narrowed(row.int64(AssetDepthType));
    asset->duplicateMetadataMatchingAlbum = narrowed(row.int64(AssetDuplicateMetadataMatchingAlbum));
    asset->duplicatePerceptualMatchingAlbum = narrowed(row.int64(AssetDuplicatePerceptualMatchingAlbum));
}

// Makes records of the rows of one statement.
class AssetRows
{
public:
    // Both entities stay where they are. That of wallpapers has no name in a library without them, and matches no row.
    AssetRows(Photos_DB *owner, entityInfo *assets, const entityInfo *wallpapers)
        : owner(owner), assets(assets), wallpapers(wallpapers)
    {
    }

    // Null for a row that is no photo of the user's: a wallpaper, or one without identity or file. Its key is in use
    // all the same.
    std::unique_ptr<assetRecord> read(const Row &row)
    {
        const qint64 pk = row.int32(AssetPk);
        if (pk > assets->maxPk)
            assets->maxPk = static_cast<int>(pk);
        const qint32 entity = row.int32(AssetEntity);
        if (!wallpapers->name.isEmpty() && entity == wallpapers->entityNumber)
            return nullptr;

        auto asset = std::make_unique<assetRecord>();
        asset->pk = pk;
        asset->entity = entity;
        asset->fileName = row.text(AssetFileName);
        asset->directory = directories.text(row, AssetDirectory);
        if (!row.blob(AssetUuid, &asset->uuid) || isBlank(asset->fileName) || isBlank(asset->directory))
            return nullptr;
        asset->owner = owner;
        asset->uniformTypeIdentifier = types.text(row, AssetUniformTypeIdentifier);
        asset->avalancheUuid = bursts.text(row, AssetAvalancheUuid);
        readNumbers(row, asset.get());
        return asset;
    }

private:
    Photos_DB *owner;
    entityInfo *assets;
    const entityInfo *wallpapers;
    TextPool directories;
    TextPool types;
    TextPool bursts;
};

} // namespace

bool Photos_DB::parseAssets(sqlite3 *db)
{
    if (!db)
        return false;
    Statement statement(db, assetStatement(assetTableName, assetTableSql, additionalAttributesSql).get());
    if (!statement.isPrepared()) {
        Log(logTag, logError, "photo sql error #%d: %s", statement.result(), sqlite3_errmsg(db));
        return false;
    }
    std::optional<AssetRows> assetRows;
    for (const Row row : statement.rows(stop)) {
        if (!assetRows) // a table without rows adds no entities
            assetRows.emplace(this, &entities[assetEntityName], &entities[QLatin1String("WallpaperAsset")]);
        if (auto asset = assetRows->read(row))
            addAsset(asset.release());
    }
    return true;
}
