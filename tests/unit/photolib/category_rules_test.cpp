#include "photolib/category_rules.h"

#include "photolib/db/records.h"
#include "testing/qt_printers.h"

#include <QMap>

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <vector>

using namespace photolib;

namespace
{

/// A photo that is in no category.
assetRecord plainPhoto()
{
    assetRecord asset;
    asset.pk = 5;
    asset.kindSubtype = -1;
    asset.latitude = -180.0;
    asset.longitude = -180.0;
    return asset;
}

/// All independent categories of an asset, in the order of the rules, as "CATEGORY/KEY", a cover with a star.
QStringList categoriesOf(const assetRecord &asset)
{
    QStringList categories;
    for (const CategoryRule &rule : categoryRules()) {
        if (const int category = rule.categoryOf(asset))
            categories += QString::number(category) + '/' + rule.keyOf(asset) + (rule.isCover(asset) ? "*" : "");
    }
    return categories;
}

using Change = std::function<void(assetRecord &)>;

QStringList categoriesWith(const Change &change)
{
    assetRecord asset = plainPhoto();
    change(asset);
    return categoriesOf(asset);
}

/// The categories of an asset with one number changed.
QStringList categoriesWith(qint32 assetRecord::*field, qint32 value)
{
    return categoriesWith([=](assetRecord &asset) { asset.*field = value; });
}

QStringList categoriesOfType(const QString &typeIdentifier)
{
    return categoriesWith([&](assetRecord &asset) { asset.uniformTypeIdentifier = typeIdentifier; });
}

QStringList categoriesOfBurst(const QString &avalancheUuid, qint32 pickType = 0)
{
    return categoriesWith([&](assetRecord &asset) {
        asset.avalancheUuid = avalancheUuid;
        asset.avalanchePickType = pickType;
    });
}

QStringList categoriesOfDuplicate(qint32 visibility, qint32 metadataAlbum, qint32 perceptualAlbum)
{
    return categoriesWith([=](assetRecord &asset) {
        asset.duplicateAssetVisibilityState = visibility;
        asset.duplicateMetadataMatchingAlbum = metadataAlbum;
        asset.duplicatePerceptualMatchingAlbum = perceptualAlbum;
    });
}

QStringList categoriesAt(double latitude, double longitude)
{
    return categoriesWith([=](assetRecord &asset) {
        asset.latitude = latitude;
        asset.longitude = longitude;
    });
}

int directoryCategoryOf(const char *directory)
{
    assetRecord asset = plainPhoto();
    asset.directory = QString::fromUtf8(directory);
    return directoryCategory(asset);
}

const QStringList none;

} // namespace

TEST(CategoryRules, PlainPhotoIsInNoCategory)
{
    EXPECT_EQ(categoriesOf(plainPhoto()), none);
    EXPECT_EQ(directoryCategory(plainPhoto()), 0);
    EXPECT_FALSE(isRecentlyDeleted(plainPhoto()));
}

TEST(CategoryRules, AreTestedInTheirFixedOrder)
{
    assetRecord asset;
    asset.importSession = 1;
    asset.hidden = 1;
    asset.kind = 1;
    asset.kindSubtype = 0;
    asset.favorite = 1;
    asset.uniformTypeIdentifier = "com.compuserve.gif";
    asset.packedBadgeAttributes = 6;
    asset.depthType = 1;
    asset.avalancheUuid = "burst";
    asset.duplicateAssetVisibilityState = 1;
    asset.cameraCaptureDevice = 1;
    EXPECT_EQ(categoriesOf(asset), (QStringList{"20/0", "19/0", "1/0", "3/0", "7/0", "14/0", "21/0", "8/0", "16/burst",
                                                "23/0", "5/0-0", "18/0"}));
}

TEST(CategoryRules, RecentlyDeletedIsTrashedStateOneOnly)
{
    for (const qint32 state : {0, 1, 2, -1}) {
        assetRecord asset = plainPhoto();
        asset.trashedState = state;
        EXPECT_EQ(isRecentlyDeleted(asset), state == 1) << state;
    }
}

TEST(CategoryRules, ImportedAndHiddenAreAllButZero)
{
    for (const qint32 value : {1, 2, -1}) {
        EXPECT_EQ(categoriesWith(&assetRecord::importSession, value), QStringList{"20/0"});
        EXPECT_EQ(categoriesWith(&assetRecord::hidden, value), QStringList{"19/0"});
    }
}

TEST(CategoryRules, VideoFavouriteAndFrontCameraAreOneOnly)
{
    EXPECT_EQ(categoriesWith(&assetRecord::kind, 1), QStringList{"1/0"});
    EXPECT_EQ(categoriesWith(&assetRecord::favorite, 1), QStringList{"7/0"});
    EXPECT_EQ(categoriesWith(&assetRecord::cameraCaptureDevice, 1), QStringList{"18/0"});
    for (const qint32 value : {2, 3, -1}) {
        EXPECT_EQ(categoriesWith(&assetRecord::kind, value), none);
        EXPECT_EQ(categoriesWith(&assetRecord::favorite, value), none);
        EXPECT_EQ(categoriesWith(&assetRecord::cameraCaptureDevice, value), none);
    }
}

TEST(CategoryRules, SubtypesHaveTheirCategoryAndOthersNone)
{
    const QMap<int, QString> categories = {{0, "3/0"},    {1, "9/0"},    {2, "10/0"},  {10, "17/0"},
                                           {101, "13/0"}, {102, "11/0"}, {103, "12/0"}};
    for (qint32 subtype = -3; subtype < 200; ++subtype) {
        const QStringList expected = categories.contains(subtype) ? QStringList{categories.value(subtype)} : none;
        EXPECT_EQ(categoriesWith(&assetRecord::kindSubtype, subtype), expected) << subtype;
    }
}

TEST(CategoryRules, GifIsFoundAnywhereInTheTypeInAnyCaseAndForPhotosToo)
{
    for (const char *type : {"com.compuserve.gif", "com.compuserve.GIF", "Gif", "x.gIf.y"})
        EXPECT_EQ(categoriesOfType(type), QStringList{"14/0"}) << type;
    for (const char *type : {"", "public.jpeg", "g.if", "public.gf"})
        EXPECT_EQ(categoriesOfType(type), none) << type;
}

TEST(CategoryRules, BadgesSixAndEightHaveTheirCategories)
{
    for (qint32 badge = -1; badge < 16; ++badge) {
        const QStringList expected = badge == 6 ? QStringList{"21/0"} : badge == 8 ? QStringList{"22/0"} : none;
        EXPECT_EQ(categoriesWith(&assetRecord::packedBadgeAttributes, badge), expected) << badge;
    }
}

TEST(CategoryRules, DepthOneAndTwoHaveTheirCategories)
{
    for (qint32 depth = -1; depth < 8; ++depth) {
        const QStringList expected = depth == 1 ? QStringList{"8/0"} : depth == 2 ? QStringList{"24/0"} : none;
        EXPECT_EQ(categoriesWith(&assetRecord::depthType, depth), expected) << depth;
    }
}

TEST(CategoryRules, BurstNeedsMoreThanOneCharacterAndNotOnlyBlanks)
{
    for (const char *uuid : {"", "0", "x", " ", "  ", " \t\n "})
        EXPECT_EQ(categoriesOfBurst(uuid), none) << '"' << uuid << '"';
    EXPECT_EQ(categoriesOfBurst("ab"), QStringList{"16/ab"});
}

TEST(CategoryRules, BurstKeyIsNotTrimmed)
{
    EXPECT_EQ(categoriesOfBurst("  x"), QStringList{"16/  x"});
    EXPECT_EQ(categoriesOfBurst("x "), QStringList{"16/x "});
}

TEST(CategoryRules, PickTypes16And52MakeTheCoverOfABurst)
{
    for (qint32 pickType = -1; pickType < 70; ++pickType) {
        const bool isCover = pickType == 16 || pickType == 52;
        EXPECT_EQ(categoriesOfBurst("burst", pickType), QStringList(isCover ? "16/burst*" : "16/burst")) << pickType;
    }
}

TEST(CategoryRules, DuplicatesAreKeyedByTheFirstAlbumAboveZero)
{
    EXPECT_EQ(categoriesOfDuplicate(1, 7, 9), QStringList{"23/7"});
    EXPECT_EQ(categoriesOfDuplicate(1, 0, 9), QStringList{"23/9"});
    EXPECT_EQ(categoriesOfDuplicate(1, -7, 9), QStringList{"23/9"});
    EXPECT_EQ(categoriesOfDuplicate(1, 0, 0), QStringList{"23/0"});
    EXPECT_EQ(categoriesOfDuplicate(1, -7, -9), QStringList{"23/0"});
    EXPECT_EQ(categoriesOfDuplicate(1, 1, 1), QStringList{"23/1"});
    EXPECT_EQ(categoriesOfDuplicate(-1, 12345, 0), QStringList{"23/12345"});
    EXPECT_EQ(categoriesOfDuplicate(0, 7, 9), none);
}

TEST(CategoryRules, PlaceNeedsBothCoordinates)
{
    EXPECT_EQ(categoriesAt(-180.0, 10.0), none);
    EXPECT_EQ(categoriesAt(10.0, -180.0), none);
    EXPECT_EQ(categoriesAt(-180.0, -180.0), none);
    EXPECT_EQ(categoriesAt(10.0, 20.0), QStringList{"5/10-20"});
    EXPECT_EQ(categoriesAt(0.0, 0.0), QStringList{"5/0-0"});
    EXPECT_EQ(categoriesAt(180.0, 180.0), QStringList{"5/180-180"});
    EXPECT_EQ(categoriesAt(-180.5, -179.5), QStringList{"5/-180.5--179.5"});
}

TEST(CategoryRules, PlaceKeyHasSixDigitsAndADoubleHyphenForANegativeLongitude)
{
    EXPECT_EQ(categoriesAt(48.8584, -2.2945), QStringList{"5/48.8584--2.2945"});
    EXPECT_EQ(categoriesAt(-33.856784, 151.215297), QStringList{"5/-33.8568-151.215"});
    EXPECT_EQ(categoriesAt(0.00001234567, 1e20), QStringList{"5/1.23457e-05-1e+20"});
}

TEST(CategoryRules, CoordinateThatIsNoNumberCountsAsAPlace)
{
    constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(categoriesAt(noNumber, 10.0), QStringList{"5/nan-10"});
    EXPECT_EQ(categoriesAt(10.0, noNumber), QStringList{"5/10-nan"});
    EXPECT_EQ(categoriesAt(noNumber, -180.0), none);
}

TEST(DirectoryCategory, CameraRollIsDcimWithAppleAnywhere)
{
    for (const char *directory : {"DCIM/100APPLE", "DCIM/APPLE", "DCIM/1/2/xAPPLEx", "DCIM/APPLE/PhotoData/Sync/"})
        EXPECT_EQ(directoryCategoryOf(directory), 25) << directory;
    for (const char *directory : {"DCIM/100XYZ", "DCIM/100apple", "DCIM", "DCIM/", "dcim/100APPLE", "/DCIM/100APPLE",
                                  "xDCIM/100APPLE", "DCIM100APPLE", "100APPLE", ""})
        EXPECT_EQ(directoryCategoryOf(directory), 0) << directory;
}

TEST(DirectoryCategory, OtherFoldersAreKnownByTheirStart)
{
    EXPECT_EQ(directoryCategoryOf("PhotoData/PhotoCloudSharingData/1/100CLOUD"), 26);
    EXPECT_EQ(directoryCategoryOf("PhotoData/CPLAssets/group1"), 27);
    EXPECT_EQ(directoryCategoryOf("PhotoStreamsData/1/100APPLE"), 29);
    EXPECT_EQ(directoryCategoryOf("PhotoData/Sync/100SYNCD"), 28);
    EXPECT_EQ(directoryCategoryOf("Photos/Thumbs"), 28);
    for (const char *start : {"PhotoData/PhotoCloudSharingData/", "PhotoData/CPLAssets/", "PhotoStreamsData/",
                              "PhotoData/Sync/", "Photos/"})
        EXPECT_NE(directoryCategoryOf(start), 0) << start;
}

TEST(DirectoryCategory, StartsAreCaseSensitiveAndNeedTheirSlash)
{
    for (const char *directory :
         {"PhotoData/PhotoCloudSharingData", "PhotoData/CPLAssets", "PhotoStreamsData", "PhotoData/Sync", "Photos",
          "photodata/photocloudsharingdata/x", "PhotoData/cplassets/x", "photostreamsdata/x", "photodata/sync/x",
          "photos/x", "/Photos/x", "x/PhotoData/Sync/x", "PhotoData/x", "Media/PhotoStreamsData/x"})
        EXPECT_EQ(directoryCategoryOf(directory), 0) << directory;
}
