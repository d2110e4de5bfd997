#include "tests/unit/photolib/db/photos_db_probe.h"
#include "tests/unit/photolib/edited_library.h"

#include <limits>

namespace
{

class AlbumEdits : public EditedLibrary
{
protected:
    // In every field something that a new album may not keep.
    static albumItem usedItem()
    {
        albumItem item;
        item.id = 7;
        item.entity = 99;
        item.kind = 2;
        item.albumType = 1;
        item.uuid = "old";
        item.title = "Trip";
        item.trashedState = 77;
        item.photoIds = {3, 3, unknownId, 1};
        return item;
    }

    albumRecord &recordOf(qint64 id) { return *probe.reader()->findAlbum(static_cast<quint64>(id)); }
};

} // namespace

TEST_F(AlbumEdits, NewAlbumComesBackWithAnIdentityOfItsOwn)
{
    albumItem item = usedItem();
    EXPECT_EQ(manager->createAlbum(&item), 0);
    EXPECT_EQ(item.id, nextAlbum);
    EXPECT_EQ(item.entity, library.facts().genericAlbum);
    EXPECT_EQ(item.kind, 1550);
    EXPECT_EQ(item.albumType, 2);
    EXPECT_EQ(item.uuid.size(), 16);
    EXPECT_EQ(item.uuid.left(8), QByteArray(8, '\0'));
    EXPECT_TRUE(probe.knownUuids().value(item.uuid));
}

TEST_F(AlbumEdits, NewAlbumKeepsTitleMembersAndTrashedStateOfTheItem)
{
    albumItem item = usedItem();
    ASSERT_EQ(manager->createAlbum(&item), 0);
    EXPECT_EQ(item.title, QString("Trip"));
    EXPECT_EQ(item.trashedState, 77);
    EXPECT_EQ(item.photoIds, (QList<qint64>{3, 3, unknownId, 1}));

    const albumRecord &record = recordOf(nextAlbum);
    EXPECT_EQ(record.pk, static_cast<quint64>(nextAlbum));
    EXPECT_EQ(record.entity, library.facts().genericAlbum);
    EXPECT_EQ(record.kind, 1550);
    EXPECT_EQ(record.title, QString("Trip"));
    EXPECT_EQ(record.uuid, item.uuid);
    EXPECT_EQ(record.trashedState, 77);
    EXPECT_EQ(record.memberIds, (QList<qint64>{3, 3, unknownId, 1}));
}

TEST_F(AlbumEdits, NewAlbumIsListedAndFilled)
{
    albumItem item;
    item.title = "Trip";
    item.trashedState = 0;
    ASSERT_EQ(manager->createAlbum(&item), 0);
    EXPECT_EQ(manager->getAlbumList(), (QList<qint64>{5, 7, nextAlbum}));
    EXPECT_EQ(manager->getAlbumCount(), 3);
    const albumItem stored = album(nextAlbum);
    EXPECT_EQ(stored.title, QString("Trip"));
    EXPECT_EQ(stored.kind, 1550);
    EXPECT_EQ(stored.albumType, 2);
    EXPECT_EQ(stored.uuid, item.uuid);
    EXPECT_TRUE(stored.photoIds.isEmpty());
}

TEST_F(AlbumEdits, NewAlbumWithoutATitleHasANullOne)
{
    albumItem item;
    item.trashedState = 0;
    ASSERT_EQ(manager->createAlbum(&item), 0);
    EXPECT_TRUE(recordOf(nextAlbum).title.isNull());
}

TEST_F(AlbumEdits, NewAlbumIsInNoGroupAndDoesNotTouchTheDevice)
{
    const QList<int> categories = probe.groups().keys();
    albumItem item = usedItem();
    ASSERT_EQ(manager->createAlbum(&item), 0);
    EXPECT_EQ(probe.groups().keys(), categories);
    EXPECT_EQ(syncedPhotos(), (QList<qint64>{1, 2}));
    EXPECT_EQ(device.operations(testkit::allOperations), QStringList());
}

TEST_F(AlbumEdits, ThePreviousHighestKeyMayBeThatOfAnAlbum)
{
    PhotosDbProbe{*probe.reader()}.entities()["GenericAlbum"].maxPk = 7;
    albumItem item;
    item.trashedState = 0;
    ASSERT_EQ(manager->createAlbum(&item), 0);
    EXPECT_EQ(item.id, 8);
}

TEST_F(AlbumEdits, AlbumKeysHave32Bits)
{
    PhotosDbProbe{*probe.reader()}.entities()["GenericAlbum"].maxPk = std::numeric_limits<int>::max();
    albumItem item;
    item.title = "Last";
    item.trashedState = 0;
    ASSERT_EQ(manager->createAlbum(&item), 0);
    EXPECT_EQ(item.id, -2147483648LL);
    EXPECT_EQ(album(-2147483648LL).title, QString("Last"));
    EXPECT_EQ(manager->getAlbumList(), (QList<qint64>{5, 7, -2147483648LL})) << "keys sort without sign";
    EXPECT_EQ(manager->deleteAlbum(&item.id), 0);
    EXPECT_EQ(manager->getAlbumList(), (QList<qint64>{5, 7}));
}

TEST_F(AlbumEdits, CreatingTwiceFromOneItemMakesTwoAlbums)
{
    albumItem item = usedItem();
    ASSERT_EQ(manager->createAlbum(&item), 0);
    const QByteArray first = item.uuid;
    ASSERT_EQ(manager->createAlbum(&item), 0);
    EXPECT_EQ(item.id, nextAlbum + 1);
    EXPECT_NE(item.uuid, first);
    EXPECT_EQ(album(nextAlbum).uuid, first);
    EXPECT_EQ(album(nextAlbum + 1).uuid, item.uuid);
    EXPECT_EQ(manager->getAlbumCount(), 4);
}

TEST_F(AlbumEdits, NullAlbumIsRefusedWithAMessageAndUsesUpNoKey)
{
    EXPECT_EQ(manager->createAlbum(nullptr), -1);
    log.expectLine("PHOTOLIB 2 no photolib or album");
    albumItem item = usedItem();
    ASSERT_EQ(manager->createAlbum(&item), 0);
    EXPECT_EQ(item.id, nextAlbum);
}

TEST_F(AlbumEdits, ChangesOfTheItemAfterCreatingOrUpdatingDoNotReachTheStore)
{
    albumItem item = usedItem();
    ASSERT_EQ(manager->createAlbum(&item), 0);
    EXPECT_TRUE(item.photoIds.isSharedWith(recordOf(nextAlbum).memberIds));
    item.title += " changed";
    item.photoIds.append(99);
    item.trashedState = 1;
    EXPECT_EQ(recordOf(nextAlbum).title, QString("Trip"));
    EXPECT_EQ(recordOf(nextAlbum).memberIds, (QList<qint64>{3, 3, unknownId, 1}));
    EXPECT_EQ(recordOf(nextAlbum).trashedState, 77);

    ASSERT_EQ(manager->updateAlbum(&item), 0);
    EXPECT_TRUE(item.photoIds.isSharedWith(recordOf(nextAlbum).memberIds));
    item.title[0] = 'X';
    item.photoIds[0] = 98;
    EXPECT_EQ(recordOf(nextAlbum).title, QString("Trip changed"));
    EXPECT_EQ(recordOf(nextAlbum).memberIds, (QList<qint64>{3, 3, unknownId, 1, 99}));
}

TEST_F(AlbumEdits, DeletingAUserAlbumTakesItOutAndLeavesItsPhotos)
{
    const qint64 id = 7;
    EXPECT_EQ(manager->deleteAlbum(&id), 0);
    EXPECT_EQ(manager->getAlbumList(), (QList<qint64>{5}));
    EXPECT_EQ(manager->getPhotoList(), (QList<qint64>{1, 2, 3, 4}));
    EXPECT_EQ(syncedPhotos(), (QList<qint64>{1, 2}));
    EXPECT_TRUE(probe.knownUuids().contains("ALBUM-7")) << "its UUID stays taken";
    EXPECT_EQ(manager->deleteAlbum(&id), 0) << "also when it is gone";
    EXPECT_EQ(device.operations(testkit::allOperations), QStringList());
}

TEST_F(AlbumEdits, DeletingAnAlbumOfAnotherKindSucceedsAndLeavesIt)
{
    const qint64 id = 5;
    EXPECT_EQ(manager->deleteAlbum(&id), 0);
    EXPECT_EQ(manager->getAlbumList(), (QList<qint64>{5, 7}));
    EXPECT_EQ(album(5).photoIds, (QList<qint64>{1, 2}));
}

TEST_F(AlbumEdits, DeletingAnUnknownAlbumSucceedsAndInsertsNone)
{
    for (const qint64 id : {unknownId, qint64(0), qint64(-1)})
        EXPECT_EQ(manager->deleteAlbum(&id), 0);
    EXPECT_EQ(manager->getAlbumList(), (QList<qint64>{5, 7}));
}

TEST_F(AlbumEdits, DeletingDoesNotTouchGroupsWithTheAlbumsNumber)
{
    photoGroup group;
    group.assetIds = {7};
    probe.groups()[28].insert("7", group);
    const qint64 id = 7;
    EXPECT_EQ(manager->deleteAlbum(&id), 0);
    EXPECT_EQ(manager->getPhotoGroup(28, "7").assetIds, QList<qint64>{7});
}

TEST_F(AlbumEdits, AKeyIsNotGivenOutAgainAfterItsAlbumWasDeleted)
{
    albumItem item = usedItem();
    ASSERT_EQ(manager->createAlbum(&item), 0);
    const QByteArray uuid = item.uuid;
    ASSERT_EQ(manager->deleteAlbum(&item.id), 0);
    ASSERT_EQ(manager->createAlbum(&item), 0);
    EXPECT_EQ(item.id, nextAlbum + 1);
    EXPECT_NE(item.uuid, uuid);
    EXPECT_EQ(manager->getAlbumList(), (QList<qint64>{5, 7, nextAlbum + 1}));
}

TEST_F(AlbumEdits, UpdateStoresTitleAndMembersAndNothingElse)
{
    albumItem item = usedItem(); // its id is 7
    EXPECT_EQ(manager->updateAlbum(&item), 0);
    const albumRecord &record = recordOf(7);
    EXPECT_EQ(record.title, QString("Trip"));
    EXPECT_EQ(record.memberIds, (QList<qint64>{3, 3, unknownId, 1}));
    EXPECT_EQ(record.pk, 7U);
    EXPECT_EQ(record.entity, library.facts().album);
    EXPECT_EQ(record.kind, 1550);
    EXPECT_EQ(record.uuid, QByteArray("ALBUM-7"));
    EXPECT_EQ(record.trashedState, 3);
    EXPECT_EQ(item.uuid, QByteArray("old")) << "the item is read only";
    EXPECT_EQ(item.kind, 2);
    EXPECT_EQ(manager->getAlbumList(), (QList<qint64>{5, 7}));
}

TEST_F(AlbumEdits, UpdateEmptiesWhatTheItemLeavesEmpty)
{
    albumItem item;
    item.id = 7;
    EXPECT_EQ(manager->updateAlbum(&item), 0);
    EXPECT_TRUE(recordOf(7).title.isNull());
    EXPECT_TRUE(recordOf(7).memberIds.isEmpty());
}

TEST_F(AlbumEdits, UpdateReachesAlbumsOfAnyKind)
{
    albumItem item = album(5);
    item.title = "New";
    item.photoIds = {4};
    EXPECT_EQ(manager->updateAlbum(&item), 0);
    EXPECT_EQ(album(5).title, QString("New"));
    EXPECT_EQ(album(5).photoIds, QList<qint64>{4});
    EXPECT_EQ(album(5).kind, 2);
}

TEST_F(AlbumEdits, UpdateOfAnUnknownAlbumSucceedsAndInsertsNone)
{
    albumItem item = usedItem();
    item.id = unknownId;
    EXPECT_EQ(manager->updateAlbum(&item), 0);
    EXPECT_EQ(manager->getAlbumList(), (QList<qint64>{5, 7}));
    EXPECT_EQ(album(7).title, QString("Album 7"));
}

TEST_F(AlbumEdits, UpdateOfANullAlbumFailsNamingAlbumZero)
{
    EXPECT_EQ(manager->updateAlbum(nullptr), -1);
    log.expectLine("PHOTOLIB 2 can not get the album: 0");
}
