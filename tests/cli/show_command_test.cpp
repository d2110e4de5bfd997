#include "tests/cli/command_run.h"
#include "tests/cli/device_folder.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonObject>

namespace clitest
{

namespace
{

class ShowCommand : public testing::Test
{
protected:
    ShowCommand() : device(library.builder) {}
    RunResult show(const QStringList &options) { return run(QStringList{"show", device.path()} + options); }

    SmallLibrary library;
    DeviceFolder device;
};

} // namespace

TEST_F(ShowCommand, TextHasEveryFieldAndTheAlbumsAndGroups)
{
    const RunResult result = show({"1"});
    EXPECT_EQ(result.code, 0) << result.err.toStdString();
    EXPECT_EQ(result.outLines().size(), 40 + 1 + 5);
    EXPECT_TRUE(result.out.contains("dateCreated                       2019-01-01T12:00:00Z\n"));
    EXPECT_TRUE(result.out.contains("album                             Trip (user album, id 1)\n"));
    EXPECT_TRUE(result.out.contains("group                             people/9\n"));
    EXPECT_TRUE(result.out.contains("group                             memories/1 (Summer / Sea)\n"));
    EXPECT_TRUE(result.out.contains("group                             favorites\n"));
}

TEST_F(ShowCommand, TextGivesNoTrashDateOfAPhotoThatIsNotDeleted)
{
    const RunResult text = show({"1"});
    EXPECT_TRUE(text.out.contains("\ntrashedDate\n")) << text.out.toStdString();
    const QJsonObject record = show({"1", "--json"}).json().array().at(0).toObject();
    EXPECT_EQ(record.value("trashedDate").toString(), QStringLiteral("2001-01-01T00:00:00Z"));
}

TEST_F(ShowCommand, PhotosAreNamedByIdOrUuid)
{
    const RunResult result = show({"--json", "00000007-aaaa-4aaa-8aaa-aaaaaaaaaaaa", "2"});
    EXPECT_EQ(result.code, 0);
    const QJsonArray photos = result.json().array();
    ASSERT_EQ(photos.size(), 2);
    EXPECT_EQ(photos.at(0).toObject().value("id").toInt(), 7);
    EXPECT_EQ(photos.at(1).toObject().value("id").toInt(), 2);
    EXPECT_EQ(photos.at(1).toObject().value("albums").toArray().at(0).toObject().value("title").toString(),
              QString::fromUtf8("Straße, \"quoted\""));
    EXPECT_EQ(photos.at(1).toObject().value("groups").toArray().last().toObject(),
              (QJsonObject{{"category", 25}, {"categoryName", "camera-roll"}, {"key", "0"}, {"title", ""}}));
}

TEST_F(ShowCommand, UnknownIdsAreToldAndTheOthersShown)
{
    const RunResult result = show({"99", "1", "99999999999999999999999", "nothing"});
    EXPECT_EQ(result.code, 1);
    EXPECT_EQ(result.err.count('\n'), 3);
    EXPECT_TRUE(result.err.contains("\"99999999999999999999999\""));
    EXPECT_TRUE(result.out.startsWith("id                                1\n"));
    EXPECT_EQ(show({"--", "-1"}).code, 1);
}

TEST_F(ShowCommand, MessagesCannotCarryEscapeSequences)
{
    const RunResult result = show({"\033[2Jx\ny"});
    EXPECT_EQ(result.code, 1);
    EXPECT_FALSE(result.err.contains('\033'));
    EXPECT_EQ(result.err.count('\n'), 1);
}

} // namespace clitest
