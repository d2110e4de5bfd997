#include "photolib/record_items.h"

#include "photolib/db/records.h"

#include <cmath>
#include <limits>

namespace photolib
{

namespace
{

enum MediaType { Video = 1, AnimatedGif = 2, StillPhoto = 3 };

qint32 albumTypeOf(int kind)
{
    switch (kind) {
    case 2:
        return 1;
    case 1550:
        return 2;
    default:
        return 0;
    }
}

// Only what is not a still image is looked at for "GIF".
qint32 mediaTypeOf(const assetRecord &asset)
{
    if (asset.kind == 0)
        return StillPhoto;
    return asset.uniformTypeIdentifier.indexOf(QLatin1String("GIF"), 0, Qt::CaseInsensitive) != -1 ? AnimatedGif
                                                                                                   : Video;
}

// Truncates toward zero; what does not fit becomes the nearest value that does, and no number becomes 0.
qint32 wholeSeconds(double seconds)
{
    using Limits = std::numeric_limits<qint32>;
    if (std::isnan(seconds))
        return 0;
    if (seconds >= static_cast<double>(Limits::max()))
        return Limits::max();
    if (seconds <= static_cast<double>(Limits::min()))
        return Limits::min();
    return static_cast<qint32>(seconds);
}

// Null for an instant that Qt, which counts milliseconds, cannot count to: it would wrap around to a date that looks
// right.
QDateTime dateOf(qint64 seconds, const QDateTime &referenceDate)
{
    constexpr qint64 limit = std::numeric_limits<qint64>::max() / 1000; // from 1970, before the reference date
    const bool isBeyond = seconds < -limit || seconds > limit - referenceDate.toSecsSinceEpoch();
    return isBeyond ? QDateTime() : referenceDate.addSecs(seconds);
}

// The folder only, without the file's name.
QString metadataPathOf(const photoItem &video)
{
    return QStringLiteral("PhotoData/Metadata/%1")
        .arg(video.directory, 0, QLatin1Char(' '))
        .replace(QLatin1String("MOV"), QLatin1String("JPG"), Qt::CaseSensitive);
}

} // namespace

void fillAlbumItem(const albumRecord &album, albumItem *out)
{
    out->uuid = album.uuid;
    out->entity = album.entity;
    out->kind = album.kind;
    out->id = static_cast<qint64>(album.pk);
    out->trashedState = album.trashedState;
    out->title = album.title;
    out->albumType = albumTypeOf(album.kind);
    out->photoIds = album.memberIds;
}

void fillPhotoItem(const assetRecord &asset, const QDateTime &referenceDate, photoItem *out)
{
    out->uuid = asset.uuid;
    out->id = asset.pk;
    out->entity = asset.entity;
    out->fileName = asset.fileName;
    out->directory = asset.directory;
    out->mediaType = mediaTypeOf(asset);
    out->orientation = asset.orientation;
    out->height = asset.height;
    out->width = asset.width;
    out->duration = wholeSeconds(asset.duration);
    out->fileSize = asset.originalFileSize;
    out->dateCreated = dateOf(asset.dateCreated, referenceDate);
    out->modificationDate = dateOf(asset.modificationDate, referenceDate);
    out->trashedDate = dateOf(asset.trashedDate, referenceDate);
    out->trashedState = asset.trashedState;
    out->avalancheUuid = asset.avalancheUuid;
    out->avalanchePickType = asset.avalanchePickType;
    out->sortToken = asset.sortToken;
    out->faceAreaPoints = asset.faceAreaPoints;
    out->visibilityState = asset.visibilityState;
    out->favorite = asset.favorite;
    out->kindSubtype = asset.kindSubtype;
    out->metadataPath = out->mediaType == Video ? metadataPathOf(*out) : QString(QLatin1String(""));
    out->latitude = asset.latitude;
    out->longitude = asset.longitude;
    out->duplicateAssetVisibilityState = asset.duplicateAssetVisibilityState;
    out->duplicateMetadataMatchingAlbum = asset.duplicateMetadataMatchingAlbum;
    out->duplicatePerceptualMatchingAlbum = asset.duplicatePerceptualMatchingAlbum;
    out->packedBadgeAttributes = asset.packedBadgeAttributes;
    out->depthType = asset.depthType;
    out->moment = asset.moment;
    out->thumbnailIndex = asset.thumbnailIndex;
    out->uniformTypeIdentifier = asset.uniformTypeIdentifier;
    out->localResourcesState = asset.localResourcesState;
    out->customRenderedValue = asset.customRenderedValue;
    out->cameraCaptureDevice = asset.cameraCaptureDevice;
    out->hasAdjustments = asset.hasAdjustments;
    out->hidden = asset.hidden;
    out->cloudLocalState = asset.cloudLocalState;
    out->importSession = asset.importSession;
}

std::unique_ptr<albumRecord> albumOf(const albumItem &item)
{
    auto album = std::make_unique<albumRecord>();
    album->memberIds = item.photoIds;
    album->entity = item.entity;
    album->kind = item.kind;
    album->pk = static_cast<quint64>(item.id);
    album->trashedState = item.trashedState;
    album->title = item.title;
    album->uuid = item.uuid;
    return album;
}

std::unique_ptr<assetRecord> assetOf(const photoItem &item, const QDateTime &referenceDate)
{
    auto asset = std::make_unique<assetRecord>();
    asset->pk = item.id;
    asset->entity = item.entity;
    asset->fileName = item.fileName;
    asset->directory = item.directory;
    asset->uuid = item.uuid;
    asset->width = item.width;
    asset->height = item.height;
    asset->kind = item.mediaType == Video ? 1 : 0;
    asset->kindSubtype = item.kindSubtype;
    asset->moment = item.moment;
    asset->uniformTypeIdentifier = item.uniformTypeIdentifier;
    asset->avalancheUuid = item.avalancheUuid;
    asset->avalanchePickType = item.avalanchePickType;
    asset->visibilityState = item.visibilityState;
    asset->faceAreaPoints = item.faceAreaPoints;
    asset->favorite = item.favorite;
    asset->thumbnailIndex = item.thumbnailIndex;
    asset->orientation = item.orientation;
    asset->trashedState = item.trashedState;
    asset->trashedDate = referenceDate.secsTo(item.trashedDate);
    asset->dateCreated = referenceDate.secsTo(item.dateCreated);
    asset->addedDate = asset->dateCreated + 1; // a photo is added after it was taken
    asset->modificationDate = referenceDate.secsTo(item.modificationDate);
    asset->sortToken = item.sortToken;
    asset->duration = item.duration;
    asset->latitude = item.latitude;
    asset->longitude = item.longitude;
    asset->duplicateAssetVisibilityState = item.duplicateAssetVisibilityState;
    asset->duplicateMetadataMatchingAlbum = item.duplicateMetadataMatchingAlbum;
    asset->duplicatePerceptualMatchingAlbum = item.duplicatePerceptualMatchingAlbum;
    asset->packedBadgeAttributes = item.packedBadgeAttributes;
    asset->depthType = item.depthType;
    asset->originalFileSize = item.fileSize;
    asset->localResourcesState = item.localResourcesState;
    asset->customRenderedValue = item.customRenderedValue;
    asset->cameraCaptureDevice = item.cameraCaptureDevice;
    asset->hasAdjustments = item.hasAdjustments;
    asset->hidden = item.hidden;
    asset->cloudLocalState = item.cloudLocalState;
    asset->importSession = item.importSession;
    return asset;
}

} // namespace photolib
