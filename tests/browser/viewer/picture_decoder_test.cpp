#include "apps/browser/viewer/orientation.h"
#include "apps/browser/viewer/picture_decoder.h"
#include "apps/cli/sample/picture_files.h"
#include "tests/browser/viewer/test_pictures.h"

#include <QColorSpace>

#include <gtest/gtest.h>

namespace
{

using browser::PictureProblem;
using browser::SharedPicture;

SharedPicture decode(const QByteArray &bytes, const char *name = "IMG_0001", int libraryOrientation = 0)
{
    return browser::decodePicture(bytes, QLatin1String(name), libraryOrientation, [] { return false; });
}

class EachOrientation : public testing::TestWithParam<int>
{
};
INSTANTIATE_TEST_SUITE_P(Exif, EachOrientation, testing::Range(1, 9));

TEST_P(EachOrientation, OfTheExifDataOfAJpegIsObeyed)
{
    const QImage upright = cornersPicture();
    const SharedPicture picture = decode(jpegBytes(storedFor(upright, GetParam()), GetParam()));
    EXPECT_EQ(cornersOf(picture).toStdString(), "RGBW");
    EXPECT_EQ(picture->size, upright.size());
}

TEST_P(EachOrientation, OfTheFileCountsMoreThanThatOfTheLibrary)
{
    const int other = GetParam() % 8 + 1;
    const SharedPicture picture =
        decode(jpegBytes(storedFor(cornersPicture(), GetParam()), GetParam()), "A.JPG", other);
    EXPECT_EQ(cornersOf(picture).toStdString(), "RGBW");
}

TEST_P(EachOrientation, OfTheLibraryCountsWhereAJpegNamesNone)
{
    const SharedPicture picture = decode(jpegBytes(storedFor(cornersPicture(), GetParam())), "A.JPG", GetParam());
    EXPECT_EQ(cornersOf(picture).toStdString(), "RGBW");
}

TEST_P(EachOrientation, OfTheLibraryCountsForPng)
{
    const QByteArray bytes = encodedBytes(storedFor(cornersPicture(), GetParam()), "png");
    EXPECT_EQ(cornersOf(decode(bytes, "A.PNG", GetParam())).toStdString(), "RGBW");
}

TEST_P(EachOrientation, OfAHeicFileIsObeyedOnceAndTheLibrarysNever)
{
    const QImage upright = cornersPicture({128, 64});
    const QByteArray bytes = heicBytes(storedFor(upright, GetParam()), GetParam());
    ASSERT_FALSE(bytes.isEmpty());
    const SharedPicture picture = decode(bytes, "IMG_0001.HEIC", 6);
    EXPECT_EQ(cornersOf(picture).toStdString(), "RGBW");
    EXPECT_EQ(picture->size, upright.size());
}

TEST_P(EachOrientation, OfARawFileIsThatOfItsPreview)
{
    const QByteArray preview = jpegBytes(storedFor(cornersPicture(), GetParam()));
    const SharedPicture picture = decode(rawBytes(preview, GetParam()), "IMG_0001.DNG");
    EXPECT_EQ(cornersOf(picture).toStdString(), "RGBW");
    EXPECT_TRUE(picture->isPreview);
}

TEST(PictureDecoder, OrientationsOutOfRangeChangeNothing)
{
    for (const int orientation : {-1, 0, 9, 70000})
        EXPECT_EQ(cornersOf(browser::upright(cornersPicture(), orientation)).toStdString(), "RGBW") << orientation;
}

class EachFormat : public testing::TestWithParam<const char *>
{
};
INSTANTIATE_TEST_SUITE_P(OfQt, EachFormat, testing::Values("jpeg", "png", "bmp", "tiff", "webp"));

TEST_P(EachFormat, IsDecodedWhateverTheNameSays)
{
    const QByteArray bytes = encodedBytes(cornersPicture(), GetParam());
    ASSERT_FALSE(bytes.isEmpty()) << "this needs Qt's plug-in for " << GetParam();
    const SharedPicture picture = decode(bytes, "IMG_0001.MOV");
    EXPECT_EQ(cornersOf(picture).toStdString(), "RGBW");
    EXPECT_FALSE(picture->isPreview);
}

TEST(PictureDecoder, AnAnimationHasAllItsPicturesAndTheirTimes)
{
    const QImage first = cornersPicture();
    const QImage second = first.mirrored(true, false);
    const SharedPicture picture = decode(sample::gifFile({first, second, first}, 25), "A.GIF");
    ASSERT_EQ(picture->frames.size(), 3U);
    EXPECT_EQ(cornersOf(picture->frames[0].image).toStdString(), "RGBW");
    EXPECT_EQ(cornersOf(picture->frames[1].image).toStdString(), "GRWB");
    EXPECT_EQ(picture->frames[0].milliseconds, 250);
    EXPECT_EQ(picture->size, first.size());
}

TEST(PictureDecoder, AnAnimationWithoutTimesIsShownAtTenPicturesASecond)
{
    const SharedPicture picture = decode(sample::gifFile({cornersPicture(), cornersPicture()}, 0), "A.GIF");
    ASSERT_EQ(picture->frames.size(), 2U);
    EXPECT_EQ(picture->frames[0].milliseconds, 100);
}

TEST(PictureDecoder, AnAnimationLargerThanMemoryForItIsKeptSmaller)
{
    const QImage large = cornersPicture({2500, 2500});
    const QByteArray one = sample::gifFile({large}, 10);
    constexpr int before = 32, behind = 1; // bytes: size and repetition; end
    const QByteArray frame = one.mid(before, one.size() - before - behind);
    const SharedPicture picture = decode(one.left(before) + frame.repeated(14) + one.right(behind), "A.GIF");
    ASSERT_EQ(picture->frames.size(), 14U);
    EXPECT_EQ(picture->size, large.size());
    EXPECT_LT(picture->frames[0].image.width(), large.width());
    EXPECT_LE(picture->bytes(), browser::mostAnimationBytes * 101 / 100);
}

TEST(PictureDecoder, AnAnimationIsGivenUpWhenNobodyWaits)
{
    const QByteArray bytes = sample::gifFile({cornersPicture(), cornersPicture()}, 10);
    const SharedPicture picture = browser::decodePicture(bytes, QString(), 0, [] { return true; });
    EXPECT_EQ(picture->problem, PictureProblem::GivenUp);
}

TEST(PictureDecoder, ALargePictureHasSmallerLevelsForPainting)
{
    const SharedPicture picture = decode(jpegBytes(cornersPicture({4000, 3000})));
    ASSERT_EQ(picture->levels.size(), 3U);
    EXPECT_EQ(picture->levels[1].size(), QSize(2000, 1500));
    EXPECT_EQ(cornersOf(picture->levels[2]).toStdString(), "RGBW");
}

TEST(PictureDecoder, ColoursOfAWiderSpaceBecomeThoseOfTheScreen)
{
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(QColor(200, 60, 60));
    image.setColorSpace(QColorSpace(QColorSpace::DisplayP3));
    const SharedPicture picture = decode(encodedBytes(image, "png"));
    ASSERT_TRUE(picture->isGood());
    EXPECT_GT(qRed(picture->levels[0].pixel(8, 8)), 205);
    EXPECT_LT(qGreen(picture->levels[0].pixel(8, 8)), 60);
}

TEST_P(EachOrientation, OfAThumbnailIsObeyedAsInTheGrid)
{
    const QByteArray bytes = jpegBytes(storedFor(cornersPicture(), GetParam()), GetParam());
    EXPECT_EQ(cornersOf(browser::decodeThumbnail(bytes)).toStdString(), "RGBW");
}

TEST(PictureDecoder, IsGivenUpBetweenItsSizes)
{
    const QByteArray bytes = jpegBytes(cornersPicture({4000, 3000}));
    int asked = 0;
    const auto picture = browser::decodePicture(bytes, QStringLiteral("A.JPG"), 1, [&asked] { return ++asked > 2; });
    EXPECT_EQ(picture->problem, browser::PictureProblem::GivenUp);
}

TEST(PictureDecoder, ThumbnailsAreJpegOrBitmaps)
{
    EXPECT_EQ(cornersOf(browser::decodeThumbnail(encodedBytes(cornersPicture(), "jpeg"))).toStdString(), "RGBW");
    EXPECT_EQ(cornersOf(browser::decodeThumbnail(encodedBytes(cornersPicture(), "bmp"))).toStdString(), "RGBW");
    EXPECT_TRUE(browser::decodeThumbnail(encodedBytes(cornersPicture({4097, 8}), "bmp")).isNull());
    EXPECT_TRUE(browser::decodeThumbnail("BM").isNull());
    EXPECT_TRUE(browser::decodeThumbnail(QByteArray()).isNull());
}

} // namespace
