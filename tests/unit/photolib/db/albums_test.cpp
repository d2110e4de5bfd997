#include "tests/unit/photolib/db/made_database.h"

using namespace dbtests;
using testkit::ColumnValues;
using testkit::Operation;

namespace
{

const char absentQuery[] = "select Z_PK, Z_ENT, ZTITLE, ZKIND, ZUUID, \"0\" from ZGENERICALBUM";
const char presentQuery[] = "select Z_PK, Z_ENT, ZTITLE, ZKIND, ZUUID, ZTRASHEDSTATE from ZGENERICALBUM";

class AlbumTable : public LibraryTest
{
protected:
    void addAlbum(const ColumnValues &values) { sql.rows += insertInto("ZGENERICALBUM", values); }
};

} // namespace

TEST_F(AlbumTable, EveryColumnReachesItsField)
{
    addAlbum({{"Z_PK", 5},
              {"Z_ENT", 26},
              {"ZTITLE", QString::fromUtf8("Größe €")},
              {"ZKIND", 1550},
              {"ZUUID", "ALBUM-UUID"},
              {"ZTRASHEDSTATE", 1}});
    const albumRecord *album = open().findAlbum(5);
    ASSERT_NE(album, nullptr);
    EXPECT_EQ(album->pk, 5U);
    EXPECT_EQ(album->entity, 26);
    EXPECT_EQ(album->title, QString::fromUtf8("Größe €"));
    EXPECT_EQ(album->kind, 1550);
    EXPECT_EQ(album->uuid, "ALBUM-UUID");
    EXPECT_EQ(album->trashedState, 1);
    EXPECT_EQ(album->memberIds, QList<qint64>());
}

TEST_F(AlbumTable, NullReadsAsEmptyAndZero)
{
    addAlbum({{"Z_PK", 5}});
    const albumRecord *album = open().findAlbum(5);
    ASSERT_NE(album, nullptr);
    EXPECT_TRUE(album->title.isEmpty());
    EXPECT_FALSE(album->title.isNull());
    EXPECT_TRUE(album->uuid.isEmpty());
    EXPECT_EQ(album->entity, 0);
    EXPECT_EQ(album->kind, 0);
    EXPECT_EQ(album->trashedState, 0);
}

TEST_F(AlbumTable, ARowOfNullsIsAnAlbumToo)
{
    addAlbum({{"Z_PK", nullptr}});
    EXPECT_EQ(open().albumIdList(), QList<qint64>{0});
}

TEST_F(AlbumTable, KeepsAlbumsOfEveryKindAndTrashedState)
{
    int key = 0;
    for (const int kind : {0, 2, 12, 1505, 1550, 1552, 3999, -1}) {
        for (const int trashed : {0, 1, 2})
            addAlbum({{"Z_PK", ++key}, {"ZKIND", kind}, {"ZTRASHEDSTATE", trashed}});
    }
    EXPECT_EQ(open().albumIdList().size(), 24);
}

TEST_F(AlbumTable, ComesInAscendingOrderOfKeysTakenAsUnsigned)
{
    for (const int key : {30, -1, 4, -2147483647 - 1})
        addAlbum({{"Z_PK", key}});
    EXPECT_EQ(open().albumIdList(), (QList<qint64>{4, 30, -2147483648LL, -1}));
}

// The column that releases lack.

TEST_F(AlbumTable, ReadsTheTrashedStateWhenTheAssetTableHasOne)
{
    addAlbum({{"Z_PK", 5}, {"ZTRASHEDSTATE", 1}});
    EXPECT_EQ(open().findAlbum(5)->trashedState, 1);
    EXPECT_TRUE(statements.contains(presentQuery));
}

TEST_F(AlbumTable, IgnoresItsTrashedStateWhenTheAssetTableHasNone)
{
    sql.assets = LibrarySql::plainAssetTable("ZASSET");
    addAlbum({{"Z_PK", 5}, {"ZTRASHEDSTATE", 1}});
    EXPECT_EQ(open().findAlbum(5)->trashedState, 0);
    EXPECT_TRUE(statements.contains(absentQuery));
}

TEST_F(AlbumTable, FailsWhenOnlyTheAssetTableHasATrashedState)
{
    sql.albums = "create table ZGENERICALBUM (Z_PK, Z_ENT, ZTITLE, ZKIND, ZUUID);";
    open({error("Can not parse camera album")});
}

TEST_F(AlbumTable, CountsTheTrashedStateAsPresentInsideALongerName)
{
    sql.assets = LibrarySql::plainAssetTable("ZASSET", {"ZTRASHEDSTATEREASON"});
    addAlbum({{"Z_PK", 5}, {"ZTRASHEDSTATE", 1}});
    const Photos_DB &db = open({error("photo sql error #1: no such column: A.ZTRASHEDSTATE")});
    EXPECT_EQ(db.findAlbum(5)->trashedState, 1);
    EXPECT_TRUE(statements.contains(presentQuery));
}

TEST_F(AlbumTable, IsZgenericalbumAlsoBesideTheOldAssetTable)
{
    sql.setEntities("(34, 'GenericAsset', 0, 0), (25, 'GenericAlbum', 0, 0)");
    sql.assets = LibrarySql::assetTable("ZGENERICASSET");
    addAlbum({{"Z_PK", 5}});
    EXPECT_EQ(open().albumIdList(), QList<qint64>{5});
    EXPECT_TRUE(statements.contains(presentQuery));
}

class AlbumTableOfEra : public LibraryTest, public ::testing::WithParamInterface<testkit::Era>
{
};

TEST_P(AlbumTableOfEra, IsReadWithTheTrashedState)
{
    testkit::LibraryBuilder builder(GetParam());
    testkit::AlbumRow row;
    row.title = "Trip";
    row.trashedState = 1;
    const auto key = static_cast<quint64>(builder.addAlbum(row));
    putOnDevice(builder);
    const Photos_DB &db = openAnyhow();
    ASSERT_NE(db.findAlbum(key), nullptr);
    EXPECT_EQ(db.findAlbum(key)->title, "Trip");
    EXPECT_EQ(db.findAlbum(key)->trashedState, 1);
    EXPECT_EQ(statements.count(presentQuery), 1);
    log.takeAll();
}

INSTANTIATE_TEST_SUITE_P(Releases, AlbumTableOfEra, ::testing::ValuesIn(testkit::allEras()),
                         [](const auto &tested) { return std::string(testkit::factsOf(tested.param).name); });

// Odd values.

TEST_F(AlbumTable, AKeyKeepsItsLow32BitsSignExtended)
{
    addAlbum({{"Z_PK", 4294967301LL}, {"ZTITLE", "five"}});
    addAlbum({{"Z_PK", 2147483648LL}, {"ZTITLE", "lowest"}});
    const Photos_DB &db = open();
    ASSERT_EQ(db.albumIdList(), (QList<qint64>{5, -2147483648LL}));
    EXPECT_EQ(db.findAlbum(5)->title, "five");
    EXPECT_EQ(db.findAlbum(0xFFFFFFFF80000000ULL)->title, "lowest");
    EXPECT_EQ(db.findAlbum(0xFFFFFFFF80000000ULL)->pk, 0xFFFFFFFF80000000ULL);
}

TEST_F(AlbumTable, OfTwoRowsWithOneKeyTheLaterCounts)
{
    addAlbum({{"Z_PK", 5}, {"ZTITLE", "first"}});
    addAlbum({{"Z_PK", 5}, {"ZTITLE", "second"}});
    const Photos_DB &db = open();
    EXPECT_EQ(db.albumIdList(), QList<qint64>{5});
    EXPECT_EQ(db.findAlbum(5)->title, "second");
}

TEST_F(AlbumTable, KeysThatMeetAfterTruncationAreOneKey)
{
    addAlbum({{"Z_PK", 5}, {"ZTITLE", "first"}});
    addAlbum({{"Z_PK", 4294967301LL}, {"ZTITLE", "second"}});
    const Photos_DB &db = open();
    EXPECT_EQ(db.albumIdList(), QList<qint64>{5});
    EXPECT_EQ(db.findAlbum(5)->title, "second");
}

TEST_F(AlbumTable, NumbersOfOtherClassesAreConvertedAsSqliteDoes)
{
    addAlbum({{"Z_PK", "7 and more"}, {"Z_ENT", 26.9}, {"ZKIND", QByteArray("1550")}, {"ZTRASHEDSTATE", "text"}});
    addAlbum({{"Z_PK", -8.9}, {"Z_ENT", 1e300}, {"ZKIND", 4294967298LL}, {"ZTRASHEDSTATE", -1}});
    const Photos_DB &db = open();
    const albumRecord *album = db.findAlbum(7);
    ASSERT_NE(album, nullptr);
    EXPECT_EQ(album->entity, 26);
    EXPECT_EQ(album->kind, 1550);
    EXPECT_EQ(album->trashedState, 0);
    album = db.findAlbum(static_cast<quint64>(-8));
    ASSERT_NE(album, nullptr);
    EXPECT_EQ(album->entity, -1);
    EXPECT_EQ(album->kind, 2);
    EXPECT_EQ(album->trashedState, -1);
}

TEST_F(AlbumTable, TitlesOfOtherClassesBecomeText)
{
    addAlbum({{"Z_PK", 1}, {"ZTITLE", 12}});
    addAlbum({{"Z_PK", 2}, {"ZTITLE", 2.5}});
    addAlbum({{"Z_PK", 3}, {"ZTITLE", QByteArray("blob")}});
    addAlbum({{"Z_PK", 4}, {"ZTITLE", QByteArray("")}});
    const Photos_DB &db = open();
    EXPECT_EQ(db.findAlbum(1)->title, "12");
    EXPECT_EQ(db.findAlbum(2)->title, "2.5");
    EXPECT_EQ(db.findAlbum(3)->title, "blob");
    EXPECT_EQ(db.findAlbum(4)->title, "");
    EXPECT_FALSE(db.findAlbum(4)->title.isNull());
}

TEST_F(AlbumTable, ATitleEndsAtItsFirstZeroCharacter)
{
    sql.rows = "insert into ZGENERICALBUM (Z_PK, ZTITLE) values (1, cast(x'6162006364' as text));";
    EXPECT_EQ(open().findAlbum(1)->title, "ab");
}

TEST_F(AlbumTable, InvalidUtf8InATitleBecomesReplacementCharacters)
{
    sql.rows = "insert into ZGENERICALBUM (Z_PK, ZTITLE) values (1, cast(x'61FF62' as text));";
    EXPECT_EQ(open().findAlbum(1)->title, QString("a") + QChar(QChar::ReplacementCharacter) + "b");
}

TEST_F(AlbumTable, TheUuidIsItsBytesWithoutATerminator)
{
    addAlbum({{"Z_PK", 1}, {"ZUUID", "TEXT"}});
    addAlbum({{"Z_PK", 2}, {"ZUUID", QByteArray("\x00\xFF\x00", 3)}});
    addAlbum({{"Z_PK", 3}, {"ZUUID", 42}});
    addAlbum({{"Z_PK", 4}, {"ZUUID", ""}});
    sql.rows += "insert into ZGENERICALBUM (Z_PK, ZUUID) values (5, cast(x'616200FF' as text));";
    const Photos_DB &db = open();
    EXPECT_EQ(db.findAlbum(1)->uuid, QByteArray("TEXT"));
    EXPECT_EQ(db.findAlbum(1)->uuid.size(), 4);
    EXPECT_EQ(db.findAlbum(2)->uuid, QByteArray("\x00\xFF\x00", 3));
    EXPECT_EQ(db.findAlbum(3)->uuid, QByteArray("42"));
    EXPECT_TRUE(db.findAlbum(4)->uuid.isEmpty());
    EXPECT_EQ(db.findAlbum(5)->uuid, QByteArray("ab\0\xFF", 4));
}

// The highest key in use.

TEST_F(AlbumTable, RaisesTheHighestKeyToTheHighestOfItsOwn)
{
    sql.setEntities("(3, 'Asset', 0, 0), (25, 'GenericAlbum', 0, 9), (26, 'Album', 25, 0)");
    for (const int key : {5, 12, 7})
        addAlbum({{"Z_PK", key}});
    Photos_DB &db = open();
    EXPECT_EQ(probe().maxPk("GenericAlbum"), 12);
    EXPECT_EQ(probe().maxPk("Asset"), 0);
    EXPECT_EQ(probe().maxPk("Album"), 0);
    EXPECT_EQ(db.nextAlbumPk(), 13);
}

TEST_F(AlbumTable, LeavesAHigherHighestKeyAlone)
{
    sql.setEntities("(3, 'Asset', 0, 0), (25, 'GenericAlbum', 0, 40)");
    for (const int key : {5, 12, 7})
        addAlbum({{"Z_PK", key}});
    EXPECT_EQ(open().nextAlbumPk(), 41);
}

TEST_F(AlbumTable, RaisesTheDefaultHighestKeyWhenTheEntityIsMissing)
{
    sql.setEntities("(3, 'Asset', 0, 0)");
    addAlbum({{"Z_PK", 12}});
    EXPECT_EQ(open().nextAlbumPk(), 13);
}

TEST_F(AlbumTable, ANegativeKeyCountsAsHigherThanEveryOther)
{
    sql.setEntities("(3, 'Asset', 0, 0), (25, 'GenericAlbum', 0, 40)");
    addAlbum({{"Z_PK", -7}});
    addAlbum({{"Z_PK", 50}});
    Photos_DB &db = open();
    EXPECT_EQ(probe().maxPk("GenericAlbum"), -7);
    EXPECT_EQ(db.nextAlbumPk(), -6);
}

TEST_F(AlbumTable, ANegativeHighestKeyIsNotRaisedByAPositiveOne)
{
    sql.setEntities("(3, 'Asset', 0, 0), (25, 'GenericAlbum', 0, -7)");
    addAlbum({{"Z_PK", 50}});
    addAlbum({{"Z_PK", -9}});
    open();
    EXPECT_EQ(probe().maxPk("GenericAlbum"), -7);
}

// Failures.

TEST_F(AlbumTable, WhenMissingFailsWithAMessage)
{
    sql.albums.clear();
    const Photos_DB &db = open({error("Can not parse camera album")});
    EXPECT_EQ(db.albumIdList(), QList<qint64>());
}

TEST_F(AlbumTable, WhenEmptyIsASuccess)
{
    EXPECT_EQ(open().albumIdList(), QList<qint64>());
}

TEST_F(AlbumTable, AnErrorWhileReadingEndsLikeTheLastRow)
{
    for (const int key : {1, 2, 3})
        addAlbum({{"Z_PK", key}});
    failAfterRow("from ZGENERICALBUM", 2);
    EXPECT_EQ(open().albumIdList(), (QList<qint64>{1, 2}));
}

TEST_F(AlbumTable, AStopKeepsTheAlbumsReadSoFarAndStillCountsAsRead)
{
    for (const int key : {1, 2, 3})
        addAlbum({{"Z_PK", key}});
    stopAtRow("from ZGENERICALBUM", 3);
    EXPECT_EQ(openAnyhow().albumIdList(), (QList<qint64>{1, 2}));
    EXPECT_EQ(log.consumeMatching(parsed).size(), 1);
    log.takeAll();
}

TEST_F(AlbumTable, WithoutAConnectionIsNotRead)
{
    open();
    EXPECT_FALSE(probe().parseAlbums(nullptr));
    EXPECT_EQ(log.lines(), QStringList());
}
