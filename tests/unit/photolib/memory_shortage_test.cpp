// A program of its own: it replaces the global allocation functions.

#include "photolib/db/photos_db.h"
#include "photolib/host/iipod.h"
#include "photolib/photo_manager.h"
#include "testing/fake_device.h"
#include "testing/library_builder.h"
#include "testing/log_recorder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

namespace
{

/// The next allocation of this many bytes on this thread fails; 0 for none.
thread_local std::size_t refusedSize = 0;

/// Memory runs short as soon as it says that it is available: nothing but the manager is allocated after that.
class DeviceOfAShortHost final : public IIPod
{
public:
    bool shouldStop() override { return false; }
    QString devicePath() override { return QString(); }
    bool isAvailable() override
    {
        refusedSize = sizeof(photo_manager);
        return true;
    }
    QString localDataFolder() override { return QString(); }
};

} // namespace

void *operator new(std::size_t size)
{
    if (refusedSize != 0 && size == refusedSize) {
        refusedSize = 0;
        throw std::bad_alloc();
    }
    if (void *memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void *memory) noexcept
{
    std::free(memory);
}

void operator delete(void *memory, std::size_t) noexcept
{
    std::free(memory);
}

TEST(GetPhotolib, ShortMemoryYieldsNoManagerAndTheSameLogLineAsARefusal)
{
    testkit::LogRecorder log;
    DeviceOfAShortHost device;
    EXPECT_EQ(getPhotolib(&device), nullptr);
    EXPECT_EQ(refusedSize, 0U) << "the manager was not asked of the heap";
    log.expectLine("PHOTOLIB 2 Can not malloc photo manager");
}

namespace
{

class ShortMemory : public testing::TestWithParam<std::size_t>
{
};

} // namespace

// Sizes that only the library asks for: once an opening, and once an asset.
INSTANTIATE_TEST_SUITE_P(WhileOpening, ShortMemory, testing::Values(sizeof(Photos_DB), sizeof(assetRecord)));

TEST_P(ShortMemory, FailsTheOpeningAndLeavesTheManagerUsable)
{
    testkit::LibraryBuilder builder(testkit::Era::Ios15);
    builder.addAsset();
    testkit::FakeDevice device;
    const testkit::LibraryBytes library = builder.bytes(testkit::WalMode::None);
    device.addFile("/PhotoData/Photos.sqlite", library.database);
    testkit::LogRecorder log;
    photo_manager_int *manager = getPhotolib(&device);

    refusedSize = GetParam();
    EXPECT_FALSE(manager->openLibrary());
    EXPECT_EQ(refusedSize, 0U) << "nothing of this size was asked of the heap";
    EXPECT_EQ(log.takeAll().last(), QString("PHOTOLIB 2 Can not parse photo lib"));

    EXPECT_TRUE(manager->openLibrary());
    EXPECT_EQ(manager->getPhotoCount(), 1);
    log.takeAll();
    releasePhotolib(&manager);
}

namespace
{

/// Asks for one allocation of a size that only a new record has to fail, during the next edit.
class ShortMemoryOfEdits : public testing::Test
{
protected:
    ShortMemoryOfEdits()
    {
        testkit::LibraryBuilder builder(testkit::Era::Ios15);
        builder.addAsset();
        device.addFile("/PhotoData/Photos.sqlite", builder.bytes(testkit::WalMode::None).database);
        EXPECT_TRUE(manager->openLibrary());
        log.takeAll();
    }
    ~ShortMemoryOfEdits() override { releasePhotolib(&manager); }

    testkit::LogRecorder log;
    testkit::FakeDevice device;
    photo_manager_int *manager = getPhotolib(&device);
};

} // namespace

TEST_F(ShortMemoryOfEdits, APhotoStaysANewOneAndItsKeyIsUsedUp)
{
    const qint64 noAlbum = 0;
    photoItem photo;
    photo.uuid = "mine";
    refusedSize = sizeof(assetRecord);
    EXPECT_EQ(manager->addPhoto(&photo, &noAlbum), -1);
    EXPECT_EQ(refusedSize, 0U);
    EXPECT_EQ(photo.id, 0);
    EXPECT_EQ(photo.entity, 27);
    EXPECT_EQ(photo.uuid, QByteArray("mine"));
    EXPECT_EQ(manager->getPhotoList(), QList<qint64>{1});
    EXPECT_EQ(manager->addPhoto(&photo, &noAlbum), 0);
    EXPECT_EQ(photo.id, 3);
    EXPECT_EQ(manager->getPhotoList(), (QList<qint64>{1, 3}));
}

TEST_F(ShortMemoryOfEdits, AnAlbumIsNotMadeAndItsKeyIsUsedUp)
{
    const QList<qint64> before = manager->getAlbumList();
    albumItem album;
    album.trashedState = 0;
    refusedSize = sizeof(albumRecord);
    EXPECT_EQ(manager->createAlbum(&album), -1);
    EXPECT_EQ(refusedSize, 0U);
    EXPECT_EQ(manager->getAlbumList(), before);
    EXPECT_EQ(manager->createAlbum(&album), 0);
    EXPECT_EQ(album.id, before.last() + 2);
    EXPECT_EQ(manager->getAlbumCount(), before.size() + 1);
}

TEST(ThumbnailInShortMemory, WithoutMemoryForTheFrameFailsAndClosesItsContainer)
{
    constexpr int frameBytes = 8192;
    testkit::LibraryBuilder builder(testkit::Era::Ios15);
    const qint64 photo = builder.addAsset();
    testkit::FakeDevice device;
    device.addFile("/PhotoData/Photos.sqlite", builder.bytes(testkit::WalMode::None).database);
    device.addFile("/PhotoData/Thumbnails/3309.ithmb", QByteArray(frameBytes + 28, '\0'));
    testkit::LogRecorder log;
    photo_manager_int *manager = getPhotolib(&device);
    EXPECT_TRUE(manager->openLibrary());
    log.takeAll();

    QByteArray out = "untouched";
    refusedSize = frameBytes + 28;
    EXPECT_EQ(manager->getThumbnail(&photo, &out), -1);
    EXPECT_EQ(refusedSize, 0U) << "the frame was not asked of the heap";
    EXPECT_EQ(out, QByteArray("untouched"));
    EXPECT_EQ(device.openHandles(), QStringList());
    EXPECT_EQ(manager->getThumbnail(&photo, &out), 0);
    EXPECT_EQ(out.size(), 9 + 54);
    releasePhotolib(&manager);
}
