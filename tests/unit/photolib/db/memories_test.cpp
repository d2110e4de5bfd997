#include "tests/unit/photolib/db/made_database.h"

using namespace dbtests;

namespace
{

/// Asset entity 33, memory entity 41.
class Memories : public LibraryTest
{
protected:
    Memories()
    {
        sql.setEntities("(33, 'Asset', 0, 0), (25, 'GenericAlbum', 0, 0), (41, 'Memory', 0, 0)");
        sql.rows = "create table ZDETECTEDFACE (ZASSET, ZFACEGROUP, ZFACEGROUPBEINGKEYFACE, ZFACECROP);"
                   "create table ZMEMORY (Z_PK, ZFAVORITE, ZKEYASSET, ZSUBTITLE, ZTITLE);" +
                   joinTable(33, 41);
    }

    /// With an index, as in real libraries, by which SQLite finds a memory's rows in the order of their insertion.
    static QString joinTable(int asset, int memory)
    {
        return QString("create table Z_%1MEMORIESBEINGEXTENDEDCURATEDASSETS (Z_%1EXTENDEDCURATEDASSETS, "
                       "Z_%2MEMORIESBEINGEXTENDEDCURATEDASSETS);"
                       "create index JOIN_%1 on Z_%1MEMORIESBEINGEXTENDEDCURATEDASSETS "
                       "(Z_%2MEMORIESBEINGEXTENDEDCURATEDASSETS);")
            .arg(asset)
            .arg(memory);
    }

    /// Rows of key, favourite, key asset, subtitle and title.
    void addMemories(const QString &rows) { sql.rows += "insert into ZMEMORY values " + rows + ";"; }
    /// Rows of asset and memory.
    void addCurated(const QString &rows)
    {
        sql.rows += "insert into Z_33MEMORIESBEINGEXTENDEDCURATEDASSETS values " + rows + ";";
    }

    memoryRecord memory(const QString &key)
    {
        memoryRecord record;
        EXPECT_TRUE(probe().db.copyMemory(key, &record)) << "no memory " << key.toStdString();
        return record;
    }
};

} // namespace

TEST_F(Memories, EveryColumnReachesItsField)
{
    addMemories("(9, 1, 77, 'Spring', 'Garden')");
    addCurated("(5, 9)");
    EXPECT_EQ(open().memoryKeys(), QStringList{"9"});
    const memoryRecord garden = memory("9");
    EXPECT_EQ(garden.pk, 9);
    EXPECT_EQ(garden.favorite, 1);
    EXPECT_EQ(garden.keyAsset, 77);
    EXPECT_EQ(garden.subtitle, "Spring");
    EXPECT_EQ(garden.title, "Garden");
    EXPECT_EQ(garden.curatedAssets, QList<qint64>{5});
}

TEST_F(Memories, TheStatementNamesTheTablesByTheNumbersOfTheEntities)
{
    open();
    EXPECT_EQ(statements.last(),
              QByteArray("select G.Z_PK, G.ZFAVORITE, G.ZKEYASSET, G.ZSUBTITLE, G.ZTITLE, "
                         "A.Z_33EXTENDEDCURATEDASSETS") +
                  QByteArray(39, ' ') +
                  "from ZMEMORY as G left join Z_33MEMORIESBEINGEXTENDEDCURATEDASSETS as A on G.Z_PK = "
                  "A.Z_41MEMORIESBEINGEXTENDEDCURATEDASSETS order by G.Z_PK ASC");
}

TEST_F(Memories, WithoutCuratedAssetsTheListIsTheOneKeyZero)
{
    addMemories("(9, 0, 0, 'Spring', 'Garden')");
    open();
    EXPECT_EQ(memory("9").curatedAssets, QList<qint64>{0});
}

TEST_F(Memories, CuratedAssetsComeInTheOrderOfTheRowsRepeatsIncluded)
{
    addMemories("(9, 0, 0, '', ''), (10, 0, 0, '', '')");
    addCurated("(7, 9), (5, 9), (3, 10), (7, 9)");
    open();
    EXPECT_EQ(memory("9").curatedAssets, (QList<qint64>{7, 5, 7}));
    EXPECT_EQ(memory("10").curatedAssets, QList<qint64>{3});
}

TEST_F(Memories, ACuratedAssetOfNullIsListedAsZero)
{
    addMemories("(9, 0, 0, '', '')");
    addCurated("(NULL, 9), (5, 9), (NULL, 9)");
    open();
    EXPECT_EQ(memory("9").curatedAssets, (QList<qint64>{0, 5, 0}));
}

TEST_F(Memories, KeysSortAsText)
{
    addMemories("(9, 0, 0, '', ''), (10, 0, 0, '', ''), (-1, 0, 0, '', '')");
    EXPECT_EQ(open().memoryKeys(), (QStringList{"-1", "10", "9"}));
}

TEST_F(Memories, OfTwoRowsWithOneKeyTheFirstGivesTheTextsAndBothGiveAssets)
{
    addMemories("(9, 1, 77, 'first', 'one'), (9, 0, 78, 'second', 'two')");
    addCurated("(5, 9)");
    open();
    EXPECT_EQ(memory("9").title, "one");
    EXPECT_EQ(memory("9").keyAsset, 77);
    EXPECT_EQ(memory("9").curatedAssets, (QList<qint64>{5, 5}));
}

// Odd values.

TEST_F(Memories, NullTextsAreEmptyAndNullNumbersZero)
{
    addMemories("(9, NULL, NULL, NULL, NULL)");
    open();
    const memoryRecord empty = memory("9");
    EXPECT_EQ(empty.subtitle, "");
    EXPECT_FALSE(empty.subtitle.isNull());
    EXPECT_EQ(empty.title, "");
    EXPECT_FALSE(empty.title.isNull());
    EXPECT_EQ(empty.favorite, 0);
    EXPECT_EQ(empty.keyAsset, 0);
}

TEST_F(Memories, KeysAreReadWith64BitsAndTheMarkWith32)
{
    addMemories("(4294967305, 4294967298, 8589934592, '', '')");
    addCurated("(-17179869184, 4294967305)");
    EXPECT_EQ(open().memoryKeys(), QStringList{"4294967305"});
    const memoryRecord large = memory("4294967305");
    EXPECT_EQ(large.pk, 4294967305LL);
    EXPECT_EQ(large.favorite, 2);
    EXPECT_EQ(large.keyAsset, 8589934592LL);
    EXPECT_EQ(large.curatedAssets, QList<qint64>{-17179869184LL});
}

TEST_F(Memories, OtherClassesAreConvertedAsSqliteDoes)
{
    addMemories("('9 and more', 1.9, '77', 12, x'62C3A4'), (10, 0, 0, cast(x'610062' as text), cast(x'61FF' as text))");
    open();
    const memoryRecord odd = memory("9");
    EXPECT_EQ(odd.favorite, 1);
    EXPECT_EQ(odd.keyAsset, 77);
    EXPECT_EQ(odd.subtitle, "12");
    EXPECT_EQ(odd.title, QString::fromUtf8("bä"));
    EXPECT_EQ(memory("10").subtitle, "a");
    EXPECT_EQ(memory("10").title, QString("a") + QChar(QChar::ReplacementCharacter));
}

// Which libraries have memories.

TEST_F(Memories, AreNotReadWithoutTheTableOfFaces)
{
    addMemories("(9, 0, 0, '', '')");
    sql.rows += "drop table ZDETECTEDFACE;";
    EXPECT_EQ(open().memoryKeys(), QStringList());
    EXPECT_FALSE(statements.last().contains("ZMEMORY"));
}

TEST_F(Memories, TheNameOfTheTableOfFacesIsComparedCaseSensitively)
{
    addMemories("(9, 0, 0, '', '')");
    sql.rows += "drop table ZDETECTEDFACE; create table ZDetectedFace (a);";
    EXPECT_EQ(open().memoryKeys(), QStringList());
}

TEST_F(Memories, WithoutTheirTableAreReported)
{
    sql.rows += "drop table ZMEMORY;";
    EXPECT_EQ(open({parsed, error("Can not parse camera photos: no such table: ZMEMORY")}).memoryKeys(), QStringList());
}

TEST_F(Memories, WithoutTheJoinTableAreReported)
{
    addMemories("(9, 0, 0, '', '')");
    sql.rows += "drop table Z_33MEMORIESBEINGEXTENDEDCURATEDASSETS;";
    const Photos_DB &db = open({parsed, error("Can not parse camera photos: no such table: "
                                              "Z_33MEMORIESBEINGEXTENDEDCURATEDASSETS")});
    EXPECT_EQ(db.memoryKeys(), QStringList());
}

TEST_F(Memories, WithoutTheMemoryEntityAreReportedAndNotRead)
{
    sql.setEntities("(33, 'Asset', 0, 0), (25, 'GenericAlbum', 0, 0)");
    addMemories("(9, 0, 0, '', '')");
    const Photos_DB &db = open({parsed, error("Can not parse camera photos: no such column: "
                                              "A.Z_0MEMORIESBEINGEXTENDEDCURATEDASSETS")});
    EXPECT_EQ(db.memoryKeys(), QStringList());
}

TEST_F(Memories, FollowTheGenericAssetEntityWhereThereIsOne)
{
    sql.setEntities(
        "(35, 'Asset', 34, 0), (34, 'GenericAsset', 0, 0), (25, 'GenericAlbum', 0, 0), (41, 'Memory', 0, 0)");
    sql.assets = LibrarySql::assetTable("ZGENERICASSET");
    addMemories("(9, 0, 0, '', 'Garden')");
    sql.rows += joinTable(34, 41) + "insert into Z_34MEMORIESBEINGEXTENDEDCURATEDASSETS values (5, 9);";
    open();
    EXPECT_EQ(memory("9").curatedAssets, QList<qint64>{5});
}

TEST_F(Memories, FollowTheDefaultAssetEntityWhereThereIsNone)
{
    sql.setEntities("(25, 'GenericAlbum', 0, 0), (41, 'Memory', 0, 0)");
    addMemories("(9, 0, 0, '', 'Garden')");
    sql.rows += joinTable(27, 41) + "insert into Z_27MEMORIESBEINGEXTENDEDCURATEDASSETS values (5, 9);";
    open({error("photo sql error #1: near \"as\": syntax error")});
    EXPECT_EQ(memory("9").curatedAssets, QList<qint64>{5});
}

// Failures.

TEST_F(Memories, AnErrorWhileReadingKeepsTheMemoriesSoFar)
{
    addMemories("(1, 0, 0, '', ''), (2, 0, 0, '', ''), (3, 0, 0, '', '')");
    failAfterRow("from ZMEMORY", 2);
    EXPECT_EQ(open().memoryKeys(), (QStringList{"1", "2"}));
}

TEST_F(Memories, AStopKeepsTheMemoriesSoFarAndTheLibraryIsLoaded)
{
    addMemories("(1, 0, 0, '', ''), (2, 0, 0, '', ''), (3, 0, 0, '', '')");
    addCurated("(5, 1), (6, 1)");
    stopAtRow("from ZMEMORY", 3);
    EXPECT_EQ(open().memoryKeys(), QStringList{"1"});
    EXPECT_EQ(memory("1").curatedAssets, (QList<qint64>{5, 6}));
}

TEST_F(Memories, WithoutAConnectionNothingHappens)
{
    addMemories("(9, 0, 0, '', '')");
    open();
    probe().parseMemories(nullptr);
    EXPECT_EQ(memory("9").curatedAssets.size(), 1);
    EXPECT_EQ(log.lines(), QStringList());
}

class MemoriesOfEra : public LibraryTest, public ::testing::WithParamInterface<testkit::Era>
{
};

TEST_P(MemoriesOfEra, AreReadThroughTheJoinTableOfTheRelease)
{
    testkit::LibraryBuilder builder(GetParam());
    testkit::MemoryRow row;
    row.title = "Garden";
    row.subtitle = "Spring";
    row.favorite = 1;
    row.keyAsset = 5;
    row.curatedAssets = {5, 7};
    const QString key = QString::number(builder.addMemory(row));
    row.curatedAssets.clear();
    const QString empty = QString::number(builder.addMemory(row));
    putOnDevice(builder);
    const Photos_DB &db = openAnyhow();
    log.takeAll();
    memoryRecord memory;
    ASSERT_TRUE(db.copyMemory(key, &memory));
    EXPECT_EQ(memory.title, "Garden");
    EXPECT_EQ(memory.subtitle, "Spring");
    EXPECT_EQ(memory.favorite, 1);
    EXPECT_EQ(memory.keyAsset, 5);
    EXPECT_EQ(memory.curatedAssets, (QList<qint64>{5, 7}));
    ASSERT_TRUE(db.copyMemory(empty, &memory));
    EXPECT_EQ(memory.curatedAssets, QList<qint64>{0});
}

INSTANTIATE_TEST_SUITE_P(Releases, MemoriesOfEra, ::testing::ValuesIn(testkit::allEras()),
                         [](const auto &tested) { return std::string(testkit::factsOf(tested.param).name); });
