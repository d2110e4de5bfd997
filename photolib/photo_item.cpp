#include "photolib/photo_item.h"

#include "photolib/item_values.h"

using namespace photolib;

namespace
{
constexpr qint32 defaultAssetEntity = 27;
constexpr qint32 stillPhoto = 3;
constexpr qint32 noThumbnailSlot = -1;
constexpr qint64 resourcesAreLocal = 32;
} // namespace

photoItem::photoItem()
    : id(0), entity(defaultAssetEntity), mediaType(stillPhoto), orientation(0), height(0), width(0), duration(0),
      fileSize(0), trashedState(0), avalanchePickType(0), sortToken(0.0), visibilityState(0), faceAreaPoints(0),
      favorite(0), kindSubtype(0), latitude(noCoordinate), longitude(noCoordinate), duplicateAssetVisibilityState(0),
      duplicateMetadataMatchingAlbum(0), duplicatePerceptualMatchingAlbum(0), packedBadgeAttributes(0), depthType(0),
      moment(0), thumbnailIndex(noThumbnailSlot), uniformTypeIdentifier(QLatin1String("")),
      localResourcesState(resourcesAreLocal), customRenderedValue(0), cameraCaptureDevice(0), hasAdjustments(0),
      hidden(0), cloudLocalState(0), importSession(0)
{
    fileName.clear();
    directory.clear();
    metadataPath.clear();
    avalancheUuid.clear();
}

photoItem::photoItem(const photoItem &other) = default;

photoItem &photoItem::operator=(const photoItem &other)
{
    id = other.id;
    uuid = other.uuid;
    fileName = other.fileName;
    mediaType = other.mediaType;
    directory = other.directory;
    metadataPath = other.metadataPath;
    orientation = other.orientation;
    height = other.height;
    width = other.width;
    duration = other.duration;
    fileSize = other.fileSize;
    dateCreated = other.dateCreated;
    modificationDate = other.modificationDate;
    trashedDate = other.trashedDate;
    trashedState = other.trashedState;
    avalancheUuid = other.avalancheUuid;
    avalanchePickType = other.avalanchePickType;
    sortToken = other.sortToken;
    visibilityState = other.visibilityState;
    faceAreaPoints = other.faceAreaPoints;
    favorite = other.favorite;
    kindSubtype = other.kindSubtype;
    latitude = other.latitude;
    longitude = other.longitude;
    duplicateAssetVisibilityState = other.duplicateAssetVisibilityState;
    duplicateMetadataMatchingAlbum = other.duplicateMetadataMatchingAlbum;
    duplicatePerceptualMatchingAlbum = other.duplicatePerceptualMatchingAlbum;
    packedBadgeAttributes = other.packedBadgeAttributes;
    depthType = other.depthType;
    moment = other.moment;
    thumbnailIndex = other.thumbnailIndex;
    uniformTypeIdentifier = other.uniformTypeIdentifier;
    localResourcesState = other.localResourcesState;
    customRenderedValue = other.customRenderedValue;
    cameraCaptureDevice = other.cameraCaptureDevice;
    hasAdjustments = other.hasAdjustments;
    hidden = other.hidden;
    cloudLocalState = other.cloudLocalState;
    importSession = other.importSession;
    return *this;
}

photoItem::~photoItem() = default;
