#include "tests/unit/exporter/export_fixture.h"
#include "tests/unit/exporter/failing_files.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace exporter;
using namespace testkit;

namespace
{

/// Three photos, the second a Live Photo.
struct WithAlbums : ExportFixture {
    WithAlbums()
    {
        options.layout = "{stem}";
        options.albums = true;
        a = addPhoto("A.JPG", "a");
        b = addPhoto("B.HEIC", "b");
        addFile("/DCIM/100APPLE/B.MOV", "film");
        c = addPhoto("C.JPG", "c");
    }

    QStringList albumFiles() const
    {
        QStringList names;
        const QStringList all = tree().keys();
        for (const QString &name : all) {
            if (name.startsWith("Albums/"))
                names.append(name.mid(7));
        }
        return names;
    }

    void setMembers(qint64 album, const QList<qint64> &photos)
    {
        const QString table = QString("Z_%1ASSETS").arg(library.facts().album);
        change(QString("DELETE FROM %1 WHERE Z_%2ALBUMS = %3").arg(table).arg(library.facts().album).arg(album));
        for (const qint64 photo : photos)
            library.addToAlbum(album, photo);
    }

    qint64 a = 0;
    qint64 b = 0;
    qint64 c = 0;
};

quint64 inodeOf(const QString &path)
{
    struct stat found = {};
    EXPECT_EQ(0, ::stat(path.toUtf8().constData(), &found)) << qPrintable(path);
    return found.st_ino;
}

} // namespace

TEST(Albums, HoldLinksInTheirOrderWithTheFilesOfAPhotoTogether)
{
    WithAlbums fixture;
    fixture.addAlbum("Ferien", {fixture.c, fixture.b, fixture.a});
    const RunOutcome outcome = fixture.run();
    EXPECT_TRUE(outcome.isSuccess());
    EXPECT_EQ(1, outcome.albums);
    EXPECT_EQ((QStringList{"Ferien/1_C.JPG", "Ferien/2_B.HEIC", "Ferien/2_B.MOV", "Ferien/3_A.JPG"}),
              fixture.albumFiles());
    EXPECT_EQ(inodeOf(fixture.path("B.MOV")), inodeOf(fixture.path("Albums/Ferien/2_B.MOV")));
}

TEST(Albums, PositionsHaveAsManyDigitsAsTheAlbumNeeds)
{
    WithAlbums fixture;
    QList<qint64> photos{fixture.b};
    for (int number = 0; number < 10; ++number)
        photos.append(fixture.addPhoto(QString("X%1.JPG").arg(number), "x"));
    fixture.addAlbum("Ferien", photos);
    fixture.run();
    EXPECT_EQ(QString("Ferien/01_B.HEIC"), fixture.albumFiles().first());
    EXPECT_EQ(QString("Ferien/11_X9.JPG"), fixture.albumFiles().last());
}

TEST(Albums, OnlyThoseOfPeopleAreMade)
{
    WithAlbums fixture;
    AlbumRow row;
    for (const int kind : {1505, 1550, 1506, 1600, 4000}) {
        row.kind = kind;
        fixture.addAlbum(QString("Kind %1").arg(kind), {fixture.a}, row);
    }
    row.kind = 2;
    fixture.addAlbum("", {fixture.a}, row);
    row.trashedState = 1;
    fixture.addAlbum("Trashed", {fixture.a}, row);
    fixture.addAlbum("Empty", {});
    fixture.run();
    EXPECT_EQ((QStringList{"Kind 1505/1_A.JPG", "Kind 1550/1_A.JPG"}), fixture.albumFiles());
}

TEST(Albums, EqualTitlesStayApartAndHostileOnesInside)
{
    WithAlbums fixture;
    fixture.addAlbum("Ferien", {fixture.a});
    fixture.addAlbum("FERIEN", {fixture.b});
    fixture.addAlbum("../../x", {fixture.c});
    fixture.run();
    const QStringList expected{"FERIEN (1)/1_B.HEIC", "FERIEN (1)/1_B.MOV", "Ferien/1_A.JPG", "_.._x/1_C.JPG"};
    QStringList found = fixture.albumFiles();
    for (QString &name : found)
        name.replace("_._.._x", "_.._x");
    EXPECT_EQ(expected, found);
    EXPECT_EQ(QStringList{"out"}, QDir(fixture.folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot));
}

TEST(Albums, ASecondRunLeavesThemAsTheyAre)
{
    WithAlbums fixture;
    fixture.addAlbum("Ferien", {fixture.a, fixture.b});
    fixture.addAlbum("Ferien", {fixture.c});
    fixture.run();
    const QStringList before = fixture.albumFiles();
    const quint64 inode = inodeOf(fixture.path("Albums/Ferien"));
    const RunOutcome again = fixture.run();
    EXPECT_EQ(2, again.albums);
    EXPECT_EQ(before, fixture.albumFiles());
    EXPECT_EQ(inode, inodeOf(fixture.path("Albums/Ferien")));
}

TEST(Albums, MembersThatCameWentOrMovedAreBroughtUpToDate)
{
    WithAlbums fixture;
    const qint64 album = fixture.addAlbum("Ferien", {fixture.a, fixture.b});
    fixture.run();
    fixture.setMembers(album, {fixture.b, fixture.c});
    fixture.run();
    EXPECT_EQ((QStringList{"Ferien/1_B.HEIC", "Ferien/1_B.MOV", "Ferien/2_C.JPG"}), fixture.albumFiles());
    EXPECT_EQ(QByteArray("a"), fixture.read("A.JPG"));
    EXPECT_TRUE(fixture.verify().isSuccess());
}

TEST(Albums, FilesOfPeopleInTheFolderAreLeftAlone)
{
    WithAlbums fixture;
    const qint64 album = fixture.addAlbum("Ferien", {fixture.a, fixture.c});
    fixture.write("Albums/Ferien/1_A.JPG", "somebody's");
    fixture.run();
    EXPECT_EQ((QStringList{"Ferien/1_A (1).JPG", "Ferien/1_A.JPG", "Ferien/2_C.JPG"}), fixture.albumFiles());
    QFile::remove(fixture.path("Albums/Ferien/2_C.JPG"));
    fixture.write("Albums/Ferien/2_C.JPG", "replaced");
    fixture.setMembers(album, {});
    fixture.run();
    EXPECT_EQ((QStringList{"Ferien/1_A.JPG", "Ferien/2_C.JPG"}), fixture.albumFiles());
    EXPECT_EQ(QByteArray("replaced"), fixture.read("Albums/Ferien/2_C.JPG"));
    EXPECT_EQ(QByteArray("c"), fixture.read("C.JPG"));
}

TEST(Albums, ANewTitleMovesTheFolder)
{
    WithAlbums fixture;
    const qint64 album = fixture.addAlbum("Ferien", {fixture.a});
    fixture.run();
    fixture.change(QString("UPDATE ZGENERICALBUM SET ZTITLE = 'Urlaub' WHERE Z_PK = %1").arg(album));
    fixture.run();
    EXPECT_EQ(QStringList{"Urlaub/1_A.JPG"}, fixture.albumFiles());
    EXPECT_FALSE(QDir(fixture.path("Albums/Ferien")).exists());
}

TEST(Albums, AChangedPhotoIsLinkedInItsNewForm)
{
    WithAlbums fixture;
    fixture.addAlbum("Ferien", {fixture.a});
    fixture.run();
    fixture.addFile("/DCIM/100APPLE/A.JPG", "changed");
    fixture.run();
    EXPECT_EQ(QStringList{"Ferien/1_A (1).JPG"}, fixture.albumFiles());
    EXPECT_EQ(QByteArray("changed"), fixture.read("Albums/Ferien/1_A (1).JPG"));
}

TEST(Albums, ALinkInPlaceOfTheFolderIsNotFollowed)
{
    WithAlbums fixture;
    fixture.addAlbum("Ferien", {fixture.a});
    QDir(fixture.folder.path()).mkpath("outside");
    QDir(fixture.folder.path()).mkpath("out");
    QFile::link(fixture.folder.path() + "/outside", fixture.path("Albums"));
    const RunOutcome outcome = fixture.run();
    EXPECT_EQ(1, outcome.albumsFailed);
    EXPECT_FALSE(outcome.isSuccess());
    EXPECT_TRUE(fixture.listener->notes.value(0).contains("symbolic link"));
    EXPECT_TRUE(QDir(fixture.folder.path() + "/outside").isEmpty());
}

TEST(Albums, ALinkToAFileThatPeopleRemovedStays)
{
    WithAlbums fixture;
    fixture.addAlbum("Ferien", {fixture.a, fixture.c});
    fixture.run();
    QFile::remove(fixture.path("A.JPG"));
    fixture.run({fixture.c});
    EXPECT_EQ((QStringList{"Ferien/1_A.JPG", "Ferien/2_C.JPG"}), fixture.albumFiles());
    fixture.run();
    EXPECT_EQ((QStringList{"Ferien/1_A.JPG", "Ferien/2_C.JPG"}), fixture.albumFiles());
    EXPECT_EQ(QByteArray("a"), fixture.read("A.JPG"));
}

TEST(Albums, NeverTakeTheLinkOfAFileThatIsGoneForThatOfAnother)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    fixture.options.albums = true;
    const qint64 a = fixture.addPhoto("A.JPG", "a");
    const qint64 b = fixture.addPhoto("B.JPG", "b");
    const qint64 album = fixture.addAlbum("Album", {a, b});
    fixture.run();
    // The file with the highest number leaves the record, its link stays, and another file comes in its place.
    QFile::remove(fixture.path("B.JPG"));
    fixture.device.removeFile("/DCIM/100APPLE/B.JPG");
    const qint64 c = fixture.addPhoto("C.JPG", "c");
    const int entity = fixture.library.facts().album;
    fixture.change(QString("DELETE FROM Z_%1ASSETS WHERE Z_%1ALBUMS = %2").arg(entity).arg(album));
    fixture.library.addToAlbum(album, a);
    fixture.library.addToAlbum(album, c);
    fixture.run();
    EXPECT_EQ((Tree{{"A.JPG", "a"}, {"C.JPG", "c"}, {"Albums/Album/1_A.JPG", "a"}, {"Albums/Album/2_C.JPG", "c"}}),
              fixture.tree());
}

TEST(Albums, OfOneTitleAreNotEachComparedWithAllOthers)
{
    const auto callsFor = [](int albums) {
        ExportFixture fixture;
        fixture.options.layout = "{stem}";
        fixture.options.albums = true;
        const qint64 photo = fixture.addPhoto("A.JPG", "a");
        for (int number = 0; number < albums; ++number)
            fixture.addAlbum("Album", {photo});
        FailingFiles files;
        files.onCall = [](FailingFiles::Call, int) { return 0; };
        fixture.files = &files;
        EXPECT_TRUE(fixture.run().isSuccess());
        EXPECT_EQ(albums, QDir(fixture.path("Albums")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size());
        EXPECT_TRUE(QFile::exists(fixture.path(QString("Albums/Album (%1)/1_A.JPG").arg(albums - 1))));
        return files.calls;
    };
    // As many more albums cost as much more again.
    const int calls = callsFor(20);
    const int more = callsFor(40) - calls;
    EXPECT_EQ(calls + 2 * more, callsFor(60));
}
