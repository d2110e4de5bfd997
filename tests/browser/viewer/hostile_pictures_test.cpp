#include "apps/browser/viewer/picture_decoder.h"
#include "apps/browser/viewer/raw_preview.h"
#include "apps/browser/viewer/tiff_directory.h"
#include "apps/cli/sample/picture_files.h"
#include "tests/browser/viewer/test_pictures.h"

#include <gtest/gtest.h>

namespace
{

using browser::PictureProblem;

PictureProblem problemOf(const QByteArray &bytes, const char *name = "IMG_0001.JPG")
{
    return browser::decodePicture(bytes, QLatin1String(name), 6, [] { return false; })->problem;
}

TEST(HostilePictures, AreToldApart)
{
    EXPECT_EQ(problemOf({}), PictureProblem::Empty);
    EXPECT_EQ(problemOf("this is no picture"), PictureProblem::UnknownFormat);
    EXPECT_EQ(problemOf("<svg xmlns='http://www.w3.org/2000/svg'/>", "A.SVG"), PictureProblem::UnknownFormat);
    EXPECT_EQ(problemOf("\xFF\xD8\xFF"), PictureProblem::Damaged);
    EXPECT_EQ(problemOf(QByteArray("\0\0\0\x18"
                                   "ftypheic\0\0\0\0mif1heic",
                                   24)),
              PictureProblem::Damaged);
}

TEST(HostilePictures, OfTooManyPixelsAreRefusedBeforeMemoryIsTaken)
{
    EXPECT_EQ(problemOf(pngThatClaims(60000, 60000)), PictureProblem::TooLarge);
    QByteArray gif = sample::gifFile({cornersPicture(), cornersPicture()}, 10);
    gif.replace(6, 4, "\xFF\xFF\xFF\xFF");
    EXPECT_NE(problemOf(gif), PictureProblem::None);
}

TEST(HostilePictures, OfNegativeSizeAreRefused)
{
    EXPECT_NE(problemOf(pngThatClaims(0x80000001, 0x7FFFFFFF)), PictureProblem::None);
    EXPECT_NE(problemOf(pngThatClaims(0, 16)), PictureProblem::None);
}

class CutFile : public testing::TestWithParam<int>
{
protected:
    static QByteArray file(int number)
    {
        const QImage image = cornersPicture({160, 120});
        switch (number) {
        case 0:
            return jpegBytes(image, 6);
        case 1:
            return encodedBytes(image, "png");
        case 2:
            return sample::gifFile({image, image}, 10);
        case 3:
            return encodedBytes(image, "tiff");
        case 4:
            return encodedBytes(image, "webp");
        case 5:
            return encodedBytes(image, "bmp");
        case 6:
            return rawBytes(jpegBytes(image));
        default:
            return heicBytes(image, 6);
        }
    }
};
INSTANTIATE_TEST_SUITE_P(EachFormat, CutFile, testing::Range(0, 8));

// A part may be shown or refused; what is shown has the size that the file says.
TEST_P(CutFile, IsShownInPartOrRefusedWhereverItEnds)
{
    const QByteArray whole = file(GetParam());
    ASSERT_FALSE(whole.isEmpty());
    for (int part = 0; part < 40; ++part) {
        const QByteArray cut = whole.left(whole.size() * part / 40);
        const auto picture = browser::decodePicture(cut, QStringLiteral("A"), 0, [] { return false; });
        if (picture->isGood())
            EXPECT_TRUE(picture->size == QSize(160, 120) || picture->size == QSize(120, 160)) << part;
        else
            EXPECT_TRUE(picture->levels.empty());
    }
}

TEST_P(CutFile, IsHandledWhicheverByteIsWrong)
{
    const QByteArray whole = file(GetParam());
    const int step = std::max<int>(1, static_cast<int>(whole.size()) / 60);
    for (int at = 12; at < whole.size(); at += step) {
        QByteArray wrong = whole;
        wrong[at] = static_cast<char>(~wrong[at]);
        const auto picture = browser::decodePicture(wrong, QStringLiteral("A"), 0, [] { return false; });
        EXPECT_EQ(picture->isGood(), !picture->size.isEmpty());
    }
}

TEST(HostilePictures, RawDirectoriesThatReferToThemselvesEnd)
{
    QByteArray bytes = rawBytes(QByteArray());
    bytes.replace(30, 4, QByteArray("\0\0\0\x08", 4)); // the further directory is the first one
    EXPECT_TRUE(browser::examineRaw(bytes, QString()).isRaw);
    EXPECT_EQ(problemOf(bytes, "A.DNG"), PictureProblem::RawWithoutPreview);
}

TEST(HostilePictures, TiffEntriesOutsideOfTheFileAreAbsent)
{
    QByteArray bytes("II*\0\x08\0\0\0\x01\0\x12\x01\x03\0\xFF\xFF\xFF\xFF\xF0\xFF\xFF\xFF\0\0\0\0", 26);
    const browser::TiffFile file(bytes);
    const auto directory = file.directory(file.firstDirectory());
    ASSERT_TRUE(directory.has_value());
    EXPECT_FALSE(file.number(*directory, 0x0112).has_value());
    EXPECT_FALSE(file.directory(4'000'000'000).has_value());
    EXPECT_FALSE(browser::TiffFile("II").isValid());
}

} // namespace
