#include "apps/browser/library/snapshot_photo.h"

#include "photolib/photo_item.h"

#include <cmath>

namespace browser
{

namespace
{

struct SubtypeTrait {
    qint32 subtype;
    PhotoTrait trait;
};

constexpr SubtypeTrait subtypeTraits[] = {
    {1, Panorama}, {2, LivePhoto}, {10, Screenshot}, {101, SlowMotion}, {102, TimeLapse},
};

// Of a cloud photo whose original was moved out to save room; one that is still there lacks this bit. Newer releases
// lack the column, which then reads 0.
bool isOriginalRemote(const photoItem &item)
{
    constexpr qint64 originalIsRemote = qint64(1) << 34;
    return (item.localResourcesState & originalIsRemote) != 0;
}

// A single character is what a device without bursts reads.
bool isInBurst(const photoItem &item)
{
    return item.avalancheUuid.size() > 1 && !item.avalancheUuid.trimmed().isEmpty();
}

quint32 traitsOf(const photoItem &item)
{
    constexpr qint32 rawBadge = 6;
    quint32 traits = 0;
    const auto set = [&traits](bool is, PhotoTrait trait) { traits |= is ? trait : 0U; };
    for (const SubtypeTrait &entry : subtypeTraits)
        set(item.kindSubtype == entry.subtype, entry.trait);
    set(item.favorite == 1, Favorite);
    set(isInBurst(item), Burst);
    const bool isInCloud = item.cloudLocalState == 1;
    set(isInCloud && isOriginalRemote(item), CloudOnly);
    set(isInCloud && item.localResourcesState == 0, InCloud);
    set(item.hidden != 0, Hidden);
    set(item.trashedState == 1, Deleted);
    set(item.packedBadgeAttributes == rawBadge, Raw);
    set(item.hasAdjustments != 0, Edited);
    set(isOnGlobe(item.latitude, item.longitude), Located);
    return traits;
}

MediaKind kindOf(const photoItem &item)
{
    constexpr qint32 video = 1;
    constexpr qint32 animation = 2;
    if (item.mediaType == video)
        return MediaKind::Video;
    // Most animations are stored as still photos, and only their type tells.
    if (item.mediaType == animation || item.uniformTypeIdentifier.contains(QLatin1String("gif"), Qt::CaseInsensitive))
        return MediaKind::Animation;
    return MediaKind::Photo;
}

} // namespace

bool isOnGlobe(double latitude, double longitude)
{
    return std::abs(latitude) <= 90 && std::abs(longitude) <= 180;
}

Photo photoOf(const photoItem &item)
{
    Photo photo;
    photo.id = item.id;
    photo.fileName = item.fileName;
    if (item.dateCreated.isValid())
        photo.created = item.dateCreated.toMSecsSinceEpoch();
    photo.fileSize = item.fileSize;
    photo.width = item.width;
    photo.height = item.height;
    photo.duration = item.duration;
    photo.traits = traitsOf(item);
    photo.kind = kindOf(item);
    return photo;
}

} // namespace browser
