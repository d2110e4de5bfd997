#include "testing/faulty_device.h"
#include "tests/unit/photolib/db/made_database.h"

using namespace dbtests;
using testkit::Fault;
using testkit::FaultyDevice;
using testkit::Operation;
using testkit::OperationKind;

namespace
{

/// A library with the albums 5 and 6; the entities "Album" (26) and "Folder" (32) are children of GenericAlbum.
class Membership : public LibraryTest
{
protected:
    Membership()
    {
        sql.setEntities("(3, 'Asset', 0, 0), (25, 'GenericAlbum', 0, 0), (26, 'Album', 25, 0), (32, 'Folder', 25, 0),"
                        "(40, 'Memory', 0, 0)");
        sql.rows = "insert into ZGENERICALBUM (Z_PK) values (5), (6);";
    }

    /// A join table with these columns and rows.
    void addTable(const QString &name, const QString &columns, const QString &rows)
    {
        sql.rows += "create table " + name + " (" + columns + ");";
        if (!rows.isEmpty())
            sql.rows += "insert into " + name + " values " + rows + ";";
    }
    void addUsualTable(const QString &rows) { addTable("Z_26ASSETS", "Z_26ALBUMS, Z_3ASSETS", rows); }

    static QString found(const QString &table) { return progress("Got asset table name: " + table); }

    /// Opens the library, whose only join table is the usual one.
    QList<qint64> membersOf(quint64 album)
    {
        if (!isRead)
            open({found("Z_26ASSETS"), parsed});
        isRead = true;
        return probe().db.findAlbum(album)->memberIds;
    }

    Fault failureOf(const QByteArray &part)
    {
        Fault fault(OperationKind::PrepareSqlite);
        fault.where = [part](const Operation &operation) { return operation.path.contains(part); };
        return fault;
    }

private:
    bool isRead = false;
};

} // namespace

// Finding the tables.

TEST_F(Membership, AnAlbumEntityWithoutATableIsSkippedSilently)
{
    open({parsed});
    EXPECT_FALSE(statements.contains("select * from Z_26ASSETS"));
}

TEST_F(Membership, TablesAreReadInTheOrderOfTheirEntitiesNames)
{
    sql.setEntities("(3, 'Asset', 0, 0), (25, 'GenericAlbum', 0, 0), (30, 'Zoo', 25, 0), (31, 'Folder', 25, 0),"
                    "(32, 'apple', 25, 0), (33, 'Album', 25, 0)");
    for (const char *table : {"Z_30ASSETS", "Z_31ASSETS", "Z_32ASSETS", "Z_33ASSETS"})
        addTable(table, "Z_26ALBUMS, Z_3ASSETS", "");
    open({found("Z_33ASSETS"), found("Z_31ASSETS"), found("Z_30ASSETS"), found("Z_32ASSETS"), parsed});
}

TEST_F(Membership, OnlyDirectChildrenOfTheAlbumEntityOwnTables)
{
    sql.setEntities("(3, 'Asset', 0, 0), (25, 'GenericAlbum', 0, 0), (26, 'Album', 25, 0), (27, 'SharedAlbum', 26, 0),"
                    "(28, 'Other', 3, 0)");
    for (const char *table : {"Z_3ASSETS", "Z_25ASSETS", "Z_27ASSETS", "Z_28ASSETS"})
        addTable(table, "Z_26ALBUMS, Z_3ASSETS", "(5, 1)");
    addUsualTable("(5, 2)");
    EXPECT_EQ(membersOf(5), QList<qint64>{2});
}

TEST_F(Membership, TheAlbumEntityOwnsATableOnlyWhenItIsItsOwnParent)
{
    sql.setEntities("(3, 'Asset', 0, 0), (25, 'GenericAlbum', 25, 0)");
    addTable("Z_25ASSETS", "Z_25ALBUMS, Z_3ASSETS", "(5, 1)");
    const Photos_DB &db = open({found("Z_25ASSETS"), parsed});
    EXPECT_EQ(db.findAlbum(5)->memberIds, QList<qint64>{1});
}

TEST_F(Membership, ChildrenOfTheDefaultAlbumEntityOwnTables)
{
    sql.setEntities("(3, 'Asset', 0, 0), (20, 'Album', 19, 0)");
    addTable("Z_20ASSETS", "Z_20ALBUMS, Z_3ASSETS", "(5, 1)");
    const Photos_DB &db = open({found("Z_20ASSETS"), parsed});
    EXPECT_EQ(db.findAlbum(5)->memberIds, QList<qint64>{1});
}

TEST_F(Membership, TableNamesAreComparedCaseSensitively)
{
    addTable("z_26assets", "Z_26ALBUMS, Z_3ASSETS", "(5, 1)");
    EXPECT_EQ(open({parsed}).findAlbum(5)->memberIds, QList<qint64>());
}

TEST_F(Membership, AViewIsNoTable)
{
    sql.rows += "create view Z_26ASSETS as select 5 as Z_26ALBUMS, 1 as Z_3ASSETS;";
    EXPECT_EQ(open({parsed}).findAlbum(5)->memberIds, QList<qint64>());
}

TEST_F(Membership, WithoutTableNamesEveryCandidateIsTried)
{
    addUsualTable("(5, 1)");
    putOnDevice();
    const FaultyDevice faulty(device, failureOf("SELECT tbl_name"));
    const Photos_DB &db =
        open({error("get AllTableNames error #1: near \"injected\": syntax error"), found("Z_26ASSETS"),
              found("Z_32ASSETS"), error("Can not parse camera photos: no such table: Z_32ASSETS"), parsed});
    EXPECT_EQ(db.findAlbum(5)->memberIds, QList<qint64>{1});
}

TEST_F(Membership, ATableOfTwoEntitiesIsReadTwiceAndAddsNothingTwice)
{
    sql.setEntities("(3, 'Asset', 0, 0), (25, 'GenericAlbum', 0, 0), (26, 'Album', 25, 0), (26, 'Twin', 25, 0)");
    addUsualTable("(5, 1)");
    const Photos_DB &db = open({found("Z_26ASSETS"), found("Z_26ASSETS"), parsed});
    EXPECT_EQ(db.findAlbum(5)->memberIds, QList<qint64>{1});
}

// Rows.

TEST_F(Membership, AssetsAreListedInTheOrderOfTheRowsEachOnce)
{
    addUsualTable("(5, 9), (6, 4), (5, 3), (5, 9), (5, 7), (6, 9), (5, 3)");
    EXPECT_EQ(membersOf(5), (QList<qint64>{9, 3, 7}));
    EXPECT_EQ(membersOf(6), (QList<qint64>{4, 9}));
}

TEST_F(Membership, AssetsOfALaterTableFollowEachOnce)
{
    addUsualTable("(5, 9), (5, 3)");
    addTable("Z_32ASSETS", "Z_32ALBUMS, Z_3ASSETS", "(5, 3), (5, 1), (5, 9)");
    const Photos_DB &db = open({found("Z_26ASSETS"), found("Z_32ASSETS"), parsed});
    EXPECT_EQ(db.findAlbum(5)->memberIds, (QList<qint64>{9, 3, 1}));
}

TEST_F(Membership, AssetsWithoutARecordAreListed)
{
    addUsualTable("(5, 12345)");
    EXPECT_EQ(membersOf(5), QList<qint64>{12345});
    EXPECT_EQ(probe().db.findAsset(12345), nullptr);
}

TEST_F(Membership, RowsWithAZeroOrNullKeyAddNothing)
{
    sql.rows += "insert into ZGENERICALBUM (Z_PK) values (0);";
    addUsualTable("(0, 1), (NULL, 2), (5, 0), (5, NULL), ('text', 3), (5, 'text')");
    EXPECT_EQ(membersOf(5), QList<qint64>());
    EXPECT_EQ(membersOf(0), QList<qint64>());
}

TEST_F(Membership, RowsOfAnUnknownAlbumAddNothing)
{
    addUsualTable("(99, 1), (5, 2)");
    EXPECT_EQ(membersOf(5), QList<qint64>{2});
    EXPECT_EQ(probe().db.albumIdList(), (QList<qint64>{5, 6}));
}

TEST_F(Membership, KeysAreReadWith64Bits)
{
    addUsualTable("(5, 4294967297), (4294967301, 8), (5, -2)");
    EXPECT_EQ(membersOf(5), (QList<qint64>{4294967297LL, -2}));
}

TEST_F(Membership, AnAlbumWithANegativeKeyHasMembers)
{
    sql.rows += "insert into ZGENERICALBUM (Z_PK) values (-7);";
    addUsualTable("(-7, 1)");
    EXPECT_EQ(membersOf(static_cast<quint64>(-7)), QList<qint64>{1});
}

TEST_F(Membership, KeysOfOtherClassesAreConvertedAsSqliteDoes)
{
    addUsualTable("('5', '7 and more'), (5.9, 8.9), (x'35', x'39')");
    EXPECT_EQ(membersOf(5), (QList<qint64>{7, 8, 9}));
}

// Columns.

TEST_F(Membership, TheDigitsInColumnNamesPlayNoPart)
{
    addTable("Z_26ASSETS", "Z_1ALBUMS, Z_987ASSETS", "(5, 1)");
    EXPECT_EQ(membersOf(5), QList<qint64>{1});
}

TEST_F(Membership, ColumnsMayComeInAnyOrderAmongOthers)
{
    addTable("Z_26ASSETS", "Z_FOK_3ASSETS, Z_3ASSETS, OTHER, Z_26ALBUMS", "(2048, 1, 77, 5)");
    EXPECT_EQ(membersOf(5), QList<qint64>{1});
}

TEST_F(Membership, ColumnNamesAreMatchedCaseSensitivelyAndAsAWhole)
{
    for (const char *columns : {"z_26albums, Z_3ASSETS", "Z_26ALBUMSX, Z_3ASSETS", "XZ_26ALBUMS, Z_3ASSETS",
                                "Z_ALBUMS, Z_3ASSETS", "Z_2X6ALBUMS, Z_3ASSETS", "Z_26ALBUMS, z_3assets",
                                "Z_26ALBUMS, Z_3ASSETSX", "Z_26ALBUMS, Z_ASSETS", "Z_26ALBUMS, Z_FOK_3ASSETS"}) {
        SCOPED_TRACE(columns);
        sql.rows = "insert into ZGENERICALBUM (Z_PK) values (5);";
        addTable("Z_26ASSETS", columns, "(5, 1)");
        testkit::SqlConnection connection;
        connection.exec(sql.all());
        Photos_DB db(nullptr);
        const PhotosDbProbe inside{db};
        inside.readEntityTable(connection.handle());
        inside.parseAlbums(connection.handle());
        ASSERT_NE(db.findAlbum(5), nullptr);
        EXPECT_TRUE(inside.parseMembershipTables(connection.handle()));
        EXPECT_EQ(db.findAlbum(5)->memberIds, QList<qint64>());
        EXPECT_EQ(log.consumeMatching("Got asset table name: Z_26ASSETS").size(), 1);
        log.takeAll();
    }
}

TEST_F(Membership, TheFirstAssetColumnAfterAKnownAlbumCounts)
{
    addTable("Z_26ASSETS", "Z_26ALBUMS, Z_3ASSETS, Z_4ASSETS", "(5, 1, 2)");
    EXPECT_EQ(membersOf(5), QList<qint64>{1});
}

TEST_F(Membership, OfColumnsBeforeTheRowIsCompleteTheLastCounts)
{
    addTable("Z_26ASSETS", "Z_1ALBUMS, Z_2ALBUMS, Z_3ASSETS", "(5, 6, 1), (5, 99, 2), (99, 5, 3)");
    EXPECT_EQ(membersOf(5), QList<qint64>{3});
    EXPECT_EQ(membersOf(6), QList<qint64>{1});
}

TEST_F(Membership, AnUnknownAlbumMayBeReplacedByALaterColumn)
{
    addTable("Z_26ASSETS", "Z_1ALBUMS, Z_3ASSETS, Z_2ALBUMS", "(99, 1, 5)");
    EXPECT_EQ(membersOf(5), QList<qint64>{1});
}

TEST_F(Membership, AnAssetOfAnUnknownAlbumMayBeReplacedByALaterColumn)
{
    addTable("Z_26ASSETS", "Z_1ALBUMS, Z_3ASSETS, Z_4ASSETS, Z_2ALBUMS", "(99, 1, 2, 5), (5, 0, 4, 6)");
    EXPECT_EQ(membersOf(5), (QList<qint64>{2, 4}));
    EXPECT_EQ(membersOf(6), QList<qint64>());
}

// Failures.

TEST_F(Membership, ATableThatCannotBePreparedIsReportedAndTheOthersAreRead)
{
    addUsualTable("(5, 1)");
    addTable("Z_32ASSETS", "Z_32ALBUMS, Z_3ASSETS", "(5, 2)");
    putOnDevice();
    const FaultyDevice faulty(device, failureOf("Z_26ASSETS"));
    const Photos_DB &db =
        open({found("Z_26ASSETS"), error("Can not parse camera photos: near \"injected\": syntax error"),
              found("Z_32ASSETS"), parsed});
    EXPECT_EQ(db.findAlbum(5)->memberIds, QList<qint64>{2});
}

TEST_F(Membership, AnErrorWhileReadingEndsOnlyThatTable)
{
    addUsualTable("(5, 1), (5, 2), (5, 3)");
    addTable("Z_32ASSETS", "Z_32ALBUMS, Z_3ASSETS", "(5, 4)");
    failAfterRow("Z_26ASSETS", 2);
    const Photos_DB &db = open({found("Z_26ASSETS"), found("Z_32ASSETS"), parsed});
    EXPECT_EQ(db.findAlbum(5)->memberIds, (QList<qint64>{1, 2, 4}));
}

TEST_F(Membership, AfterAStopLaterTablesAreStillPreparedButNotRead)
{
    addUsualTable("(5, 1), (5, 2), (5, 3)");
    addTable("Z_32ASSETS", "Z_32ALBUMS, Z_3ASSETS", "(5, 4)");
    stopAtRow("Z_26ASSETS", 2);
    const Photos_DB &db = openAnyhow();
    EXPECT_EQ(db.findAlbum(5)->memberIds, QList<qint64>{1});
    EXPECT_EQ(statements.last(), "select * from Z_32ASSETS");
    EXPECT_EQ(log.consumeMatching(parsed).size(), 1);
    log.takeAll();
}

TEST_F(Membership, WithoutAConnectionNothingIsReadAndItFails)
{
    open({parsed});
    EXPECT_FALSE(probe().parseMembershipTables(nullptr));
    EXPECT_EQ(log.lines(), QStringList());
}
