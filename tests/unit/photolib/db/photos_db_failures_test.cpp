#include "testing/faulty_device.h"
#include "tests/unit/photolib/db/whole_library.h"

#include <sqlite3.h>

using namespace dbtests;
using testkit::FakeDevice;
using testkit::Fault;
using testkit::FaultyDevice;
using testkit::Operation;
using testkit::OperationKind;

using FailedParse = WholeLibraryTest;

TEST_F(FailedParse, AFailedCopyOfTheMainFileEndsTheParse)
{
    const Photos_DB db(&device);
    EXPECT_FALSE(db.isLoaded());
    log.expectLines({begin, error("Can not open file: /PhotoData/Photos.sqlite"), failed, end});
    EXPECT_EQ(device.operationCount(testkit::sqlOperations), 0);
    EXPECT_EQ(device.slotCalls(7), 1);
}

TEST_F(FailedParse, FailedCopiesOfTheOtherFilesAreIgnored)
{
    putOnDevice();
    device.addFile("/PhotoData/Photos.sqlite-wal", "");
    device.addFile("/PhotoData/Photos.sqlite-shm", "");
    Fault fault(OperationKind::OpenFile);
    fault.where = [](const Operation &operation) {
        return operation.fileSystem == VDevLocal && operation.path.endsWith("-wal");
    };
    const FaultyDevice noWal(device, fault);
    fault.kinds = OperationKind::OpenDevice;
    fault.where = [](const Operation &operation) { return operation.fileSystem == VDevDevice; };
    fault.at = 3;
    const FaultyDevice noDeviceForShm(device, fault);

    const Photos_DB &db = openAnyhow();
    EXPECT_TRUE(db.isLoaded());
    const QString wal = device.localPath("Photos.sqlite-wal");
    log.expectLines({begin, error("Can not open file: " + wal), error("Can not open device"),
                     progress("Parser_Ath_camera_DB"), parsed, end});
}

TEST_F(FailedParse, ADatabaseThatCannotBeOpenedIsNotLoaded)
{
    putOnDevice();
    const FaultyDevice faulty(device, OperationKind::OpenSqlite);
    EXPECT_FALSE(openAnyhow().isLoaded());
    log.expectLines(QStringList{begin} + missingCompanions + QStringList{error("Can not open sqlite db"), failed, end});
    EXPECT_EQ(device.operationCount(OperationKind::PrepareSqlite | OperationKind::CloseSqlite), 0);
}

TEST_F(FailedParse, AHandleThatAFailedOpeningHandsOutIsNotClosed)
{
    putOnDevice();
    sqlite3 *kept = nullptr;
    device.setOpenSqlite([&kept](const QString &path, sqlite3 **db) {
        sqlite3_open(path.toUtf8().constData(), &kept);
        *db = kept;
        return SQLITE_BUSY;
    });
    EXPECT_FALSE(openAnyhow().isLoaded());
    EXPECT_EQ(sqlite3_exec(kept, "select count(*) from Z_METADATA", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(sqlite3_close(kept), SQLITE_OK);
    EXPECT_EQ(log.consumeMatching("Can not open sqlite db").size(), 1);
    log.takeAll();
}

TEST_F(FailedParse, AFileThatIsNoDatabaseIsNotLoaded)
{
    device.addFile("/PhotoData/Photos.sqlite", QByteArray(20000, 'x'));
    const Photos_DB db(&device);
    EXPECT_FALSE(db.isLoaded());
    log.expectLines(QStringList{begin} + missingCompanions + QStringList{error("Can not open sqlite db"), failed, end});
}

TEST_F(FailedParse, WithoutAlbumsNeitherAssetsNorMembersAreReadButFacesAndMemoriesAre)
{
    sql.albums.clear();
    sql.rows = insertAsset({}) + "create table Z_26ASSETS (Z_26ALBUMS, Z_3ASSETS);" + faceAndMemory;
    const Photos_DB &db = open({error("Can not parse camera album")});
    EXPECT_EQ(db.assetIdList(), QList<qint64>());
    expectFaceAndMemory(db);
    EXPECT_FALSE(statements.contains("select * from Z_26ASSETS"));
}

TEST_F(FailedParse, WithoutAssetsNoMembersAreReadButFacesAndMemoriesAre)
{
    sql.attributes.clear();
    sql.rows = insertAsset({}) + albumWithAsset + faceAndMemory;
    const Photos_DB &db = open({error("photo sql error #1: no such table: ZADDITIONALASSETATTRIBUTES")});
    EXPECT_EQ(db.albumIdList(), QList<qint64>{5});
    EXPECT_EQ(db.findAlbum(5)->memberIds, QList<qint64>());
    expectFaceAndMemory(db);
    EXPECT_FALSE(statements.contains("select * from Z_26ASSETS"));
}

TEST_F(FailedParse, FailuresOfFacesAndMemoriesAreIgnored)
{
    sql.rows = "create table ZDETECTEDFACE (ZFACEGROUP, ZFACECROP); insert into ZDETECTEDFACE values (7, 1);";
    const Photos_DB &db = open({parsed, error("Can not parse camera photos: no such column: ZASSET"),
                                error("Can not parse camera photos: no such table: ZMEMORY")});
    EXPECT_EQ(db.faceGroupKeys(), QStringList());
    EXPECT_EQ(db.memoryKeys(), QStringList());
}

TEST_F(FailedParse, AStopBetweenTheStepsClosesTheDatabaseAndFails)
{
    addOneOfEverything();
    putOnDevice();
    const QList<QByteArray> steps{metadataQuery, entityQuery, assetSqlQuery, attributesSqlQuery};
    for (int step = 0; step < steps.size(); ++step) {
        SCOPED_TRACE(steps[step].toStdString());
        device.clearOperations();
        statements.clear();
        beforeOperation = [&](const Operation &operation) {
            if (operation.path == steps[step])
                probe().stop() = true;
        };
        EXPECT_FALSE(openAnyhow().isLoaded());
        log.expectLines(QStringList{begin} + missingCompanions + QStringList{failed, end});
        EXPECT_EQ(statements, steps.mid(0, step + 1));
        EXPECT_EQ(device.operations(OperationKind::CloseSqlite), QStringList{"closeSqlite"});
    }
}

TEST_F(FailedParse, AStopWhileTheTablesAreReadSkipsFacesAndMemoriesAndFails)
{
    addOneOfEverything();
    for (const char *statement : {"from ZGENERICALBUM", "from ZASSET", "from Z_26ASSETS"}) {
        SCOPED_TRACE(statement);
        statements.clear();
        device.clearOperations();
        beforeOperation = [&](const Operation &operation) {
            if (operation.path.contains(statement))
                probe().stop() = true;
        };
        EXPECT_FALSE(openAnyhow().isLoaded());
        EXPECT_EQ(log.lines().mid(log.lines().size() - 3), QStringList({parsed, failed, end}));
        log.takeAll();
        EXPECT_FALSE(statements.contains(croppedFacesQuery));
        EXPECT_EQ(statements.last(), "select * from Z_26ASSETS");
        EXPECT_EQ(device.operations(OperationKind::CloseSqlite), QStringList{"closeSqlite"});
    }
}

TEST_F(FailedParse, AStopAfterTheMembersNoLongerFails)
{
    addOneOfEverything();
    stopAtRow("from ZDETECTEDFACE where ZFACEGROUP", 1);
    const Photos_DB &db = open({progress("Got asset table name: Z_26ASSETS"), parsed});
    EXPECT_EQ(db.faceGroupKeys(), QStringList());
    EXPECT_EQ(db.memoryKeys(), QStringList());
}

TEST_F(FailedParse, RecordsReadBeforeAStopStay)
{
    sql.rows = insertAsset({}) + insertAsset({{"Z_PK", 2}}) + albumWithAsset;
    stopAtRow("from ZASSET", 2);
    const Photos_DB &db = openAnyhow();
    EXPECT_FALSE(db.isLoaded());
    EXPECT_EQ(db.albumIdList(), QList<qint64>{5});
    EXPECT_EQ(db.assetIdList(), QList<qint64>{1});
    log.takeAll();
}

TEST_F(FailedParse, AStopWhileAFileIsCopiedEndsTheParseAfterThatFile)
{
    putOnDevice();
    device.addFile("/PhotoData/Photos.sqlite-wal", "wal");
    device.addFile("/PhotoData/Photos.sqlite-shm", "shm");
    for (int file = 1; file <= 3; ++file) {
        SCOPED_TRACE(file);
        device.clearOperations();
        int opened = 0;
        beforeOperation = [&](const Operation &operation) {
            if (operation.kind == OperationKind::DevicePath && ++opened == file)
                probe().stop() = true;
        };
        EXPECT_FALSE(openAnyhow().isLoaded());
        log.expectLines({begin, failed, end});
        EXPECT_EQ(opened, file);
        EXPECT_EQ(device.operationCount(testkit::sqlOperations), 0);
        EXPECT_EQ(device.openHandles(), QStringList());
    }
}

TEST_F(FailedParse, WhateverFailsNothingIsLeftBehind)
{
    addOneOfEverything();
    const QTemporaryDir folder;
    putOnDevice();
    EXPECT_TRUE(openAnyhow().isLoaded());
    const QString database = device.localPath("Photos.sqlite");
    log.takeAll();

    const int faults =
        testkit::forEveryFault(testkit::faultableOperations, [&](FakeDevice &fake, FaultyDevice &faulty) {
            fake.addDatabase(database);
            fake.addFile("/PhotoData/Photos.sqlite-wal", "");
            fake.addFile("/PhotoData/Photos.sqlite-shm", "");
            const Photos_DB db(&fake);
            const Operation fault = faulty.fired() ? faulty.firedOperation() : Operation();
            const bool localSideFailed =
                faulty.fired() && fault.kind == OperationKind::OpenDevice && fault.fileSystem == VDevLocal;
            fake.expectLeftOpen(localSideFailed ? 2 : 0);
            EXPECT_EQ(log.consumeMatching("Can not load lib").size(), db.isLoaded() ? 0 : 1);
            EXPECT_EQ(fake.operations(OperationKind::OpenSqlite).filter(" = 0").size(),
                      fake.operationCount(OperationKind::CloseSqlite));
            log.takeAll();
        });
    // Of each file two devices, two files, the folder and two reads; of the main file one write; the database's opening
    // and 13 statements.
    EXPECT_GE(faults, 3 * 6 + 1 + 1 + 13);
}
