#include "tests/cli/sample/film_atoms.h"
#include "tests/cli/sample/sample_folder.h"

#include "apps/cli/sample/frame_container.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <gtest/gtest.h>

namespace
{

struct Asset {
    QString directory, fileName;
    qint64 width, height, fileSize, orientation, thumbnailIndex, kindSubtype, adjusted;
    double duration;

    QString path() const { return directory + QLatin1Char('/') + fileName; }
    QString stem() const { return fileName.left(fileName.lastIndexOf(QLatin1Char('.'))); }
};

double realOf(const testkit::SqlValue &value)
{
    const auto *real = std::get_if<double>(&value.storage());
    return real == nullptr ? static_cast<double>(numberOf(value)) : *real;
}

// Those whose original is on the device, or all.
std::vector<Asset> assetsOf(const SampleFolder &device, bool onlyOnDevice = true)
{
    std::vector<Asset> assets;
    const auto rows = device.rows(QStringLiteral(
        "SELECT A.ZDIRECTORY, A.ZFILENAME, A.ZWIDTH, A.ZHEIGHT, T.ZORIGINALFILESIZE, A.ZORIENTATION, "
        "A.ZTHUMBNAILINDEX, "
        "A.ZKINDSUBTYPE, A.ZHASADJUSTMENTS, A.ZDURATION FROM ZASSET AS A JOIN ZADDITIONALASSETATTRIBUTES AS T "
        "ON T.ZASSET = A.Z_PK ORDER BY A.Z_PK"));
    for (const auto &row : rows) {
        const Asset asset{textOf(row[0]),   textOf(row[1]),   numberOf(row[2]), numberOf(row[3]), numberOf(row[4]),
                          numberOf(row[5]), numberOf(row[6]), numberOf(row[7]), numberOf(row[8]), realOf(row[9])};
        if (!onlyOnDevice || !asset.fileName.endsWith(QLatin1String(".HEIC")))
            assets.push_back(asset);
    }
    return assets;
}

QImage decoded(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    return reader.read();
}

// The mean colour of a picture whose frame in a container is `record`.
QColor meanOf(const QByteArray &record, const sample::FrameLayout &layout)
{
    qint64 red = 0, green = 0, blue = 0, count = 0;
    for (int at = 0; at < layout.frameBytes(); at += 2) {
        const int pixel = static_cast<quint8>(record.at(at)) | static_cast<quint8>(record.at(at + 1)) << 8;
        red += pixel >> 10 & 31;
        green += pixel >> 5 & 31;
        blue += pixel & 31;
    }
    const auto number = [&record, &layout](int at) { return static_cast<quint8>(record.at(layout.frameBytes() + at)); };
    count = number(16) * number(20);
    const auto channel = [count](qint64 sum) { return count == 0 ? 0 : static_cast<int>(sum * 8 / count); };
    return QColor(channel(red), channel(green), channel(blue));
}

QColor meanOf(const QImage &picture)
{
    return picture.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixelColor(0, 0);
}

} // namespace

TEST(SampleMedia, EveryNamedFileIsThereButThoseInTheCloud)
{
    const SampleFolder device;
    ASSERT_TRUE(device.written()) << qPrintable(device.error());
    int inCloud = 0;
    for (const Asset &asset : assetsOf(device, false)) {
        const bool there = QFileInfo::exists(device.path(asset.path()));
        const bool cloudOnly = asset.fileName.endsWith(QLatin1String(".HEIC"));
        EXPECT_NE(there, cloudOnly) << qPrintable(asset.path());
        inCloud += cloudOnly;
        if (there) {
            EXPECT_EQ(QFileInfo(device.path(asset.path())).size(), asset.fileSize) << qPrintable(asset.path());
        }
    }
    EXPECT_GE(inCloud, 5);
}

TEST(SampleMedia, PicturesHaveTheSizeAndTurnThatTheDatabaseTells)
{
    const SampleFolder device;
    ASSERT_TRUE(device.written()) << qPrintable(device.error());
    int turned = 0, seen = 0;
    for (const Asset &asset : assetsOf(device)) {
        if (asset.fileName.endsWith(QLatin1String(".MOV")) || asset.fileName.endsWith(QLatin1String(".DNG")))
            continue;
        QImageReader reader(device.path(asset.path()));
        const QSize size = reader.size();
        EXPECT_EQ(size, QSize(static_cast<int>(asset.width), static_cast<int>(asset.height)))
            << qPrintable(asset.path());
        EXPECT_EQ(!!(reader.transformation() & QImageIOHandler::TransformationRotate90), asset.orientation >= 5)
            << qPrintable(asset.path());
        EXPECT_FALSE(reader.read().isNull()) << qPrintable(asset.path());
        turned += asset.orientation != 1;
        ++seen;
    }
    EXPECT_GT(turned, 10);
    EXPECT_GT(seen, 180);
}

TEST(SampleMedia, FilmsLastAsLongAsTheDatabaseTells)
{
    const SampleFolder device;
    ASSERT_TRUE(device.written()) << qPrintable(device.error());
    int films = 0;
    for (const Asset &asset : assetsOf(device)) {
        if (!asset.fileName.endsWith(QLatin1String(".MOV")))
            continue;
        const auto film = readFilm(device.read(asset.path()));
        ASSERT_TRUE(film) << qPrintable(asset.path());
        EXPECT_NEAR(film->seconds, asset.duration, 1e-9) << qPrintable(asset.path());
        EXPECT_GE(film->seconds, 1) << qPrintable(asset.path());
        EXPECT_EQ(film->width, asset.width);
        EXPECT_EQ(film->height, asset.height);
        for (const QByteArray &frame : film->samples)
            ASSERT_EQ(QImage::fromData(frame, "jpeg").size(), QSize(film->width, film->height))
                << qPrintable(asset.path());
        EXPECT_NE(film->samples.first(), film->samples.last()) << qPrintable(asset.path()) << " stands still";
        ++films;
    }
    EXPECT_GE(films, 20);
}

TEST(SampleMedia, LivePhotosHaveAFilmAndEditsHaveTheirResult)
{
    const SampleFolder device;
    ASSERT_TRUE(device.written()) << qPrintable(device.error());
    int live = 0, edits = 0;
    for (const Asset &asset : assetsOf(device)) {
        if (asset.kindSubtype == 2) {
            EXPECT_TRUE(
                readFilm(device.read(asset.directory + QLatin1Char('/') + asset.stem() + QStringLiteral(".MOV"))))
                << qPrintable(asset.path());
            ++live;
        }
        if (asset.adjusted != 0) {
            EXPECT_FALSE(
                device.read(asset.directory + QLatin1Char('/') + asset.stem() + QStringLiteral(".AAE")).isEmpty());
            const QString result = QStringLiteral("PhotoData/Mutations/%1/%2/Adjustments/FullSizeRender.jpg")
                                       .arg(asset.directory, asset.stem());
            const QImage render = decoded(device.read(result));
            EXPECT_EQ(render.size(), decoded(device.read(asset.path())).size()) << qPrintable(result);
            EXPECT_TRUE(render.allGray()) << qPrintable(result);
            ++edits;
        }
    }
    EXPECT_GE(live, 8);
    EXPECT_GE(edits, 2);
}

TEST(SampleMedia, ContainersHoldThePictureOfEachAssetAtItsThumbnailIndex)
{
    const SampleFolder device;
    ASSERT_TRUE(device.written()) << qPrintable(device.error());
    const std::vector<Asset> assets = assetsOf(device, false);
    for (const sample::FrameLayout &layout : {sample::largeFrames, sample::smallFrames}) {
        const QByteArray container =
            device.read(QStringLiteral("PhotoData/Thumbnails/") + QLatin1String(layout.fileName));
        int frames = 0;
        for (const Asset &asset : assets) {
            if (asset.thumbnailIndex < 0)
                continue;
            ++frames;
            const QByteArray record =
                container.mid(static_cast<int>(asset.thumbnailIndex) * layout.recordBytes(), layout.recordBytes());
            ASSERT_EQ(record.size(), layout.recordBytes()) << qPrintable(asset.path());
            const QImage original = decoded(device.read(asset.path()));
            if (original.isNull() || asset.fileName.endsWith(QLatin1String(".GIF")))
                continue; // films, raws, and what is in the cloud only; an animation has fewer colours
            const QColor ours = meanOf(record, layout), theirs = meanOf(original);
            EXPECT_NEAR(ours.red(), theirs.red(), 9) << qPrintable(asset.path());
            EXPECT_NEAR(ours.green(), theirs.green(), 9) << qPrintable(asset.path());
            EXPECT_NEAR(ours.blue(), theirs.blue(), 9) << qPrintable(asset.path());
        }
        EXPECT_EQ(container.size(), frames * layout.recordBytes());
        EXPECT_EQ(static_cast<std::size_t>(frames), assets.size() - 1);
    }
}
