#include "testing/log_recorder.h"
#include "tests/unit/photolib/made_library.h"
#include "tests/unit/photolib/photo_manager_probe.h"

#include <gtest/gtest.h>

#include <thread>

using testkit::Era;
using testkit::FakeDevice;
using testkit::LibraryBuilder;
using testkit::LogRecorder;

namespace
{

/// An open library of four photos and two albums.
class Queries : public testing::Test
{
protected:
    Queries()
    {
        // Rows are read in the order of their modification dates.
        for (const qint64 key : {4, 2, 3, 1}) {
            testkit::AssetRow photo;
            photo.key = key;
            photo.fileName = QString("IMG_%1.JPG").arg(key);
            photo.directory = key < 3 ? "Photos/x" : "DCIM/100APPLE";
            photo.modificationDate = 100.0 * static_cast<double>(10 - key);
            photo.dateCreated = static_cast<double>(key);
            photo.avalancheUuid = QString("Burst-%1").arg(key % 2);
            library.addAsset(photo);
        }
        for (const qint64 key : {9, 7}) {
            testkit::AlbumRow album;
            album.key = key;
            album.kind = key == 9 ? 2 : 1550;
            album.title = QString("Album %1").arg(key);
            library.addAlbum(album);
        }
        library.addToAlbum(9, 3);
        library.addToAlbum(9, 1);
        putOn(device, library);
        EXPECT_TRUE(manager->openLibrary());
        log.takeAll();
    }

    LogRecorder log;
    FakeDevice device;
    LibraryBuilder library{Era::Ios16, bareLibrary()};
    const Manager manager = makeManager(device);
    PhotoManagerProbe probe{implementationOf(manager)};
};

/// Answers lists of its own; the counts are inherited.
class OverridingManager final : public photo_manager
{
public:
    OverridingManager() : photo_manager(nullptr) {}
    QList<qint64> getPhotoList() override { return {1, 2, 3}; }
    QList<qint64> getAlbumList() override { return {1, 2, 3, 4, 5}; }
};

constexpr qint64 unknownId = 12345;

} // namespace

TEST(QueriesWithoutALibrary, AnswerNothing)
{
    LogRecorder log;
    FakeDevice device;
    const Manager manager = makeManager(device);
    EXPECT_EQ(manager->getPhotoCount(), 0);
    EXPECT_EQ(manager->getAlbumCount(), 0);
    EXPECT_TRUE(manager->getPhotoList().isEmpty());
    EXPECT_TRUE(manager->getAlbumList().isEmpty());
    EXPECT_TRUE(manager->getGroupKeys(28).isEmpty());
    EXPECT_TRUE(manager->getPhotoGroup(28, "0").key.isNull());
}

TEST(QueriesWithoutALibrary, GettersFailAndLeaveTheItemUntouched)
{
    LogRecorder log;
    FakeDevice device;
    const Manager manager = makeManager(device);
    const qint64 id = 1;
    photoItem photo;
    photo.fileName = "mine";
    albumItem album;
    album.title = "mine";
    EXPECT_FALSE(manager->getPhotoItem(&id, &photo));
    EXPECT_FALSE(manager->getAlbumItem(&id, &album));
    EXPECT_EQ(photo.fileName, QString("mine"));
    EXPECT_EQ(album.title, QString("mine"));
}

TEST(QueryCounts, FollowListsThatASubclassOverrides)
{
    OverridingManager manager;
    EXPECT_EQ(manager.getPhotoCount(), 3);
    EXPECT_EQ(manager.getAlbumCount(), 5);
}

TEST_F(Queries, ListsAscendWhateverTheOrderOfReading)
{
    EXPECT_EQ(manager->getPhotoList(), (QList<qint64>{1, 2, 3, 4}));
    EXPECT_EQ(manager->getAlbumList(), (QList<qint64>{7, 9}));
    EXPECT_EQ(manager->getPhotoCount(), 4);
    EXPECT_EQ(manager->getAlbumCount(), 2);
}

TEST_F(Queries, DoNotTouchTheDevice)
{
    device.clearOperations();
    const qint64 id = 1;
    photoItem photo;
    albumItem album;
    manager->getPhotoList();
    manager->getAlbumList();
    manager->getPhotoItem(&id, &photo);
    manager->getAlbumItem(&id, &album);
    manager->getGroupKeys(28);
    manager->getPhotoGroup(28, "0");
    manager->getLibraryUuid();
    EXPECT_EQ(device.operations(testkit::allOperations), QStringList());
}

TEST_F(Queries, TakeNoLock)
{
    const QMutexLocker edits(&probe.editMutex());
    const QMutexLocker uuids(&probe.uuidMutex());
    probe.busySemaphore().acquire();
    // A query that waited for one of them would never return.
    std::thread([this] {
        const qint64 photo = 3;
        const qint64 album = 9;
        photoItem photoOut;
        albumItem albumOut;
        EXPECT_TRUE(manager->getPhotoItem(&photo, &photoOut));
        EXPECT_TRUE(manager->getAlbumItem(&album, &albumOut));
        EXPECT_EQ(manager->getPhotoCount(), 4);
        EXPECT_EQ(manager->getAlbumCount(), 2);
        EXPECT_EQ(manager->getGroupKeys(28), QStringList{"0"});
        EXPECT_EQ(manager->getPhotoGroup(28, "0").key, QString("0"));
        EXPECT_FALSE(manager->getLibraryUuid().isEmpty());
        EXPECT_FALSE(manager->isCancelled());
    }).join();
    probe.busySemaphore().release();
}

TEST_F(Queries, PhotoItemIsFilledFromThePhotoOfThatId)
{
    const qint64 id = 3;
    photoItem photo;
    ASSERT_TRUE(manager->getPhotoItem(&id, &photo));
    EXPECT_EQ(photo.id, 3);
    EXPECT_EQ(photo.fileName, QString("IMG_3.JPG"));
    EXPECT_EQ(photo.dateCreated.toString(Qt::ISODate), QString("2001-01-01T00:00:03Z"));
    EXPECT_EQ(photo.modificationDate.toString(Qt::ISODate), QString("2001-01-01T00:11:40Z"));
}

TEST_F(Queries, UnknownPhotoIsFalseAndLeavesTheItemUntouched)
{
    photoItem photo;
    photo.fileName = "mine";
    EXPECT_FALSE(manager->getPhotoItem(&unknownId, &photo));
    EXPECT_EQ(photo.fileName, QString("mine"));
    EXPECT_EQ(photo.id, 0);
    EXPECT_EQ(manager->getPhotoCount(), 4) << "looking one up inserts nothing";
}

TEST_F(Queries, AlbumItemIsFilledFromTheAlbumOfThatId)
{
    const qint64 id = 9;
    albumItem album;
    ASSERT_TRUE(manager->getAlbumItem(&id, &album));
    EXPECT_EQ(album.id, 9);
    EXPECT_EQ(album.title, QString("Album 9"));
    EXPECT_EQ(album.kind, 2);
    EXPECT_EQ(album.albumType, 1);
    EXPECT_EQ(album.trashedState, 0);
    EXPECT_EQ(album.photoIds, (QList<qint64>{3, 1}));
}

TEST_F(Queries, UnknownAlbumIsTrueUnlikeAnUnknownPhotoAndLeavesTheItemUntouched)
{
    albumItem album;
    album.title = "mine";
    EXPECT_TRUE(manager->getAlbumItem(&unknownId, &album));
    EXPECT_EQ(album.title, QString("mine"));
    EXPECT_EQ(album.id, 0);
    EXPECT_EQ(manager->getAlbumCount(), 2) << "looking one up inserts nothing";
}

TEST_F(Queries, NullItemsAreFalseForKnownAndUnknownIds)
{
    const qint64 photo = 3;
    const qint64 album = 9;
    EXPECT_FALSE(manager->getPhotoItem(&photo, nullptr));
    EXPECT_FALSE(manager->getAlbumItem(&album, nullptr));
    EXPECT_FALSE(manager->getPhotoItem(&unknownId, nullptr));
    EXPECT_FALSE(manager->getAlbumItem(&unknownId, nullptr));
}

TEST_F(Queries, GroupKeysAscendAndUnknownCategoriesHaveNone)
{
    EXPECT_EQ(manager->getGroupKeys(16), (QStringList{"Burst-0", "Burst-1"}));
    EXPECT_EQ(manager->getGroupKeys(28), QStringList{"0"});
    EXPECT_EQ(manager->getGroupKeys(999), QStringList());
    EXPECT_EQ(manager->getGroupKeys(-1), QStringList());
}

TEST_F(Queries, GroupIsACopyThatTheHostMayChange)
{
    photoGroup group = manager->getPhotoGroup(28, "0");
    EXPECT_EQ(group.category, 28);
    EXPECT_EQ(group.key, QString("0"));
    EXPECT_EQ(group.assetIds, (QList<qint64>{1, 2}));
    group.assetIds.append(99);
    group.key = "changed";
    EXPECT_EQ(manager->getPhotoGroup(28, "0").assetIds, (QList<qint64>{1, 2}));
    EXPECT_EQ(manager->getGroupKeys(28), QStringList{"0"});
}

TEST_F(Queries, CopyOfAGroupHasAllSixFields)
{
    photoGroup stored;
    stored.category = 15;
    stored.key = "8";
    stored.title = "May Trip";
    stored.coverAssetId = 6;
    stored.favorite = 1;
    stored.assetIds = {6, 5};
    probe.groups()[15].insert("8", stored);
    const photoGroup copy = manager->getPhotoGroup(15, "8");
    EXPECT_EQ(copy.category, 15);
    EXPECT_EQ(copy.key, QString("8"));
    EXPECT_EQ(copy.title, QString("May Trip"));
    EXPECT_EQ(copy.coverAssetId, 6);
    EXPECT_EQ(copy.favorite, 1);
    EXPECT_EQ(copy.assetIds, (QList<qint64>{6, 5}));
}

TEST_F(Queries, GroupThatDoesNotExistIsEmptyWithNullTexts)
{
    for (const photoGroup &group :
         {manager->getPhotoGroup(28, "1"), manager->getPhotoGroup(999, "0"), manager->getPhotoGroup(16, "burst-1"),
          manager->getPhotoGroup(16, "Burst-1 "), manager->getPhotoGroup(28, QString())}) {
        EXPECT_TRUE(group.key.isNull());
        EXPECT_TRUE(group.title.isNull());
        EXPECT_TRUE(group.assetIds.isEmpty());
    }
}

TEST_F(Queries, AskingForGroupsInsertsNone)
{
    const QList<int> categories = probe.groups().keys();
    manager->getGroupKeys(999);
    manager->getPhotoGroup(999, "0");
    manager->getPhotoGroup(28, "1");
    EXPECT_EQ(probe.groups().keys(), categories);
    EXPECT_EQ(manager->getGroupKeys(28), QStringList{"0"});
}
