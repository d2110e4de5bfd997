#include "photolib/db/asset_columns.h"
#include "photolib/db/photos_db.h"
#include "photolib/host/log.h"
#include "photolib/logging.h"

#include <memory>

using namespace photolib;

namespace
{

bool isBlank(const QString &text)
{
    return text.trimmed().isEmpty();
}

qint32 narrowed(qint64 value)
{
    return static_cast<qint32>(static_cast<quint32>(static_cast<quint64>(value)));
}

void readAttributes(const Row &row, assetRecord *asset)
{
    asset->width = row.int32(AssetWidth);
    asset->height = row.int32(AssetHeight);
    asset->kind = row.int32(AssetKind);
    asset->kindSubtype = row.int32(AssetKindSubtype);
    asset->moment = row.int32(AssetMoment);
    asset->uniformTypeIdentifier = row.text(AssetUniformTypeIdentifier);
    asset->avalancheUuid = row.text(AssetAvalancheUuid);
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
    for (const Row row : statement.rows(stop)) {
        if (assetRecord *asset = parseAssetRow(row))
            addAsset(asset);
    }
    return true;
}

// Null for a row that is no photo of the user's: a wallpaper, or one without identity or file. Its key is in use all
// the same.
assetRecord *Photos_DB::parseAssetRow(const Row &row)
{
    auto asset = std::make_unique<assetRecord>();
    asset->pk = row.int32(AssetPk);
    entityInfo &assets = entities[assetEntityName];
    if (asset->pk > assets.maxPk)
        assets.maxPk = static_cast<int>(asset->pk);

    asset->entity = row.int32(AssetEntity);
    // A default entry, of a library without wallpapers, has no name and matches no row.
    const entityInfo &wallpapers = entities[QLatin1String("WallpaperAsset")];
    if (!wallpapers.name.isEmpty() && asset->entity == wallpapers.entityNumber)
        return nullptr;

    asset->fileName = row.text(AssetFileName);
    asset->directory = row.text(AssetDirectory);
    if (!row.blob(AssetUuid, &asset->uuid) || isBlank(asset->fileName) || isBlank(asset->directory))
        return nullptr;

    asset->owner = this;
    readAttributes(row, asset.get());
    return asset.release();
}
