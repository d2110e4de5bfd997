// What becomes of each field of an item that is added as a new photo.

#include "photolib/record_items.h"

#include "tests/unit/photolib/edited_library.h"
#include "tests/unit/photolib/photo_item_fields.h"

#include <limits>

using photolib::assetOf;

namespace
{

const QDateTime reference(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC);

photoItem itemWithDates()
{
    photoItem item;
    item.dateCreated = reference.addSecs(10);
    item.modificationDate = reference.addSecs(20);
    item.trashedDate = reference.addSecs(30);
    return item;
}

qint32 kindOf(qint32 mediaType)
{
    photoItem item;
    item.mediaType = mediaType;
    return assetOf(item, reference)->kind;
}

void expectSameButForTheMetadataPath(const photoItem &stored, const photoItem &item)
{
    for (const PhotoField &field : photoFields()) {
        if (field.name != QByteArray("metadataPath")) {
            EXPECT_TRUE(field.isSame(stored, item)) << field.name;
        }
    }
}

std::string nameOf(const testing::TestParamInfo<PhotoField> &info)
{
    return info.param.name;
}

class NewPhoto : public EditedLibrary
{
protected:
    /// Adds the photo and answers it as the library has it.
    photoItem added(photoItem *item) const
    {
        const qint64 noAlbum = 0;
        EXPECT_EQ(manager->addPhoto(item, &noAlbum), 0);
        return photo(item->id);
    }
};

class NewPhotoField : public NewPhoto, public testing::WithParamInterface<PhotoField>
{
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Every, NewPhotoField, testing::ValuesIn(photoFields()), nameOf);

// The other fields stay as they are: none is stored in the place of another.
TEST_P(NewPhotoField, ComesBackAsTheHostSetIt)
{
    photoItem item = itemWithDates();
    GetParam().change(item);
    item.id = 0; // a new photo
    const photoItem stored = added(&item);
    expectSameButForTheMetadataPath(stored, item);
}

TEST_F(NewPhoto, WithEveryFieldSetKeepsThemAll)
{
    photoItem item;
    for (const PhotoField &field : photoFields())
        field.change(item);
    item.id = 0;
    const photoItem stored = added(&item);
    expectSameButForTheMetadataPath(stored, item);
    EXPECT_EQ(item.metadataPath, QString("PhotoData/Metadata/x"));
    EXPECT_EQ(stored.metadataPath, QString("PhotoData/Metadata/DCIM/100APPLE")) << "made from the folder, not stored";
}

TEST_F(NewPhoto, DoesNotChangeWithTheHostsItem)
{
    photoItem item = itemWithDates();
    item.fileName = "NEW.JPG";
    item.uniformTypeIdentifier = "public.jpeg";
    added(&item);
    item.fileName[0] = 'X';
    item.uniformTypeIdentifier.append(" changed");
    item.uuid[15] = item.uuid[15] == 'X' ? 'Y' : 'X'; // its bytes are random
    item.dateCreated = item.dateCreated.addSecs(1);
    item.width = 9;
    const photoItem stored = photo(item.id);
    EXPECT_EQ(stored.fileName, QString("NEW.JPG"));
    EXPECT_EQ(stored.uniformTypeIdentifier, QString("public.jpeg"));
    EXPECT_NE(stored.uuid, item.uuid);
    EXPECT_EQ(stored.dateCreated, reference.addSecs(10));
    EXPECT_EQ(stored.width, 0);
}

TEST_F(NewPhoto, WithoutDatesIsOfTheReferenceDate)
{
    photoItem item;
    const photoItem stored = added(&item);
    EXPECT_EQ(stored.dateCreated, reference);
    EXPECT_EQ(stored.modificationDate, reference);
    EXPECT_EQ(stored.trashedDate, reference);
    EXPECT_TRUE(item.dateCreated.isNull()) << "the host's item keeps its null dates";
    EXPECT_EQ(probe.reader()->findAsset(nextPhoto)->addedDate, 1);
}

TEST_F(NewPhoto, AnimatedGifComesBackAsAStillPhoto)
{
    photoItem item;
    item.mediaType = 2;
    item.uniformTypeIdentifier = "com.compuserve.gif";
    EXPECT_EQ(added(&item).mediaType, 3);
    EXPECT_EQ(item.mediaType, 2);
}

TEST_F(NewPhoto, VideoWhoseTypeSaysGifComesBackAsAnAnimatedGif)
{
    photoItem item;
    item.mediaType = 1;
    item.uniformTypeIdentifier = "com.compuserve.gif";
    EXPECT_EQ(added(&item).mediaType, 2);
}

TEST_F(NewPhoto, IsNotOwnedByAReaderOfADatabase)
{
    photoItem item;
    added(&item);
    EXPECT_EQ(probe.reader()->findAsset(nextPhoto)->owner, nullptr);
}

TEST(AssetOf, OnlyMediaTypeOneIsAVideo)
{
    EXPECT_EQ(kindOf(1), 1);
    for (const qint32 mediaType : {0, 2, 3, 4, -1})
        EXPECT_EQ(kindOf(mediaType), 0) << mediaType;
}

TEST(AssetOf, WasAddedOneSecondAfterItWasTaken)
{
    photoItem item = itemWithDates();
    EXPECT_EQ(assetOf(item, reference)->dateCreated, 10);
    EXPECT_EQ(assetOf(item, reference)->addedDate, 11);
    EXPECT_EQ(assetOf(item, reference)->modificationDate, 20);
    EXPECT_EQ(assetOf(item, reference)->trashedDate, 30);
    item.dateCreated = reference.addSecs(-86400);
    EXPECT_EQ(assetOf(item, reference)->dateCreated, -86400);
    EXPECT_EQ(assetOf(item, reference)->addedDate, -86399);
}

TEST(AssetOf, DatesOfOtherTimeZonesAreTheSameInstants)
{
    photoItem item;
    item.dateCreated = QDateTime(QDate(2001, 1, 1), QTime(2, 0), Qt::OffsetFromUTC, 7200);
    item.modificationDate = QDateTime(QDate(2001, 1, 1), QTime(2, 0), Qt::OffsetFromUTC, 3600);
    EXPECT_EQ(assetOf(item, reference)->dateCreated, 0);
    EXPECT_EQ(assetOf(item, reference)->modificationDate, 3600);
}

TEST(AssetOf, PartsOfASecondAreDropped)
{
    photoItem item;
    item.dateCreated = reference.addMSecs(1999);
    item.modificationDate = reference.addMSecs(-1999);
    EXPECT_EQ(assetOf(item, reference)->dateCreated, 1);
    EXPECT_EQ(assetOf(item, reference)->modificationDate, -1);
}

TEST(AssetOf, DurationIsTheItemsWholeSeconds)
{
    photoItem item;
    for (const qint32 seconds : {0, 12, -3, std::numeric_limits<qint32>::max()}) {
        item.duration = seconds;
        EXPECT_EQ(assetOf(item, reference)->duration, static_cast<double>(seconds));
    }
}

TEST(AssetOf, KeepsNullAndEmptyTextsApart)
{
    photoItem item;
    item.avalancheUuid = "";
    const auto asset = assetOf(item, reference);
    EXPECT_TRUE(asset->fileName.isNull());
    EXPECT_FALSE(asset->avalancheUuid.isNull());
    EXPECT_FALSE(asset->uniformTypeIdentifier.isNull());
}

TEST(AlbumOf, HoldsTheItemButForItsType)
{
    albumItem item;
    item.id = -5;
    item.entity = 2;
    item.kind = 3;
    item.trashedState = 4;
    item.uuid = QByteArray("a\0b", 3);
    item.title = "Trip";
    item.albumType = 1;
    item.photoIds = {8, 7, 8};
    const auto album = photolib::albumOf(item);
    EXPECT_EQ(album->pk, static_cast<quint64>(-5));
    EXPECT_EQ(album->entity, 2);
    EXPECT_EQ(album->kind, 3);
    EXPECT_EQ(album->trashedState, 4);
    EXPECT_EQ(album->uuid, QByteArray("a\0b", 3));
    EXPECT_EQ(album->title, QString("Trip"));
    EXPECT_EQ(album->memberIds, (QList<qint64>{8, 7, 8}));
    EXPECT_TRUE(album->memberIds.isSharedWith(item.photoIds));
}
