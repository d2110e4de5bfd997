// A device on a slow connection, and a user who does not want to wait for a gigabyte.

#include "testing/log_recorder.h"
#include "testing/patience.h"
#include "testing/throttled_device.h"
#include "tests/unit/photolib/made_library.h"

#include <gtest/gtest.h>

using testkit::FakeDevice;
using testkit::OperationKind;
using testkit::ThrottledDevice;

namespace
{

constexpr char mainFile[] = "/PhotoData/Photos.sqlite";
constexpr char logFile[] = "/PhotoData/Photos.sqlite-wal";
constexpr qint64 gigabyte = 1 << 30;
constexpr qint64 block = 4194304;
constexpr qint64 bytesPerSecond = 50'000'000; // a gigabyte would take twenty seconds

class StoppedOpening : public testing::Test
{
protected:
    void addEndless(const char *path)
    {
        device.addVirtualFile(path, gigabyte,
                              [](qint64, char *buffer, qint64 size) { std::fill_n(buffer, size, 'x'); });
    }

    /// Opens with a stop request while the byte `stopByte` is on its way.
    void open(qint64 stopByte)
    {
        throttled.stopAtByte(stopByte);
        auto opening = std::async(std::launch::async, [this] { return manager->openLibrary(); });
        ASSERT_TRUE(testkit::ends(opening));
        EXPECT_FALSE(opening.get());
        EXPECT_GT(throttled.bytesReadAfterStop(), 0);
        EXPECT_LE(throttled.bytesReadAfterStop(), ThrottledDevice::pieceSize);
        EXPECT_LT(throttled.bytesRead(), stopByte + ThrottledDevice::pieceSize);
        EXPECT_EQ(device.openHandles(), QStringList());
        EXPECT_FALSE(log.consumeMatching("PHOTOLIB 2 Can not parse photo lib").isEmpty());
        log.takeAll();
    }

    testkit::LogRecorder log;
    FakeDevice device;
    ThrottledDevice throttled{device, bytesPerSecond};
    const Manager manager = makeManager(device);
};

} // namespace

TEST_F(StoppedOpening, EndsInTheFirstBlockOfTheDatabase)
{
    addEndless(mainFile);
    addEndless(logFile);
    open(1'000'000);
    EXPECT_EQ(device.operationCount(OperationKind::Read), 1);
    EXPECT_EQ(device.operationCount(OperationKind::OpenFile), 2) << "the source and its copy";
}

TEST_F(StoppedOpening, EndsInALaterBlockOfTheDatabase)
{
    addEndless(mainFile);
    addEndless(logFile);
    open(block + 1'000'000);
    EXPECT_EQ(device.operationCount(OperationKind::Read), 2);
    EXPECT_EQ(device.localFile("Photos.sqlite").size(), block);
    EXPECT_EQ(device.operationCount(OperationKind::OpenFile), 2);
}

TEST_F(StoppedOpening, EndsInTheWriteAheadLog)
{
    testkit::LibraryBuilder library(testkit::Era::Ios16, bareLibrary());
    library.addAsset();
    putOn(device, library);
    addEndless(logFile);
    const qint64 size = library.bytes().database.size();
    open(size + 1'000'000);
    EXPECT_EQ(device.localFile("Photos.sqlite").size(), size);
    EXPECT_EQ(device.operationCount(OperationKind::OpenFile), 4) << "two sources and their copies";
    EXPECT_EQ(manager->getPhotoCount(), 1) << "what was read before stays with the failed reader";
    EXPECT_TRUE(manager->getGroupKeys(28).isEmpty());
}
