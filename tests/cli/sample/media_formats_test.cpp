#include "apps/cli/sample/film_file.h"
#include "apps/cli/sample/frame_container.h"
#include "apps/cli/sample/picture_files.h"
#include "apps/cli/sample/scene.h"
#include "apps/cli/sample/stroke_font.h"
#include "tests/cli/sample/film_atoms.h"

#include <QBuffer>
#include <QImageReader>
#include <gtest/gtest.h>

namespace
{

QImage plain(int width, int height, const QColor &colour)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

int shortAt(const QByteArray &bytes, int at)
{
    return static_cast<quint8>(bytes.at(at)) | static_cast<quint8>(bytes.at(at + 1)) << 8;
}

// The frame's row `y` counted from the bottom as a reader counts it, at the picture's column `x`.
int pixelFromBottom(const QByteArray &record, const sample::FrameLayout &layout, int width, int height, int x, int y)
{
    const int row = layout.rows - 1 - (layout.rows - height) / 2 - y;
    return shortAt(record, (row * layout.rowPixels + (layout.columns - width) / 2 + x) * 2);
}

} // namespace

TEST(FrameContainer, TrailerHoldsThePictureSizeAfterTheFrame)
{
    const QByteArray record = sample::frameRecord(plain(640, 480, Qt::red), sample::largeFrames);
    ASSERT_EQ(record.size(), 28800 + 28);
    EXPECT_EQ(shortAt(record, 28800 + 16), 120);
    EXPECT_EQ(shortAt(record, 28800 + 20), 90);
}

TEST(FrameContainer, PixelsAreFiveBitsAChannelWithRedOnTop)
{
    const sample::FrameLayout layout{"x", 4, 4, 4};
    const auto pixel = [&layout](const QColor &colour) {
        return shortAt(sample::frameRecord(plain(4, 4, colour), layout), 0);
    };
    EXPECT_EQ(pixel(Qt::red), 31 << 10);
    EXPECT_EQ(pixel(Qt::green), 31 << 5);
    EXPECT_EQ(pixel(Qt::blue), 31);
}

TEST(FrameContainer, PictureWithAnOddSpareRowLiesWhereAReaderLooksForIt)
{
    const sample::FrameLayout layout{"x", 8, 8, 8};
    QImage picture = plain(8, 5, Qt::blue);
    for (int x = 0; x < 8; ++x) {
        picture.setPixelColor(x, 0, Qt::red);
        picture.setPixelColor(x, 4, Qt::green);
    }
    const QByteArray record = sample::frameRecord(picture, layout);
    for (int x = 0; x < 8; ++x) {
        EXPECT_EQ(pixelFromBottom(record, layout, 8, 5, x, 0), 31 << 5);
        EXPECT_EQ(pixelFromBottom(record, layout, 8, 5, x, 2), 31);
        EXPECT_EQ(pixelFromBottom(record, layout, 8, 5, x, 4), 31 << 10);
    }
}

TEST(PictureFiles, JpegSaysHowItIsToBeTurned)
{
    const QImage upright = plain(30, 40, Qt::darkCyan);
    for (const int orientation : {1, 2, 3, 6, 8}) {
        sample::PictureFacts facts;
        facts.orientation = orientation;
        facts.taken = QDateTime(QDate(2021, 7, 14), QTime(9, 41), Qt::UTC);
        facts.latitude = -33.9628;
        facts.longitude = 18.4098;
        QByteArray bytes = sample::jpegFile(sample::turnedForStorage(upright, orientation), 85, facts);
        QBuffer buffer(&bytes);
        QImageReader reader(&buffer, "jpeg");
        EXPECT_EQ(reader.size(), orientation >= 5 ? QSize(40, 30) : QSize(30, 40)) << orientation;
        reader.setAutoTransform(true);
        EXPECT_EQ(reader.read().size(), QSize(30, 40)) << orientation;
    }
}

TEST(PictureFiles, TurnedJpegShowsThePictureUpright)
{
    QImage upright = plain(32, 64, Qt::white);
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x)
            upright.setPixelColor(x, y, Qt::black);
    for (const int orientation : {1, 2, 3, 6, 8}) {
        sample::PictureFacts facts;
        facts.orientation = orientation;
        QByteArray bytes = sample::jpegFile(sample::turnedForStorage(upright, orientation), 95, facts);
        QBuffer buffer(&bytes);
        QImageReader reader(&buffer, "jpeg");
        reader.setAutoTransform(true);
        const QImage seen = reader.read();
        ASSERT_EQ(seen.size(), upright.size());
        EXPECT_LT(qGray(seen.pixel(6, 6)), 40) << orientation;
        EXPECT_GT(qGray(seen.pixel(26, 6)), 215) << orientation;
        EXPECT_GT(qGray(seen.pixel(6, 58)), 215) << orientation;
    }
}

TEST(PictureFiles, GifHoldsAllFramesAndRepeatsForEver)
{
    QByteArray bytes = sample::gifFile({plain(20, 10, Qt::red), plain(20, 10, Qt::green), plain(20, 10, Qt::blue)}, 10);
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, "gif");
    EXPECT_EQ(reader.imageCount(), 3);
    EXPECT_EQ(reader.loopCount(), -1);
    // The quantiser keeps five bits of a channel.
    EXPECT_GE(qRed(reader.read().pixel(5, 5)), 248);
    EXPECT_EQ(reader.nextImageDelay(), 100);
    EXPECT_GE(qGreen(reader.read().pixel(5, 5)), 248);
}

TEST(FilmFile, TablesLeadToEveryFrame)
{
    QVector<QByteArray> frames;
    for (int i = 0; i < 7; ++i)
        frames.append(sample::jpegFile(plain(48, 32, QColor(30 * i, 100, 100)), 80));
    const auto film = readFilm(sample::filmFile(frames, QSize(48, 32), 10, 3000000000U));
    ASSERT_TRUE(film);
    EXPECT_EQ(film->brand, QStringLiteral("qt  "));
    EXPECT_EQ(film->codec, QStringLiteral("jpeg"));
    EXPECT_DOUBLE_EQ(film->seconds, 0.7);
    EXPECT_EQ(film->width, 48);
    EXPECT_EQ(film->height, 32);
    EXPECT_EQ(film->samples, frames);
}

TEST(ScenePainter, EqualScenesGiveEqualPicturesAndOtherSeedsDoNot)
{
    for (int motif = 0; motif <= static_cast<int>(sample::Motif::WeatherScreen); ++motif) {
        sample::Scene scene;
        scene.motif = static_cast<sample::Motif>(motif);
        scene.seed = 4;
        const QImage first = sample::paintScene(scene, QSize(160, 120));
        EXPECT_EQ(first, sample::paintScene(scene, QSize(160, 120))) << motif;
        scene.seed = 9;
        EXPECT_NE(first, sample::paintScene(scene, QSize(160, 120))) << motif;
    }
}

TEST(StrokeFont, UnknownCharactersAreBlankAndLowerCaseIsDrawnInCapitals)
{
    EXPECT_DOUBLE_EQ(sample::strokeTextWidth(QString(), 10), 0);
    EXPECT_DOUBLE_EQ(sample::strokeTextWidth(QStringLiteral("ab"), 10),
                     sample::strokeTextWidth(QStringLiteral("AB"), 10));
    EXPECT_DOUBLE_EQ(sample::strokeTextWidth(QStringLiteral("\u4E2D"), 10),
                     sample::strokeTextWidth(QStringLiteral(" "), 10));
}
