// A stop request of the host while large media come from a slow device: the host's reads end, and so does the
// operation.

#include "testing/patience.h"
#include "testing/throttled_device.h"
#include "tests/unit/photolib/media/containers.h"
#include "tests/unit/photolib/media/opened_media.h"

using testkit::OperationKind;
using testkit::ThrottledDevice;

namespace
{

constexpr qint64 large = 64 << 20;
constexpr qint64 bytesPerSecond = 5'000'000; // a large file would take more than ten seconds
constexpr char thumbnails[] = "/PhotoData/Thumbnails/V2/DCIM/100APPLE/IMG_0001.JPG/";

class StoppedMedia : public MediaTest
{
protected:
    void addLarge(const QString &path)
    {
        device.addVirtualFile(path, large, [](qint64, char *buffer, qint64 size) { std::fill_n(buffer, size, 'x'); });
    }

    /// The answer of `work`, during which a stop is requested while the byte `stopByte` is on its way.
    int stoppedAt(qint64 stopByte, const std::function<int()> &work)
    {
        throttled.stopAtByte(stopByte);
        auto run = std::async(std::launch::async, work);
        EXPECT_TRUE(testkit::ends(run));
        EXPECT_GT(throttled.bytesReadAfterStop(), 0);
        EXPECT_LE(throttled.bytesReadAfterStop(), ThrottledDevice::pieceSize);
        EXPECT_LT(throttled.bytesRead(), stopByte + ThrottledDevice::pieceSize);
        EXPECT_EQ(device.openHandles(), QStringList());
        EXPECT_EQ(out, QByteArray("untouched"));
        return run.get();
    }

    ThrottledDevice throttled{device, bytesPerSecond};
};

} // namespace

TEST_F(StoppedMedia, AFileIsNotReadFurther)
{
    addLarge("/DCIM/100APPLE/IMG_0001.JPG");
    EXPECT_EQ(stoppedAt(1'000'000, [this] { return library.file(&out); }), 0);
    EXPECT_EQ(device.operationCount(OperationKind::Read), 1);
}

TEST_F(StoppedMedia, NoCandidateOfAThumbnailIsReadFurther)
{
    for (const char *name : {"5005.JPG", "5003.JPG", "3507.JPG", "3505.JPG"})
        addLarge(QLatin1String(thumbnails) + QLatin1String(name));
    EXPECT_EQ(stoppedAt(1'000'000, [this] { return library.thumbnail(&out); }), -1);
    EXPECT_EQ(device.operationCount(OperationKind::Read), 4) << "three of them answer at once";
    library.log.expectLine(newlyAdded);
}

TEST_F(StoppedMedia, AFrameIsNotReadFurther)
{
    const Container &container = containers[0];
    library.setPhoto("DCIM/100APPLE", "IMG_0001.JPG", 0, 0);
    addLarge(container.path);
    EXPECT_EQ(stoppedAt(1, [this] { return library.thumbnail(&out); }), -1);
    EXPECT_EQ(device.operationCount(OperationKind::Read), 1);
    library.log.expectLine("PHOTOLIB 2 Can not read ithmb data");
}
