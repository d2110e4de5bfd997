#include "tests/unit/photolib/db/whole_library.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <type_traits>

using namespace dbtests;
using testkit::OperationKind;

using PhotosDb = WholeLibraryTest;

TEST_F(PhotosDb, HasAVirtualDestructorAndCannotBeCopied)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<Photos_DB>);
    EXPECT_FALSE(std::is_copy_constructible_v<Photos_DB>);
    EXPECT_FALSE(std::is_copy_assignable_v<Photos_DB>);
}

TEST_F(PhotosDb, ReadsTheWholeLibraryWhileItIsConstructed)
{
    addOneOfEverything();
    const Photos_DB &db = open({progress("Got asset table name: Z_26ASSETS"), parsed});
    EXPECT_EQ(db.uuid(), "LIBRARY-UUID");
    EXPECT_EQ(db.albumIdList(), QList<qint64>{5});
    EXPECT_EQ(db.assetIdList(), QList<qint64>{1});
    EXPECT_EQ(db.findAlbum(5)->memberIds, QList<qint64>{1});
    expectFaceAndMemory(db);
}

TEST_F(PhotosDb, PreparesItsStatementsInAFixedOrder)
{
    addOneOfEverything();
    open({progress("Got asset table name: Z_26ASSETS"), parsed});
    ASSERT_EQ(statements.size(), 13);
    EXPECT_EQ(statements[0], metadataQuery);
    EXPECT_EQ(statements[1], entityQuery);
    EXPECT_EQ(statements[2], assetSqlQuery);
    EXPECT_EQ(statements[3], attributesSqlQuery);
    EXPECT_EQ(statements[4], "select Z_PK, Z_ENT, ZTITLE, ZKIND, ZUUID, ZTRASHEDSTATE from ZGENERICALBUM");
    EXPECT_TRUE(statements[5].startsWith("select A.Z_PK, ")) << statements[5].constData();
    EXPECT_EQ(statements[6], tableNamesQuery);
    EXPECT_EQ(statements[7], "select * from Z_26ASSETS");
    EXPECT_EQ(statements[8], tableNamesQuery);
    EXPECT_EQ(statements[9], croppedFacesQuery);
    EXPECT_TRUE(statements[10].endsWith("from ZDETECTEDFACE where ZFACEGROUP in (7)")) << statements[10].constData();
    EXPECT_EQ(statements[11], tableNamesQuery);
    EXPECT_TRUE(statements[12].startsWith("select G.Z_PK, ")) << statements[12].constData();
}

TEST_F(PhotosDb, OpensTheCopyAfterAllThreeFilesAndClosesItLast)
{
    open();
    const QStringList done = device.operations(testkit::allOperations);
    EXPECT_EQ(done.first(), "localDataFolder = \"<local>/\"");
    EXPECT_EQ(done.last(), "closeSqlite");
    const int opening = done.indexOf("openSqlite \"<local>/Photos.sqlite\" = 0");
    ASSERT_GT(opening, 0);
    EXPECT_TRUE(done[opening - 1].startsWith("vDevClose")) << done[opening - 1].toStdString();
    EXPECT_EQ(done.filter("openSqlite").size(), 1);
    EXPECT_EQ(device.openHandles(), QStringList());
}

TEST_F(PhotosDb, AsksTheDeviceOncePerFileAndOnceForTheFolder)
{
    open();
    EXPECT_EQ(device.slotCalls(7), 3);
    EXPECT_EQ(device.slotCalls(16), 3);
    EXPECT_EQ(device.slotCalls(46), 0);
    EXPECT_EQ(device.slotCalls(56), 1);
}

TEST_F(PhotosDb, DestructionTouchesNeitherDeviceNorCopy)
{
    sql.rows = insertAsset({});
    open();
    const QByteArray copy = device.localFile("Photos.sqlite");
    const int operations = device.operationCount(testkit::allOperations);
    close();
    EXPECT_EQ(device.operationCount(testkit::allOperations), operations);
    EXPECT_TRUE(copy.startsWith("SQLite format 3"));
    EXPECT_EQ(device.localFile("Photos.sqlite"), copy);
}

TEST_F(PhotosDb, WithoutADeviceNothingIsLoaded)
{
    Photos_DB db(nullptr);
    EXPECT_FALSE(db.isLoaded());
    log.expectLines({begin, failed, end});
    EXPECT_EQ(device.operationCount(testkit::allOperations), 0);

    const PhotosDbProbe inside{db};
    EXPECT_EQ(inside.assetEntityName(), "GenericAsset");
    EXPECT_TRUE(inside.assetTableName().isNull());
    EXPECT_TRUE(inside.assetTableSql().isNull());
    EXPECT_TRUE(inside.additionalAttributesSql().isNull());
    EXPECT_FALSE(inside.libraryUuid().isNull());
    EXPECT_TRUE(inside.libraryUuid().isEmpty());
    EXPECT_FALSE(inside.stop());
    EXPECT_TRUE(inside.entities().isEmpty());
}

TEST_F(PhotosDb, AnEmptyDataFolderMeansTheFolderForTemporaryFiles)
{
    const QByteArray before = qgetenv("TMPDIR");
    const QString temporary = device.localPath("tmp");
    ASSERT_TRUE(QDir().mkpath(temporary));
    qputenv("TMPDIR", QFile::encodeName(temporary));
    device.setLocalDataFolder("");
    open();
    if (before.isNull())
        qunsetenv("TMPDIR");
    else
        qputenv("TMPDIR", before);

    EXPECT_TRUE(device.localFile("tmp/Photos.sqlite").startsWith("SQLite format 3"));
    EXPECT_TRUE(device.operations(OperationKind::OpenSqlite).contains("openSqlite \"<local>/tmp/Photos.sqlite\" = 0"));
}

TEST_F(PhotosDb, ADataFolderWithoutSeparatorIsGluedToTheFileName)
{
    device.setLocalDataFolder(device.localPath("data"));
    open();
    EXPECT_TRUE(device.localFile("dataPhotos.sqlite").startsWith("SQLite format 3"));
    EXPECT_EQ(device.operations(OperationKind::OpenSqlite),
              QStringList{"openSqlite \"<local>/dataPhotos.sqlite\" = 0"});
}

TEST_F(PhotosDb, ReadsWhatIsOnlyInTheWriteAheadLog)
{
    const QTemporaryDir folder;
    testkit::LibraryBuilder builder(testkit::Era::Ios15);
    builder.addAsset();
    builder.checkpoint();
    builder.addAsset();
    builder.write(folder.path() + "/Photos.sqlite", testkit::WalMode::WithContent);
    device.addDatabase(folder.path() + "/Photos.sqlite");

    const Photos_DB db(&device);
    EXPECT_TRUE(db.isLoaded());
    EXPECT_EQ(db.assetIdList().size(), 2);
    EXPECT_EQ(log.consumeMatching(parsed).size(), 1);
    EXPECT_EQ(log.consumeMatching("PHOTOLIB 2"), QStringList());
    log.takeAll();

    device.removeFile("/PhotoData/Photos.sqlite-wal");
    device.removeFile("/PhotoData/Photos.sqlite-shm");
    device.setLocalDataFolder(device.localPath("second/"));
    const Photos_DB withoutLog(&device);
    EXPECT_TRUE(withoutLog.isLoaded());
    EXPECT_EQ(withoutLog.assetIdList().size(), 1);
    log.takeAll();
}

TEST_F(PhotosDb, MetadataAndEntitiesMayBeMissing)
{
    sql.metadata.clear();
    sql.entities.clear();
    sql.rows = albumWithAsset;
    const Photos_DB &db = open({error("photo sql error #1: near \"as\": syntax error")});
    EXPECT_FALSE(db.uuid().isNull());
    EXPECT_EQ(db.uuid(), "");
    EXPECT_EQ(db.albumIdList(), QList<qint64>{5});
    EXPECT_EQ(db.albumEntityNumber(), 19);
    EXPECT_EQ(db.assetEntityNumber(), 27);
}

TEST_F(PhotosDb, WithoutAnAssetEntityTheDefaultOneIsInserted)
{
    sql.setEntities("(25, 'GenericAlbum', 0, 0), (26, 'Album', 25, 0)");
    sql.rows = insertAsset({}) + albumWithAsset;
    const Photos_DB &db = open({error("photo sql error #1: near \"as\": syntax error")});
    EXPECT_EQ(db.albumIdList(), QList<qint64>{5});
    EXPECT_EQ(db.findAlbum(5)->memberIds, QList<qint64>());
    EXPECT_EQ(db.assetIdList(), QList<qint64>());

    EXPECT_EQ(probe().assetEntityName(), "GenericAsset");
    EXPECT_TRUE(probe().assetTableName().isNull());
    EXPECT_TRUE(probe().assetTableSql().isNull());
    const entityInfo entity = probe().entities().value("GenericAsset");
    EXPECT_EQ(entity.name, "GenericAsset");
    EXPECT_EQ(entity.entityNumber, 27);
    EXPECT_EQ(entity.superEntity, 0);
    EXPECT_EQ(entity.maxPk, 0);
    EXPECT_EQ(statements[2], "SELECT sql FROM sqlite_master where tbl_name = '' and name = ''");
}

TEST_F(PhotosDb, WithoutAnAlbumEntityTheDefaultOneIsInserted)
{
    sql.setEntities("(3, 'Asset', 0, 8)");
    open();
    const entityInfo entity = probe().entities().value("GenericAlbum");
    EXPECT_EQ(entity.name, "GenericAlbum");
    EXPECT_EQ(entity.entityNumber, 19);
    EXPECT_EQ(entity.superEntity, 0);
    EXPECT_EQ(entity.maxPk, 0);
    EXPECT_EQ(probe().maxPk("Asset"), 8);
}

TEST_F(PhotosDb, EntitiesOfTheDatabaseAreNotReplacedByDefaults)
{
    sql.setEntities("(34, 'GenericAsset', 1, 70), (29, 'GenericAlbum', 2, 80)");
    sql.assets = LibrarySql::assetTable("ZGENERICASSET");
    const Photos_DB &db = open();
    EXPECT_EQ(db.assetEntityNumber(), 34);
    EXPECT_EQ(db.albumEntityNumber(), 29);
    EXPECT_EQ(probe().entities().value("GenericAsset").superEntity, 1);
    EXPECT_EQ(probe().entities().value("GenericAlbum").superEntity, 2);
    EXPECT_EQ(probe().maxPk("GenericAsset"), 70);
    EXPECT_EQ(probe().maxPk("GenericAlbum"), 80);
}

TEST_F(PhotosDb, GenericAssetIsPreferredToAsset)
{
    sql.setEntities("(35, 'Asset', 34, 0), (34, 'GenericAsset', 0, 0), (25, 'GenericAlbum', 0, 0)");
    sql.assets += LibrarySql::assetTable("ZGENERICASSET");
    sql.rows = insertAsset({{"Z_PK", 4}}, "ZGENERICASSET") + insertAsset({{"Z_PK", 6}}, "ZASSET");
    const Photos_DB &db = open();
    EXPECT_EQ(db.assetIdList(), QList<qint64>{4});
    EXPECT_EQ(probe().assetEntityName(), "GenericAsset");
    EXPECT_EQ(probe().assetTableName(), "ZGENERICASSET");
}

TEST_F(PhotosDb, AssetAloneMeansTheNewTable)
{
    sql.assets += LibrarySql::assetTable("ZGENERICASSET");
    sql.rows = insertAsset({{"Z_PK", 4}}, "ZGENERICASSET") + insertAsset({{"Z_PK", 6}}, "ZASSET");
    const Photos_DB &db = open();
    EXPECT_EQ(db.assetIdList(), QList<qint64>{6});
    EXPECT_EQ(probe().assetEntityName(), "Asset");
    EXPECT_EQ(probe().assetTableName(), "ZASSET");
    EXPECT_FALSE(probe().entities().contains("GenericAsset"));
}

TEST_F(PhotosDb, EntityNamesAreComparedCaseSensitively)
{
    sql.setEntities("(3, 'asset', 0, 0), (4, 'GENERICASSET', 0, 0), (25, 'genericalbum', 0, 0)");
    const Photos_DB &db = open({error("photo sql error #1: near \"as\": syntax error")});
    EXPECT_EQ(db.assetEntityNumber(), 27);
    EXPECT_EQ(db.albumEntityNumber(), 19);
}

TEST_F(PhotosDb, ClearingKeepsFacesAndMemories)
{
    addOneOfEverything();
    const Photos_DB &db = open({progress("Got asset table name: Z_26ASSETS"), parsed});
    probe().clearRecords();
    EXPECT_EQ(db.albumRecords().size(), 0);
    EXPECT_EQ(db.assetRecords().size(), 0);
    EXPECT_TRUE(probe().entities().isEmpty());
    EXPECT_EQ(db.faceGroupKeyFace("7"), 7);
    expectFaceAndMemory(db);
}

TEST_F(PhotosDb, ClearingSkipsPlacesWithoutARecord)
{
    open();
    probe().albums().insert(1, nullptr);
    probe().assets().insert(2, nullptr);
    probe().clearRecords();
    EXPECT_TRUE(probe().albums().isEmpty());
    EXPECT_TRUE(probe().assets().isEmpty());
}

TEST_F(PhotosDb, AnotherParseStartsFromNoRecords)
{
    addOneOfEverything();
    open({progress("Got asset table name: Z_26ASSETS"), parsed});
    probe().albums().insert(77, new albumRecord);
    probe().assets().insert(78, new assetRecord);
    EXPECT_TRUE(probe().parseLibrary());
    EXPECT_EQ(probe().db.albumIdList(), QList<qint64>{5});
    EXPECT_EQ(probe().db.assetIdList(), QList<qint64>{1});
    log.takeAll();
}

// Every release.

class PhotosDbOfEra : public LibraryTest, public ::testing::WithParamInterface<testkit::Era>
{
};

TEST_P(PhotosDbOfEra, IsReadAsAWhole)
{
    const testkit::EraFacts &facts = testkit::factsOf(GetParam());
    testkit::BuilderOptions options;
    options.builtinAlbums = false;
    testkit::LibraryBuilder builder(GetParam(), options);
    builder.setLibraryUuid("THE-LIBRARY");
    const qint64 first = builder.addAsset();
    const qint64 second = builder.addAsset();
    testkit::AlbumRow album;
    album.title = "Trip";
    const qint64 trip = builder.addAlbum(album);
    builder.addToAlbum(trip, second);
    builder.addToAlbum(trip, first);
    testkit::MemoryRow memory;
    memory.title = "Garden";
    memory.curatedAssets = {second, first};
    const qint64 garden = builder.addMemory(memory);
    putOnDevice(builder);

    const Photos_DB &db = open({progress("Got asset table name: " + facts.albumJoinTable()), parsed});
    EXPECT_EQ(db.uuid(), "THE-LIBRARY");
    EXPECT_EQ(db.assetEntityNumber(), facts.assetEntityNumber);
    EXPECT_EQ(db.albumEntityNumber(), facts.genericAlbum);
    EXPECT_EQ(db.assetIdList(), (QList<qint64>{first, second}));
    ASSERT_NE(db.findAlbum(static_cast<quint64>(trip)), nullptr);
    EXPECT_EQ(db.findAlbum(static_cast<quint64>(trip))->title, "Trip");
    QList<qint64> members = db.findAlbum(static_cast<quint64>(trip))->memberIds;
    std::sort(members.begin(), members.end());
    EXPECT_EQ(members, (QList<qint64>{first, second}));
    memoryRecord read;
    ASSERT_TRUE(db.copyMemory(QString::number(garden), &read));
    EXPECT_EQ(read.title, "Garden");
    std::sort(read.curatedAssets.begin(), read.curatedAssets.end());
    EXPECT_EQ(read.curatedAssets, (QList<qint64>{first, second}));
}

INSTANTIATE_TEST_SUITE_P(Releases, PhotosDbOfEra, ::testing::ValuesIn(testkit::allEras()),
                         [](const auto &tested) { return std::string(testkit::factsOf(tested.param).name); });
