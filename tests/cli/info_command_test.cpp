#include "tests/cli/command_run.h"
#include "tests/cli/device_folder.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonObject>

namespace clitest
{

TEST(InfoCommand, FiguresAreThoseOfTheLibrary)
{
    SmallLibrary library;
    DeviceFolder device(library.builder);
    const RunResult result = run({"info", "--json", device.path()});
    ASSERT_EQ(result.code, 0) << result.err.toStdString();
    const QJsonObject info = result.json().object();
    EXPECT_EQ(info.value("libraryUuid").toString(), QStringLiteral("LIBRARY-UUID"));
    EXPECT_TRUE(info.value("device").toString().endsWith(device.path()));
    EXPECT_EQ(info.value("photos").toInt(), 6);
    EXPECT_EQ(info.value("videos").toInt(), 1);
    EXPECT_EQ(info.value("recentlyDeleted").toInt(), 1);
    EXPECT_EQ(info.value("albums").toInt(), 3);
    EXPECT_EQ(info.value("builtinAlbums").toInt(), 1);
    EXPECT_EQ(info.value("firstDate").toString(), QStringLiteral("2019-01-01T12:00:00Z"));
    EXPECT_EQ(info.value("lastDate").toString(), QStringLiteral("2025-01-01T12:00:00Z"));
    EXPECT_EQ(info.value("bytes").toInt(), 7 * 1500000);
    const QJsonArray categories = info.value("categories").toArray();
    ASSERT_EQ(categories.size(), 11);
    EXPECT_EQ(categories.at(2).toObject(),
              (QJsonObject{{"category", 4}, {"name", "people"}, {"groups", 1}, {"photos", 2}}));
}

TEST(InfoCommand, TextNamesTheCategories)
{
    SmallLibrary library;
    DeviceFolder device(library.builder);
    const QByteArray out = run({"info", device.path()}).out;
    EXPECT_TRUE(out.contains("Library UUID      LIBRARY-UUID\n")) << out.toStdString();
    EXPECT_TRUE(out.contains("Albums            2 (and 1 built-in)\n")) << out.toStdString();
    EXPECT_TRUE(out.contains("First taken       2019-01-01 12:00:00\n")) << out.toStdString();
    EXPECT_TRUE(out.contains("Size              10.5 MB\n")) << out.toStdString();
    EXPECT_TRUE(out.contains("Recently deleted  recently-deleted")) << out.toStdString();
}

TEST(InfoCommand, EmptyLibraryHasNoDates)
{
    testkit::LibraryBuilder builder(testkit::Era::Ios15, plain());
    DeviceFolder device(builder);
    const QJsonObject info = run({"info", "--json", device.path()}).json().object();
    EXPECT_EQ(info.value("photos").toInt(-1), 0);
    EXPECT_TRUE(info.value("firstDate").isNull());
    EXPECT_TRUE(run({"info", device.path()}).out.contains("First taken       -\n"));
}

TEST(InfoCommand, DatesThatCannotBeAreLeftOut)
{
    SmallLibrary library;
    for (const double seconds : {1e14, -1e14}) {
        testkit::AssetRow row;
        row.dateCreated = seconds;
        library.builder.addAsset(row);
    }
    DeviceFolder device(library.builder);
    const QJsonObject info = run({"info", "--json", device.path()}).json().object();
    EXPECT_EQ(info.value("photos").toInt(), 8);
    EXPECT_EQ(info.value("firstDate").toString(), QStringLiteral("2019-01-01T12:00:00Z"));
    EXPECT_EQ(info.value("lastDate").toString(), QStringLiteral("2025-01-01T12:00:00Z"));
    EXPECT_TRUE(run({"info", device.path()}).out.contains("Last taken        2025-01-01 12:00:00\n"));
}

} // namespace clitest
