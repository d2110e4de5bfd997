#include "tests/cli/command_run.h"
#include "tests/cli/media_device.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <sys/stat.h>

namespace clitest
{

namespace
{

class ContactSheetCommand : public testing::Test
{
protected:
    void addPhoto(const QString &name, bool hasThumbnail, testkit::AssetRow row = {})
    {
        row.thumbnailIndex = -1;
        device.addPhoto(name, 10, row);
        if (hasThumbnail)
            device.addFile("PhotoData/Thumbnails/V2/DCIM/100APPLE/" + name + "/5005.JPG", tinyJpeg());
    }

    void addAlbum(const QString &title, const QVector<qint64> &photos)
    {
        testkit::AlbumRow row;
        row.title = title;
        const qint64 album = device.builder.addAlbum(row);
        for (const qint64 photo : photos)
            device.builder.addToAlbum(album, photo);
    }

    // Photo 1 is a favorite, 3 has no thumbnail; "Trip" holds 1 and 2.
    void addThree()
    {
        testkit::AssetRow favorite;
        favorite.favorite = 1;
        addPhoto("IMG_1.JPG", true, favorite);
        addPhoto("IMG_2.JPG", true);
        addPhoto("IMG_3.JPG", false);
        addAlbum("Trip", {1, 2});
        device.write();
    }

    RunResult sheet(const QStringList &arguments = {})
    {
        return run(QStringList{"contact-sheet", device.path(), "-o", page()} + arguments);
    }

    QString page() const { return folder.path() + "/page.html"; }
    QByteArray html() const { return contentOfFile(page()); }

    MediaDevice device;
    const QTemporaryDir folder;
};

// Every element that is opened is closed, in the right order.
void expectBalanced(const QByteArray &html)
{
    static const QRegularExpression tag("<(/?)([a-z0-9]+)((?:[^\"<>]|\"[^\"]*\")*)>");
    QStringList open;
    auto tags = tag.globalMatch(QString::fromUtf8(html));
    while (tags.hasNext()) {
        const QRegularExpressionMatch match = tags.next();
        const QString name = match.captured(2);
        if (name == "meta" || match.captured(3).endsWith('/'))
            continue;
        if (match.captured(1).isEmpty()) {
            open += name;
            continue;
        }
        ASSERT_FALSE(open.isEmpty()) << name.toStdString();
        ASSERT_EQ(open.takeLast(), name);
    }
    EXPECT_TRUE(open.isEmpty()) << open.join(' ').toStdString();
}

} // namespace

TEST_F(ContactSheetCommand, ShowsEveryPhotoWithEachThumbnailOnce)
{
    addThree();
    const RunResult result = sheet();
    EXPECT_EQ(result.code, 1) << result.err.toStdString(); // one has no thumbnail
    EXPECT_TRUE(result.err.contains("1 of 3 photos have no thumbnail")) << result.err.toStdString();
    EXPECT_TRUE(result.out.contains("3 photos and videos in ")) << result.out.toStdString();
    const QByteArray text = html();
    EXPECT_TRUE(text.startsWith("<!DOCTYPE html>"));
    EXPECT_EQ(text.count("data:image/jpeg;base64," + tinyJpeg().toBase64()), 2);
    EXPECT_EQ(text.count("<image id=\"p1\""), 1);
    EXPECT_GE(text.count("<use href=\"#p1\"/>"), 2); // favorites, album
    EXPECT_GE(text.count("<use href=\"#none\"/>"), 1);
    EXPECT_TRUE(text.contains(">1 photo has no thumbnail on the device.<"));
    EXPECT_TRUE(text.contains("aria-label=\"IMG_1.JPG, photo, 1 January 2020, 12:00, favorite\""));
    EXPECT_TRUE(text.contains("<h3 dir=\"auto\" title=\"Trip\">Trip <span"));
    EXPECT_EQ(text.count("<svg "), text.count("<image ") + text.count("<use ") + 1); // and the placeholder's
    EXPECT_EQ(text.count("aria-label=\"IMG_"), text.count("<image ") + text.count("<use "));
    expectBalanced(text);
    EXPECT_EQ(namesIn(folder.path()), QStringList{"page.html"});
}

TEST_F(ContactSheetCommand, AllThumbnailsThereIsStatusZero)
{
    addThree();
    EXPECT_EQ(sheet({"--album", "Trip"}).code, 0);
    const QByteArray text = html();
    EXPECT_TRUE(text.contains("IMG_2.JPG"));
    EXPECT_FALSE(text.contains("IMG_3.JPG"));
    EXPECT_FALSE(text.contains(">Favorites ")); // the album alone was named
}

TEST_F(ContactSheetCommand, NamedGroupsAloneAreShown)
{
    addThree();
    EXPECT_EQ(sheet({"--group", "favorites"}).code, 0);
    EXPECT_TRUE(html().contains("<h2>Favorites "));
    EXPECT_EQ(html().count("<h2>"), 1);
    EXPECT_EQ(html().count("<figure>"), 1);
}

TEST_F(ContactSheetCommand, HostileTextIsNoMarkup)
{
    const QString evil = QString::fromUtf8("<script>alert('1')</script>\" onload=\"x&amp;\u202E");
    addPhoto("<img src=x onerror='y'>\".JPG", false);
    addAlbum(evil, {1});
    device.write();
    EXPECT_EQ(sheet({"--title", "</title><script>1</script>"}).code, 1);
    const QByteArray text = html();
    EXPECT_FALSE(text.contains("<script"));
    EXPECT_FALSE(text.contains("<img"));
    EXPECT_FALSE(text.contains("\u202E"));
    EXPECT_TRUE(text.contains("&lt;script&gt;alert(&#39;1&#39;)&lt;/script&gt;&quot; onload=&quot;x&amp;amp;"));
    EXPECT_TRUE(text.contains("default-src 'none'"));
    expectBalanced(text);
}

TEST_F(ContactSheetCommand, FileThatIsThereIsReplacedByForceOnly)
{
    addThree();
    QFile mine(page());
    ASSERT_TRUE(mine.open(QIODevice::WriteOnly));
    mine.write("mine");
    mine.close();
    EXPECT_EQ(sheet().code, 5);
    EXPECT_EQ(html(), QByteArray("mine"));
    EXPECT_EQ(sheet({"--force"}).code, 1);
    EXPECT_TRUE(html().startsWith("<!DOCTYPE html>"));
}

TEST_F(ContactSheetCommand, StandardOutputTakesThePage)
{
    addThree();
    const RunResult result = run({"contact-sheet", device.path(), "-o", "-", "--favorite"});
    EXPECT_EQ(result.code, 0) << result.err.toStdString();
    EXPECT_TRUE(result.out.endsWith("</html>\n"));
    EXPECT_TRUE(result.err.startsWith("photolib: 1 photo or video in ")) << result.err.toStdString();
}

TEST_F(ContactSheetCommand, NothingChosenIsAnEmptyPageWithANote)
{
    addThree();
    const RunResult result = sheet({"--only-movies"});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.err, QByteArray("photolib: no photos match\n"));
    expectBalanced(html());
}

TEST_F(ContactSheetCommand, FullDiskAndDeviceAreRefused)
{
    addThree();
    EXPECT_EQ(run({"contact-sheet", device.path(), "-o", "/dev/full"}).code, 5);
    EXPECT_EQ(run({"contact-sheet", device.path(), "-o", device.path("x.html")}).code, 2);
    EXPECT_FALSE(QFile::exists(device.path("x.html")));
}

} // namespace clitest
