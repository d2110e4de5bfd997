#include "tests/unit/photolib/db/photos_db_probe.h"
#include "tests/unit/photolib/edited_library.h"

namespace
{

class EditsWithoutALibrary : public testing::Test
{
protected:
    const qint64 id = 1;
    testkit::LogRecorder log;
    testkit::FakeDevice device;
    const Manager manager = makeManager(device);
    PhotoManagerProbe probe{implementationOf(manager)};
};

/// A manager whose opening failed: the reader is there, and knows no entities.
class EditsAfterAFailedOpening : public EditsWithoutALibrary
{
protected:
    EditsAfterAFailedOpening()
    {
        EXPECT_FALSE(manager->openLibrary()); // the device holds no library
        log.takeAll();
    }
};

} // namespace

TEST_F(EditsWithoutALibrary, AddPhotoFailsAndLeavesTheItemUntouched)
{
    photoItem photo;
    EXPECT_EQ(manager->addPhoto(&photo, &id), -1);
    EXPECT_EQ(manager->addPhoto(nullptr, &id), -1);
    log.expectLines({"PHOTOLIB 2 no photolib or photo", "PHOTOLIB 2 no photolib or photo"});
    EXPECT_EQ(photo.id, 0);
    EXPECT_EQ(photo.entity, 27);
    EXPECT_TRUE(photo.uuid.isNull());
}

TEST_F(EditsWithoutALibrary, AddPhotoToAlbumFailsAndAddsNothing)
{
    photoItem photo;
    albumItem album;
    EXPECT_EQ(manager->addPhotoToAlbum(&photo, &album), -1);
    EXPECT_EQ(manager->addPhotoToAlbum(&photo, nullptr), -1);
    EXPECT_EQ(manager->addPhotoToAlbum(nullptr, &album), -1);
    log.expectLines(
        {"PHOTOLIB 2 no photolib or photo", "PHOTOLIB 2 no photolib or photo", "PHOTOLIB 2 no photolib or photo"});
    EXPECT_TRUE(album.photoIds.isEmpty());
}

TEST_F(EditsWithoutALibrary, CreateAlbumFailsAndLeavesTheItemUntouched)
{
    albumItem album;
    album.kind = 2;
    EXPECT_EQ(manager->createAlbum(&album), -1);
    EXPECT_EQ(manager->createAlbum(nullptr), -1);
    log.expectLines({"PHOTOLIB 2 no photolib or album", "PHOTOLIB 2 no photolib or album"});
    EXPECT_EQ(album.id, 0);
    EXPECT_EQ(album.kind, 2);
    EXPECT_TRUE(album.uuid.isNull());
    EXPECT_TRUE(probe.knownUuids().isEmpty());
}

TEST_F(EditsWithoutALibrary, DeleteAlbumFailsSilently)
{
    EXPECT_EQ(manager->deleteAlbum(&id), -1);
}

TEST_F(EditsWithoutALibrary, UpdateAlbumFailsNamingTheAlbumInItsLow32Bits)
{
    albumItem album;
    for (const qint64 number : {77LL, -5LL, 4'294'967'301LL}) {
        album.id = number;
        EXPECT_EQ(manager->updateAlbum(&album), -1);
    }
    EXPECT_EQ(manager->updateAlbum(nullptr), -1);
    log.expectLines({"PHOTOLIB 2 can not get the album: 77", "PHOTOLIB 2 can not get the album: -5",
                     "PHOTOLIB 2 can not get the album: 5", "PHOTOLIB 2 can not get the album: 0"});
}

TEST_F(EditsWithoutALibrary, DeletePhotoSucceedsAlsoForANullId)
{
    EXPECT_EQ(manager->deletePhoto(&id), 0);
    EXPECT_EQ(manager->deletePhoto(nullptr), 0);
    EXPECT_TRUE(probe.groups().isEmpty()) << "no group is made";
}

TEST_F(EditsWithoutALibrary, DeletePhotoEditsTheGroupOfSyncedPhotosAllTheSame)
{
    probe.groups()[28]["0"].assetIds = {1, 2, 1};
    EXPECT_EQ(manager->deletePhoto(&id), 0);
    EXPECT_EQ(manager->getPhotoGroup(28, "0").assetIds, QList<qint64>{2});
}

TEST_F(EditsAfterAFailedOpening, AlbumsGetTheKeyZeroAndReplaceOneAnother)
{
    albumItem album;
    album.trashedState = 0;
    for (const char *title : {"first", "second"}) {
        album.id = 9;
        album.title = title;
        EXPECT_EQ(manager->createAlbum(&album), 0);
        EXPECT_EQ(album.id, 0);
        EXPECT_EQ(album.entity, 19);
        EXPECT_EQ(album.uuid.size(), 16);
        EXPECT_EQ(album.uuid.left(8), QByteArray(8, '\0')) << "there is a reader, so it is drawn";
    }
    EXPECT_EQ(manager->getAlbumList(), QList<qint64>{0});
    EXPECT_EQ(probe.reader()->findAlbum(0)->title, QString("second"));
}

TEST_F(EditsAfterAFailedOpening, PhotosGetTheKeyZeroAndStayNew)
{
    photoItem photo;
    const qint64 noAlbum = 0;
    EXPECT_EQ(manager->addPhoto(&photo, &noAlbum), 0);
    const QByteArray first = photo.uuid;
    EXPECT_EQ(manager->addPhoto(&photo, &noAlbum), 0);
    EXPECT_EQ(photo.id, 0);
    EXPECT_EQ(photo.entity, 27);
    EXPECT_NE(photo.uuid, first);
    EXPECT_EQ(manager->getPhotoList(), QList<qint64>{0});
    EXPECT_EQ(manager->deletePhoto(&noAlbum), 0);
    EXPECT_TRUE(manager->getPhotoList().isEmpty());
}

TEST_F(EditsAfterAFailedOpening, UnknownAlbumsAreNoFault)
{
    albumItem album;
    EXPECT_EQ(manager->updateAlbum(&album), 0);
    EXPECT_EQ(manager->deleteAlbum(&id), 0);
    EXPECT_TRUE(manager->getAlbumList().isEmpty());
}

TEST_F(EditedLibrary, ALibraryThatWasReadCanBeEditedThoughTheHostStoppedItsOpening)
{
    device.stopFromCall(4); // it is asked before each of the three files, and once more when they are read
    EXPECT_FALSE(manager->openLibrary());
    log.takeAll();
    albumItem album;
    album.trashedState = 0;
    EXPECT_EQ(manager->createAlbum(&album), 0);
    EXPECT_EQ(album.id, nextAlbum);
    EXPECT_EQ(manager->getAlbumCount(), 3);
}
