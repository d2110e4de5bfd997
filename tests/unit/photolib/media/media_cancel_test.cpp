// A request to cancel that arrives while a thumbnail or a file is read.

#include "tests/unit/photolib/media/containers.h"
#include "tests/unit/photolib/media/opened_media.h"

#include "testing/faulty_device.h"

using testkit::Fault;
using testkit::FaultyDevice;
using testkit::Operation;
using testkit::OperationKind;

namespace
{

constexpr Container container = containers[7];
constexpr char largest[] = "/PhotoData/Thumbnails/V2/DCIM/100APPLE/IMG_0001.JPG/5005.JPG";
constexpr char second[] = "/PhotoData/Thumbnails/V2/DCIM/100APPLE/IMG_0001.JPG/5003.JPG";
constexpr char photo[] = "/DCIM/100APPLE/IMG_0001.JPG";

class CancelledThumbnail : public MediaTest
{
protected:
    CancelledThumbnail()
    {
        library.setPhoto("DCIM/100APPLE", "IMG_0001.JPG", 0, 0);
        device.addFile(container.path, QByteArray(8192, '\x7F') + trailerOf(64, 64));
    }

    QString lastOperation() const { return device.operations().last(); }
};

using CancelledFile = MediaTest;

} // namespace

TEST_F(CancelledThumbnail, BeforeItBeginsIsASuccessThatDoesNothing)
{
    device.addFile(largest, "LARGE");
    library.manager->cancel();
    EXPECT_EQ(library.thumbnail(&out), 0);
    EXPECT_EQ(out, QByteArray("untouched"));
    EXPECT_EQ(device.operations(testkit::allOperations), QStringList());
}

TEST_F(CancelledThumbnail, BeforeACandidateIsOpenClosesItUnread)
{
    device.addFile(largest, "LARGE");
    device.addFile(second, "SECOND");
    for (const OperationKind kind : {OperationKind::DevicePath, OperationKind::OpenDevice, OperationKind::OpenFile}) {
        library.probe.cancelRequested() = false;
        device.clearOperations();
        cancelAt(kind);
        EXPECT_EQ(library.thumbnail(&out), -1);
        EXPECT_EQ(out, QByteArray("untouched"));
        EXPECT_EQ(device.operations(), (QStringList{"vDevOpen 2 \"fake:device\" = dev1",
                                                    QString("vFileOpen dev1 \"%1\" 0 = file1").arg(largest),
                                                    "vFileClose file1", "vDevClose dev1"}));
    }
}

TEST_F(CancelledThumbnail, WhileACandidateIsReadStillGivesIt)
{
    device.addFile(largest, "LARGE");
    for (const OperationKind kind :
         {OperationKind::Seek, OperationKind::Tell, OperationKind::Read, OperationKind::CloseFile}) {
        library.probe.cancelRequested() = false;
        out = "before";
        cancelAt(kind);
        EXPECT_EQ(library.thumbnail(&out), 0);
        EXPECT_EQ(out, QByteArray("LARGE"));
        EXPECT_TRUE(library.manager->isCancelled());
    }
}

TEST_F(CancelledThumbnail, WhileACandidateFailsToBeReadEndsTheSearch)
{
    device.addFile(largest, "LARGE");
    device.addFile(second, "SECOND");
    cancelAt(OperationKind::Read);
    FaultyDevice faulty(device, Fault(OperationKind::Read));
    EXPECT_EQ(library.thumbnail(&out), -1);
    EXPECT_EQ(out, QByteArray("untouched"));
    EXPECT_EQ(device.operationCount(OperationKind::OpenDevice), 1);
}

TEST_F(CancelledThumbnail, BetweenTwoCandidatesOpensNoFurtherDevice)
{
    for (int candidate = 1; candidate <= 5; ++candidate) {
        library.probe.cancelRequested() = false;
        device.clearOperations();
        cancelAt(OperationKind::CloseDevice, candidate);
        EXPECT_EQ(library.thumbnail(&out), -1);
        EXPECT_EQ(device.operations().size(), 3 * candidate);
    }
    EXPECT_EQ(out, QByteArray("untouched"));
}

TEST_F(CancelledThumbnail, AfterTheLastCandidateIsSilentWhateverTheIndex)
{
    library.setPhoto("DCIM/100APPLE", "IMG_0001.JPG", 0, -1);
    cancelAt(OperationKind::CloseDevice, 5);
    EXPECT_EQ(library.thumbnail(&out), -1);
    EXPECT_EQ(device.operations().size(), 15);
}

TEST_F(CancelledThumbnail, WhileADeviceFailsToOpenIsLoggedAndEndsTheSearch)
{
    device.setReachable(false);
    cancelAt(OperationKind::OpenDevice);
    EXPECT_EQ(library.thumbnail(&out), -1);
    EXPECT_EQ(device.operations(), QStringList("vDevOpen 2 \"fake:device\" = null"));
    library.log.expectLine(disconnected);
}

TEST_F(CancelledThumbnail, BeforeTheContainerIsOpenClosesItUnread)
{
    // Five candidates, then up to the eighth container.
    const struct {
        OperationKind kind;
        int number;
    } points[] = {{OperationKind::DevicePath, 6},
                  {OperationKind::OpenDevice, 6},
                  {OperationKind::OpenFile, 6},
                  {OperationKind::OpenFile, 13}};
    for (const auto &point : points) {
        library.probe.cancelRequested() = false;
        device.clearOperations();
        cancelAt(point.kind, point.number);
        EXPECT_EQ(library.thumbnail(&out), -1);
        EXPECT_EQ(device.operations().mid(15 + 8),
                  (QStringList{QString("vFileOpen dev6 \"%1\" 0 = file1").arg(container.path), "vFileClose file1",
                               "vDevClose dev6"}));
    }
    EXPECT_EQ(out, QByteArray("untouched"));
}

TEST_F(CancelledThumbnail, WithoutAContainerStillSaysSo)
{
    device.removeFile(container.path);
    cancelAt(OperationKind::OpenFile, 13);
    EXPECT_EQ(library.thumbnail(&out), -1);
    library.log.expectLine(noContainer);
}

TEST_F(CancelledThumbnail, WhileTheFrameIsReadLeavesTheHeaderOfTheBitmapOnly)
{
    const struct {
        OperationKind kind;
        int number;
    } points[] = {{OperationKind::Seek, 1}, {OperationKind::Read, 1}, {OperationKind::Read, 2}};
    for (const auto &point : points) {
        library.probe.cancelRequested() = false;
        out = "before";
        cancelAt(point.kind, point.number);
        EXPECT_EQ(library.thumbnail(&out), -1);
        EXPECT_EQ(out.size(), 6 + 54);
        EXPECT_EQ(out.left(12).toHex(), QByteArray("before").toHex() + "424d36300000") << "64 x 192 + 54";
        EXPECT_TRUE(lastOperation().startsWith("vDevClose dev"));
    }
}

TEST_F(CancelledThumbnail, WhileTheContainerFailsReportsTheFailure)
{
    const struct {
        OperationKind kind;
        int number;
        const char *line;
    } points[] = {{OperationKind::Seek, 1, "PHOTOLIB 2 Can seek to offset 0 while getting ithmb"},
                  {OperationKind::Read, 1, "PHOTOLIB 2 Can not read ithmb data"},
                  {OperationKind::Read, 2, "PHOTOLIB 2 Can not read ithmb info"}};
    for (const auto &point : points) {
        library.probe.cancelRequested() = false;
        cancelAt(point.kind, point.number);
        FaultyDevice faulty(device, Fault(point.kind, Fault::Effect::Fail, point.number));
        EXPECT_EQ(library.thumbnail(&out), -1);
        library.log.expectLine(point.line);
    }
    EXPECT_EQ(out, QByteArray("untouched"));
}

TEST_F(CancelledThumbnail, WhenAllIsReadIsASuccess)
{
    cancelAt(OperationKind::CloseFile);
    EXPECT_EQ(library.thumbnail(&out), 0);
    EXPECT_EQ(out.size(), 9 + 54 + 64 * 64 * 3);
}

TEST_F(CancelledFile, BeforeItBeginsIsNothingRead)
{
    device.addFile(photo, "CONTENT");
    library.manager->cancel();
    EXPECT_EQ(library.file(&out), 0);
    EXPECT_EQ(out, QByteArray("untouched"));
    EXPECT_EQ(device.operations(testkit::allOperations), QStringList());
}

TEST_F(CancelledFile, BeforeItIsOpenClosesItUnread)
{
    device.addFile(photo, "CONTENT");
    for (const OperationKind kind : {OperationKind::DevicePath, OperationKind::OpenDevice, OperationKind::OpenFile}) {
        library.probe.cancelRequested() = false;
        device.clearOperations();
        cancelAt(kind);
        EXPECT_EQ(library.file(&out), 0);
        EXPECT_EQ(out, QByteArray("untouched"));
        EXPECT_EQ(device.operations(), (QStringList{"vDevOpen 2 \"fake:device\" = dev1",
                                                    QString("vFileOpen dev1 \"%1\" 0 = file1").arg(photo),
                                                    "vFileClose file1", "vDevClose dev1"}));
    }
}

TEST_F(CancelledFile, OnADeviceThatCannotBeOpenedIsAFailure)
{
    device.setReachable(false);
    cancelAt(OperationKind::OpenDevice);
    EXPECT_EQ(library.file(&out), -1);
    library.log.expectLine(disconnected);
}

TEST_F(CancelledFile, ThatIsMissingIsNothingRead)
{
    cancelAt(OperationKind::OpenFile);
    EXPECT_EQ(library.file(&out), 0);
    EXPECT_EQ(out, QByteArray("untouched"));
}

TEST_F(CancelledFile, WhileItIsReadStillGivesIt)
{
    device.addFile(photo, "CONTENT");
    for (const OperationKind kind :
         {OperationKind::Seek, OperationKind::Tell, OperationKind::Read, OperationKind::CloseFile}) {
        library.probe.cancelRequested() = false;
        out = "before";
        cancelAt(kind);
        EXPECT_EQ(library.file(&out), 1);
        EXPECT_EQ(out, QByteArray("CONTENT"));
    }
}
