// What is not done yet answers as it does for a manager without a library, which is all that these tests ask for.

#include "testing/log_recorder.h"
#include "tests/unit/photolib/made_library.h"

#include <gtest/gtest.h>

namespace
{

class WithoutALibrary : public testing::Test
{
protected:
    const qint64 id = 1;
    testkit::LogRecorder log;
    testkit::FakeDevice device;
    const Manager manager = makeManager(device);
};

} // namespace

TEST_F(WithoutALibrary, ThumbnailIsZeroWithTheBytesUntouched)
{
    QByteArray bytes = "mine";
    EXPECT_EQ(manager->getThumbnail(&id, &bytes), 0);
    EXPECT_EQ(bytes, QByteArray("mine"));
}

TEST_F(WithoutALibrary, PhotoFileIsZeroWithTheBytesUntouched)
{
    QByteArray bytes = "mine";
    EXPECT_EQ(manager->readPhotoFile(&id, &bytes), 0);
    EXPECT_EQ(bytes, QByteArray("mine"));
}

TEST_F(WithoutALibrary, AddPhotoFails)
{
    photoItem photo;
    EXPECT_EQ(manager->addPhoto(&photo, &id), -1);
    log.expectLine("PHOTOLIB 2 no photolib or photo");
    EXPECT_EQ(photo.id, 0);
}

TEST_F(WithoutALibrary, AddPhotoToAlbumFailsAndAddsNothing)
{
    photoItem photo;
    albumItem album;
    EXPECT_EQ(manager->addPhotoToAlbum(&photo, &album), -1);
    EXPECT_EQ(manager->addPhotoToAlbum(&photo, nullptr), -1);
    log.expectLines({"PHOTOLIB 2 no photolib or photo", "PHOTOLIB 2 no photolib or photo"});
    EXPECT_TRUE(album.photoIds.isEmpty());
}

TEST_F(WithoutALibrary, CreateAlbumFails)
{
    albumItem album;
    EXPECT_EQ(manager->createAlbum(&album), -1);
    log.expectLine("PHOTOLIB 2 no photolib or album");
    EXPECT_EQ(album.id, 0);
    EXPECT_TRUE(album.uuid.isNull());
}

TEST_F(WithoutALibrary, DeleteAlbumFailsSilently)
{
    EXPECT_EQ(manager->deleteAlbum(&id), -1);
}

TEST_F(WithoutALibrary, UpdateAlbumFailsNamingTheAlbum)
{
    albumItem album;
    album.id = 77;
    EXPECT_EQ(manager->updateAlbum(&album), -1);
    log.expectLine("PHOTOLIB 2 can not get the album: 77");
}

TEST_F(WithoutALibrary, DeletePhotoSucceedsAlsoForANullId)
{
    EXPECT_EQ(manager->deletePhoto(&id), 0);
    EXPECT_EQ(manager->deletePhoto(nullptr), 0);
}
