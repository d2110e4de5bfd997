#include "photolib/media/ithmb_frame.h"

#include "photolib/media/thumbnail_places.h"
#include "testing/qt_printers.h"
#include "tests/unit/photolib/media/containers.h"

#include <QImage>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <random>
#include <vector>

using photolib::bitmapHeaderBytes;
using photolib::bitmapPixelBytes;
using photolib::bitmapRowBytes;
using photolib::convertIthmbFrame;
using photolib::isBitmapSize;
using photolib::writeBitmapHeader;

namespace
{

constexpr int most = std::numeric_limits<int>::max();

/// The rows, made in memory that ends exactly where the frame and the rows do.
QByteArray convertedRows(const QByteArray &frame, const ithmbGeometry &geometry, int width, int height)
{
    const QByteArray stored = frame + trailerOf(width, height);
    const auto size = static_cast<std::size_t>(stored.size());
    const std::unique_ptr<unsigned char[]> source(new unsigned char[size]);
    std::copy(stored.begin(), stored.end(), source.get());
    const int bytes = bitmapPixelBytes({width, height});
    const auto rowsSize = static_cast<std::size_t>(bytes);
    const std::unique_ptr<unsigned char[]> rows(new unsigned char[rowsSize]());
    convertIthmbFrame(source.get(), geometry, rows.get());
    return QByteArray(reinterpret_cast<const char *>(rows.get()), bytes);
}

QByteArray headerOf(int width, int height)
{
    std::vector<unsigned char> header(bitmapHeaderBytes, 0xEE);
    writeBitmapHeader({width, height}, header.data());
    return QByteArray(reinterpret_cast<const char *>(header.data()), static_cast<int>(header.size()));
}

class IthmbFrame : public testing::TestWithParam<Container>
{
protected:
    QByteArray randomFrame(std::mt19937 *random) const
    {
        QByteArray frame(GetParam().frameBytes, '\0');
        std::generate(frame.begin(), frame.end(), [random] { return static_cast<char>((*random)()); });
        return frame;
    }

    void expectAsDescribed(const QByteArray &frame, int width, int height) const
    {
        const ithmbGeometry geometry = GetParam().geometry();
        // No comparison that prints: a picture has many bytes.
        EXPECT_TRUE(convertedRows(frame, geometry, width, height) == expectedRows(frame, geometry, width, height))
            << GetParam().path << ": " << width << " x " << height;
    }
};

std::string nameOf(const testing::TestParamInfo<Container> &info)
{
    const std::string path = info.param.path;
    const std::size_t slash = path.rfind('/') + 1;
    return "Of" + path.substr(slash, path.rfind('.') - slash);
}

} // namespace

INSTANTIATE_TEST_SUITE_P(EveryContainer, IthmbFrame, testing::ValuesIn(containers), nameOf);

TEST_P(IthmbFrame, BecomesRowsPixelByPixel)
{
    std::mt19937 random(static_cast<unsigned>(GetParam().frameBytes));
    const QByteArray frame = randomFrame(&random);
    const int columns = GetParam().frameColumns;
    const int rows = GetParam().frameRows;
    const int pitch = GetParam().rowPixels;
    const int sizes[][2] = {{columns, rows},
                            {columns - 1, rows},
                            {columns, rows - 1},
                            {columns - 3, rows - 5},
                            {columns - 2, rows - 2},
                            {columns / 2, 3},
                            {1, 1},
                            {1, rows},
                            {columns, 1},
                            {2, 2},
                            {3, 3},
                            {5, 7}};
    for (const auto &size : sizes)
        expectAsDescribed(frame, size[0], size[1]);
    expectAsDescribed(frame, pitch, rows);
}

TEST_P(IthmbFrame, IsBlackWhereAPictureReachesBeyondIt)
{
    std::mt19937 random(7);
    const QByteArray frame = randomFrame(&random);
    const int columns = GetParam().frameColumns;
    const int rows = GetParam().frameRows;
    const int pitch = GetParam().rowPixels;
    for (const int wider : {1, 2, 3, 4, 5, 9, 68}) {
        expectAsDescribed(frame, columns + wider, rows);
        expectAsDescribed(frame, pitch + wider, rows);
        expectAsDescribed(frame, columns, rows + wider);
        expectAsDescribed(frame, pitch + wider, rows + wider + 1);
        expectAsDescribed(frame, 3 * pitch + wider, 1);
        expectAsDescribed(frame, 1, 3 * rows + wider);
    }
    expectAsDescribed(frame, 400, 400);
}

TEST_P(IthmbFrame, OfAnySizeBecomesRowsPixelByPixel)
{
    std::mt19937 random(20230101);
    std::uniform_int_distribution<int> size(0, 2 * GetParam().rowPixels);
    for (int i = 0; i < 20; ++i) {
        const QByteArray frame = randomFrame(&random);
        const int width = size(random);
        expectAsDescribed(frame, width, size(random));
    }
}

TEST_P(IthmbFrame, WithoutWidthOrHeightHasNoRows)
{
    std::mt19937 random(1);
    const QByteArray frame = randomFrame(&random);
    EXPECT_EQ(convertedRows(frame, GetParam().geometry(), 0, 0), QByteArray());
    EXPECT_EQ(convertedRows(frame, GetParam().geometry(), 100, 0), QByteArray());
    EXPECT_EQ(convertedRows(frame, GetParam().geometry(), 0, 100), QByteArray());
    EXPECT_EQ(convertedRows(frame, GetParam().geometry(), 0, most), QByteArray());
}

TEST_P(IthmbFrame, OfExtremeProportionsIsReadInsideItsFrame)
{
    std::mt19937 random(2);
    const QByteArray frame = randomFrame(&random);
    expectAsDescribed(frame, 1'000'000, 1);
    expectAsDescribed(frame, 1, 1'000'000);
}

TEST_P(IthmbFrame, IsDecodedUprightWithItsColours)
{
    const Container &container = GetParam();
    const int width = container.frameColumns - 20;
    const int height = container.frameRows - 10;
    // Red and green tell the place in the picture, blue the frame's edge around it.
    const QByteArray frame = frameOf(container, [](int column, int row) {
        const int x = column - 10;
        const int y = row - 5;
        return x < 0 || y < 0 ? 31 : (x % 32) << 10 | (y % 32) << 5;
    });
    const QByteArray rows = convertedRows(frame, container.geometry(), width, height);
    const QImage image = QImage::fromData(headerOf(width, height) + rows, "BMP");
    ASSERT_EQ(image.size(), QSize(width, height));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            ASSERT_EQ(image.pixel(x, y), qRgb(x % 32 * 8, y % 32 * 8, 0)) << x << ", " << y;
    }
}

TEST_P(IthmbFrame, HasTheLayoutThatDevicesUse)
{
    const auto found = std::find_if(containers.begin(), containers.end(),
                                    [](const Container &one) { return QByteArray(one.path) == GetParam().path; });
    const auto index = static_cast<std::size_t>(found - containers.begin());
    const photolib::ThumbnailContainer &container = photolib::thumbnailContainers()[index];
    EXPECT_STREQ(container.path, GetParam().path);
    EXPECT_EQ(container.geometry.frameBytes, GetParam().frameBytes);
    EXPECT_EQ(container.geometry.rowPixels, GetParam().rowPixels);
    EXPECT_EQ(container.geometry.frameRows, GetParam().frameRows);
    EXPECT_EQ(container.geometry.frameColumns, GetParam().frameColumns);
    EXPECT_EQ(container.geometry.frameBytes, container.geometry.rowPixels * container.geometry.frameRows * 2);
}

TEST(IthmbPixel, HasFiveBitsOfEachColourAndNoneIsRepeated)
{
    const ithmbGeometry geometry = {2, 1, 1, 1};
    const auto converted = [&](int pixel) { return convertedRows(littleEndian(pixel, 2), geometry, 1, 1).toHex(); };
    EXPECT_EQ(converted(0x7FFF), QByteArray("f8f8f800")) << "full intensity is 248";
    EXPECT_EQ(converted(0x8000), QByteArray("00000000")) << "bit 15 is ignored";
    EXPECT_EQ(converted(0xFFFF), QByteArray("f8f8f800"));
    EXPECT_EQ(converted(0x001F), QByteArray("f8000000"));
    EXPECT_EQ(converted(0x03E0), QByteArray("00f80000"));
    EXPECT_EQ(converted(0x7C00), QByteArray("0000f800"));
    EXPECT_EQ(converted(0x0421), QByteArray("08080800"));
    EXPECT_EQ(converted(0x4210), QByteArray("80808000"));
}

TEST(IthmbPixel, HasTheSameBytesInEveryPlaceOfARow)
{
    const ithmbGeometry geometry = {2 << 16, 1 << 15, 2, 1 << 15};
    QByteArray frame;
    for (int pixel = 0; pixel < 1 << 16; ++pixel)
        frame += littleEndian(pixel, 2);
    EXPECT_TRUE(convertedRows(frame, geometry, 1 << 15, 2) == expectedRows(frame, geometry, 1 << 15, 2));
}

TEST(IthmbTrailer, HoldsWidthAndHeightAsSignedLittleEndianNumbers)
{
    const auto sizeOf = [](const QByteArray &trailer) {
        return photolib::pictureSizeOf(reinterpret_cast<const unsigned char *>(trailer.constData()));
    };
    const QByteArray trailer = QByteArray(16, '\xFF') + QByteArray::fromHex("0102030405060788") + QByteArray(4, '\xFF');
    EXPECT_EQ(trailer.size(), static_cast<int>(photolib::frameTrailerBytes));
    EXPECT_EQ(sizeOf(trailer).width, 0x04030201);
    EXPECT_EQ(sizeOf(trailer).height, -0x77F8F9FB);
    EXPECT_EQ(sizeOf(trailerOf(-1, most)).width, -1);
    EXPECT_EQ(sizeOf(trailerOf(-1, most)).height, most);
}

TEST(Bitmap, RowsAreWholeMultiplesOfFourBytes)
{
    const int sizes[][2] = {{0, 0},     {1, 4},     {2, 8},     {3, 12},    {4, 12},    {5, 16},    {64, 192},
                            {120, 360}, {157, 472}, {158, 476}, {166, 500}, {240, 720}, {332, 996}, {400, 1200}};
    for (const auto &size : sizes) {
        EXPECT_EQ(bitmapRowBytes({size[0], 1}), size[1]) << size[0];
        EXPECT_EQ(bitmapPixelBytes({size[0], 9}), 9 * size[1]) << size[0];
    }
}

TEST(Bitmap, HeaderHasEveryFieldInItsPlace)
{
    EXPECT_EQ(headerOf(157, 100).toHex(), QByteArray("424d"     // signature
                                                     "96b80000" // 472 x 100 + 54
                                                     "00000000" // reserved
                                                     "36000000" // the pixels begin at 54
                                                     "28000000" // bytes of the info header
                                                     "9d000000" // width
                                                     "64000000" // height
                                                     "0100"     // planes
                                                     "1800"     // bits a pixel
                                                     "00000000" // not compressed
                                                     "60b80000" // 472 x 100
                                                     "00000000" // resolutions
                                                     "00000000"
                                                     "00000000" // colours
                                                     "00000000"));
    EXPECT_EQ(headerOf(0x010203, 0x04).mid(18, 8).toHex(), QByteArray("0302010004000000"));
    EXPECT_EQ(headerOf(1, 0x01020304).mid(22, 4).toHex(), QByteArray("04030201"));
    EXPECT_EQ(headerOf(1, 0x01020304).mid(2, 4).toHex(), QByteArray("460c0804")) << "4 x height + 54";
    EXPECT_EQ(headerOf(1, 0x01020304).mid(34, 4).toHex(), QByteArray("100c0804"));
}

TEST(Bitmap, HasNoSizeBelowZero)
{
    EXPECT_TRUE(isBitmapSize({0, 0}));
    EXPECT_TRUE(isBitmapSize({1, 1}));
    EXPECT_FALSE(isBitmapSize({-1, 1}));
    EXPECT_FALSE(isBitmapSize({1, -1}));
    EXPECT_FALSE(isBitmapSize({-1, -1}));
    EXPECT_FALSE(isBitmapSize({0, -1}));
    EXPECT_FALSE(isBitmapSize({-1, 0}));
    EXPECT_FALSE(isBitmapSize({std::numeric_limits<int>::min(), std::numeric_limits<int>::min()}));
}

TEST(Bitmap, FitsASigned32BitSizeTogetherWithItsHeader)
{
    constexpr int limit = most - 54;
    EXPECT_TRUE(isBitmapSize({1, limit / 4}));
    EXPECT_FALSE(isBitmapSize({1, limit / 4 + 1}));
    EXPECT_EQ(bitmapPixelBytes({1, limit / 4}), limit / 4 * 4);
    EXPECT_TRUE(isBitmapSize({715827864, 1}));
    EXPECT_FALSE(isBitmapSize({715827865, 1}));
    EXPECT_FALSE(isBitmapSize({most, 1}));
    EXPECT_FALSE(isBitmapSize({most, most}));
    EXPECT_FALSE(isBitmapSize({1 << 16, 1 << 16})) << "0 in 32 bits";
    EXPECT_TRUE(isBitmapSize({0, most})) << "no bytes at all";
    EXPECT_TRUE(isBitmapSize({1000, 0}));
    EXPECT_FALSE(isBitmapSize({most, 0})) << "one row alone does not fit";
}
