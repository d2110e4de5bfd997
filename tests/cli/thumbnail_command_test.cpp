#include "tests/cli/command_run.h"
#include "tests/cli/media_device.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>
#include <unistd.h>

namespace clitest
{

namespace
{

// Photo 1 has a JPEG, photo 2 a frame of 10x4 pixels in a container, photo 3 nothing.
class ThumbnailCommand : public testing::Test
{
protected:
    ThumbnailCommand()
    {
        for (int n = 1; n <= 3; ++n) {
            testkit::AssetRow row;
            row.thumbnailIndex = n == 2 ? 0 : -1;
            device.addPhoto(QStringLiteral("IMG_%1.JPG").arg(n), 10, row);
        }
        device.addFile("PhotoData/Thumbnails/V2/DCIM/100APPLE/IMG_1.JPG/5005.JPG", tinyJpeg());
        device.addFile("PhotoData/Thumbnails/3309.ithmb", frame(10, 4));
        device.write();
    }

    static QByteArray frame(char width, char height)
    {
        QByteArray trailer(28, '\0');
        trailer[16] = width;
        trailer[20] = height;
        return QByteArray(8192, '\x1F') + trailer;
    }

    RunResult thumbnail(const QStringList &arguments)
    {
        return run(QStringList{"thumbnail", device.path()} + arguments);
    }

    QString file(const QString &name) const { return folder.path() + QChar('/') + name; }

    MediaDevice device;
    const QTemporaryDir folder;
};

} // namespace

TEST_F(ThumbnailCommand, WritesTheBytesOfTheDeviceAndSaysWhatTheyAre)
{
    const RunResult result = thumbnail({"1", "-o", file("a.jpg")});
    EXPECT_EQ(result.code, 0) << result.err.toStdString();
    EXPECT_EQ(contentOfFile(file("a.jpg")), tinyJpeg());
    EXPECT_EQ(result.out, file("a.jpg").toUtf8() + ": JPEG, 8x6 pixels, 632 B\n");
    EXPECT_EQ(namesIn(folder.path()), QStringList{"a.jpg"});
}

TEST_F(ThumbnailCommand, FrameOfAContainerIsABitmap)
{
    const RunResult result = thumbnail({"2", "-o", file("b.bmp")});
    EXPECT_EQ(result.code, 0) << result.err.toStdString();
    EXPECT_TRUE(contentOfFile(file("b.bmp")).startsWith("BM"));
    EXPECT_TRUE(result.out.contains(": BMP, 10x4 pixels, ")) << result.out.toStdString();
}

TEST_F(ThumbnailCommand, PngOfEitherKind)
{
    for (const char *id : {"1", "2"}) {
        const QString name = file(QStringLiteral("%1.png").arg(id));
        const RunResult result = thumbnail({id, "--png", "-o", name});
        EXPECT_EQ(result.code, 0) << result.err.toStdString();
        EXPECT_TRUE(contentOfFile(name).startsWith("\x89PNG"));
        EXPECT_TRUE(result.out.contains(": PNG, ")) << result.out.toStdString();
    }
}

TEST_F(ThumbnailCommand, StandardOutputTakesThePictureAndStandardErrorTheRest)
{
    const RunResult result = thumbnail({"1", "-o", "-"});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.out, tinyJpeg());
    EXPECT_EQ(result.err, QByteArray("photolib: JPEG, 8x6 pixels, 632 B\n"));
}

TEST_F(ThumbnailCommand, UuidNamesAPhotoToo)
{
    testkit::AssetRow row;
    row.uuid = "AAAA-BBBB";
    device.addPhoto("IMG_4.JPG", 10, row);
    device.addFile("PhotoData/Thumbnails/V2/DCIM/100APPLE/IMG_4.JPG/3505.JPG", tinyJpeg());
    device.write();
    EXPECT_EQ(thumbnail({"aaaa-bbbb", "-o", "-"}).out, tinyJpeg());
}

TEST_F(ThumbnailCommand, FileThatIsThereIsReplacedByForceOnly)
{
    const QString name = file("mine");
    QFile mine(name);
    ASSERT_TRUE(mine.open(QIODevice::WriteOnly));
    mine.write("mine");
    mine.close();
    const RunResult refused = thumbnail({"1", "-o", name});
    EXPECT_EQ(refused.code, 5);
    EXPECT_TRUE(refused.err.contains("--force")) << refused.err.toStdString();
    EXPECT_EQ(contentOfFile(name), QByteArray("mine"));
    EXPECT_EQ(thumbnail({"1", "-o", name, "--force"}).code, 0);
    EXPECT_EQ(contentOfFile(name), tinyJpeg());
    EXPECT_EQ(namesIn(folder.path()), QStringList{"mine"});
}

TEST_F(ThumbnailCommand, PhotoWithoutThumbnailIsStatusOneWithAdvice)
{
    const RunResult result = thumbnail({"3", "-o", file("c.jpg")});
    EXPECT_EQ(result.code, 1);
    EXPECT_EQ(result.out, QByteArray());
    EXPECT_EQ(result.err.count('\n'), 1);
    EXPECT_TRUE(result.err.contains("photo 3 (\"IMG_3.JPG\") has no thumbnail on the device"))
        << result.err.toStdString();
    EXPECT_TRUE(namesIn(folder.path()).isEmpty());
}

TEST_F(ThumbnailCommand, UnknownPhotoIsStatusOne)
{
    const RunResult result = thumbnail({"99", "-o", file("c.jpg")});
    EXPECT_EQ(result.code, 1);
    EXPECT_TRUE(result.err.contains("no photo has the id or UUID \"99\""));
    EXPECT_TRUE(namesIn(folder.path()).isEmpty());
}

TEST_F(ThumbnailCommand, PictureThatCannotBeDecodedIsNotConverted)
{
    device.addFile("PhotoData/Thumbnails/V2/DCIM/100APPLE/IMG_3.JPG/5005.JPG", "\xFF\xD8\xFF no picture");
    const RunResult result = thumbnail({"3", "--png", "-o", file("c.png")});
    EXPECT_EQ(result.code, 1);
    EXPECT_TRUE(result.err.contains("--png")) << result.err.toStdString();
    EXPECT_TRUE(namesIn(folder.path()).isEmpty());
    EXPECT_EQ(thumbnail({"3", "-o", "-"}).out, QByteArray("\xFF\xD8\xFF no picture"));
}

TEST_F(ThumbnailCommand, NothingIsWrittenToTheDevice)
{
    const QString inside = device.path("DCIM/thumbnail.jpg");
    const RunResult result = thumbnail({"1", "-o", inside});
    EXPECT_EQ(result.code, 2);
    EXPECT_TRUE(result.err.contains("the device's own folder")) << result.err.toStdString();
    EXPECT_FALSE(QFile::exists(inside));
    QFile::link(device.path("DCIM"), file("way in"));
    EXPECT_EQ(thumbnail({"1", "-o", file("way in/x.jpg")}).code, 2);
    EXPECT_EQ(namesIn(device.path("DCIM")), QStringList{"100APPLE"});
}

TEST_F(ThumbnailCommand, PlacesThatCannotBeWrittenAreStatusFive)
{
    EXPECT_EQ(thumbnail({"1", "-o", "/dev/full"}).code, 5);
    EXPECT_EQ(thumbnail({"1", "-o", file("no/such/folder/x")}).code, 5);
    EXPECT_EQ(thumbnail({"1", "-o", folder.path()}).code, 5);
    EXPECT_EQ(run({"thumbnail", device.path(), "1", "-o", "-"}, "/dev/full").code, 5);
}

TEST_F(ThumbnailCommand, TerminalIsRefused)
{
    const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    ASSERT_GE(terminal, 0);
    ASSERT_EQ(::grantpt(terminal), 0);
    ASSERT_EQ(::unlockpt(terminal), 0);
    const int screen = ::open(::ptsname(terminal), O_RDWR | O_NOCTTY | O_CLOEXEC);
    ASSERT_GE(screen, 0);
    for (const QStringList &line : {QStringList{"thumbnail", device.path(), "1", "-o", "-"},
                                    QStringList{"contact-sheet", device.path(), "-o", "-"}}) {
        CommandProcess process;
        process.setOutput(screen);
        process.startCommand(line);
        const RunResult result = process.wait();
        EXPECT_EQ(result.code, 2);
        EXPECT_TRUE(result.err.contains("terminal")) << result.err.toStdString();
    }
    ::close(screen);
    ::close(terminal);
}

} // namespace clitest
