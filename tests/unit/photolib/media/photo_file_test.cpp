#include "tests/unit/photolib/media/opened_media.h"

#include "testing/faulty_device.h"

#include <limits>

using testkit::Fault;
using testkit::FaultyDevice;
using testkit::OperationKind;

namespace
{

constexpr char path[] = "/DCIM/100APPLE/IMG_0001.JPG";

class PhotoFile : public MediaTest
{
protected:
    /// The size that the device tells is `size`.
    void expectNothingWhenToldSize(qint64 size, int reads)
    {
        device.addFile(path, "CONTENT");
        Fault lie(OperationKind::Tell, Fault::Effect::Answer);
        lie.answer = size;
        FaultyDevice lying(device, lie);
        EXPECT_EQ(library.file(&out), 0);
        EXPECT_EQ(out, QByteArray("untouched"));
        EXPECT_EQ(device.operationCount(OperationKind::Read), reads);
    }
};

} // namespace

TEST_F(PhotoFile, IsReadWholeWithOneRequest)
{
    device.addFile(path, "CONTENT");
    EXPECT_EQ(library.file(&out), 1);
    EXPECT_EQ(out, QByteArray("CONTENT")) << "replaces what was there";
    EXPECT_EQ(device.operations(testkit::allOperations),
              (QStringList{"devicePath = \"fake:device\"", "vDevOpen 2 \"fake:device\" = dev1",
                           "vFileOpen dev1 \"/DCIM/100APPLE/IMG_0001.JPG\" 0 = file1", "vFileSeek file1 0 2 = 7",
                           "vFileTell file1 = 7", "vFileSeek file1 0 0 = 0", "vFileRead file1 7 = 7",
                           "vFileClose file1", "vDevClose dev1"}));
}

TEST_F(PhotoFile, GivesTheSameBytesTwice)
{
    const QByteArray content = QByteArray::fromHex("00ff42000a0d1a00") + QByteArray(70000, 'x');
    device.addFile(path, content);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(library.file(&out), 1);
        EXPECT_EQ(out, content);
    }
}

TEST_F(PhotoFile, OfNoBytesIsReadAndEmptiesTheOutput)
{
    device.addFile(path, "");
    EXPECT_EQ(library.file(&out), 1);
    EXPECT_EQ(out, QByteArray());
    EXPECT_EQ(device.operations(OperationKind::Read), QStringList("vFileRead file1 0 = 0"));
}

TEST_F(PhotoFile, ThatIsMissingIsNothingRead)
{
    EXPECT_EQ(library.file(&out), 0);
    EXPECT_EQ(out, QByteArray("untouched"));
    EXPECT_EQ(device.operations(), missingFile(1, path));
}

TEST_F(PhotoFile, WithoutALibraryOrForAnUnknownPhotoNothingIsDone)
{
    device.addFile(path, "CONTENT");
    const qint64 unknown = 8;
    EXPECT_EQ(library.manager->readPhotoFile(&unknown, &out), 0);
    const qint64 sameLowBits = OpenedMedia::id + (qint64{1} << 32);
    EXPECT_EQ(library.manager->readPhotoFile(&sameLowBits, &out), 0);
    const std::unique_ptr<Photos_DB> reader(library.probe.takeReader());
    EXPECT_EQ(library.file(&out), 0);
    EXPECT_EQ(out, QByteArray("untouched"));
    EXPECT_EQ(device.operations(testkit::allOperations), QStringList());
}

TEST_F(PhotoFile, OnADeviceThatCannotBeOpenedIsAFailureWithALogLine)
{
    device.addFile(path, "CONTENT");
    device.setReachable(false);
    EXPECT_EQ(library.file(&out), -1);
    EXPECT_EQ(out, QByteArray("untouched"));
    EXPECT_EQ(device.operations(), QStringList("vDevOpen 2 \"fake:device\" = null"));
    library.log.expectLine(disconnected);
}

TEST_F(PhotoFile, ReadShortIsNothingRead)
{
    device.addFile(path, "CONTENT");
    FaultyDevice faulty(device, Fault(OperationKind::Read, Fault::Effect::ShortTransfer));
    EXPECT_EQ(library.file(&out), 0);
    EXPECT_EQ(out, QByteArray("untouched"));
    EXPECT_EQ(device.operations().mid(5), (QStringList{"vFileRead file1 7 = 3", "vFileClose file1", "vDevClose dev1"}));
}

TEST_F(PhotoFile, OfASizeBelowZeroIsAShortRead)
{
    expectNothingWhenToldSize(-1, 0);
}

TEST_F(PhotoFile, OfASizeBeyond32BitsIsAShortRead)
{
    expectNothingWhenToldSize(qint64{1} << 31, 0);
}

TEST_F(PhotoFile, OfASizeThatNoByteArrayCanHaveIsNothingRead)
{
    expectNothingWhenToldSize(std::numeric_limits<int>::max(), 0);
}

TEST_F(PhotoFile, ShorterThanItsSizeIsAShortRead)
{
    expectNothingWhenToldSize(8, 1);
}

TEST_F(PhotoFile, LongerThanItsSizeIsReadToThatSize)
{
    device.addFile(path, "CONTENT");
    Fault lie(OperationKind::Tell, Fault::Effect::Answer);
    lie.answer = 4;
    FaultyDevice lying(device, lie);
    EXPECT_EQ(library.file(&out), 1);
    EXPECT_EQ(out, QByteArray("CONT"));
}

TEST_F(PhotoFile, DoesNotDependOnThumbnailIndexOrKind)
{
    device.addFile(path, "CONTENT");
    library.setPhoto("DCIM/100APPLE", "IMG_0001.JPG", 1, -1);
    EXPECT_EQ(library.file(&out), 1);
    EXPECT_EQ(device.operationCount(OperationKind::OpenFile), 1);
}
