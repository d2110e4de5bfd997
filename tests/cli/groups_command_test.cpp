#include "tests/cli/command_run.h"
#include "tests/cli/device_folder.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonObject>

namespace clitest
{

namespace
{

class GroupsCommand : public testing::Test
{
protected:
    GroupsCommand() : device(library.builder) {}
    RunResult groups(const QStringList &options) { return run(QStringList{"groups", device.path()} + options); }

    SmallLibrary library;
    DeviceFolder device;
};

} // namespace

TEST_F(GroupsCommand, TableNamesCategories)
{
    const RunResult result = groups({"--group", "memories", "--group", "4"});
    EXPECT_EQ(result.code, 0) << result.err.toStdString();
    EXPECT_EQ(result.out, QByteArray("CODE  CATEGORY  KEY  PHOTOS  COVER  TITLE\n"
                                     "   4  people    9         2      -  -\n"
                                     "  15  memories  1         2      7  Summer / Sea\n"));
}

TEST_F(GroupsCommand, AllGroupsAreListedByCategory)
{
    const RunResult result = groups({"--json"});
    const QJsonArray all = run({"dump", device.path()}).json().object().value("groups").toArray();
    EXPECT_EQ(result.json().array(), all);
    EXPECT_EQ(all.size(), 11);
}

TEST_F(GroupsCommand, CsvHasOneLineAGroup)
{
    EXPECT_EQ(groups({"--csv", "--group", "bursts/BURST-1"}).out,
              QByteArray("category,key,title,coverAssetId,favorite,assetIds\r\n16,BURST-1,,0,0,6\r\n"));
}

TEST_F(GroupsCommand, UnknownKeyIsToldWithStatusOne)
{
    const RunResult result = groups({"--group", "memories/5"});
    EXPECT_EQ(result.code, 1);
    EXPECT_TRUE(result.err.contains("its keys are 1")) << result.err.toStdString();
}

} // namespace clitest
