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
