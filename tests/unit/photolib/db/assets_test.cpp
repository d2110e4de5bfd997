#include "tests/unit/photolib/db/made_database.h"

#include <limits>
#include <stdexcept>

using namespace dbtests;
using testkit::ColumnValues;
using testkit::SqlValue;

namespace
{

const qint64 beyond32Bits = 0x1234567890LL;
const qint32 lowBits = 0x34567890;

class AssetTable : public LibraryTest
{
protected:
    void addAsset(const ColumnValues &values) { sql.rows += insertAsset(values); }
    void addAttributes(const ColumnValues &values) { sql.rows += insertInto("ZADDITIONALASSETATTRIBUTES", values); }

    /// Opens the library with this one asset.
    const assetRecord &read(const ColumnValues &values)
    {
        addAsset(values);
        const QList<assetRecord *> records = open().assetRecords();
        if (records.size() != 1)
            throw std::runtime_error("the asset was not accepted");
        return *records.first();
    }
};

} // namespace

// Fields.

TEST_F(AssetTable, EveryColumnReachesItsField)
{
    addAttributes({{"Z_PK", 12}, {"ZORIGINALFILESIZE", beyond32Bits}, {"ZCAMERACAPTUREDEVICE", 30}});
    const assetRecord &asset = read({
        {"Z_PK", 12},
        {"Z_ENT", 3},
        {"ZFILENAME", QString::fromUtf8("Größe €.JPG")},
        {"ZDIRECTORY", QString::fromUtf8("DCIM/Übung")},
        {"ZUUID", "ASSET-UUID"},
        {"ZWIDTH", 105},
        {"ZHEIGHT", 106},
        {"ZKIND", 107},
        {"ZKINDSUBTYPE", 108},
        {"ZMOMENT", 109},
        {"ZUNIFORMTYPEIDENTIFIER", "public.jpeg"},
        {"ZAVALANCHEUUID", "BURST"},
        {"ZAVALANCHEPICKTYPE", 112},
        {"ZVISIBILITYSTATE", 113},
        {"ZFACEAREAPOINTS", beyond32Bits + 1},
        {"ZFAVORITE", 115},
        {"ZTHUMBNAILINDEX", -116},
        {"ZORIENTATION", 117},
        {"ZTRASHEDSTATE", 118},
        {"ZTRASHEDDATE", beyond32Bits + 2},
        {"ZDATECREATED", beyond32Bits + 3},
        {"ZADDEDDATE", beyond32Bits + 4},
        {"ZMODIFICATIONDATE", beyond32Bits + 5},
        {"ZSORTTOKEN", 123.25},
        {"ZDURATION", 124.5},
        {"ZLATITUDE", -25.125},
        {"ZLONGITUDE", 126.75},
        {"ZLOCALRESOURCESSTATE", beyond32Bits + 6},
        {"ZCUSTOMRENDEREDVALUE", beyond32Bits + 7},
        {"ZHASADJUSTMENTS", 131},
        {"ZHIDDEN", 132},
        {"ZCLOUDLOCALSTATE", 133},
        {"ZIMPORTSESSION", 134},
        {"ZDUPLICATEASSETVISIBILITYSTATE", 135},
        {"ZPACKEDBADGEATTRIBUTES", 136},
        {"ZDEPTHTYPE", 137},
        {"ZDUPLICATEMETADATAMATCHINGALBUM", 138},
        {"ZDUPLICATEPERCEPTUALMATCHINGALBUM", 139},
    });
    EXPECT_EQ(asset.owner, &probe().db);
    EXPECT_EQ(asset.pk, 12);
    EXPECT_EQ(asset.entity, 3);
    EXPECT_EQ(asset.fileName, QString::fromUtf8("Größe €.JPG"));
    EXPECT_EQ(asset.directory, QString::fromUtf8("DCIM/Übung"));
    EXPECT_EQ(asset.uuid, "ASSET-UUID");
    EXPECT_EQ(asset.width, 105);
    EXPECT_EQ(asset.height, 106);
    EXPECT_EQ(asset.kind, 107);
    EXPECT_EQ(asset.kindSubtype, 108);
    EXPECT_EQ(asset.moment, 109);
    EXPECT_EQ(asset.uniformTypeIdentifier, "public.jpeg");
    EXPECT_EQ(asset.avalancheUuid, "BURST");
    EXPECT_EQ(asset.avalanchePickType, 112);
    EXPECT_EQ(asset.visibilityState, 113);
    EXPECT_EQ(asset.faceAreaPoints, beyond32Bits + 1);
    EXPECT_EQ(asset.favorite, 115);
    EXPECT_EQ(asset.thumbnailIndex, -116);
    EXPECT_EQ(asset.orientation, 117);
    EXPECT_EQ(asset.trashedState, 118);
    EXPECT_EQ(asset.trashedDate, beyond32Bits + 2);
    EXPECT_EQ(asset.dateCreated, beyond32Bits + 3);
    EXPECT_EQ(asset.addedDate, beyond32Bits + 4);
    EXPECT_EQ(asset.modificationDate, beyond32Bits + 5);
    EXPECT_EQ(asset.sortToken, 123.25);
    EXPECT_EQ(asset.duration, 124.5);
    EXPECT_EQ(asset.latitude, -25.125);
    EXPECT_EQ(asset.longitude, 126.75);
    EXPECT_EQ(asset.originalFileSize, beyond32Bits);
    EXPECT_EQ(asset.localResourcesState, beyond32Bits + 6);
    EXPECT_EQ(asset.customRenderedValue, beyond32Bits + 7);
    EXPECT_EQ(asset.cameraCaptureDevice, 30);
    EXPECT_EQ(asset.hasAdjustments, 131);
    EXPECT_EQ(asset.hidden, 132);
    EXPECT_EQ(asset.cloudLocalState, 133);
    EXPECT_EQ(asset.importSession, 134);
    EXPECT_EQ(asset.duplicateAssetVisibilityState, 135);
    EXPECT_EQ(asset.packedBadgeAttributes, 136);
    EXPECT_EQ(asset.depthType, 137);
    EXPECT_EQ(asset.duplicateMetadataMatchingAlbum, 138);
    EXPECT_EQ(asset.duplicatePerceptualMatchingAlbum, 139);
}

TEST_F(AssetTable, NullNumbersReadZeroAndNullTextsReadEmpty)
{
    const assetRecord &asset = read({});
    EXPECT_EQ(asset.width, 0);
    EXPECT_EQ(asset.faceAreaPoints, 0);
    EXPECT_EQ(asset.thumbnailIndex, 0);
    EXPECT_EQ(asset.dateCreated, 0);
    EXPECT_EQ(asset.sortToken, 0.0);
    EXPECT_EQ(asset.latitude, 0.0);
    EXPECT_EQ(asset.depthType, 0);
    EXPECT_EQ(asset.uniformTypeIdentifier, "");
    EXPECT_FALSE(asset.uniformTypeIdentifier.isNull());
    EXPECT_EQ(asset.avalancheUuid, "");
    EXPECT_FALSE(asset.avalancheUuid.isNull());
}

TEST_F(AssetTable, AbsentOptionalColumnsReadZeroAndTheTextZero)
{
    sql.assets = LibrarySql::plainAssetTable("ZASSET");
    sql.attributes = "create table ZADDITIONALASSETATTRIBUTES (Z_PK, ZORIGINALFILESIZE);";
    const assetRecord &asset = read({});
    EXPECT_EQ(asset.uniformTypeIdentifier, "0");
    EXPECT_EQ(asset.avalancheUuid, "0");
    EXPECT_EQ(asset.kindSubtype, 0);
    EXPECT_EQ(asset.moment, 0);
    EXPECT_EQ(asset.avalanchePickType, 0);
    EXPECT_EQ(asset.visibilityState, 0);
    EXPECT_EQ(asset.faceAreaPoints, 0);
    EXPECT_EQ(asset.favorite, 0);
    EXPECT_EQ(asset.trashedState, 0);
    EXPECT_EQ(asset.trashedDate, 0);
    EXPECT_EQ(asset.addedDate, 0);
    EXPECT_EQ(asset.sortToken, 0.0);
    EXPECT_EQ(asset.duration, 0.0);
    EXPECT_EQ(asset.latitude, 0.0);
    EXPECT_EQ(asset.longitude, 0.0);
    EXPECT_EQ(asset.localResourcesState, 0);
    EXPECT_EQ(asset.customRenderedValue, 0);
    EXPECT_EQ(asset.cameraCaptureDevice, 0);
    EXPECT_EQ(asset.hasAdjustments, 0);
    EXPECT_EQ(asset.hidden, 0);
    EXPECT_EQ(asset.cloudLocalState, 0);
    EXPECT_EQ(asset.importSession, 0);
    EXPECT_EQ(asset.duplicateAssetVisibilityState, 0);
    EXPECT_EQ(asset.packedBadgeAttributes, 0);
    EXPECT_EQ(asset.depthType, 0);
    EXPECT_EQ(asset.duplicateMetadataMatchingAlbum, 0);
    EXPECT_EQ(asset.duplicatePerceptualMatchingAlbum, 0);
}

TEST_F(AssetTable, AnOptionalNameInsideALongerOneCountsAndThenFails)
{
    sql.assets = LibrarySql::plainAssetTable("ZASSET", {"ZHIDDENREASON"});
    addAsset({});
    const Photos_DB &db = open({error("photo sql error #1: no such column: A.ZHIDDEN")});
    EXPECT_EQ(db.assetIdList(), QList<qint64>());
}

TEST_F(AssetTable, DatesLoseTheirFractionTowardsZero)
{
    const assetRecord &asset =
        read({{"ZDATECREATED", 10.75}, {"ZADDEDDATE", -10.75}, {"ZMODIFICATIONDATE", 0.99}, {"ZTRASHEDDATE", -0.99}});
    EXPECT_EQ(asset.dateCreated, 10);
    EXPECT_EQ(asset.addedDate, -10);
    EXPECT_EQ(asset.modificationDate, 0);
    EXPECT_EQ(asset.trashedDate, 0);
}

TEST_F(AssetTable, DatesBeyond64BitsReadAsTheNearestNumber)
{
    const assetRecord &asset = read({{"ZDATECREATED", 1e300}, {"ZADDEDDATE", -1e300}});
    EXPECT_EQ(asset.dateCreated, std::numeric_limits<qint64>::max());
    EXPECT_EQ(asset.addedDate, std::numeric_limits<qint64>::min());
}

TEST_F(AssetTable, NumbersOf32BitsKeepTheirLowBits)
{
    addAttributes({{"Z_PK", 1}, {"ZCAMERACAPTUREDEVICE", beyond32Bits}});
    const assetRecord &asset = read({{"ZWIDTH", beyond32Bits},
                                     {"ZHEIGHT", 2147483648LL},
                                     {"ZFAVORITE", 4294967295LL},
                                     {"ZIMPORTSESSION", 4294967296LL}});
    EXPECT_EQ(asset.width, lowBits);
    EXPECT_EQ(asset.height, std::numeric_limits<qint32>::min());
    EXPECT_EQ(asset.favorite, -1);
    EXPECT_EQ(asset.importSession, 0);
    EXPECT_EQ(asset.cameraCaptureDevice, lowBits);
}

TEST_F(AssetTable, TheLastFiveNumbersAreNarrowedFrom64Bits)
{
    const assetRecord &asset = read({{"ZDUPLICATEASSETVISIBILITYSTATE", beyond32Bits},
                                     {"ZPACKEDBADGEATTRIBUTES", 4294967295LL},
                                     {"ZDEPTHTYPE", 2147483648LL},
                                     {"ZDUPLICATEMETADATAMATCHINGALBUM", -4294967295LL},
                                     {"ZDUPLICATEPERCEPTUALMATCHINGALBUM", std::numeric_limits<qint64>::min()}});
    EXPECT_EQ(asset.duplicateAssetVisibilityState, lowBits);
    EXPECT_EQ(asset.packedBadgeAttributes, -1);
    EXPECT_EQ(asset.depthType, std::numeric_limits<qint32>::min());
    EXPECT_EQ(asset.duplicateMetadataMatchingAlbum, 1);
    EXPECT_EQ(asset.duplicatePerceptualMatchingAlbum, 0);
}

TEST_F(AssetTable, NumbersOfOtherClassesAreConvertedAsSqliteDoes)
{
    const assetRecord &asset = read({{"ZWIDTH", "640 pixels"},
                                     {"ZHEIGHT", 480.9},
                                     {"ZKIND", "video"},
                                     {"ZORIENTATION", QByteArray("6")},
                                     {"ZDATECREATED", "12.9"},
                                     {"ZDURATION", "2.5 s"},
                                     {"ZLATITUDE", 48},
                                     {"ZTHUMBNAILINDEX", -0.9}});
    EXPECT_EQ(asset.width, 640);
    EXPECT_EQ(asset.height, 480);
    EXPECT_EQ(asset.kind, 0);
    EXPECT_EQ(asset.orientation, 6);
    EXPECT_EQ(asset.dateCreated, 12);
    EXPECT_EQ(asset.duration, 2.5);
    EXPECT_EQ(asset.latitude, 48.0);
    EXPECT_EQ(asset.thumbnailIndex, 0);
}

TEST_F(AssetTable, TextsOfOtherClassesBecomeText)
{
    const assetRecord &asset =
        read({{"ZFILENAME", 12}, {"ZDIRECTORY", 2.5}, {"ZUNIFORMTYPEIDENTIFIER", QByteArray("blob")}, {"ZUUID", 42}});
    EXPECT_EQ(asset.fileName, "12");
    EXPECT_EQ(asset.directory, "2.5");
    EXPECT_EQ(asset.uniformTypeIdentifier, "blob");
    EXPECT_EQ(asset.uuid, "42");
}

TEST_F(AssetTable, TextsEndAtAZeroCharacterAndUuidsDoNot)
{
    addAsset({{"ZUUID", QByteArray("a\0\xFFz", 4)}});
    sql.rows += "update ZASSET set ZFILENAME = cast(x'612E6A706700FF' as text), ZDIRECTORY = cast(x'64FF' as text);";
    const Photos_DB &db = open();
    ASSERT_NE(db.findAsset(1), nullptr);
    EXPECT_EQ(db.findAsset(1)->fileName, "a.jpg");
    EXPECT_EQ(db.findAsset(1)->directory, QString("d") + QChar(QChar::ReplacementCharacter));
    EXPECT_EQ(db.findAsset(1)->uuid, QByteArray("a\0\xFFz", 4));
}

TEST_F(AssetTable, BlanksAroundNamesAreKept)
{
    const assetRecord &asset = read({{"ZFILENAME", " a.jpg\t"}, {"ZDIRECTORY", "\n DCIM "}});
    EXPECT_EQ(asset.fileName, " a.jpg\t");
    EXPECT_EQ(asset.directory, "\n DCIM ");
}

// Keys and order.

TEST_F(AssetTable, ComesInAscendingOrderOfKeysWhateverTheDates)
{
    addAsset({{"Z_PK", 30}, {"ZMODIFICATIONDATE", 1}});
    addAsset({{"Z_PK", 4}, {"ZMODIFICATIONDATE", 3}});
    addAsset({{"Z_PK", 12}, {"ZMODIFICATIONDATE", 2}});
    addAsset({{"Z_PK", -1}, {"ZMODIFICATIONDATE", 0}});
    EXPECT_EQ(open().assetIdList(), (QList<qint64>{4, 12, 30, -1}));
}

TEST_F(AssetTable, AKeyKeepsItsLow32BitsSignExtended)
{
    addAsset({{"Z_PK", 4294967301LL}});
    addAsset({{"Z_PK", 2147483648LL}});
    const Photos_DB &db = open();
    ASSERT_EQ(db.assetIdList(), (QList<qint64>{5, -2147483648LL}));
    EXPECT_EQ(db.findAsset(5)->pk, 5);
}

TEST_F(AssetTable, OfKeysThatMeetAfterTruncationTheLaterModifiedCounts)
{
    addAsset({{"Z_PK", 5}, {"ZFILENAME", "late.jpg"}, {"ZMODIFICATIONDATE", 9}});
    addAsset({{"Z_PK", 4294967301LL}, {"ZFILENAME", "early.jpg"}, {"ZMODIFICATIONDATE", 1}});
    const Photos_DB &db = open();
    ASSERT_EQ(db.assetIdList(), QList<qint64>{5});
    EXPECT_EQ(db.findAsset(5)->fileName, "late.jpg");
}

TEST_F(AssetTable, AttributesAreJoinedByTheirOwnKey)
{
    addAttributes({{"Z_PK", 1}, {"ZORIGINALFILESIZE", 100}, {"ZASSET", 2}});
    addAttributes({{"Z_PK", 2}, {"ZORIGINALFILESIZE", 200}, {"ZASSET", 1}});
    addAsset({{"Z_PK", 1}});
    addAsset({{"Z_PK", 2}});
    addAsset({{"Z_PK", 3}});
    const Photos_DB &db = open();
    EXPECT_EQ(db.findAsset(1)->originalFileSize, 100);
    EXPECT_EQ(db.findAsset(2)->originalFileSize, 200);
    EXPECT_EQ(db.findAsset(3)->originalFileSize, 0);
    EXPECT_EQ(db.findAsset(3)->cameraCaptureDevice, 0);
}

// The highest key in use.

TEST_F(AssetTable, RaisesTheHighestKeyToTheHighestOfItsOwn)
{
    sql.setEntities("(3, 'Asset', 0, 9), (25, 'GenericAlbum', 0, 0)");
    for (const int key : {5, 12, 7, -3})
        addAsset({{"Z_PK", key}});
    Photos_DB &db = open();
    EXPECT_EQ(probe().maxPk("Asset"), 12);
    EXPECT_EQ(probe().maxPk("GenericAlbum"), 0);
    EXPECT_EQ(db.nextAssetPk(), 13);
}

TEST_F(AssetTable, LeavesAHigherHighestKeyAlone)
{
    sql.setEntities("(3, 'Asset', 0, 40), (25, 'GenericAlbum', 0, 0)");
    addAsset({{"Z_PK", 12}});
    EXPECT_EQ(open().nextAssetPk(), 41);
}

TEST_F(AssetTable, ANegativeHighestKeyIsRaised)
{
    sql.setEntities("(3, 'Asset', 0, -5), (25, 'GenericAlbum', 0, 0)");
    addAsset({{"Z_PK", -3}});
    open();
    EXPECT_EQ(probe().maxPk("Asset"), -3);
}

TEST_F(AssetTable, AnAssetWithoutUuidRaisesTheHighestKey)
{
    addAsset({{"Z_PK", 20}, {"ZUUID", nullptr}});
    Photos_DB &db = open();
    EXPECT_EQ(db.assetIdList(), QList<qint64>());
    EXPECT_EQ(db.nextAssetPk(), 21);
}

TEST_F(AssetTable, AnAssetWithABlankNameRaisesTheHighestKey)
{
    addAsset({{"Z_PK", 21}, {"ZFILENAME", "  "}});
    Photos_DB &db = open();
    EXPECT_EQ(db.assetIdList(), QList<qint64>());
    EXPECT_EQ(db.nextAssetPk(), 22);
}

TEST_F(AssetTable, AWallpaperRaisesTheHighestKey)
{
    sql.setEntities("(3, 'Asset', 0, 0), (4, 'WallpaperAsset', 3, 0), (25, 'GenericAlbum', 0, 0)");
    addAsset({{"Z_PK", 22}, {"Z_ENT", 4}});
    Photos_DB &db = open();
    EXPECT_EQ(db.assetIdList(), QList<qint64>());
    EXPECT_EQ(db.nextAssetPk(), 23);
}

// Rejected rows.

TEST_F(AssetTable, RejectsWallpapers)
{
    sql.setEntities("(3, 'Asset', 0, 0), (4, 'WallpaperAsset', 3, 0), (25, 'GenericAlbum', 0, 0)");
    addAsset({{"Z_PK", 1}, {"Z_ENT", 3}});
    addAsset({{"Z_PK", 2}, {"Z_ENT", 4}});
    EXPECT_EQ(open().assetIdList(), QList<qint64>{1});
}

TEST_F(AssetTable, WithoutAWallpaperEntityNothingIsAWallpaper)
{
    addAsset({{"Z_PK", 1}, {"Z_ENT", 0}});
    addAsset({{"Z_PK", 2}, {"Z_ENT", nullptr}});
    addAsset({{"Z_PK", 3}, {"Z_ENT", 4}});
    EXPECT_EQ(open().assetIdList(), (QList<qint64>{1, 2, 3}));
    EXPECT_TRUE(probe().entities().contains("WallpaperAsset"));
}

TEST_F(AssetTable, WithoutRowsNoWallpaperEntityIsAdded)
{
    open();
    EXPECT_FALSE(probe().entities().contains("WallpaperAsset"));
}

TEST_F(AssetTable, RejectsRowsWithoutBytesInTheirUuid)
{
    addAsset({{"Z_PK", 1}, {"ZUUID", nullptr}});
    addAsset({{"Z_PK", 2}, {"ZUUID", ""}});
    addAsset({{"Z_PK", 3}, {"ZUUID", QByteArray("")}});
    addAsset({{"Z_PK", 4}, {"ZUUID", " "}});
    addAsset({{"Z_PK", 5}, {"ZUUID", QByteArray("\0", 1)}});
    EXPECT_EQ(open().assetIdList(), (QList<qint64>{4, 5}));
}

TEST_F(AssetTable, RejectsRowsWithABlankFileNameOrDirectory)
{
    int key = 0;
    for (const SqlValue &blank : {SqlValue(), SqlValue(""), SqlValue("  "), SqlValue("\t\n\r"), SqlValue("\u2003")}) {
        addAsset({{"Z_PK", ++key}, {"ZFILENAME", blank}});
        addAsset({{"Z_PK", ++key}, {"ZDIRECTORY", blank}});
    }
    addAsset({{"Z_PK", ++key}, {"ZFILENAME", "."}, {"ZDIRECTORY", "."}});
    EXPECT_EQ(open().assetIdList(), QList<qint64>{key});
}

TEST_F(AssetTable, KeepsTrashedHiddenAndInvisibleAssets)
{
    addAsset({{"Z_PK", 1}, {"ZTRASHEDSTATE", 1}, {"ZHIDDEN", 1}, {"ZVISIBILITYSTATE", 2}, {"ZKIND", 7}});
    EXPECT_EQ(open().assetIdList(), QList<qint64>{1});
}

// Failures.

TEST_F(AssetTable, WhenMissingFailsWithAMessage)
{
    sql.assets.clear();
    open({error("photo sql error #1: no such table: ZASSET")});
}

TEST_F(AssetTable, WithoutAttributesFailsWithAMessage)
{
    sql.attributes.clear();
    addAsset({});
    const Photos_DB &db = open({error("photo sql error #1: no such table: ZADDITIONALASSETATTRIBUTES")});
    EXPECT_EQ(db.assetIdList(), QList<qint64>());
}

TEST_F(AssetTable, AnErrorWhileReadingEndsLikeTheLastRow)
{
    for (const int key : {1, 2, 3})
        addAsset({{"Z_PK", key}, {"ZMODIFICATIONDATE", key}});
    failAfterRow("from ZASSET", 2);
    EXPECT_EQ(open().assetIdList(), (QList<qint64>{1, 2}));
}

TEST_F(AssetTable, AStopKeepsTheAssetsReadSoFarAndStillCountsAsRead)
{
    for (const int key : {1, 2, 3})
        addAsset({{"Z_PK", key}, {"ZMODIFICATIONDATE", -key}});
    stopAtRow("from ZASSET", 3);
    EXPECT_EQ(openAnyhow().assetIdList(), (QList<qint64>{2, 3}));
    EXPECT_EQ(log.consumeMatching(parsed).size(), 1);
    log.takeAll();
}

TEST_F(AssetTable, WithoutAConnectionIsNotRead)
{
    addAsset({});
    open();
    EXPECT_FALSE(probe().parseAssets(nullptr));
    EXPECT_EQ(log.lines(), QStringList());
}
