#include "tests/unit/photolib/media/opened_media.h"

#include "testing/faulty_device.h"

#include <limits>

using testkit::Fault;
using testkit::FaultyDevice;
using testkit::OperationKind;

namespace
{

constexpr char largest[] = "/PhotoData/Thumbnails/V2/DCIM/100APPLE/IMG_0001.JPG/5005.JPG";
constexpr char second[] = "/PhotoData/Thumbnails/V2/DCIM/100APPLE/IMG_0001.JPG/5003.JPG";
constexpr int videoKind = 1;

const QStringList photoCandidates = {
    largest,
    second,
    "/PhotoData/Thumbnails/V2/DCIM/100APPLE/IMG_0001.JPG/3507.JPG",
    "/PhotoData/Thumbnails/V2/DCIM/100APPLE/IMG_0001.JPG/3505.JPG",
    "/PhotoData/Thumbnails/VideoKeyFrames/DCIM/100APPLE/IMG_0001.JPG/LocalVideoKeyFrame.jpg",
};
const QStringList videoCandidates = photoCandidates + QStringList{"", "/PhotoData/Thumbnails/V2/DCIM/100APPLE/"
                                                                      "IMG_0001.THM"};

QStringList missingFiles(const QStringList &paths)
{
    QStringList lines;
    for (int i = 0; i < paths.size(); ++i)
        lines += missingFile(i + 1, paths[i]);
    return lines;
}

class ThumbnailFiles : public MediaTest
{
protected:
    /// The size that the device tells for the largest thumbnail is `size`; the next one is sound.
    void expectNextWhenToldSize(qint64 size, int reads)
    {
        device.addFile(largest, "LARGE");
        device.addFile(second, "SECOND");
        Fault lie(OperationKind::Tell, Fault::Effect::Answer);
        lie.answer = size;
        FaultyDevice lying(device, lie);
        EXPECT_EQ(library.thumbnail(&out), 0);
        EXPECT_TRUE(lying.fired());
        EXPECT_EQ(out, QByteArray("SECOND"));
        EXPECT_EQ(device.operationCount(OperationKind::Read), reads);
    }
};

} // namespace

TEST_F(ThumbnailFiles, OfAPhotoAreFiveCandidatesEachOnADeviceOpenedAfresh)
{
    EXPECT_EQ(library.thumbnail(&out), -1);
    EXPECT_EQ(device.operations(), missingFiles(photoCandidates));
    EXPECT_EQ(out, QByteArray("untouched"));
    library.log.expectLine(newlyAdded);
}

TEST_F(ThumbnailFiles, OfAVideoEndWithAnEmptyPathAndTheThmFile)
{
    library.setPhoto("DCIM/100APPLE", "IMG_0001.JPG", videoKind);
    EXPECT_EQ(library.thumbnail(&out), -1);
    EXPECT_EQ(device.operations(), missingFiles(videoCandidates));
    library.log.expectLine(newlyAdded);
}

TEST_F(ThumbnailFiles, OfOtherKindsAreThoseOfAPhoto)
{
    for (const int kind : {-1, 2, 3, 256 + videoKind}) {
        library.setPhoto("DCIM/100APPLE", "IMG_0001.JPG", kind);
        device.clearOperations();
        EXPECT_EQ(library.thumbnail(&out), -1);
        EXPECT_EQ(device.operations(), missingFiles(photoCandidates)) << "kind " << kind;
        library.log.expectLine(newlyAdded);
    }
}

TEST_F(ThumbnailFiles, AreReadFromWhicheverCandidateIsThere)
{
    library.setPhoto("DCIM/100APPLE", "IMG_0001.JPG", videoKind);
    for (int i = 0; i < videoCandidates.size(); ++i) {
        device.clearOperations();
        device.addFile(videoCandidates[i], "JPEG");
        out = "before";
        EXPECT_EQ(library.thumbnail(&out), 0);
        EXPECT_EQ(out, QByteArray("JPEG")) << "replaces what was there";
        const QString dev = "dev" + QString::number(i + 1);
        EXPECT_EQ(device.operations(),
                  (missingFiles(videoCandidates.mid(0, i)) +
                   QStringList{"vDevOpen 2 \"fake:device\" = " + dev,
                               "vFileOpen " + dev + " \"" + videoCandidates[i] + "\" 0 = file1",
                               "vFileSeek file1 0 2 = 4", "vFileTell file1 = 4", "vFileSeek file1 0 0 = 0",
                               "vFileRead file1 4 = 4", "vFileClose file1", "vDevClose " + dev}));
        device.removeFile(videoCandidates[i]);
    }
}

TEST_F(ThumbnailFiles, TheFirstOfSeveralWins)
{
    for (int i = photoCandidates.size() - 1; i >= 0; --i) {
        device.addFile(photoCandidates[i], QByteArray::number(i));
        EXPECT_EQ(library.thumbnail(&out), 0);
        EXPECT_EQ(out, QByteArray::number(i));
    }
}

TEST_F(ThumbnailFiles, AreReadAsTheyStandWithEveryByteValue)
{
    QByteArray content;
    for (int i = 0; i < 1000; ++i)
        content.append(static_cast<char>(i));
    device.addFile(largest, content);
    EXPECT_EQ(library.thumbnail(&out), 0);
    EXPECT_EQ(out, content);
}

TEST_F(ThumbnailFiles, OfNoBytesEmptyTheOutput)
{
    device.addFile(largest, "");
    device.addFile(second, "SECOND");
    EXPECT_EQ(library.thumbnail(&out), 0);
    EXPECT_EQ(out, QByteArray());
    EXPECT_EQ(device.operations(OperationKind::Read), QStringList("vFileRead file1 0 = 0"));
}

TEST_F(ThumbnailFiles, ComeBeforeTheContainers)
{
    library.setPhoto("DCIM/100APPLE", "IMG_0001.JPG", 0, 3);
    device.addFile(photoCandidates.last(), "JPEG");
    EXPECT_EQ(library.thumbnail(&out), 0);
    EXPECT_EQ(out, QByteArray("JPEG"));
    EXPECT_FALSE(device.operations().join('\n').contains("ithmb"));
}

TEST_F(ThumbnailFiles, WithoutALibraryOrForAnUnknownPhotoNothingIsDone)
{
    const qint64 unknown = 8;
    EXPECT_EQ(library.manager->getThumbnail(&unknown, &out), 0);
    const std::unique_ptr<Photos_DB> reader(library.probe.takeReader());
    EXPECT_EQ(library.thumbnail(&out), 0);
    EXPECT_EQ(out, QByteArray("untouched"));
    EXPECT_EQ(device.operations(testkit::allOperations), QStringList());
}

TEST_F(ThumbnailFiles, PhotosAreFoundByAll64BitsOfTheirKey)
{
    library.setPhoto("a", "b").pk = 7;
    const qint64 other = 7 + (qint64{1} << 32);
    EXPECT_EQ(library.manager->getThumbnail(&other, &out), 0);
    auto *negative = new assetRecord;
    negative->pk = -5;
    negative->thumbnailIndex = -1;
    library.probe.reader()->addAsset(negative);
    const qint64 key = -5;
    EXPECT_EQ(library.manager->getThumbnail(&key, &out), -1);
    library.log.expectLine(newlyAdded);
}

TEST_F(ThumbnailFiles, ANegativeThumbnailIndexIsANewlyAddedPhotoWithoutAnyContainer)
{
    device.addFile("/PhotoData/Thumbnails/332x332.ithmb", "frames");
    for (const int index : {-1, -2, std::numeric_limits<int>::min()}) {
        library.setPhoto("DCIM/100APPLE", "IMG_0001.JPG", 0, index);
        device.clearOperations();
        EXPECT_EQ(library.thumbnail(&out), -1);
        EXPECT_EQ(device.operations(), missingFiles(photoCandidates));
        library.log.expectLine(newlyAdded);
    }
    EXPECT_EQ(out, QByteArray("untouched"));
}

TEST_F(ThumbnailFiles, AShortReadGoesOnWithTheNextCandidate)
{
    device.addFile(largest, "LARGE");
    device.addFile(second, "SECOND");
    FaultyDevice faulty(device, Fault(OperationKind::Read, Fault::Effect::ShortTransfer));
    EXPECT_EQ(library.thumbnail(&out), 0);
    EXPECT_EQ(out, QByteArray("SECOND"));
    EXPECT_EQ(device.operations().mid(5, 3),
              (QStringList{"vFileRead file1 5 = 2", "vFileClose file1", "vDevClose dev1"}));
}

TEST_F(ThumbnailFiles, AReadThatAnswersMoreThanItWasAskedForIsNoWholeFile)
{
    device.addFile(largest, "LARGE");
    Fault lie(OperationKind::Read, Fault::Effect::Answer);
    lie.answer = 6;
    FaultyDevice lying(device, lie);
    EXPECT_EQ(library.thumbnail(&out), -1);
    EXPECT_EQ(out, QByteArray("untouched"));
    library.log.expectLine(newlyAdded);
}

TEST_F(ThumbnailFiles, ASizeBelowZeroIsAShortReadWithoutReading)
{
    expectNextWhenToldSize(-1, 1);
}

TEST_F(ThumbnailFiles, ASizeBelow32BitsIsAShortReadWithoutReading)
{
    expectNextWhenToldSize(std::numeric_limits<qint64>::min(), 1);
}

TEST_F(ThumbnailFiles, ASizeBeyond32BitsIsAShortReadWithoutReading)
{
    expectNextWhenToldSize(qint64{1} << 31, 1);
}

TEST_F(ThumbnailFiles, ASizeThatNoByteArrayCanHaveIsAShortReadWithoutReading)
{
    expectNextWhenToldSize(std::numeric_limits<int>::max(), 1);
}

TEST_F(ThumbnailFiles, ASizeWhoseLow32BitsAreTheFilesIsAShortReadToo)
{
    expectNextWhenToldSize((qint64{1} << 32) + 5, 1);
}

TEST_F(ThumbnailFiles, AFileThatIsShorterThanItsSizeIsAShortRead)
{
    expectNextWhenToldSize(6, 2);
}

// What the seeks answer does not matter: the size is that of vFileTell(), and the read tells whether it is there.
TEST_F(ThumbnailFiles, AnswersOfSeeksDoNotMatter)
{
    device.addFile(largest, "LARGE");
    for (const int seek : {1, 2}) {
        Fault lie(OperationKind::Seek, Fault::Effect::Answer, seek);
        lie.answer = -1;
        FaultyDevice lying(device, lie);
        out = "untouched";
        EXPECT_EQ(library.thumbnail(&out), 0);
        EXPECT_TRUE(lying.fired());
        EXPECT_EQ(out, QByteArray("LARGE"));
    }
}

TEST_F(ThumbnailFiles, ADeviceThatCannotBeOpenedEndsThemButNotTheSearch)
{
    device.setReachable(false);
    EXPECT_EQ(library.thumbnail(&out), -1);
    EXPECT_EQ(device.operations(testkit::allOperations),
              (QStringList{"devicePath = \"fake:device\"", "vDevOpen 2 \"fake:device\" = null"}));
    library.log.expectLines({disconnected, newlyAdded});

    library.setPhoto("DCIM/100APPLE", "IMG_0001.JPG", 0, 0);
    EXPECT_EQ(library.thumbnail(&out), -1);
    library.log.expectLines({disconnected, noContainer});
    EXPECT_EQ(out, QByteArray("untouched"));
}

TEST_F(ThumbnailFiles, ADeviceThatIsGoneForOneCandidateIsTriedAgainForTheContainers)
{
    library.setPhoto("DCIM/100APPLE", "IMG_0001.JPG", 0, 0);
    device.addFile("/PhotoData/Thumbnails/3309.ithmb", QByteArray(8192 + 28, '\0'));
    FaultyDevice faulty(device, Fault(OperationKind::OpenDevice, Fault::Effect::Fail, 3));
    out.clear();
    EXPECT_EQ(library.thumbnail(&out), 0);
    EXPECT_EQ(out.size(), 54);
    EXPECT_EQ(device.operationCount(OperationKind::OpenDevice), 4);
    library.log.expectLine(disconnected);
}

TEST_F(ThumbnailFiles, TheNameOfTheDeviceIsAskedForEachCandidate)
{
    int asked = 0;
    device.onOperation([this, &asked](const testkit::Operation &operation) {
        if (operation.kind == OperationKind::DevicePath)
            device.setDevicePath(QString("fake:%1").arg(++asked));
    });
    EXPECT_EQ(library.thumbnail(&out), -1);
    const QStringList opened = device.operations(OperationKind::OpenDevice);
    ASSERT_EQ(opened.size(), 5);
    for (int i = 0; i < opened.size(); ++i)
        EXPECT_EQ(opened[i], QString("vDevOpen 2 \"fake:%1\" = dev%1").arg(i + 1));
    library.log.expectLine(newlyAdded);
}
