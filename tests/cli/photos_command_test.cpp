#include "tests/cli/command_run.h"
#include "tests/cli/device_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonObject>

namespace clitest
{

namespace
{

using testing::ElementsAre;

class PhotosCommand : public testing::Test
{
protected:
    PhotosCommand() : device(library.builder) {}

    RunResult photos(const QStringList &options) { return run(QStringList{"photos", device.path()} + options); }

    std::vector<int> ids(const QStringList &options)
    {
        std::vector<int> found;
        const RunResult result = photos(options + QStringList{"--json"});
        EXPECT_EQ(result.code, 0) << result.err.toStdString();
        for (const QJsonValue &photo : result.json().array())
            found.push_back(photo.toObject().value("id").toInt());
        return found;
    }

    SmallLibrary library;
    DeviceFolder device;
};

} // namespace

TEST_F(PhotosCommand, OptionsChoosePhotos)
{
    EXPECT_THAT(ids({}), ElementsAre(1, 2, 3, 5, 6, 7));
    EXPECT_THAT(ids({"--favorite"}), ElementsAre(1, 5));
    EXPECT_THAT(ids({"--hidden"}), ElementsAre(2));
    EXPECT_THAT(ids({"--deleted"}), ElementsAre(4));
    EXPECT_THAT(ids({"--only-movies"}), ElementsAre(3));
    EXPECT_THAT(ids({"--only-photos", "--limit", "2"}), ElementsAre(1, 2));
    EXPECT_THAT(ids({"--group", "Screenshots"}), ElementsAre(5));
    EXPECT_THAT(ids({"--group", "people/9"}), ElementsAre(1, 5));
    EXPECT_THAT(ids({"--group", "15", "--group", "16/burst-1"}), ElementsAre(1, 6, 7));
    EXPECT_THAT(ids({"--group", "recently-deleted"}), ElementsAre(4));
    EXPECT_THAT(ids({"--uuid", "00000004-aaaa-4aaa-8aaa-aaaaaaaaaaaa"}), ElementsAre(4));
}

TEST_F(PhotosCommand, AlbumOrderIsKept)
{
    EXPECT_THAT(ids({"--album", "Trip"}), ElementsAre(5, 1));
    EXPECT_THAT(ids({"--album", "Trip", "--deleted"}), ElementsAre(4));
    EXPECT_THAT(ids({"--album", "Straße, \"quoted\"", "--album", "1"}), ElementsAre(2, 5, 1));
}

TEST_F(PhotosCommand, DatesIncludeTheWholeLastDay)
{
    EXPECT_THAT(ids({"--from-date", "2020-01-01", "--to-date", "2021-01-01"}), ElementsAre(2, 3));
    EXPECT_THAT(ids({"--to-date", "2019-01-01T11:59"}), testing::IsEmpty());
    EXPECT_THAT(ids({"--from-date", "2025-01-01T14:00+02:00"}), ElementsAre(7));
}

TEST_F(PhotosCommand, WhatIsNotThereIsToldWithStatusOne)
{
    const QList<QStringList> lines = {{"--album", "Nowhere"}, {"--group", "people/77"}, {"--uuid", "none"}};
    for (const QStringList &line : lines) {
        const RunResult result = photos(line);
        EXPECT_EQ(result.code, 1) << line.join(' ').toStdString();
        EXPECT_EQ(result.out, QByteArray());
        EXPECT_EQ(result.err.count('\n'), 1);
    }
    EXPECT_TRUE(photos({"--album", "Nowhere"}).err.contains("\"Trip\""));
    EXPECT_TRUE(photos({"--group", "people/77"}).err.contains("keys are 9"));
}

TEST_F(PhotosCommand, TableHasOneAlignedLineAPhoto)
{
    const QByteArrayList lines = photos({}).outLines();
    ASSERT_EQ(lines.size(), 7);
    const int file = lines.at(0).indexOf("FILE");
    ASSERT_GT(file, 0);
    for (int i = 1; i < lines.size(); ++i)
        EXPECT_EQ(lines.at(i).indexOf("DCIM/100APPLE/"), file) << lines.at(i).toStdString();
    EXPECT_TRUE(lines.at(3).contains("2021-01-01 12:00:00"));
    EXPECT_TRUE(lines.at(3).contains("video"));
    EXPECT_TRUE(lines.at(3).contains("1:05"));
    EXPECT_TRUE(lines.at(1).contains("favorite"));
}

TEST_F(PhotosCommand, TableWithoutPhotosSaysSoBesideTheHeader)
{
    const RunResult result = photos({"--only-movies", "--favorite"});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.outLines().size(), 1);
    EXPECT_EQ(result.err, QByteArray("photolib: no photos match\n"));
    EXPECT_EQ(photos({"--only-movies", "--favorite", "--csv"}).err, QByteArray());
}

TEST_F(PhotosCommand, CsvHasAHeaderAndOneRecordAPhoto)
{
    const QByteArray out = photos({"--csv", "--limit", "2"}).out;
    const QByteArrayList lines = out.split('\n');
    ASSERT_EQ(lines.size(), 4);
    EXPECT_TRUE(lines.at(0).startsWith("id,entity,uuid,fileName,mediaType,"));
    EXPECT_TRUE(lines.at(0).endsWith(",importSession\r"));
    EXPECT_TRUE(lines.at(1).startsWith("1,3,00000001-AAAA-4AAA-8AAA-AAAAAAAAAAAA,IMG_0001.JPG,3,DCIM/100APPLE,,"));
    EXPECT_TRUE(lines.at(1).contains(",2019-01-01T12:00:00Z,"));
    EXPECT_EQ(lines.at(0).count(','), lines.at(1).count(','));
}

TEST_F(PhotosCommand, JsonHasTheRecordsOfTheDump)
{
    const QJsonArray all = run({"dump", device.path()}).json().object().value("photos").toArray();
    QJsonArray listed = photos({"--json"}).json().array();
    ASSERT_EQ(all.size(), 7);
    ASSERT_EQ(listed.size(), 6);
    EXPECT_EQ(listed.at(0), all.at(0));
    EXPECT_EQ(listed.at(5), all.at(6));
}

TEST(PhotosOutput, DateThatCannotBeIsADash)
{
    testkit::LibraryBuilder builder(testkit::Era::Ios15, plain());
    testkit::AssetRow row;
    row.dateCreated = 1e14;
    builder.addAsset(row);
    DeviceFolder device(builder);
    const RunResult table = run({"photos", device.path()});
    ASSERT_EQ(table.outLines().size(), 2);
    EXPECT_TRUE(table.outLines().at(1).startsWith(" 1  -       ")) << table.out.toStdString();
}

TEST(PhotosOutput, ControlCharactersOfTheDeviceStayOutOfTables)
{
    testkit::LibraryBuilder builder(testkit::Era::Ios15, plain());
    testkit::AssetRow row;
    row.fileName = QString::fromUtf8("\033]0;owned\007\r\nIMG😀.JPG");
    builder.addAsset(row);
    DeviceFolder device(builder);
    const RunResult table = run({"photos", device.path()});
    EXPECT_EQ(table.outLines().size(), 2);
    EXPECT_FALSE(table.out.contains('\033'));
    EXPECT_FALSE(table.out.contains('\r'));
    EXPECT_TRUE(table.out.contains("IMG😀.JPG"));
    const RunResult csv = run({"photos", "--csv", device.path()});
    EXPECT_TRUE(csv.out.contains("\"\033]0;owned\007\r\nIMG😀.JPG\"")); // unchanged for programs
}

} // namespace clitest
