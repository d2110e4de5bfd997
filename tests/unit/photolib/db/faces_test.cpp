#include "tests/unit/photolib/db/made_database.h"

using namespace dbtests;

namespace
{

const char croppedQuery[] = "select ZFACEGROUP from ZDETECTEDFACE where zfacecrop is not null";

class DetectedFaces : public LibraryTest
{
protected:
    /// Rows of asset, group, group whose key face it is, and crop.
    void addFaces(const QString &rows, const QString &table = "ZDETECTEDFACE")
    {
        sql.rows += "create table " + table + " (ZASSET, ZFACEGROUP, ZFACEGROUPBEINGKEYFACE, ZFACECROP);";
        if (!rows.isEmpty())
            sql.rows += "insert into " + table + " values " + rows + ";";
    }

    /// Opens the library, which has faces but no memories.
    Photos_DB &openFaces() { return open({parsed, error("Can not parse camera photos: no such table: ZMEMORY")}); }

    /// The statement that asks for the faces of some groups.
    QByteArray facesQuery() const
    {
        for (const QByteArray &statement : statements) {
            if (statement.contains("ZFACEGROUPBEINGKEYFACE"))
                return statement;
        }
        return {};
    }
};

} // namespace

TEST_F(DetectedFaces, GiveOneEntryForEachFaceTheLastReadFirst)
{
    addFaces("(100, 7, NULL, 1), (100, 7, NULL, 2), (101, 7, NULL, 3)");
    const Photos_DB &db = openFaces();
    EXPECT_EQ(db.faceGroupKeys(), (QStringList{"7", "7", "7"}));
    EXPECT_EQ(db.faceGroupAssetIds("7"), (QList<qint64>{101, 100, 100}));
}

TEST_F(DetectedFaces, OfAllGroupsAreAskedForInOneStatement)
{
    addFaces("(100, 5, NULL, 1), (101, 12, NULL, 1)");
    openFaces();
    EXPECT_TRUE(statements.contains(croppedQuery));
    EXPECT_EQ(facesQuery(), "select ZASSET, ZFACEGROUP, ZFACEGROUPBEINGKEYFACE from ZDETECTEDFACE where ZFACEGROUP in "
                            "(5,12)");
}

TEST_F(DetectedFaces, OfManyGroupsFitTheStatement)
{
    QStringList rows;
    for (int group = 100001; group <= 101000; ++group)
        rows << QString("(%1, %2, NULL, 1)").arg(group - 100000).arg(group);
    addFaces(rows.join(", "));
    const Photos_DB &db = openFaces();
    EXPECT_GT(facesQuery().size(), 7000);
    EXPECT_EQ(db.faceGroupKeys().size(), 1000);
    EXPECT_EQ(db.faceGroupAssetIds("101000"), QList<qint64>{1000});
}

TEST_F(DetectedFaces, GroupsSortAsText)
{
    addFaces("(1, 9, NULL, 1), (2, 10, NULL, 1), (3, -1, NULL, 1)");
    EXPECT_EQ(openFaces().faceGroupKeys(), (QStringList{"-1", "10", "9"}));
}

// Key faces.

TEST_F(DetectedFaces, AKeyFaceGivesTheNumberOfItsGroupNotItsAsset)
{
    addFaces("(100, 7, 7, 1), (101, 7, NULL, 1), (102, 8, 7, 1), (103, 9, NULL, 1)");
    const Photos_DB &db = openFaces();
    EXPECT_EQ(db.faceGroupKeyFace("7"), 7);
    EXPECT_EQ(db.faceGroupKeyFace("8"), 0);
    EXPECT_EQ(db.faceGroupKeyFace("9"), 0);
    EXPECT_EQ(QStringList(probe().faceGroupKeyFaces().keys()), QStringList{"7"});
}

TEST_F(DetectedFaces, AKeyFaceWithoutAnAssetAddsNothing)
{
    addFaces("(NULL, 7, 7, 1), (0, 7, 7, 1), (101, 7, NULL, 1)");
    const Photos_DB &db = openFaces();
    EXPECT_EQ(db.faceGroupAssetIds("7"), QList<qint64>{101});
    EXPECT_TRUE(probe().faceGroupKeyFaces().isEmpty());
}

// Crops.

TEST_F(DetectedFaces, AGroupWithOneCropIsReadWithAllItsFaces)
{
    addFaces("(100, 7, NULL, NULL), (101, 7, 7, NULL), (102, 7, NULL, 1)");
    const Photos_DB &db = openFaces();
    EXPECT_EQ(db.faceGroupAssetIds("7"), (QList<qint64>{102, 101, 100}));
    EXPECT_EQ(db.faceGroupKeyFace("7"), 7);
}

TEST_F(DetectedFaces, AGroupWithoutACropIsNotRead)
{
    addFaces("(100, 7, 7, NULL), (101, 8, NULL, 1)");
    const Photos_DB &db = openFaces();
    EXPECT_EQ(db.faceGroupKeys(), QStringList{"8"});
    EXPECT_EQ(db.faceGroupKeyFace("7"), 0);
}

TEST_F(DetectedFaces, AnyValueButNullIsACrop)
{
    addFaces("(100, 7, NULL, 0), (101, 8, NULL, ''), (102, 9, NULL, NULL)");
    EXPECT_EQ(openFaces().faceGroupKeys(), (QStringList{"7", "8"}));
}

TEST_F(DetectedFaces, WithoutAnyCropNoFacesAreAskedFor)
{
    addFaces("(100, 7, 7, NULL)");
    const Photos_DB &db = openFaces();
    EXPECT_EQ(db.faceGroupKeys(), QStringList());
    EXPECT_EQ(facesQuery(), QByteArray());
}

TEST_F(DetectedFaces, ACropWithoutAGroupAsksForTheFacesOfGroupZero)
{
    addFaces("(100, NULL, NULL, 1), (101, 0, NULL, NULL), (102, 7, NULL, NULL)");
    const Photos_DB &db = openFaces();
    EXPECT_TRUE(facesQuery().endsWith(" in (0)")) << facesQuery().constData();
    EXPECT_EQ(db.faceGroupAssetIds("0"), QList<qint64>{101});
    // NULL reads as 0 too, which is the group's number.
    EXPECT_TRUE(probe().faceGroupKeyFaces().contains("0"));
    EXPECT_EQ(db.faceGroupKeys().size(), 1);
}

// Odd values.

TEST_F(DetectedFaces, NumbersAreReadWith64Bits)
{
    addFaces("(4294967296, 8589934592, 8589934592, 1), (-5, -9223372036854775807, NULL, 1)");
    const Photos_DB &db = openFaces();
    EXPECT_EQ(db.faceGroupAssetIds("8589934592"), QList<qint64>{4294967296LL});
    EXPECT_EQ(db.faceGroupKeyFace("8589934592"), 8589934592LL);
    EXPECT_EQ(db.faceGroupAssetIds("-9223372036854775807"), QList<qint64>{-5});
}

TEST_F(DetectedFaces, FractionsAndTextsAreConvertedAsSqliteDoes)
{
    addFaces("('12 and more', 7, '7', 1), (13.9, 7, NULL, 1), ('text', 7, NULL, 1), (14, 8.5, NULL, 1)");
    const Photos_DB &db = openFaces();
    EXPECT_EQ(db.faceGroupAssetIds("7"), (QList<qint64>{13, 12}));
    EXPECT_EQ(db.faceGroupKeyFace("7"), 7);
    // The group 8.5 is asked for as 8, which it does not equal.
    EXPECT_EQ(db.faceGroupKeys(), (QStringList{"7", "7"}));
}

// Failures.

TEST_F(DetectedFaces, WhenMissingNothingIsAskedFor)
{
    open();
    EXPECT_FALSE(statements.contains(croppedQuery));
}

TEST_F(DetectedFaces, TheNameOfTheTableIsComparedCaseSensitively)
{
    addFaces("(100, 7, 7, 1)", "zdetectedface");
    EXPECT_EQ(open().faceGroupKeys(), QStringList());
    EXPECT_FALSE(statements.contains(croppedQuery));
}

TEST_F(DetectedFaces, WhenEmptyIsSilent)
{
    addFaces("");
    EXPECT_EQ(openFaces().faceGroupKeys(), QStringList());
}

TEST_F(DetectedFaces, WithoutTheCropColumnIsSilent)
{
    sql.rows = "create table ZDETECTEDFACE (ZASSET, ZFACEGROUP, ZFACEGROUPBEINGKEYFACE);"
               "insert into ZDETECTEDFACE values (100, 7, 7);";
    EXPECT_EQ(openFaces().faceGroupKeys(), QStringList());
    EXPECT_EQ(facesQuery(), QByteArray());
}

TEST_F(DetectedFaces, WithoutTheAssetColumnIsReported)
{
    sql.rows = "create table ZDETECTEDFACE (ZASSETFORFACE, ZFACEGROUP, ZFACEGROUPBEINGKEYFACE, ZFACECROP);"
               "insert into ZDETECTEDFACE values (100, 7, 7, 1);";
    const Photos_DB &db = open({parsed, error("Can not parse camera photos: no such column: ZASSET"),
                                error("Can not parse camera photos: no such table: ZMEMORY")});
    EXPECT_EQ(db.faceGroupKeys(), QStringList());
}

TEST_F(DetectedFaces, AnErrorWhileGroupsAreReadKeepsTheGroupsSoFar)
{
    addFaces("(100, 7, NULL, 1), (101, 8, NULL, 1)");
    failAfterRow(croppedQuery, 1);
    EXPECT_EQ(openFaces().faceGroupKeys(), QStringList{"7"});
}

TEST_F(DetectedFaces, AnErrorWhileFacesAreReadKeepsTheFacesSoFar)
{
    addFaces("(100, 7, NULL, 1), (101, 7, NULL, 1), (102, 7, NULL, 1)");
    failAfterRow("ZFACEGROUPBEINGKEYFACE", 2);
    EXPECT_EQ(openFaces().faceGroupAssetIds("7"), (QList<qint64>{101, 100}));
}

TEST_F(DetectedFaces, AStopKeepsTheFacesSoFarAndTheLibraryIsLoaded)
{
    addFaces("(100, 7, NULL, 1), (101, 7, NULL, 1), (102, 7, NULL, 1)");
    stopAtRow("ZFACEGROUPBEINGKEYFACE", 3);
    EXPECT_EQ(open({parsed}).faceGroupAssetIds("7"), (QList<qint64>{101, 100}));
}

TEST_F(DetectedFaces, AStopWhileGroupsAreReadReadsNoFaces)
{
    addFaces("(100, 7, NULL, 1), (101, 8, NULL, 1)");
    stopAtRow(croppedQuery, 2);
    EXPECT_EQ(open({parsed}).faceGroupKeys(), QStringList());
}

TEST_F(DetectedFaces, WithoutAConnectionNothingHappens)
{
    addFaces("(100, 7, NULL, 1)");
    openFaces();
    probe().parseDetectedFaces(nullptr);
    EXPECT_EQ(probe().db.faceGroupKeys().size(), 1);
    EXPECT_EQ(log.lines(), QStringList());
}

class DetectedFacesOfEra : public LibraryTest, public ::testing::WithParamInterface<testkit::Era>
{
};

TEST_P(DetectedFacesOfEra, AreReadWhereTheFaceNamesItsAsset)
{
    testkit::BuilderOptions options;
    options.builtinAlbums = false;
    testkit::LibraryBuilder builder(GetParam(), options);
    testkit::FaceRow face;
    face.asset = builder.addAsset();
    face.faceGroup = face.keyFaceOfGroup = 7;
    face.crop = 1;
    builder.addFace(face);
    putOnDevice(builder);
    const bool hasAssetColumn = QByteArray(builder.facts().faceAssetColumn) == "ZASSET";
    QStringList lines{progress("Got asset table name: " + builder.facts().albumJoinTable()), parsed};
    if (!hasAssetColumn)
        lines << error("Can not parse camera photos: no such column: ZASSET");
    const Photos_DB &db = open(lines);
    EXPECT_EQ(db.faceGroupAssetIds("7").size(), hasAssetColumn ? 1 : 0);
    EXPECT_EQ(db.faceGroupKeyFace("7"), hasAssetColumn ? 7 : 0);
}

INSTANTIATE_TEST_SUITE_P(Releases, DetectedFacesOfEra, ::testing::ValuesIn(testkit::allEras()),
                         [](const auto &tested) { return std::string(testkit::factsOf(tested.param).name); });
