#include "photolib/db/schema.h"

#include "testing/faulty_device.h"
#include "testing/test_sql_utils.h"
#include "tests/unit/photolib/db/made_database.h"

#include <sqlite3.h>

using namespace dbtests;
using photolib::hasColumn;
using testkit::Fault;
using testkit::FaultyDevice;
using testkit::Operation;
using testkit::OperationKind;

namespace
{

class Schema : public LibraryTest
{
protected:
    /// Has the preparing of the statements with `part` fail.
    Fault failureOf(const QByteArray &part)
    {
        Fault fault(OperationKind::PrepareSqlite);
        fault.where = [part](const Operation &operation) { return operation.path.contains(part); };
        return fault;
    }
};

/// A connection to a private database, and a reader that has read nothing.
class SchemaReader : public ::testing::Test
{
protected:
    SchemaReader() : db(nullptr)
    {
        log.takeAll();
        sqlite3_open(":memory:", &connection);
    }
    ~SchemaReader() override { EXPECT_EQ(sqlite3_close(connection), SQLITE_OK) << "a statement was left over"; }

    void exec(const char *statements)
    {
        ASSERT_EQ(sqlite3_exec(connection, statements, nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(connection);
    }

    testkit::LogRecorder log;
    sqlite3 *connection = nullptr;
    Photos_DB db;
    PhotosDbProbe probe{db};
};

} // namespace

// Columns.

TEST(HasColumn, FindsTheNameAnywhereInTheText)
{
    EXPECT_TRUE(hasColumn("create table T (ZHIDDEN integer)", "ZHIDDEN"));
    EXPECT_TRUE(hasColumn("ZHIDDEN", "ZHIDDEN"));
    EXPECT_FALSE(hasColumn("create table T (ZHID integer)", "ZHIDDEN"));
}

TEST(HasColumn, CountsAPartOfALongerName)
{
    EXPECT_TRUE(hasColumn("create table T (ZHIDDENREASON integer)", "ZHIDDEN"));
    EXPECT_TRUE(hasColumn("create table T (OLDZHIDDEN integer)", "ZHIDDEN"));
    EXPECT_TRUE(hasColumn("create table T (A integer check (A <> 'ZHIDDEN'))", "ZHIDDEN"));
}

TEST(HasColumn, DistinguishesCase)
{
    EXPECT_FALSE(hasColumn("create table T (zhidden integer)", "ZHIDDEN"));
}

TEST(HasColumn, FindsNothingInNoText)
{
    EXPECT_FALSE(hasColumn(QString(), "ZHIDDEN"));
    EXPECT_FALSE(hasColumn("", "ZHIDDEN"));
}

// Z_METADATA.

TEST_F(Schema, TheLibraryUuidIsThatOfTheLastRow)
{
    sql.metadata = "create table Z_METADATA (Z_VERSION, Z_UUID);"
                   "insert into Z_METADATA values (2, 'first'), (1, 'second'), (3, 'third');";
    EXPECT_EQ(open().uuid(), "third");
}

TEST_F(Schema, ALibraryUuidOfNullIsEmpty)
{
    sql.metadata = "create table Z_METADATA (Z_VERSION, Z_UUID);"
                   "insert into Z_METADATA values (1, 'first'), (1, NULL);";
    const Photos_DB &db = open();
    EXPECT_EQ(db.uuid(), "");
    EXPECT_FALSE(db.uuid().isNull());
}

TEST_F(Schema, WithoutRowsOfMetadataTheLibraryUuidIsEmpty)
{
    sql.metadata = "create table Z_METADATA (Z_VERSION, Z_UUID);";
    const Photos_DB &db = open();
    EXPECT_EQ(db.uuid(), "");
    EXPECT_FALSE(db.uuid().isNull());
}

TEST_F(Schema, MetadataWithoutItsColumnsIsPassedOverSilently)
{
    sql.metadata = "create table Z_METADATA (Z_VERSION);";
    EXPECT_EQ(open().uuid(), "");
}

TEST_F(Schema, AnErrorWhileMetadataIsReadKeepsWhatWasRead)
{
    sql.metadata = "create table Z_METADATA (Z_VERSION, Z_UUID);"
                   "insert into Z_METADATA values (1, 'first'), (1, 'second');";
    failAfterRow("from Z_METADATA", 1);
    EXPECT_EQ(open().uuid(), "first");
}

TEST_F(Schema, AStopWhileMetadataIsReadKeepsWhatWasRead)
{
    sql.metadata = "create table Z_METADATA (Z_VERSION, Z_UUID);"
                   "insert into Z_METADATA values (1, 'first'), (1, 'second'), (1, 'third');";
    stopAtRow("from Z_METADATA", 2);
    EXPECT_EQ(openAnyhow().uuid(), "first");
    log.takeAll();
}

// Z_PRIMARYKEY.

TEST_F(Schema, EntitiesKeepAllTheirValues)
{
    sql.setEntities("(3, 'Asset', 1, 30), (25, 'GenericAlbum', 2, 250), (-4, 'Odd', -5, -6)");
    open();
    ASSERT_TRUE(probe().entities().contains("Odd"));
    const entityInfo odd = probe().entities().value("Odd");
    EXPECT_EQ(odd.entityNumber, -4);
    EXPECT_EQ(odd.name, "Odd");
    EXPECT_EQ(odd.superEntity, -5);
    EXPECT_EQ(odd.maxPk, -6);
    const entityInfo album = probe().entities().value("GenericAlbum");
    EXPECT_EQ(album.entityNumber, 25);
    EXPECT_EQ(album.name, "GenericAlbum");
    EXPECT_EQ(album.superEntity, 2);
    EXPECT_EQ(album.maxPk, 250);
}

TEST_F(Schema, OfTwoEntitiesOfOneNameTheLaterCounts)
{
    sql.setEntities("(3, 'Asset', 0, 30), (25, 'GenericAlbum', 0, 250), (4, 'Asset', 9, 40)");
    const Photos_DB &db = open();
    EXPECT_EQ(db.assetEntityNumber(), 4);
    EXPECT_EQ(probe().entities().value("Asset").superEntity, 9);
    EXPECT_EQ(probe().maxPk("Asset"), 40);
}

TEST_F(Schema, EntityNumbersAreConvertedAsSqliteDoes)
{
    sql.setEntities("('3', 'Asset', NULL, '12 and more'), (25.9, 'GenericAlbum', 'text', 4294967297),"
                    "(x'3132', 'Blob', 9223372036854775807, 1e300)");
    open();
    const entityInfo asset = probe().entities().value("Asset");
    EXPECT_EQ(asset.entityNumber, 3);
    EXPECT_EQ(asset.superEntity, 0);
    EXPECT_EQ(asset.maxPk, 12);
    const entityInfo album = probe().entities().value("GenericAlbum");
    EXPECT_EQ(album.entityNumber, 25);
    EXPECT_EQ(album.superEntity, 0);
    EXPECT_EQ(album.maxPk, 1); // the low 32 bits
    const entityInfo blob = probe().entities().value("Blob");
    EXPECT_EQ(blob.entityNumber, 12);
    EXPECT_EQ(blob.superEntity, -1);
    EXPECT_EQ(blob.maxPk, -1); // beyond 64 bits: the greatest of them, whose low 32 bits are set
}

TEST_F(Schema, AnEntityWithoutNameIsKeptUnderTheEmptyName)
{
    sql.setEntities("(3, 'Asset', 0, 0), (25, 'GenericAlbum', 0, 0), (77, NULL, 0, 0)");
    open();
    EXPECT_EQ(probe().entities().value("").entityNumber, 77);
}

TEST_F(Schema, AnErrorWhileEntitiesAreReadKeepsWhatWasRead)
{
    sql.setEntities("(3, 'Asset', 0, 0), (25, 'GenericAlbum', 0, 0)");
    failAfterRow("from Z_PRIMARYKEY", 1);
    const Photos_DB &db = open();
    EXPECT_EQ(db.assetEntityNumber(), 3);
    EXPECT_EQ(db.albumEntityNumber(), 19);
}

TEST_F(Schema, AStopWhileEntitiesAreReadKeepsWhatWasRead)
{
    stopAtRow("from Z_PRIMARYKEY", 2);
    openAnyhow();
    EXPECT_EQ(QStringList(probe().entities().keys()), QStringList{"Asset"});
    log.takeAll();
}

TEST_F(SchemaReader, EntitiesStayWhenTheirTableIsMissingAndGoWhenItIsEmpty)
{
    probe.entities().insert("Kept", {});
    EXPECT_FALSE(probe.readEntityTable(connection));
    EXPECT_TRUE(probe.entities().contains("Kept"));
    exec("create table Z_PRIMARYKEY (Z_ENT, Z_NAME, Z_SUPER, Z_MAX)");
    EXPECT_TRUE(probe.readEntityTable(connection));
    EXPECT_TRUE(probe.entities().isEmpty());
}

TEST_F(SchemaReader, TheLibraryUuidStaysWhenItsTableIsMissing)
{
    probe.libraryUuid() = "kept";
    EXPECT_FALSE(probe.readSchemaVersion(connection));
    EXPECT_EQ(probe.libraryUuid(), "kept");
    exec("create table Z_METADATA (Z_VERSION, Z_UUID)");
    EXPECT_TRUE(probe.readSchemaVersion(connection));
    EXPECT_EQ(probe.libraryUuid(), "kept");
}

TEST_F(SchemaReader, WithoutAConnectionNothingIsRead)
{
    probe.entities().insert("Kept", {});
    EXPECT_FALSE(probe.readSchemaVersion(nullptr));
    EXPECT_FALSE(probe.readEntityTable(nullptr));
    EXPECT_TRUE(probe.entities().contains("Kept"));
}

// CREATE TABLE texts.

TEST_F(Schema, KeepsTheTextsOfTheAssetTables)
{
    sql.assets = "create table ZASSET (Z_PK, Z_ENT, /* a remark */ ZFILENAME);";
    sql.attributes = "create table ZADDITIONALASSETATTRIBUTES (Z_PK, ZORIGINALFILESIZE integer);";
    openAnyhow();
    EXPECT_EQ(probe().assetTableSql(), "CREATE TABLE ZASSET (Z_PK, Z_ENT, /* a remark */ ZFILENAME)");
    EXPECT_EQ(probe().additionalAttributesSql(),
              "CREATE TABLE ZADDITIONALASSETATTRIBUTES (Z_PK, ZORIGINALFILESIZE integer)");
    log.takeAll();
}

TEST_F(Schema, AskForTheTextOfTheTableNotOfItsIndices)
{
    sql.rows = "create index ZASSET_INDEX on ZASSET (ZUUID); create table OTHER (ZASSET);";
    open();
    EXPECT_TRUE(probe().assetTableSql().startsWith("CREATE TABLE ZASSET "));
    EXPECT_EQ(statements[2], "SELECT sql FROM sqlite_master where tbl_name = 'ZASSET' and name = 'ZASSET'");
}

TEST_F(Schema, WithoutAnAssetTableItsTextStaysNull)
{
    sql.assets.clear();
    sql.attributes.clear();
    open({error("photo sql error #1: no such table: ZASSET")});
    EXPECT_TRUE(probe().assetTableSql().isNull());
    EXPECT_TRUE(probe().additionalAttributesSql().isNull());
}

TEST_F(Schema, BothTextsShareOneErrorMessage)
{
    putOnDevice();
    const FaultyDevice assets(device, failureOf("tbl_name = 'ZASSET'"));
    const FaultyDevice attributes(device, failureOf("tbl_name = 'ZADDITIONALASSETATTRIBUTES'"));
    EXPECT_TRUE(openAnyhow().isLoaded());
    const QString message = error("get assets table name sql error #1: near \"injected\": syntax error");
    EXPECT_EQ(log.consumeMatching("get assets table name"), (QStringList{message, message}));
    EXPECT_TRUE(probe().assetTableSql().isNull());
    EXPECT_TRUE(probe().additionalAttributesSql().isNull());
    EXPECT_EQ(log.consumeMatching(parsed).size(), 1);
    log.takeAll();
}

TEST_F(Schema, AStopBeforeTheTextsLeavesThemNull)
{
    beforeOperation = [this](const Operation &operation) {
        if (operation.path.contains("FROM sqlite_master"))
            probe().stop() = true;
    };
    openAnyhow();
    EXPECT_TRUE(probe().assetTableSql().isNull());
    log.takeAll();
}

TEST_F(Schema, AStopWhileTheTextIsReadLeavesItNull)
{
    stopAtRow("tbl_name = 'ZASSET'", 1);
    openAnyhow();
    EXPECT_TRUE(probe().assetTableSql().isNull());
    log.takeAll();
}

TEST_F(SchemaReader, OnlyTheFirstRowOfATextCounts)
{
    // Quotes in the name end the text literal: two rows match.
    exec("create table first (a); create table second (b)");
    probe.assetTableName() = "first' or tbl_name = 'second";
    probe.readAssetTableSql(connection);
    EXPECT_EQ(probe.assetTableSql(), "CREATE TABLE first (a)");
}

TEST_F(SchemaReader, AnEmptyTableNameMatchesNothing)
{
    exec("create table ZASSET (ZHIDDEN)");
    probe.readAssetTableSql(connection);
    EXPECT_TRUE(probe.assetTableSql().isNull());
}

TEST_F(SchemaReader, ATextThatIsNotFoundKeepsTheEarlierOne)
{
    probe.assetTableName() = "ZASSET";
    probe.assetTableSql() = "kept";
    probe.additionalAttributesSql() = "kept too";
    probe.readAssetTableSql(connection);
    probe.readAdditionalAttributesSql(connection);
    EXPECT_EQ(probe.assetTableSql(), "kept");
    EXPECT_EQ(probe.additionalAttributesSql(), "kept too");
}

// Table names.

TEST_F(SchemaReader, TableNamesAreThoseOfTablesOnly)
{
    exec("create table Zebra (a); create table ape (a); create index i on ape (a); create view v as select 1;"
         "create trigger t after insert on ape begin select 1; end");
    EXPECT_EQ(probe.allTableNames(connection), (QStringList{"Zebra", "ape"}));
}

TEST_F(SchemaReader, ADatabaseWithoutTablesHasNoTableNames)
{
    EXPECT_EQ(probe.allTableNames(connection), QStringList());
}

TEST_F(SchemaReader, TableNamesAreUtf8)
{
    exec("create table \"Größe\" (a)");
    EXPECT_EQ(probe.allTableNames(connection), QStringList{QString::fromUtf8("Größe")});
}

TEST_F(SchemaReader, AStopEndsTheTableNames)
{
    exec("create table a (a); create table b (b)");
    probe.stop() = true;
    EXPECT_EQ(probe.allTableNames(connection), QStringList());
}

TEST_F(Schema, AFailedQueryOfTableNamesIsReportedAndGivesNone)
{
    sql.rows = "create table ZDETECTEDFACE (ZASSET, ZFACEGROUP, ZFACEGROUPBEINGKEYFACE, ZFACECROP);"
               "insert into ZDETECTEDFACE values (1, 7, 7, 1);";
    putOnDevice();
    Fault fault = failureOf("SELECT tbl_name");
    const FaultyDevice forMembers(device, fault);
    const FaultyDevice forFaces(device, fault);
    const FaultyDevice forMemories(device, fault);
    const Photos_DB &db = openAnyhow();
    const QString message = error("get AllTableNames error #1: near \"injected\": syntax error");
    EXPECT_EQ(log.consumeMatching("AllTableNames"), (QStringList{message, message, message}));
    EXPECT_EQ(db.faceGroupKeys(), QStringList());
    log.takeAll();
}
