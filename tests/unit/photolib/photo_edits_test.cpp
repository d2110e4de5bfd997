#include "tests/unit/photolib/db/photos_db_probe.h"
#include "tests/unit/photolib/edited_library.h"

#include <limits>

namespace
{

class PhotoEdits : public EditedLibrary
{
protected:
    const qint64 noAlbum = 0;
    const qint64 userAlbum = 7;
    const qint64 otherAlbum = 5;
};

} // namespace

TEST_F(PhotoEdits, NewPhotoComesBackWithAnIdentityOfItsOwnAndIsStored)
{
    photoItem item;
    item.entity = 99;
    item.uuid = "old";
    item.fileName = "NEW.JPG";
    EXPECT_EQ(manager->addPhoto(&item, &userAlbum), 0);
    EXPECT_EQ(item.id, nextPhoto);
    EXPECT_EQ(item.entity, library.facts().assetEntityNumber);
    EXPECT_EQ(item.uuid.size(), 16);
    EXPECT_EQ(item.uuid.left(8), QByteArray(8, '\0'));
    EXPECT_EQ(item.fileName, QString("NEW.JPG"));

    EXPECT_EQ(manager->getPhotoList(), (QList<qint64>{1, 2, 3, 4, nextPhoto}));
    EXPECT_EQ(manager->getPhotoCount(), 5);
    const photoItem stored = photo(nextPhoto);
    EXPECT_EQ(stored.id, nextPhoto);
    EXPECT_EQ(stored.entity, item.entity);
    EXPECT_EQ(stored.uuid, item.uuid);
    EXPECT_EQ(album(userAlbum).photoIds, (QList<qint64>{3, nextPhoto}));
    EXPECT_EQ(device.operations(testkit::allOperations), QStringList());
}

TEST_F(PhotoEdits, NewPhotoIsInNoGroupWhateverItsFolder)
{
    const auto groupKeys = [this] {
        QMap<int, QStringList> keys;
        for (const int category : probe.groups().keys())
            keys.insert(category, manager->getGroupKeys(category));
        return keys;
    };
    const auto before = groupKeys();
    const int known = probe.knownUuids().size();
    photoItem item;
    item.directory = "Photos/x";
    item.favorite = 1;
    item.latitude = 1.0;
    item.longitude = 2.0;
    ASSERT_EQ(manager->addPhoto(&item, &noAlbum), 0);
    EXPECT_EQ(groupKeys(), before);
    EXPECT_EQ(syncedPhotos(), (QList<qint64>{1, 2}));
    EXPECT_EQ(probe.knownUuids().size(), known + 1);
    EXPECT_TRUE(probe.knownUuids().value(item.uuid));
}

TEST_F(PhotoEdits, NewPhotoForAnUnknownAlbumIsStoredAllTheSame)
{
    for (const qint64 key : {noAlbum, unknownId, qint64(-7)}) {
        photoItem item;
        EXPECT_EQ(manager->addPhoto(&item, &key), 0);
    }
    EXPECT_EQ(manager->getPhotoList(), (QList<qint64>{1, 2, 3, 4, 41, 42, 43}));
    EXPECT_EQ(manager->getAlbumList(), (QList<qint64>{5, 7})) << "no album is made";
    EXPECT_EQ(album(7).photoIds, QList<qint64>{3});
}

TEST_F(PhotoEdits, AddingTheSameItemAgainMakesNoSecondPhoto)
{
    photoItem item;
    ASSERT_EQ(manager->addPhoto(&item, &userAlbum), 0);
    const QByteArray uuid = item.uuid;
    ASSERT_EQ(manager->addPhoto(&item, &otherAlbum), 0);
    EXPECT_EQ(item.id, nextPhoto);
    EXPECT_EQ(item.uuid, uuid);
    EXPECT_EQ(manager->getPhotoCount(), 5);
    EXPECT_EQ(album(otherAlbum).photoIds, (QList<qint64>{1, 2, nextPhoto}));
}

TEST_F(PhotoEdits, APhotoWithAnIdIsTakenAtItsWord)
{
    photoItem item;
    item.entity = 99;
    item.uuid = "mine";
    for (const qint64 id : {qint64(4), unknownId, qint64(-9)}) {
        item.id = id;
        EXPECT_EQ(manager->addPhoto(&item, &userAlbum), 0);
        EXPECT_EQ(item.id, id);
    }
    EXPECT_EQ(item.entity, 99);
    EXPECT_EQ(item.uuid, QByteArray("mine"));
    EXPECT_EQ(manager->getPhotoList(), (QList<qint64>{1, 2, 3, 4}));
    EXPECT_EQ(album(userAlbum).photoIds, (QList<qint64>{3, 4, unknownId, -9}));
    EXPECT_FALSE(probe.knownUuids().contains("mine"));
}

TEST_F(PhotoEdits, AddingAPhotoTwiceListsItTwice)
{
    photoItem item = photo(3);
    EXPECT_EQ(manager->addPhoto(&item, &userAlbum), 0);
    EXPECT_EQ(manager->addPhoto(&item, &userAlbum), 0);
    EXPECT_EQ(album(userAlbum).photoIds, (QList<qint64>{3, 3, 3}));
}

TEST_F(PhotoEdits, AlbumsOfAnyKindTakePhotos)
{
    photoItem item = photo(4);
    EXPECT_EQ(manager->addPhoto(&item, &otherAlbum), 0);
    EXPECT_EQ(album(otherAlbum).photoIds, (QList<qint64>{1, 2, 4}));
}

TEST_F(PhotoEdits, AddingDoesNotChangeMemberListsThatTheHostHolds)
{
    const albumItem before = album(userAlbum);
    photoItem item = photo(4);
    EXPECT_EQ(manager->addPhoto(&item, &userAlbum), 0);
    EXPECT_EQ(before.photoIds, QList<qint64>{3});
}

TEST_F(PhotoEdits, NullPhotoIsRefusedWithAMessageAndUsesUpNoKey)
{
    EXPECT_EQ(manager->addPhoto(nullptr, &userAlbum), -1);
    log.expectLine("PHOTOLIB 2 no photolib or photo");
    EXPECT_EQ(album(userAlbum).photoIds, QList<qint64>{3});
    photoItem item;
    ASSERT_EQ(manager->addPhoto(&item, &userAlbum), 0);
    EXPECT_EQ(item.id, nextPhoto);
}

TEST_F(PhotoEdits, PhotoKeysHave32BitsSignExtended)
{
    PhotosDbProbe{*probe.reader()}.entities()["Asset"].maxPk = std::numeric_limits<int>::max();
    photoItem item;
    ASSERT_EQ(manager->addPhoto(&item, &userAlbum), 0);
    EXPECT_EQ(item.id, -2147483648LL);
    EXPECT_EQ(photo(-2147483648LL).uuid, item.uuid);
    EXPECT_EQ(album(userAlbum).photoIds, (QList<qint64>{3, -2147483648LL}));
    EXPECT_EQ(manager->deletePhoto(&item.id), 0);
    EXPECT_EQ(manager->getPhotoList(), (QList<qint64>{1, 2, 3, 4}));
}

TEST_F(PhotoEdits, AKeyIsNotGivenOutAgainAfterItsPhotoWasDeleted)
{
    photoItem item;
    ASSERT_EQ(manager->addPhoto(&item, &noAlbum), 0);
    ASSERT_EQ(manager->deletePhoto(&item.id), 0);
    photoItem next;
    ASSERT_EQ(manager->addPhoto(&next, &noAlbum), 0);
    EXPECT_EQ(next.id, nextPhoto + 1);
    EXPECT_NE(next.uuid, item.uuid);
}

TEST_F(PhotoEdits, AddPhotoToAlbumAddsToTheStoreAndToTheHostsItem)
{
    albumItem into = album(userAlbum);
    photoItem item;
    EXPECT_EQ(manager->addPhotoToAlbum(&item, &into), 0);
    EXPECT_EQ(item.id, nextPhoto);
    EXPECT_EQ(photo(nextPhoto).uuid, item.uuid);
    EXPECT_EQ(into.photoIds, (QList<qint64>{3, nextPhoto}));
    EXPECT_EQ(album(userAlbum).photoIds, (QList<qint64>{3, nextPhoto}));
}

TEST_F(PhotoEdits, AddPhotoToAlbumAppendsToWhateverListTheHostsItemHolds)
{
    albumItem into;
    into.id = userAlbum;
    into.photoIds = {100, 4};
    photoItem item = photo(4);
    EXPECT_EQ(manager->addPhotoToAlbum(&item, &into), 0);
    EXPECT_EQ(manager->addPhotoToAlbum(&item, &into), 0);
    EXPECT_EQ(into.photoIds, (QList<qint64>{100, 4, 4, 4}));
    EXPECT_EQ(album(userAlbum).photoIds, (QList<qint64>{3, 4, 4}));
}

TEST_F(PhotoEdits, AddPhotoToAUnknownAlbumFillsTheHostsItemOnly)
{
    albumItem into;
    for (const qint64 id : {unknownId, qint64(0)}) {
        into.id = id;
        photoItem item = photo(4);
        EXPECT_EQ(manager->addPhotoToAlbum(&item, &into), 0);
    }
    EXPECT_EQ(into.photoIds, (QList<qint64>{4, 4}));
    EXPECT_EQ(manager->getAlbumList(), (QList<qint64>{5, 7}));
}

TEST_F(PhotoEdits, AddPhotoToANullAlbumStoresThePhoto)
{
    photoItem item;
    EXPECT_EQ(manager->addPhotoToAlbum(&item, nullptr), 0);
    EXPECT_EQ(item.id, nextPhoto);
    EXPECT_EQ(manager->getPhotoCount(), 5);
    EXPECT_EQ(album(userAlbum).photoIds, QList<qint64>{3});
    EXPECT_EQ(album(otherAlbum).photoIds, (QList<qint64>{1, 2}));
}

TEST_F(PhotoEdits, AddPhotoToAnAlbumThatWasJustCreated)
{
    albumItem into;
    into.trashedState = 0;
    ASSERT_EQ(manager->createAlbum(&into), 0);
    for (int i = 0; i < 2; ++i) {
        photoItem item;
        ASSERT_EQ(manager->addPhotoToAlbum(&item, &into), 0);
    }
    EXPECT_EQ(into.photoIds, (QList<qint64>{nextPhoto, nextPhoto + 1}));
    EXPECT_EQ(album(nextAlbum).photoIds, into.photoIds);
}

TEST_F(PhotoEdits, DeletedPhotoLeavesTheLibraryAndTheGroupOfSyncedPhotosOnly)
{
    const QList<qint64> others = manager->getPhotoGroup(3, "0").assetIds;
    ASSERT_TRUE(others.contains(1));
    const qint64 id = 1;
    EXPECT_EQ(manager->deletePhoto(&id), 0);
    photoItem item;
    EXPECT_FALSE(manager->getPhotoItem(&id, &item));
    EXPECT_EQ(manager->getPhotoList(), (QList<qint64>{2, 3, 4}));
    EXPECT_EQ(syncedPhotos(), QList<qint64>{2});
    EXPECT_EQ(manager->getPhotoGroup(3, "0").assetIds, others);
    EXPECT_EQ(album(otherAlbum).photoIds, (QList<qint64>{1, 2})) << "albums go on listing it";
    EXPECT_TRUE(probe.knownUuids().contains("PHOTO-1"));
    EXPECT_EQ(device.operations(testkit::allOperations), QStringList());
}

TEST_F(PhotoEdits, DeletingRemovesEveryOccurrenceFromTheGroupOfSyncedPhotosAndFromNoOther)
{
    probe.groups()[28]["0"].assetIds = {1, 2, 1, 3, 1};
    probe.groups()[28]["0"].coverAssetId = 1;
    probe.groups()[28]["-"].assetIds = {1}; // sorts before "0"
    probe.groups()[28]["1"].assetIds = {1};
    probe.groups()[29]["0"].assetIds = {1, 1};
    const qint64 id = 1;
    EXPECT_EQ(manager->deletePhoto(&id), 0);
    const photoGroup group = manager->getPhotoGroup(28, "0");
    EXPECT_EQ(group.assetIds, (QList<qint64>{2, 3}));
    EXPECT_EQ(group.coverAssetId, 1);
    EXPECT_EQ(group.key, QString("0"));
    EXPECT_EQ(manager->getPhotoGroup(28, "-").assetIds, QList<qint64>{1});
    EXPECT_EQ(manager->getPhotoGroup(28, "1").assetIds, QList<qint64>{1});
    EXPECT_EQ(manager->getPhotoGroup(29, "0").assetIds, (QList<qint64>{1, 1}));
}

TEST_F(PhotoEdits, TheGroupOfSyncedPhotosStaysWhenItsLastPhotoGoes)
{
    for (const qint64 id : {1, 2})
        EXPECT_EQ(manager->deletePhoto(&id), 0);
    EXPECT_TRUE(syncedPhotos().isEmpty());
    EXPECT_EQ(manager->getGroupKeys(28), QStringList{"0"});
}

TEST_F(PhotoEdits, DeletingDoesNotChangeGroupsThatTheHostHolds)
{
    const photoGroup before = manager->getPhotoGroup(28, "0");
    EXPECT_EQ(manager->deletePhoto(&before.assetIds.first()), 0);
    EXPECT_EQ(before.assetIds, (QList<qint64>{1, 2}));
    EXPECT_EQ(syncedPhotos(), QList<qint64>{2});
    EXPECT_EQ(manager->getPhotoList(), (QList<qint64>{2, 3, 4}));
}

TEST_F(PhotoEdits, DeletingAnUnknownPhotoOrNoneChangesNothing)
{
    EXPECT_EQ(manager->deletePhoto(&unknownId), 0);
    EXPECT_EQ(manager->deletePhoto(&noAlbum), 0);
    EXPECT_EQ(manager->deletePhoto(nullptr), 0);
    EXPECT_EQ(manager->getPhotoCount(), 4);
    EXPECT_EQ(syncedPhotos(), (QList<qint64>{1, 2}));
}

TEST_F(PhotoEdits, DeletingMakesNoGroup)
{
    probe.groups().remove(28);
    const qint64 id = 1;
    EXPECT_EQ(manager->deletePhoto(&id), 0);
    EXPECT_FALSE(probe.groups().contains(28));
    probe.groups()[28]["1"].assetIds = {2};
    const qint64 second = 2;
    EXPECT_EQ(manager->deletePhoto(&second), 0);
    EXPECT_EQ(manager->getGroupKeys(28), QStringList{"1"});
    EXPECT_EQ(manager->getPhotoGroup(28, "1").assetIds, QList<qint64>{2});
    EXPECT_EQ(manager->getPhotoList(), (QList<qint64>{3, 4}));
}
