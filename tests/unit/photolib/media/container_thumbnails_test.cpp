#include "tests/unit/photolib/media/containers.h"
#include "tests/unit/photolib/media/opened_media.h"

#include "testing/faulty_device.h"

#include <QImage>

#include <cstring>
#include <limits>

using testkit::Fault;
using testkit::FaultyDevice;
using testkit::OperationKind;

namespace
{

constexpr Container smallest = containers[7];
constexpr int recordBytes = 8192 + 28;
constexpr char shortFrame[] = "PHOTOLIB 2 Can not read ithmb data";
constexpr char shortTrailer[] = "PHOTOLIB 2 Can not read ithmb info";

/// A frame whose every pixel has this value.
QByteArray plainFrame(const Container &container, int pixel)
{
    return frameOf(container, [pixel](int, int) { return pixel; });
}

class ContainerThumbnail : public MediaTest
{
protected:
    ContainerThumbnail()
    {
        setIndex(0);
        expectLinesAfterCloses();
    }

    void setIndex(int index) { library.setPhoto("DCIM/100APPLE", "IMG_0001.JPG", 0, index); }

    /// The operations that follow on those for the five files of the photo.
    QStringList containerOperations() const
    {
        constexpr int each = 3; // open the device, the file, close the device
        return device.operations().mid(5 * each);
    }

    /// The picture of the first frame of the smallest container, with this size told in its trailer.
    int thumbnailOfSize(int width, int height)
    {
        device.addFile(smallest.path, plainFrame(smallest, 0x7FFF) + trailerOf(width, height));
        return library.thumbnail(&out);
    }

    /// Nothing but the line, and all is closed and untouched.
    void expectFailure(const QString &line)
    {
        out = "untouched";
        EXPECT_EQ(library.thumbnail(&out), -1);
        EXPECT_EQ(out, QByteArray("untouched"));
        library.log.expectLine(line);
    }

    static const ithmbGeometry untouchedGeometry;
};

const ithmbGeometry ContainerThumbnail::untouchedGeometry = {1, 2, 3, 4};

class EachContainer : public ContainerThumbnail, public testing::WithParamInterface<std::size_t>
{
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Containers, EachContainer, testing::Range(std::size_t{0}, containers.size()));

TEST_P(EachContainer, IsFoundBehindThoseBeforeItAndReadAtTheRecord)
{
    const Container &container = containers[GetParam()];
    const QByteArray first = plainFrame(container, 0x1234) + trailerOf(10, 10);
    const QByteArray frame = frameOf(container, [](int column, int row) { return column * 31 + row * 1000; });
    device.addFile(container.path, first + frame + trailerOf(37, 21) + first);
    for (std::size_t later = GetParam() + 1; later < containers.size(); ++later)
        device.addFile(containers[later].path, "not looked at");
    setIndex(1);
    out = "before";
    EXPECT_EQ(library.thumbnail(&out), 0);
    const QByteArray rows = expectedRows(frame, container.geometry(), 37, 21);
    EXPECT_EQ(out.left(6 + 2), QByteArray("beforeBM")) << "the bitmap is appended";
    EXPECT_EQ(out.mid(6 + 18, 8).toHex(), QByteArray("2500000015000000"));
    EXPECT_EQ(out.size(), 6 + 54 + rows.size());
    EXPECT_TRUE(out.mid(6 + 54) == rows);
    EXPECT_EQ(numbersOf(library.probe.containerGeometry()), numbersOf(container.geometry()));

    QStringList expected = {"vDevOpen 2 \"fake:device\" = dev6"};
    for (std::size_t before = 0; before < GetParam(); ++before)
        expected += QString("vFileOpen dev6 \"%1\" 0 = null").arg(containers[before].path);
    const int offset = container.frameBytes + 28;
    expected += QString("vFileOpen dev6 \"%1\" 0 = file1").arg(container.path);
    expected += QString("vFileSeek file1 %1 0 = %1").arg(offset);
    expected += QString("vFileRead file1 %1 = %1").arg(container.frameBytes);
    expected += QStringList{"vFileRead file1 28 = 28", "vFileClose file1", "vDevClose dev6"};
    EXPECT_EQ(containerOperations(), expected);
}

TEST_F(ContainerThumbnail, AsksForTheNameOfTheDeviceOnce)
{
    EXPECT_EQ(thumbnailOfSize(1, 1), 0);
    EXPECT_EQ(device.operationCount(OperationKind::DevicePath), 5 + 1);
    EXPECT_EQ(device.operationCount(OperationKind::OpenDevice), 5 + 1);
}

TEST_F(ContainerThumbnail, OfAContainerThatIsNotTheFramesOwnIsAShortFrame)
{
    device.addFile(containers[1].path, QByteArray(2 * recordBytes, '\0')); // as if it were the smallest
    device.addFile(smallest.path, plainFrame(smallest, 0) + trailerOf(64, 64));
    expectFailure(shortFrame);
    EXPECT_EQ(numbersOf(library.probe.containerGeometry()), numbersOf(containers[1].geometry()));
}

TEST_F(ContainerThumbnail, LeavesTheLayoutOfTheLastContainerThatWasOpened)
{
    device.addFile(containers[3].path, "");
    device.addFile(smallest.path, "");
    expectFailure(shortFrame);
    EXPECT_EQ(numbersOf(library.probe.containerGeometry()), numbersOf(containers[3].geometry()));
    device.removeFile(containers[3].path);
    expectFailure(shortFrame);
    EXPECT_EQ(numbersOf(library.probe.containerGeometry()), numbersOf(smallest.geometry()));
    device.removeFile(smallest.path);
    expectFailure(noContainer);
    EXPECT_EQ(numbersOf(library.probe.containerGeometry()), numbersOf(smallest.geometry()));
}

TEST_F(ContainerThumbnail, WithoutAnyContainerAllAreTriedAndTheLayoutStays)
{
    library.probe.containerGeometry() = untouchedGeometry;
    expectFailure(noContainer);
    EXPECT_EQ(numbersOf(library.probe.containerGeometry()), numbersOf(untouchedGeometry));
    QStringList expected = {"vDevOpen 2 \"fake:device\" = dev6"};
    for (const Container &container : containers)
        expected += QString("vFileOpen dev6 \"%1\" 0 = null").arg(container.path);
    expected += "vDevClose dev6";
    EXPECT_EQ(containerOperations(), expected);
}

TEST_F(ContainerThumbnail, OnADeviceThatCannotBeOpenedIsClosedAsANullHandle)
{
    device.addFile(smallest.path, plainFrame(smallest, 0) + trailerOf(64, 64));
    library.probe.containerGeometry() = untouchedGeometry;
    FaultyDevice faulty(device, Fault(OperationKind::OpenDevice, Fault::Effect::Fail, 6));
    expectFailure(noContainer);
    EXPECT_EQ(containerOperations(), (QStringList{"vDevOpen 2 \"fake:device\" = null", "vDevClose null"}));
    EXPECT_EQ(numbersOf(library.probe.containerGeometry()), numbersOf(untouchedGeometry));
}

TEST_F(ContainerThumbnail, WithoutADeviceNoContainerIsFound)
{
    ithmbGeometry geometry = untouchedGeometry;
    EXPECT_EQ(PhotoManagerProbe::openIthmbFile(&geometry, nullptr), nullptr);
    EXPECT_EQ(numbersOf(geometry), numbersOf(untouchedGeometry));
}

TEST_F(ContainerThumbnail, IsFoundWithAnIndexThatNeedsA64BitOffset)
{
    const Container &container = containers[0];
    const qint64 offset = 479172321122404; // 223132 x 2147483647
    const QByteArray record = plainFrame(container, 0x03E0) + trailerOf(2, 1);
    device.addVirtualFile(container.path, offset + record.size(), [&](qint64 from, char *buffer, qint64 size) {
        ASSERT_GE(from, offset);
        std::memcpy(buffer, record.constData() + (from - offset), static_cast<std::size_t>(size));
    });
    setIndex(std::numeric_limits<int>::max());
    out.clear();
    EXPECT_EQ(library.thumbnail(&out), 0);
    EXPECT_EQ(out.mid(54).toHex(), QByteArray("00f80000f8000000"));
    EXPECT_EQ(containerOperations().value(2), QString("vFileSeek file1 479172321122404 0 = 479172321122404"));
}

TEST_F(ContainerThumbnail, WhoseRecordIsNotReachedIsAFailureWithTheOffset)
{
    device.addFile(smallest.path, plainFrame(smallest, 0) + trailerOf(64, 64));
    setIndex(std::numeric_limits<int>::max());
    const QString line = "PHOTOLIB 2 Can seek to offset 17652315578340 while getting ithmb"; // 8220 x 2147483647
    for (const qint64 answer : {qint64{-1}, qint64{0}, 17652315578340 - (qint64{1} << 32), qint64{17652315578341}}) {
        Fault lie(OperationKind::Seek, Fault::Effect::Answer);
        lie.answer = answer;
        FaultyDevice lying(device, lie);
        device.clearOperations();
        expectFailure(line);
        EXPECT_EQ(containerOperations().mid(10), (QStringList{"vFileClose file1", "vDevClose dev6"}));
    }
    setIndex(1);
    FaultyDevice faulty(device, Fault(OperationKind::Seek, Fault::Effect::WrongPosition));
    expectFailure("PHOTOLIB 2 Can seek to offset 8220 while getting ithmb");
}

TEST_F(ContainerThumbnail, OfARecordBehindTheEndIsAShortFrame)
{
    device.addFile(smallest.path, plainFrame(smallest, 0) + trailerOf(64, 64));
    setIndex(1);
    expectFailure(shortFrame);
    EXPECT_EQ(containerOperations().mid(9), (QStringList{"vFileSeek file1 8220 0 = 8220", "vFileRead file1 8192 = 0",
                                                         "vFileClose file1", "vDevClose dev6"}));
}

TEST_F(ContainerThumbnail, WithoutAWholeFrameOrTrailerIsAFailure)
{
    const QByteArray record = plainFrame(smallest, 0) + trailerOf(64, 64);
    for (const int missing : {29, 30, 5000, recordBytes}) {
        device.addFile(smallest.path, record.chopped(missing));
        expectFailure(shortFrame);
    }
    for (const int missing : {1, 4, 5, 27, 28}) {
        device.addFile(smallest.path, record.chopped(missing));
        expectFailure(shortTrailer);
    }
    EXPECT_EQ(device.operations().mid(device.operations().size() - 4),
              (QStringList{QString("vFileRead file%1 8192 = 8192").arg(9), QString("vFileRead file%1 28 = 0").arg(9),
                           QString("vFileClose file%1").arg(9), "vDevClose dev54"}));
}

TEST_F(ContainerThumbnail, WhoseReadFailsIsAFailure)
{
    device.addFile(smallest.path, plainFrame(smallest, 0) + trailerOf(64, 64));
    for (const int read : {1, 2}) {
        FaultyDevice faulty(device, Fault(OperationKind::Read, Fault::Effect::Fail, read));
        expectFailure(read == 1 ? shortFrame : shortTrailer);
    }
}

TEST_F(ContainerThumbnail, OfAnImpossibleSizeIsAShortTrailer)
{
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    const int sizes[][2] = {{-1, 64},     {64, -1},  {-1, -1},  {least, least}, {least, 1},     {0, least},
                            {most, most}, {most, 1}, {1, most}, {most, 0},      {65536, 65536}, {26755, 26755}};
    for (const auto &size : sizes) {
        device.addFile(smallest.path, plainFrame(smallest, 0) + trailerOf(size[0], size[1]));
        expectFailure(shortTrailer);
    }
}

TEST_F(ContainerThumbnail, OfHeightZeroIsAHeaderOnly)
{
    out.clear();
    EXPECT_EQ(thumbnailOfSize(64, 0), 0);
    EXPECT_EQ(out.toHex(), QByteArray("424d36000000000000003600000028000000400000000000000001001800"
                                      "000000000000000000000000000000000000000000000000"));
}

TEST_F(ContainerThumbnail, OfWidthZeroIsAHeaderOnlyHoweverHighItIs)
{
    out.clear();
    EXPECT_EQ(thumbnailOfSize(0, std::numeric_limits<int>::max()), 0);
    EXPECT_EQ(out.size(), 54);
    EXPECT_EQ(out.mid(18, 8).toHex(), QByteArray("00000000ffffff7f"));
}

TEST_F(ContainerThumbnail, OfOnePixelIsThatOfTheMiddle)
{
    device.addFile(smallest.path, frameOf(smallest, [](int column, int row) {
                                      return column == 31 && row == 32 ? 0x7C00 : 0x001F;
                                  }) + trailerOf(1, 1));
    out.clear();
    EXPECT_EQ(library.thumbnail(&out), 0);
    // 31 columns are left of it, and 31 rows below it.
    EXPECT_EQ(out.mid(54).toHex(), QByteArray("0000f800"));
}

TEST_F(ContainerThumbnail, LargerThanItsFrameIsBlackAround)
{
    out.clear();
    EXPECT_EQ(thumbnailOfSize(70, 66), 0);
    const QImage image = QImage::fromData(out);
    ASSERT_EQ(image.size(), QSize(70, 66));
    for (int y = 0; y < 66; ++y) {
        for (int x = 0; x < 70; ++x) {
            const bool inside = x >= 3 && x < 67 && y >= 1 && y < 65;
            ASSERT_EQ(image.pixel(x, y), inside ? qRgb(248, 248, 248) : qRgb(0, 0, 0)) << x << ", " << y;
        }
    }
}

TEST_F(ContainerThumbnail, IsAnUprightPicture)
{
    // A flag that no turning or mirroring leaves as it is.
    const Container &container = containers[5]; // its rows are longer than its pictures
    device.addFile(container.path, frameOf(container, [](int column, int row) {
                                       const int colour = row < 40 ? 0x7C00 : 0x03E0; // red above green
                                       return column < 20 ? 0x001F : colour;          // blue at the left
                                   }) + trailerOf(157, 157));
    out.clear();
    EXPECT_EQ(library.thumbnail(&out), 0);
    const QImage image = QImage::fromData(out);
    ASSERT_EQ(image.size(), QSize(157, 157));
    EXPECT_EQ(image.pixel(0, 0), qRgb(0, 0, 248));
    EXPECT_EQ(image.pixel(19, 156), qRgb(0, 0, 248));
    EXPECT_EQ(image.pixel(20, 0), qRgb(248, 0, 0));
    EXPECT_EQ(image.pixel(156, 39), qRgb(248, 0, 0));
    EXPECT_EQ(image.pixel(20, 40), qRgb(0, 248, 0));
    EXPECT_EQ(image.pixel(156, 156), qRgb(0, 248, 0));
}

TEST_F(ContainerThumbnail, IsAppendedEachTime)
{
    out.clear();
    EXPECT_EQ(thumbnailOfSize(3, 2), 0);
    const QByteArray once = out;
    EXPECT_EQ(once.size(), 54 + 24);
    EXPECT_EQ(library.thumbnail(&out), 0);
    EXPECT_EQ(out, once + once);
}
