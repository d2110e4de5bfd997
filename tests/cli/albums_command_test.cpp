#include "tests/cli/command_run.h"
#include "tests/cli/device_folder.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonObject>

namespace clitest
{

TEST(AlbumsCommand, TableLeavesBuiltinAlbumsOut)
{
    SmallLibrary library;
    DeviceFolder device(library.builder);
    const RunResult result = run({"albums", device.path()});
    EXPECT_EQ(result.code, 0) << result.err.toStdString();
    EXPECT_EQ(result.out, QByteArray("ID  TITLE             KIND          PHOTOS  STATE\n"
                                     " 1  Trip              user album         3\n"
                                     " 2  Straße, \"quoted\"  shared album       1\n"
                                     "1 built-in album not shown (--all)\n"));
    const RunResult all = run({"albums", "--all", device.path()});
    EXPECT_EQ(all.outLines().size(), 4);
    EXPECT_FALSE(all.out.contains("not shown"));
}

TEST(AlbumsCommand, ProgramsGetAllAlbums)
{
    SmallLibrary library;
    DeviceFolder device(library.builder);
    const QJsonArray albums = run({"albums", "--json", device.path()}).json().array();
    ASSERT_EQ(albums.size(), 3);
    EXPECT_EQ(albums.at(0).toObject().value("photoIds").toArray(), (QJsonArray{5, 1, 4}));
    EXPECT_EQ(albums.at(2).toObject().value("kind").toInt(), 1605);
    const QByteArray csv = run({"albums", "--csv", device.path()}).out;
    EXPECT_TRUE(csv.startsWith("id,entity,kind,trashedState,uuid,title,albumType,photoIds\r\n"
                               "1,27,2,0,ALBUM-TRIP,Trip,1,5 1 4\r\n"))
        << csv.toStdString();
    EXPECT_TRUE(csv.contains(",\"Straße, \"\"quoted\"\"\",0,2\r\n")) << csv.toStdString();
}

TEST(AlbumsCommand, TrashedAlbumIsMarked)
{
    testkit::LibraryBuilder builder(testkit::Era::Ios15, plain());
    testkit::AlbumRow row;
    row.title = QStringLiteral("Old");
    row.trashedState = 1;
    builder.addAlbum(row);
    DeviceFolder device(builder);
    EXPECT_TRUE(run({"albums", device.path()}).out.contains("in the trash"));
}

TEST(AlbumsCommand, EmptyLibraryIsJustAHeader)
{
    testkit::LibraryBuilder builder(testkit::Era::Ios15, plain());
    DeviceFolder device(builder);
    EXPECT_EQ(run({"albums", device.path()}).out, QByteArray("ID  TITLE  KIND  PHOTOS  STATE\n"));
    EXPECT_EQ(run({"albums", "--json", device.path()}).out, QByteArray("[\n]\n"));
}

} // namespace clitest
