#include "photolib/record_items.h"

#include "photolib/db/records.h"
#include "testing/qt_printers.h"

#include <gtest/gtest.h>

#include <limits>

using photolib::fillAlbumItem;
using photolib::fillPhotoItem;

namespace
{

const QDateTime reference(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC);

photoItem filledFrom(const assetRecord &asset)
{
    photoItem photo;
    fillPhotoItem(asset, reference, &photo);
    return photo;
}

qint32 mediaTypeOf(int kind, const char *typeIdentifier)
{
    assetRecord asset;
    asset.kind = kind;
    asset.uniformTypeIdentifier = typeIdentifier;
    return filledFrom(asset).mediaType;
}

QString metadataPathOf(int kind, const char *typeIdentifier, const QString &directory)
{
    assetRecord asset;
    asset.kind = kind;
    asset.uniformTypeIdentifier = typeIdentifier;
    asset.directory = directory;
    asset.fileName = "IMG_0001.MOV";
    return filledFrom(asset).metadataPath;
}

qint32 durationOf(double seconds)
{
    assetRecord asset;
    asset.duration = seconds;
    return filledFrom(asset).duration;
}

albumItem filledFrom(const albumRecord &album)
{
    albumItem item;
    item.trashedState = -1;
    fillAlbumItem(album, &item);
    return item;
}

qint32 albumTypeOf(int kind)
{
    albumRecord album;
    album.kind = kind;
    return filledFrom(album).albumType;
}

// Every field has a value of its own, so that a mix-up of two shows.
assetRecord assetWithDistinctValues()
{
    assetRecord asset;
    asset.pk = 5'000'000'001;
    asset.entity = 2;
    asset.fileName = "IMG_0003.JPG";
    asset.directory = "DCIM/104APPLE";
    asset.uuid = "uuid-5";
    asset.width = 6;
    asset.height = 7;
    asset.kind = 0;
    asset.kindSubtype = 8;
    asset.moment = 9;
    asset.uniformTypeIdentifier = "type.10";
    asset.avalancheUuid = "burst-11";
    asset.avalanchePickType = 12;
    asset.visibilityState = 13;
    asset.faceAreaPoints = 5'000'000'014;
    asset.favorite = 15;
    asset.thumbnailIndex = 16;
    asset.orientation = 17;
    asset.trashedState = 18;
    asset.trashedDate = 19;
    asset.dateCreated = 20;
    asset.addedDate = 21;
    asset.modificationDate = 22;
    asset.sortToken = 23.5;
    asset.duration = 24.0;
    asset.latitude = 25.5;
    asset.longitude = 26.5;
    asset.duplicateAssetVisibilityState = 27;
    asset.duplicateMetadataMatchingAlbum = 28;
    asset.duplicatePerceptualMatchingAlbum = 29;
    asset.packedBadgeAttributes = 30;
    asset.depthType = 31;
    asset.originalFileSize = 5'000'000'032;
    asset.localResourcesState = 5'000'000'033;
    asset.customRenderedValue = 5'000'000'034;
    asset.cameraCaptureDevice = 35;
    asset.hasAdjustments = 36;
    asset.hidden = 37;
    asset.cloudLocalState = 38;
    asset.importSession = 39;
    return asset;
}

} // namespace

TEST(FillPhotoItem, CopiesIdentityAndFile)
{
    const photoItem photo = filledFrom(assetWithDistinctValues());
    EXPECT_EQ(photo.id, 5'000'000'001);
    EXPECT_EQ(photo.entity, 2);
    EXPECT_EQ(photo.fileName, QString("IMG_0003.JPG"));
    EXPECT_EQ(photo.directory, QString("DCIM/104APPLE"));
    EXPECT_EQ(photo.uuid, QByteArray("uuid-5"));
    EXPECT_EQ(photo.uniformTypeIdentifier, QString("type.10"));
    EXPECT_EQ(photo.fileSize, 5'000'000'032);
    EXPECT_EQ(photo.thumbnailIndex, 16);
    EXPECT_EQ(photo.localResourcesState, 5'000'000'033);
    EXPECT_EQ(photo.cloudLocalState, 38);
    EXPECT_EQ(photo.importSession, 39);
}

TEST(FillPhotoItem, CopiesWhatThePictureShows)
{
    const photoItem photo = filledFrom(assetWithDistinctValues());
    EXPECT_EQ(photo.width, 6);
    EXPECT_EQ(photo.height, 7);
    EXPECT_EQ(photo.orientation, 17);
    EXPECT_EQ(photo.duration, 24);
    EXPECT_EQ(photo.kindSubtype, 8);
    EXPECT_EQ(photo.depthType, 31);
    EXPECT_EQ(photo.customRenderedValue, 5'000'000'034);
    EXPECT_EQ(photo.cameraCaptureDevice, 35);
    EXPECT_EQ(photo.latitude, 25.5);
    EXPECT_EQ(photo.longitude, 26.5);
    EXPECT_EQ(photo.faceAreaPoints, 5'000'000'014);
    EXPECT_EQ(photo.packedBadgeAttributes, 30);
}

TEST(FillPhotoItem, CopiesTheStatesOfThePhoto)
{
    const photoItem photo = filledFrom(assetWithDistinctValues());
    EXPECT_EQ(photo.moment, 9);
    EXPECT_EQ(photo.avalancheUuid, QString("burst-11"));
    EXPECT_EQ(photo.avalanchePickType, 12);
    EXPECT_EQ(photo.visibilityState, 13);
    EXPECT_EQ(photo.favorite, 15);
    EXPECT_EQ(photo.trashedState, 18);
    EXPECT_EQ(photo.sortToken, 23.5);
    EXPECT_EQ(photo.duplicateAssetVisibilityState, 27);
    EXPECT_EQ(photo.duplicateMetadataMatchingAlbum, 28);
    EXPECT_EQ(photo.duplicatePerceptualMatchingAlbum, 29);
    EXPECT_EQ(photo.hasAdjustments, 36);
    EXPECT_EQ(photo.hidden, 37);
}

TEST(FillPhotoItem, CountsDatesFromTheReferenceDateInUtc)
{
    const photoItem photo = filledFrom(assetWithDistinctValues());
    EXPECT_EQ(photo.trashedDate, reference.addSecs(19));
    EXPECT_EQ(photo.dateCreated, reference.addSecs(20));
    EXPECT_EQ(photo.modificationDate, reference.addSecs(22));
    for (const QDateTime &date : {photo.trashedDate, photo.dateCreated, photo.modificationDate})
        EXPECT_EQ(date.timeSpec(), Qt::UTC);
}

TEST(FillPhotoItem, DatesBeforeTheReferenceDateAreNegative)
{
    assetRecord asset;
    asset.dateCreated = -86400;
    const photoItem photo = filledFrom(asset);
    EXPECT_EQ(photo.dateCreated.toString(Qt::ISODate), QString("2000-12-31T00:00:00Z"));
    EXPECT_EQ(photo.modificationDate.toString(Qt::ISODate), QString("2001-01-01T00:00:00Z"));
}

TEST(FillPhotoItem, DatesThatMillisecondsCannotCountToAreNull)
{
    constexpr qint64 last = std::numeric_limits<qint64>::max() / 1000;
    assetRecord asset;
    asset.dateCreated = std::numeric_limits<qint64>::max();
    asset.modificationDate = last + 1;
    asset.trashedDate = -last - 1;
    photoItem photo = filledFrom(asset);
    EXPECT_TRUE(photo.dateCreated.isNull());
    EXPECT_TRUE(photo.modificationDate.isNull());
    EXPECT_TRUE(photo.trashedDate.isNull());

    asset.dateCreated = last - reference.toSecsSinceEpoch();
    asset.modificationDate = last - reference.toSecsSinceEpoch() + 1;
    asset.trashedDate = last;
    photo = filledFrom(asset);
    EXPECT_EQ(photo.dateCreated.toSecsSinceEpoch(), last);
    EXPECT_TRUE(photo.modificationDate.isNull());
    EXPECT_TRUE(photo.trashedDate.isNull());
}

TEST(FillPhotoItem, OverwritesWhatTheItemHeld)
{
    photoItem photo;
    photo.entity = 99;
    photo.metadataPath = "old";
    photo.duration = 99;
    fillPhotoItem(assetWithDistinctValues(), reference, &photo);
    EXPECT_EQ(photo.entity, 2);
    EXPECT_EQ(photo.metadataPath, QString(""));
    EXPECT_EQ(photo.duration, 24);
}

TEST(FillPhotoItem, KindZeroIsAStillPhotoWhateverItsType)
{
    EXPECT_EQ(mediaTypeOf(0, "public.jpeg"), 3);
    EXPECT_EQ(mediaTypeOf(0, "com.compuserve.gif"), 3);
    EXPECT_EQ(mediaTypeOf(0, "com.apple.quicktime-movie"), 3);
}

TEST(FillPhotoItem, OtherKindsAreVideosUnlessTheirTypeSaysGifInAnyCase)
{
    EXPECT_EQ(mediaTypeOf(1, "public.mpeg-4"), 1);
    EXPECT_EQ(mediaTypeOf(1, ""), 1);
    EXPECT_EQ(mediaTypeOf(1, "com.compuserve.gif"), 2);
    EXPECT_EQ(mediaTypeOf(1, "com.compuserve.GIF"), 2);
    EXPECT_EQ(mediaTypeOf(1, "Gif"), 2);
    EXPECT_EQ(mediaTypeOf(2, "public.mpeg-4"), 1);
    EXPECT_EQ(mediaTypeOf(-1, "x.gif.y"), 2);
}

TEST(FillPhotoItem, OnlyVideosHaveAMetadataPath)
{
    EXPECT_EQ(metadataPathOf(1, "public.mpeg-4", "DCIM/100APPLE"), QString("PhotoData/Metadata/DCIM/100APPLE"));
    for (const QString &path : {metadataPathOf(0, "public.mpeg-4", "DCIM/100APPLE"),
                                metadataPathOf(1, "com.compuserve.gif", "DCIM/100APPLE")}) {
        EXPECT_TRUE(path.isEmpty()) << path.toStdString();
        EXPECT_FALSE(path.isNull());
    }
}

TEST(FillPhotoItem, MetadataPathHoldsTheFolderOnlyWithMovTurnedIntoJpg)
{
    EXPECT_EQ(metadataPathOf(1, "", "DCIM/100MOV"), QString("PhotoData/Metadata/DCIM/100JPG"));
    EXPECT_EQ(metadataPathOf(1, "", "MOV/MOVMOV"), QString("PhotoData/Metadata/JPG/JPGJPG"));
    EXPECT_EQ(metadataPathOf(1, "", "DCIM/100mov"), QString("PhotoData/Metadata/DCIM/100mov"));
    EXPECT_EQ(metadataPathOf(1, "", ""), QString("PhotoData/Metadata/"));
}

TEST(FillPhotoItem, PlaceMarkersInAFolderStay)
{
    EXPECT_EQ(metadataPathOf(1, "", "a %1 %2"), QString("PhotoData/Metadata/a %1 %2"));
}

TEST(FillPhotoItem, DurationIsTruncatedTowardZero)
{
    EXPECT_EQ(durationOf(12.9), 12);
    EXPECT_EQ(durationOf(-0.5), 0);
    EXPECT_EQ(durationOf(-12.9), -12);
    EXPECT_EQ(durationOf(2147483646.9), 2147483646);
}

TEST(FillPhotoItem, DurationThatIsNoNumberIsZero)
{
    EXPECT_EQ(durationOf(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(FillPhotoItem, DurationBeyondItsRangeBecomesTheNearestOne)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(durationOf(2147483648.0), std::numeric_limits<qint32>::max());
    EXPECT_EQ(durationOf(1e300), std::numeric_limits<qint32>::max());
    EXPECT_EQ(durationOf(infinity), std::numeric_limits<qint32>::max());
    EXPECT_EQ(durationOf(-2147483649.0), std::numeric_limits<qint32>::min());
    EXPECT_EQ(durationOf(-infinity), std::numeric_limits<qint32>::min());
}

TEST(FillAlbumItem, CopiesEveryField)
{
    albumRecord album;
    album.pk = 41;
    album.entity = 42;
    album.kind = 1550;
    album.title = "Trip";
    album.uuid = QByteArray("a\0b", 3);
    album.trashedState = 43;
    album.memberIds = {9, 8, 9};
    const albumItem item = filledFrom(album);
    EXPECT_EQ(item.id, 41);
    EXPECT_EQ(item.entity, 42);
    EXPECT_EQ(item.kind, 1550);
    EXPECT_EQ(item.title, QString("Trip"));
    EXPECT_EQ(item.uuid, QByteArray("a\0b", 3));
    EXPECT_EQ(item.trashedState, 43);
    EXPECT_EQ(item.photoIds, (QList<qint64>{9, 8, 9}));
    EXPECT_EQ(item.albumType, 2);
}

TEST(FillAlbumItem, NegativeKeyComesBackNegative)
{
    albumRecord album;
    album.pk = static_cast<quint64>(-5);
    EXPECT_EQ(filledFrom(album).id, -5);
}

TEST(FillAlbumItem, OverwritesTheListThatTheItemHeld)
{
    albumItem item;
    item.photoIds = {1, 2};
    fillAlbumItem(albumRecord(), &item);
    EXPECT_EQ(item.photoIds, QList<qint64>());
}

TEST(FillAlbumItem, SharesTheMemberListUntilOneSideWrites)
{
    albumRecord album;
    album.memberIds = {4};
    albumItem item;
    fillAlbumItem(album, &item);
    fillAlbumItem(album, &item);
    EXPECT_TRUE(item.photoIds.isSharedWith(album.memberIds));
    item.photoIds.append(5);
    EXPECT_EQ(album.memberIds, QList<qint64>{4});
}

TEST(FillAlbumItem, AlbumTypeTellsTwoKindsApartFromAllOthers)
{
    EXPECT_EQ(albumTypeOf(2), 1);
    EXPECT_EQ(albumTypeOf(1550), 2);
    for (const int kind : {0, 1, 3, -2, 1505, 1549, 1551, 4000})
        EXPECT_EQ(albumTypeOf(kind), 0) << kind;
}
