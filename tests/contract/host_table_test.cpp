#include "contract_host.h"
#include "handmade_device.h"
#include "loaded_library.h"

#include "photolib/photolib.h"

#include <gmock/gmock.h>

namespace
{

std::vector<std::size_t> calledSlots(const HandmadeDevice &device)
{
    std::vector<std::size_t> slots;
    for (std::size_t slot = 0; slot < device.calls.size(); ++slot) {
        if (device.calls[slot] > 0)
            slots.push_back(slot);
    }
    return slots;
}

} // namespace

TEST(HostTable, FactoryAsksSlot46Only)
{
    ContractHost host;
    LoadedLibrary library;
    HandmadeDevice device;
    photo_manager_int *manager = library.getPhotolib(device.get());
    ASSERT_NE(manager, nullptr);
    EXPECT_THAT(calledSlots(device), testing::ElementsAre(46u));
    library.releasePhotolib(&manager);
    EXPECT_EQ(manager, nullptr);
}

TEST(HostTable, RefusingDeviceGetsNoManager)
{
    ContractHost host;
    LoadedLibrary library;
    HandmadeDevice device;
    device.availableAnswer = false;
    EXPECT_EQ(library.getPhotolib(device.get()), nullptr);
    EXPECT_EQ(host.log, QStringList(QStringLiteral("PHOTOLIB 2 Can not malloc photo manager")));
}

TEST(HostTable, OpeningCallsSlots7_16_46And56Only)
{
    ContractHost host;
    host.deviceFiles.insert("/PhotoData/Photos.sqlite", QByteArray());
    LoadedLibrary library;
    HandmadeDevice device;
    photo_manager_int *manager = library.getPhotolib(device.get());
    EXPECT_TRUE(manager->openLibrary());
    EXPECT_THAT(calledSlots(device), testing::ElementsAre(7u, 16u, 46u, 56u));
    EXPECT_EQ(device.calls[7], 4);  // before each of three copies, and once after the parse
    EXPECT_EQ(device.calls[16], 4); // for each of three copies, and for the library's UUID
    EXPECT_EQ(device.calls[46], 1);
    EXPECT_EQ(device.calls[56], 1);
    EXPECT_EQ(host.openHandles, 0);
    library.releasePhotolib(&manager);
}

TEST(HostTable, SlotSevenStopsAnOpening)
{
    ContractHost host;
    LoadedLibrary library;
    HandmadeDevice device;
    device.stopAnswer = true;
    photo_manager_int *manager = library.getPhotolib(device.get());
    EXPECT_FALSE(manager->openLibrary());
    EXPECT_EQ(host.log.last(), QStringLiteral("PHOTOLIB 2 Can not parse photo lib"));
    library.releasePhotolib(&manager);
}

TEST(HostTable, ReleaseIgnoresNull)
{
    ContractHost host;
    LoadedLibrary library;
    library.releasePhotolib(nullptr);
    photo_manager_int *none = nullptr;
    library.releasePhotolib(&none);
    EXPECT_EQ(none, nullptr);
    EXPECT_TRUE(host.log.isEmpty());
}
