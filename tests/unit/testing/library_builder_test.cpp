#include "testing/library_builder.h"

#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace testkit
{

namespace
{

using Rows = std::vector<std::vector<SqlValue>>;
using Row = std::vector<SqlValue>;

const BuilderOptions small{false, true, AttributeKeys::Own};

// What a query over the written library gives.
Rows query(LibraryBuilder &builder, const QString &sql)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Photos.sqlite"));
    builder.write(path);
    SqlConnection database(path);
    return database.rows(sql);
}

TEST(LibraryBuilder, AttributeKeysNeverEqualAssetKeys)
{
    LibraryBuilder builder(Era::Ios16, small);
    AssetRow second;
    second.key = 2; // the key that the first attributes row would have
    builder.addAsset(second);
    for (int i = 0; i < 5; ++i)
        builder.addAsset();
    const Rows rows = query(builder, "select A.Z_PK, T.Z_PK, A.ZADDITIONALATTRIBUTES from ZASSET A join "
                                     "ZADDITIONALASSETATTRIBUTES T on T.ZASSET = A.Z_PK");
    ASSERT_EQ(rows.size(), 6U);
    for (const Row &row : rows) {
        EXPECT_NE(row[0], row[1]);
        EXPECT_EQ(row[1], row[2]);
    }
}

TEST(LibraryBuilder, AttributeKeysCanFollowTheAssets)
{
    LibraryBuilder builder(Era::Ios16, {false, true, AttributeKeys::SameAsAsset});
    AssetRow row;
    row.key = 7;
    row.fileSize = 123;
    row.cameraDevice = 1;
    builder.addAsset(row);
    EXPECT_EQ(query(builder, "select Z_PK, ZASSET, ZORIGINALFILESIZE, ZCAMERACAPTUREDEVICE from "
                             "ZADDITIONALASSETATTRIBUTES"),
              (Rows{{7, 7, 123, 1}}));
}

TEST(LibraryBuilder, AssetCanLackAttributes)
{
    LibraryBuilder builder(Era::Ios13, small);
    AssetRow row;
    row.hasAttributes = false;
    builder.addAsset(row);
    EXPECT_EQ(query(builder, "select ZADDITIONALATTRIBUTES from ZGENERICASSET"), (Rows{{nullptr}}));
    EXPECT_TRUE(query(builder, "select * from ZADDITIONALASSETATTRIBUTES").empty());
}

TEST(LibraryBuilder, DefaultAssetsAreACameraRoll)
{
    LibraryBuilder builder(Era::Ios14, small);
    builder.addAsset();
    AssetRow video;
    video.kind = 1;
    builder.addAsset(video);
    EXPECT_EQ(
        query(builder, "select Z_PK, ZDIRECTORY, ZFILENAME, ZTHUMBNAILINDEX, ZLATITUDE, ZLONGITUDE, "
                       "ZAVALANCHEUUID, ZUNIFORMTYPEIDENTIFIER, length(ZUUID) from ZASSET"),
        (Rows{{1, "DCIM/100APPLE", "IMG_0001.JPG", 0, -180.0, -180.0, nullptr, "public.jpeg", 36},
              {2, "DCIM/100APPLE", "IMG_0002.MOV", 1, -180.0, -180.0, nullptr, "com.apple.quicktime-movie", 36}}));
}

TEST(LibraryBuilder, CameraRollNamesStayDifferentBeyondTenThousand)
{
    LibraryBuilder builder(Era::Ios14, {false, false, AttributeKeys::Own});
    for (int i = 0; i < 12000; ++i)
        builder.addAsset();
    EXPECT_EQ(
        query(builder, "select count(distinct ZDIRECTORY || '/' || ZFILENAME), count(distinct ZUUID) from ZASSET"),
        (Rows{{12000, 12000}}));
}

TEST(LibraryBuilder, WholeDatesAreIntegersAndOthersReals)
{
    LibraryBuilder builder(Era::Ios15, small);
    AssetRow row;
    row.dateCreated = -978307200.0;
    row.addedDate = 10.75;
    row.duration = 3.0;
    row.columns = {{"ZMODIFICATIONDATE", nullptr}};
    builder.addAsset(row);
    EXPECT_EQ(query(builder, "select ZDATECREATED, ZADDEDDATE, ZMODIFICATIONDATE, ZSORTTOKEN, ZDURATION from ZASSET"),
              (Rows{{Q_INT64_C(-978307200), 10.75, nullptr, -978307200.0, 3.0}}));
}

TEST(LibraryBuilder, NamedColumnsTakeAnyStorageClass)
{
    LibraryBuilder builder(Era::Ios13, small);
    AssetRow row;
    row.kind = 1;
    row.columns = {{"ZUUID", QByteArray("\x00\xff", 2)},
                   {"ZFACEAREAPOINTS", Q_INT64_C(7600060599173190)},
                   {"ZFILENAME", SqlValue::TextBytes{QByteArray("\xc3", 1)}},
                   {"ZKIND", "video"}};
    row.attributeColumns = {{"ZORIGINALFILESIZE", nullptr}};
    builder.addAsset(row);
    EXPECT_EQ(query(builder, "select ZUUID, ZFACEAREAPOINTS, ZFILENAME, ZKIND from ZGENERICASSET"),
              (Rows{{QByteArray("\x00\xff", 2), Q_INT64_C(7600060599173190), SqlValue::TextBytes{QByteArray("\xc3", 1)},
                     "video"}}));
    EXPECT_EQ(query(builder, "select ZORIGINALFILESIZE from ZADDITIONALASSETATTRIBUTES"), (Rows{{nullptr}}));
}

TEST(LibraryBuilder, NamedColumnIsForgottenInTheNextRow)
{
    LibraryBuilder builder(Era::Ios13, small);
    AssetRow odd;
    odd.columns = {{"ZMASTER", 5}, {"ZKIND", 1}};
    builder.addAsset(odd);
    builder.addAsset();
    EXPECT_EQ(query(builder, "select ZMASTER, ZKIND from ZGENERICASSET"), (Rows{{5, 1}, {nullptr, 0}}));
}

TEST(LibraryBuilder, UnknownColumnIsRefused)
{
    LibraryBuilder builder(Era::Ios13, small);
    AssetRow row;
    row.columns = {{"ZDEPTHTYPE", 1}}; // of a later release
    EXPECT_THROW(builder.addAsset(row), LibraryError);
    builder.addAsset();
    EXPECT_EQ(query(builder, "select count(*) from ZGENERICASSET"), (Rows{{1}}));
}

TEST(LibraryBuilder, BuiltinAlbumsPrecedeThoseOfTheUser)
{
    LibraryBuilder builder(Era::Ios13);
    AlbumRow row;
    row.title = QStringLiteral("Água");
    EXPECT_EQ(builder.addAlbum(row), 39);
    EXPECT_EQ(query(builder, "select ZKIND, Z_ENT, ZPARENTFOLDER, ZTITLE from ZGENERICALBUM where Z_PK in (1, 2, 39)"),
              (Rows{{3998, 32, nullptr, nullptr}, {3999, 32, nullptr, nullptr}, {2, 26, 2, QStringLiteral("Água")}}));
}

TEST(LibraryBuilder, BuiltinAlbumsCanBeLeftOut)
{
    LibraryBuilder builder(Era::Ios13, small);
    EXPECT_EQ(builder.addAlbum(), 1);
    EXPECT_EQ(query(builder, "select ZTITLE, ZTRASHEDSTATE, length(ZUUID) from ZGENERICALBUM"),
              (Rows{{nullptr, 0, 36}}));
}

TEST(LibraryBuilder, AlbumKeepsTheOrderOfItsMembers)
{
    LibraryBuilder builder(Era::Ios13, small);
    builder.addToAlbum(5, 9);
    builder.addToAlbum(5, 3);
    builder.addToAlbum(6, 9);
    EXPECT_THROW(builder.addToAlbum(5, 3), LibraryError);
    builder.addToAlbum(5, 4);
    EXPECT_EQ(query(builder, "select Z_26ALBUMS, Z_34ASSETS, Z_FOK_34ASSETS from Z_26ASSETS"),
              (Rows{{5, 9, 2048}, {5, 3, 3072}, {6, 9, 2048}, {5, 4, 4096}}));
}

TEST(LibraryBuilder, FacesLinkToTheirAssetInEveryEra)
{
    for (const Era era : allEras()) {
        LibraryBuilder builder(era, small);
        FaceRow row;
        row.asset = 4;
        row.faceGroup = 13;
        row.keyFaceOfGroup = 13;
        row.crop = 2;
        row.person = 8;
        builder.addFace(row);
        builder.addFace({});
        const QString link = QLatin1String(factsOf(era).faceAssetColumn);
        const QString person = QLatin1String(factsOf(era).facePersonColumn);
        EXPECT_EQ(query(builder, QStringLiteral("select %1, %2, ZFACEGROUP, ZFACEGROUPBEINGKEYFACE, ZFACECROP from "
                                                "ZDETECTEDFACE")
                                     .arg(link, person)),
                  (Rows{{4, 8, 13, 13, 2}, {nullptr, nullptr, nullptr, nullptr, nullptr}}))
            << factsOf(era).name;
    }
}

TEST(LibraryBuilder, LinksToGenericAssetNameTheConcreteEntity)
{
    LibraryBuilder builder(Era::Ios13, small);
    builder.addAsset();
    MemoryRow memory;
    memory.keyAsset = 1;
    builder.addMemory(memory);
    EXPECT_EQ(query(builder, "select T.Z34_ASSET, M.Z34_KEYASSET from ZADDITIONALASSETATTRIBUTES T, ZMEMORY M"),
              (Rows{{35, 35}}));
}

TEST(LibraryBuilder, MemoriesListTheirAssets)
{
    LibraryBuilder builder(Era::Ios18, small);
    MemoryRow row;
    row.key = 9;
    row.title = QStringLiteral("Summer");
    row.favorite = 1;
    row.curatedAssets = {5, 7};
    EXPECT_EQ(builder.addMemory(row), 9);
    EXPECT_EQ(builder.addMemory({}), 10);
    EXPECT_EQ(query(builder, "select Z_PK, ZTITLE, ZSUBTITLE, ZFAVORITE, ZKEYASSET from ZMEMORY"),
              (Rows{{9, "Summer", nullptr, 1, nullptr}, {10, nullptr, nullptr, 0, nullptr}}));
    EXPECT_EQ(query(builder, "select Z_51MEMORIESBEINGEXTENDEDCURATEDASSETS, Z_3EXTENDEDCURATEDASSETS from "
                             "Z_3MEMORIESBEINGEXTENDEDCURATEDASSETS order by rowid"),
              (Rows{{9, 5}, {9, 7}}));
}

TEST(LibraryBuilder, DroppedColumnIsGoneAndRowsGoOn)
{
    LibraryBuilder builder(Era::Ios16, small);
    builder.addAsset();
    builder.dropColumn(QStringLiteral("ZASSET"), QStringLiteral("ZHIDDEN"));
    AssetRow row;
    row.hidden = 1;
    builder.addAsset(row);
    EXPECT_EQ(query(builder, "select instr(sql, 'ZHIDDEN') from sqlite_master where name = 'ZASSET'"), (Rows{{0}}));
    EXPECT_EQ(query(builder, "select count(*) from ZASSET"), (Rows{{2}}));
}

TEST(LibraryBuilder, AddedColumnCanBeSet)
{
    LibraryBuilder builder(Era::Ios16, small);
    builder.addAsset();
    builder.addColumn(QStringLiteral("ZASSET"), QStringLiteral("ZHIDDENREASON"), QStringLiteral("INTEGER"));
    AssetRow row;
    row.columns = {{"ZHIDDENREASON", 3}};
    builder.addAsset(row);
    EXPECT_EQ(query(builder, "select ZHIDDENREASON from ZASSET"), (Rows{{nullptr}, {3}}));
    EXPECT_EQ(query(builder, "select sql like '%, ZHIDDENREASON INTEGER%' from sqlite_master where name = 'ZASSET'"),
              (Rows{{1}}));
}

TEST(LibraryBuilder, DroppedTablesLeaveTheRestUsable)
{
    LibraryBuilder builder(Era::Ios16, small);
    builder.dropTable(QStringLiteral("ZADDITIONALASSETATTRIBUTES"));
    builder.dropTable(QStringLiteral("ZDETECTEDFACE"));
    builder.addAsset();
    EXPECT_THROW(builder.addFace({}), LibraryError);
    EXPECT_EQ(query(builder, "select ZADDITIONALATTRIBUTES from ZASSET"), (Rows{{nullptr}}));
}

TEST(LibraryBuilder, EntitiesCanBeChanged)
{
    LibraryBuilder builder(Era::Ios16);
    builder.removeEntity(QStringLiteral("Memory"));
    builder.addEntity(QStringLiteral("WallpaperAsset"), 300, 3, 0);
    builder.setEntityMax(QStringLiteral("GenericAlbum"), 9);
    EXPECT_EQ(query(builder, "select Z_NAME, Z_ENT, Z_SUPER, Z_MAX from Z_PRIMARYKEY where Z_NAME in "
                             "('Memory', 'WallpaperAsset', 'GenericAlbum') order by Z_ENT"),
              (Rows{{"GenericAlbum", 27, 0, 9}, {"WallpaperAsset", 300, 3, 0}}));
}

TEST(LibraryBuilder, AnyStatementCanBeRun)
{
    LibraryBuilder builder(Era::Ios16, small);
    builder.addAsset();
    builder.exec(QStringLiteral("update ZASSET set ZWIDTH = 1; vacuum"));
    EXPECT_THROW(builder.exec(QStringLiteral("nonsense")), LibraryError);
    builder.addAsset();
    EXPECT_EQ(query(builder, "select ZWIDTH from ZASSET"), (Rows{{1}, {4032}}));
}

TEST(LibraryBuilder, MetadataIsOneRowWithABlob)
{
    LibraryBuilder builder(Era::Ios16, small);
    EXPECT_EQ(
        query(builder, "select Z_VERSION, length(Z_UUID), upper(Z_UUID) = Z_UUID, typeof(Z_PLIST) from Z_METADATA"),
        (Rows{{1, 36, 1, "blob"}}));
    builder.setLibraryUuid("A");
    EXPECT_EQ(query(builder, "select Z_UUID from Z_METADATA"), (Rows{{"A"}}));
    builder.setLibraryUuid(nullptr);
    EXPECT_EQ(query(builder, "select Z_UUID from Z_METADATA"), (Rows{{nullptr}}));
}

TEST(LibraryBuilder, IndicesCanBeLeftOut)
{
    LibraryBuilder builder(Era::Ios16, {true, false, AttributeKeys::Own});
    EXPECT_EQ(query(builder, "select count(*) from sqlite_master where type = 'index' and sql is not null"),
              (Rows{{0}}));
}

} // namespace

} // namespace testkit
