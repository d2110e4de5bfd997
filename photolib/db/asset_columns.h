#ifndef PHOTOLIB_DB_ASSET_COLUMNS_H
#define PHOTOLIB_DB_ASSET_COLUMNS_H

#include "photolib/db/statement.h"

#include <QString>

namespace photolib
{

/// The result columns of the asset statement, the same on every release.
enum AssetColumn {
    AssetPk,
    AssetEntity,
    AssetFileName,
    AssetDirectory,
    AssetUuid,
    AssetWidth,
    AssetHeight,
    AssetKind,
    AssetKindSubtype,
    AssetMoment,
    AssetUniformTypeIdentifier,
    AssetAvalancheUuid,
    AssetAvalanchePickType,
    AssetVisibilityState,
    AssetFaceAreaPoints,
    AssetFavorite,
    AssetThumbnailIndex,
    AssetOrientation,
    AssetTrashedState,
    AssetTrashedDate,
    AssetDateCreated,
    AssetAddedDate,
    AssetModificationDate,
    AssetSortToken,
    AssetDuration,
    AssetLatitude,
    AssetLongitude,
    AssetOriginalFileSize,
    AssetLocalResourcesState,
    AssetCustomRenderedValue,
    AssetCameraCaptureDevice,
    AssetHasAdjustments,
    AssetHidden,
    AssetCloudLocalState,
    AssetImportSession,
    AssetDuplicateAssetVisibilityState,
    AssetPackedBadgeAttributes,
    AssetDepthType,
    AssetDuplicateMetadataMatchingAlbum,
    AssetDuplicatePerceptualMatchingAlbum,
};

/// The asset statement for a database with these CREATE TABLE texts: columns that its release lacks read as the text
/// "0".
SqlText assetStatement(const QString &assetTableName, const QString &assetTableSql,
                       const QString &additionalAttributesSql);

} // namespace photolib

#endif
