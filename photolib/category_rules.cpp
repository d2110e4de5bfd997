#include "photolib/category_rules.h"

#include "photolib/db/records.h"
#include "photolib/item_values.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace photolib
{

namespace
{

struct Subtype {
    int kindSubtype;
    int category;
};

constexpr Subtype subtypes[] = {
    {0, 3},    // photos; plain videos are among them
    {1, 9},    // panoramas
    {2, 10},   // live photos
    {10, 17},  // screenshots
    {101, 13}, // slow motion
    {102, 11}, // time-lapse
    {103, 12}, // screen recordings
};

int subtypeCategory(const assetRecord &asset)
{
    for (const Subtype &subtype : subtypes) {
        if (subtype.kindSubtype == asset.kindSubtype)
            return subtype.category;
    }
    return 0;
}

int badgeCategory(const assetRecord &asset)
{
    switch (asset.packedBadgeAttributes) {
    case 6:
        return 21;
    case 8:
        return 22;
    default:
        return 0;
    }
}

int depthCategory(const assetRecord &asset)
{
    switch (asset.depthType) {
    case 1:
        return 8;
    case 2:
        return 24;
    default:
        return 0;
    }
}

// A single character is what a release without bursts reads.
int burstCategory(const assetRecord &asset)
{
    return !asset.avalancheUuid.trimmed().isEmpty() && asset.avalancheUuid.size() > 1 ? 16 : 0;
}

QString burstKey(const assetRecord &asset)
{
    return asset.avalancheUuid;
}

bool isKeyOfBurst(const assetRecord &asset)
{
    return asset.avalanchePickType == 16 || asset.avalanchePickType == 52;
}

QString duplicatesKey(const assetRecord &asset)
{
    if (asset.duplicateMetadataMatchingAlbum > 0)
        return QString::number(asset.duplicateMetadataMatchingAlbum, 10);
    if (asset.duplicatePerceptualMatchingAlbum > 0)
        return QString::number(asset.duplicatePerceptualMatchingAlbum, 10);
    return singleGroupKey();
}

bool isCoordinate(double value)
{
    return value < noCoordinate || value > noCoordinate || value != value;
}

int placeCategory(const assetRecord &asset)
{
    return isCoordinate(asset.latitude) && isCoordinate(asset.longitude) ? 5 : 0;
}

QString placeKey(const assetRecord &asset)
{
    return QString::number(asset.latitude) + QLatin1Char('-') + QString::number(asset.longitude);
}

// Not for coordinates that are no numbers, of which there is more than one kind.
bool isSamePlace(const assetRecord &one, const assetRecord &other)
{
    const auto isSame = [](double a, double b) { return a <= b && a >= b && std::signbit(a) == std::signbit(b); };
    return isSame(one.latitude, other.latitude) && isSame(one.longitude, other.longitude);
}

bool isSameBurst(const assetRecord &one, const assetRecord &other)
{
    return one.avalancheUuid == other.avalancheUuid;
}

// Most types have no F, and only those that do are worth a search.
bool isGif(const QString &type)
{
    const bool mayBe = std::any_of(type.cbegin(), type.cend(), [](QChar character) {
        return character == QLatin1Char('f') || character == QLatin1Char('F') || character.unicode() > 0x7F;
    });
    return mayBe && type.contains(QLatin1String("gif"), Qt::CaseInsensitive);
}

QString onlyKey(const assetRecord &)
{
    return singleGroupKey();
}

bool noCover(const assetRecord &)
{
    return false;
}

bool always(const assetRecord &, const assetRecord &)
{
    return true;
}

bool neverSure(const assetRecord &, const assetRecord &)
{
    return false;
}

constexpr CategoryRule rules[] = {
    {[](const assetRecord &asset) { return asset.importSession != 0 ? 20 : 0; }, onlyKey, noCover, always},
    {[](const assetRecord &asset) { return asset.hidden != 0 ? 19 : 0; }, onlyKey, noCover, always},
    {[](const assetRecord &asset) { return asset.kind == 1 ? 1 : 0; }, onlyKey, noCover, always},
    {subtypeCategory, onlyKey, noCover, always},
    {[](const assetRecord &asset) { return asset.favorite == 1 ? 7 : 0; }, onlyKey, noCover, always},
    {[](const assetRecord &asset) { return isGif(asset.uniformTypeIdentifier) ? 14 : 0; }, onlyKey, noCover, always},
    {badgeCategory, onlyKey, noCover, always},
    {depthCategory, onlyKey, noCover, always},
    {burstCategory, burstKey, isKeyOfBurst, isSameBurst},
    {[](const assetRecord &asset) { return asset.duplicateAssetVisibilityState != 0 ? 23 : 0; }, duplicatesKey, noCover,
     neverSure},
    {placeCategory, placeKey, noCover, isSamePlace},
    {[](const assetRecord &asset) { return asset.cameraCaptureDevice == 1 ? 18 : 0; }, onlyKey, noCover, always},
};

} // namespace

QString singleGroupKey()
{
    // On the heap, unlike a literal: a host may keep the key after it unloaded the library.
    static const QString key(QLatin1Char('0'));
    return key;
}

bool isRecentlyDeleted(const assetRecord &asset)
{
    return asset.trashedState == 1;
}

// "DCIM/" alone is not the camera roll: cameras and card readers leave folders of other names there.
int directoryCategory(const assetRecord &asset)
{
    const QString &directory = asset.directory;
    if (directory.startsWith(QLatin1String("DCIM/")) && directory.contains(QLatin1String("APPLE")))
        return 25;
    if (directory.startsWith(QLatin1String("PhotoData/PhotoCloudSharingData/")))
        return 26;
    if (directory.startsWith(QLatin1String("PhotoData/CPLAssets/")))
        return 27;
    if (directory.startsWith(QLatin1String("PhotoStreamsData/")))
        return 29;
    if (directory.startsWith(QLatin1String("PhotoData/Sync/")) || directory.startsWith(QLatin1String("Photos/")))
        return syncedCategory;
    return 0;
}

CategoryRules categoryRules()
{
    return {std::begin(rules), std::end(rules)};
}

} // namespace photolib
