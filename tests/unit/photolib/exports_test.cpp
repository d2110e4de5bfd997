#include "tests/unit/photolib/made_library.h"

#include "testing/log_recorder.h"

#include <gtest/gtest.h>

#include <type_traits>

using testkit::FakeDevice;
using testkit::LogRecorder;

namespace
{

/// A manager that tells when it is destroyed.
class WatchedManager final : public photo_manager
{
public:
    WatchedManager(IIPod *device, int *destroyed) : photo_manager(device), destroyed(destroyed) {}
    ~WatchedManager() override { ++*destroyed; }

private:
    int *destroyed;
};

} // namespace

TEST(GetPhotolib, AsksOnlyWhetherTheDeviceIsAvailable)
{
    LogRecorder log;
    FakeDevice device;
    const Manager manager = makeManager(device);
    ASSERT_NE(manager, nullptr);
    EXPECT_EQ(device.operations(testkit::allOperations), QStringList{"isAvailable = true"});
}

TEST(GetPhotolib, UnavailableDeviceYieldsNoManagerAndOneLogLine)
{
    LogRecorder log;
    FakeDevice device;
    device.setAvailable(false);
    EXPECT_EQ(getPhotolib(&device), nullptr);
    log.expectLine("PHOTOLIB 2 Can not malloc photo manager");
    EXPECT_EQ(device.operations(testkit::allOperations), QStringList{"isAvailable = false"});
}

TEST(GetPhotolib, EveryCallMakesAManagerOfItsOwn)
{
    LogRecorder log;
    FakeDevice device;
    const Manager first = makeManager(device);
    const Manager second = makeManager(device);
    EXPECT_NE(first, second);
}

TEST(ReleasePhotolib, NullPointersAreIgnored)
{
    LogRecorder log;
    releasePhotolib(nullptr);
    photo_manager_int *none = nullptr;
    releasePhotolib(&none);
    EXPECT_EQ(none, nullptr);
}

TEST(ReleasePhotolib, DestroysTheManagerOnceAndClearsTheCallersPointer)
{
    LogRecorder log;
    FakeDevice device;
    int destroyed = 0;
    photo_manager_int *manager = new WatchedManager(&device, &destroyed);
    releasePhotolib(&manager);
    EXPECT_EQ(manager, nullptr);
    EXPECT_EQ(destroyed, 1);
    releasePhotolib(&manager);
    EXPECT_EQ(destroyed, 1);
}

TEST(ReleasePhotolib, DoesNotTouchTheDevice)
{
    LogRecorder log;
    FakeDevice device;
    Manager manager = makeManager(device);
    device.clearOperations();
    manager.reset();
    EXPECT_EQ(device.operations(testkit::allOperations), QStringList());
}

TEST(PhotoManagerInterface, CopiesCarryNothingAndAssignmentAnswersTheTarget)
{
    static_assert(std::is_abstract_v<photo_manager_int>);
    static_assert(std::has_virtual_destructor_v<photo_manager_int>);
    static_assert(sizeof(photo_manager_int) == sizeof(void *), "hosts see no data members");
    LogRecorder log;
    FakeDevice device;
    const Manager first = makeManager(device);
    const Manager second = makeManager(device);
    first->cancel();
    photo_manager_int &target = *second;
    EXPECT_EQ(&target.operator=(*first), second.get());
    EXPECT_FALSE(second->isCancelled());
}
