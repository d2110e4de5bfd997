#include "tests/cli/command_run.h"
#include "tests/cli/device_folder.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonObject>

namespace clitest
{

namespace
{

RunResult dumpOf(testkit::LibraryBuilder &builder)
{
    DeviceFolder device(builder);
    return run({"dump", device.path()});
}

QJsonArray member(const RunResult &result, const char *name)
{
    return result.json().object().value(QLatin1String(name)).toArray();
}

} // namespace

TEST(DumpCommand, DocumentHoldsEverything)
{
    SmallLibrary library;
    const RunResult result = dumpOf(library.builder);
    ASSERT_EQ(result.code, 0) << result.err.toStdString();
    EXPECT_EQ(result.err, QByteArray());
    const QJsonObject document = result.json().object();
    EXPECT_EQ(document.value("libraryUuid").toString(), QStringLiteral("LIBRARY-UUID"));
    EXPECT_EQ(document.value("photoCount").toInt(), 7);
    EXPECT_EQ(document.value("albumCount").toInt(), 3);
    EXPECT_EQ(member(result, "photos").size(), 7);
    EXPECT_EQ(member(result, "albums").size(), 3);
    EXPECT_TRUE(result.out.startsWith("{\n\"libraryUuid\":"));
    EXPECT_TRUE(result.leftovers.isEmpty());
}

TEST(DumpCommand, PhotosAlbumsAndGroupsHaveTheirFieldsInOrder)
{
    SmallLibrary library;
    const RunResult result = dumpOf(library.builder);
    EXPECT_TRUE(result.out.contains(
        "\n{\"id\":3,\"entity\":3,\"uuid\":\"00000003-AAAA-4AAA-8AAA-AAAAAAAAAAAA\",\"fileName\":\"IMG_0003.MOV\","
        "\"mediaType\":1,\"directory\":\"DCIM/100APPLE\",\"metadataPath\":\"PhotoData/Metadata/DCIM/100APPLE\","
        "\"orientation\":1,\"height\":3024,\"width\":4032,\"duration\":65,\"fileSize\":1500000,"
        "\"dateCreated\":\"2021-01-01T12:00:00Z\""))
        << result.out.toStdString();
    EXPECT_TRUE(result.out.contains("{\"id\":1,\"entity\":27,\"kind\":2,\"trashedState\":0,\"uuid\":\"ALBUM-TRIP\","
                                    "\"title\":\"Trip\",\"albumType\":1,\"photoIds\":[5,1,4]}"))
        << result.out.toStdString();
    EXPECT_TRUE(result.out.contains("{\"category\":15,\"key\":\"1\",\"title\":\"Summer / Sea\",\"coverAssetId\":7,"
                                    "\"favorite\":0,\"assetIds\":[1,7]}"))
        << result.out.toStdString();
}

TEST(DumpCommand, GroupsAscendByCategory)
{
    SmallLibrary library;
    QList<int> categories;
    for (const QJsonValue &group : member(dumpOf(library.builder), "groups"))
        categories += group.toObject().value("category").toInt();
    EXPECT_EQ(categories, (QList<int>{1, 3, 4, 5, 6, 7, 15, 16, 17, 19, 25}));
}

TEST(DumpCommand, OddValuesAreExact)
{
    testkit::LibraryBuilder builder(testkit::Era::Ios15, plain());
    testkit::AssetRow row;
    row.fileName = QString::fromUtf8("a\"b,\n\033[31m😀.JPG");
    row.faceAreaPoints = std::numeric_limits<qint64>::min();
    row.dateCreated = 1e15;
    row.latitude = 0.1;
    row.columns.insert("ZUUID", QByteArray("\xFF\x00\x01", 3));
    row.columns.insert("ZSORTTOKEN", std::numeric_limits<double>::infinity());
    builder.addAsset(row);
    const RunResult result = dumpOf(builder);
    ASSERT_EQ(result.code, 0) << result.err.toStdString();
    EXPECT_TRUE(result.out.contains("\"fileName\":\"a\\\"b,\\n\\u001B[31m😀.JPG\"")) << result.out.toStdString();
    EXPECT_TRUE(result.out.contains("\"faceAreaPoints\":-9223372036854775808"));
    EXPECT_TRUE(result.out.contains("\"dateCreated\":null"));
    EXPECT_TRUE(result.out.contains("\"latitude\":0.1,\"longitude\":-180,"));
    EXPECT_TRUE(result.out.contains("\"uuid\":\"hex:ff0001\""));
    EXPECT_TRUE(result.out.contains("\"sortToken\":null"));
    EXPECT_FALSE(result.json().isNull());
}

TEST(DumpCommand, EmptyLibraryHasEmptyArrays)
{
    testkit::LibraryBuilder builder(testkit::Era::Ios15, plain());
    const RunResult result = dumpOf(builder);
    EXPECT_EQ(result.code, 0);
    EXPECT_TRUE(member(result, "photos").isEmpty());
    EXPECT_EQ(result.json().object().keys(),
              QStringList({"albumCount", "albums", "groups", "libraryUuid", "photoCount", "photos"}));
}

} // namespace clitest
