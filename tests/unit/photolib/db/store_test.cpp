#include "tests/unit/photolib/db/made_database.h"

using namespace dbtests;

namespace
{

/// A library with the albums 2 (kind 2), 5 and 30 (kind 1550), and the assets 1, 4 and 12.
class RecordStore : public LibraryTest
{
protected:
    RecordStore()
    {
        sql.setEntities("(3, 'Asset', 0, 100), (25, 'GenericAlbum', 0, 120), (26, 'Album', 25, 0)");
        sql.rows = "insert into ZGENERICALBUM (Z_PK, ZKIND, ZTITLE) values (30, 1550, 'thirty'), (2, 2, 'two'),"
                   "(5, 1550, 'five');"
                   "create table Z_26ASSETS (Z_26ALBUMS, Z_3ASSETS); insert into Z_26ASSETS values (5, 4), (5, 12);";
        for (const int key : {12, 1, 4})
            sql.rows += insertAsset({{"Z_PK", key}});
    }

    Photos_DB &openStore() { return open({progress("Got asset table name: Z_26ASSETS"), parsed}); }

    static albumRecord *newAlbum(quint64 key, int kind)
    {
        auto *album = new albumRecord;
        album->pk = key;
        album->kind = kind;
        return album;
    }
    static assetRecord *newAsset(qint64 key)
    {
        auto *asset = new assetRecord;
        asset->pk = key;
        return asset;
    }
};

const char faceRows[] = "create table ZDETECTEDFACE (ZASSET, ZFACEGROUP, ZFACEGROUPBEINGKEYFACE, ZFACECROP);"
                        "insert into ZDETECTEDFACE values (100, 9, 9, 1), (101, 10, NULL, 1), (102, 9, NULL, 1);"
                        "create table ZMEMORY (Z_PK, ZFAVORITE, ZKEYASSET, ZSUBTITLE, ZTITLE);"
                        "insert into ZMEMORY values (9, 1, 100, 'Spring', 'Garden'), (10, 0, 101, 'Autumn', 'Field');"
                        "create table Z_3MEMORIESBEINGEXTENDEDCURATEDASSETS (Z_3EXTENDEDCURATEDASSETS, "
                        "Z_40MEMORIESBEINGEXTENDEDCURATEDASSETS);"
                        "insert into Z_3MEMORIESBEINGEXTENDEDCURATEDASSETS values (5, 9), (7, 9);";

class FacesAndMemories : public LibraryTest
{
protected:
    FacesAndMemories() { sql.rows = faceRows; }
};

} // namespace

// Look-ups and lists.

TEST_F(RecordStore, FindsRecordsByKey)
{
    const Photos_DB &db = openStore();
    ASSERT_NE(db.findAlbum(5), nullptr);
    EXPECT_EQ(db.findAlbum(5)->title, "five");
    ASSERT_NE(db.findAsset(4), nullptr);
    EXPECT_EQ(db.findAsset(4)->pk, 4);
}

TEST_F(RecordStore, AMissingKeyIsNullAndAddsNothing)
{
    const Photos_DB &db = openStore();
    EXPECT_EQ(db.findAlbum(99), nullptr);
    EXPECT_EQ(db.findAsset(99), nullptr);
    EXPECT_EQ(db.albumIdList().size(), 3);
    EXPECT_EQ(db.assetIdList().size(), 3);
}

TEST_F(RecordStore, ListsComeInAscendingOrderOfKeys)
{
    const Photos_DB &db = openStore();
    EXPECT_EQ(db.albumIdList(), (QList<qint64>{2, 5, 30}));
    EXPECT_EQ(db.assetIdList(), (QList<qint64>{1, 4, 12}));
    EXPECT_EQ(db.albumRecords(), (QList<albumRecord *>{db.findAlbum(2), db.findAlbum(5), db.findAlbum(30)}));
    EXPECT_EQ(db.assetRecords(), (QList<assetRecord *>{db.findAsset(1), db.findAsset(4), db.findAsset(12)}));
}

TEST_F(RecordStore, NegativeKeysComeLast)
{
    Photos_DB &db = openStore();
    db.addAlbum(newAlbum(static_cast<quint64>(-1), 2));
    db.addAsset(newAsset(-1));
    EXPECT_EQ(db.albumIdList(), (QList<qint64>{2, 5, 30, -1}));
    EXPECT_EQ(db.assetIdList(), (QList<qint64>{1, 4, 12, -1}));
    EXPECT_EQ(db.findAsset(static_cast<quint64>(-1))->pk, -1);
}

TEST_F(RecordStore, AnUnreadLibraryIsEmpty)
{
    Photos_DB db(nullptr);
    log.takeAll();
    EXPECT_EQ(db.albumIdList(), QList<qint64>());
    EXPECT_EQ(db.assetIdList(), QList<qint64>());
    EXPECT_EQ(db.albumRecords().size(), 0);
    EXPECT_EQ(db.assetRecords().size(), 0);
    EXPECT_EQ(db.faceGroupKeys(), QStringList());
    EXPECT_EQ(db.memoryKeys(), QStringList());
    EXPECT_EQ(db.findAlbum(0), nullptr);
    EXPECT_EQ(db.findAsset(0), nullptr);
}

// Entity numbers and new keys.

TEST_F(RecordStore, EntityNumbersAreThoseOfTheDatabase)
{
    const Photos_DB &db = openStore();
    EXPECT_EQ(db.albumEntityNumber(), 25);
    EXPECT_EQ(db.assetEntityNumber(), 3);
}

TEST_F(RecordStore, WithoutEntitiesNumbersAreTheDefaultsAndNoKeysAreHandedOut)
{
    Photos_DB db(nullptr);
    log.takeAll();
    EXPECT_EQ(db.albumEntityNumber(), 19);
    EXPECT_EQ(db.assetEntityNumber(), 27);
    EXPECT_EQ(db.nextAlbumPk(), 0);
    EXPECT_EQ(db.nextAssetPk(), 0);
    EXPECT_TRUE(PhotosDbProbe{db}.entities().isEmpty());
}

TEST_F(RecordStore, NewKeysFollowTheHighestOfTheDatabase)
{
    Photos_DB &db = openStore();
    EXPECT_EQ(db.nextAlbumPk(), 121);
    EXPECT_EQ(db.nextAlbumPk(), 122);
    EXPECT_EQ(db.nextAssetPk(), 101);
    EXPECT_EQ(db.nextAssetPk(), 102);
    EXPECT_EQ(db.nextAlbumPk(), 123);
}

TEST_F(RecordStore, NewKeysFollowTheHighestKeyReadWhenThatIsHigher)
{
    sql.rows += "insert into ZGENERICALBUM (Z_PK) values (130);" + insertAsset({{"Z_PK", 300}});
    Photos_DB &db = openStore();
    EXPECT_EQ(db.nextAlbumPk(), 131);
    EXPECT_EQ(db.nextAlbumPk(), 132);
    EXPECT_EQ(db.nextAssetPk(), 301);
    EXPECT_EQ(db.nextAssetPk(), 302);
}

TEST_F(RecordStore, NewKeysDoNotDependOnAddingAndRemoving)
{
    Photos_DB &db = openStore();
    db.addAlbum(newAlbum(500, 1550));
    db.addAsset(newAsset(500));
    EXPECT_EQ(db.nextAlbumPk(), 121);
    EXPECT_EQ(db.nextAssetPk(), 101);
    db.addAsset(newAsset(101));
    db.removeAsset(101);
    EXPECT_EQ(db.nextAssetPk(), 102);
}

TEST_F(RecordStore, AfterTheHighestKeyOfAllComesTheLowest)
{
    sql.setEntities("(3, 'Asset', 0, 2147483647), (25, 'GenericAlbum', 0, 2147483647), (26, 'Album', 25, 0)");
    Photos_DB &db = openStore();
    EXPECT_EQ(db.nextAlbumPk(), -2147483647 - 1);
    EXPECT_EQ(db.nextAssetPk(), -2147483648LL);
}

TEST_F(RecordStore, NumbersAndKeysOfAssetsAreThoseOfTheEntityInUse)
{
    sql.setEntities("(35, 'Asset', 34, 700), (34, 'GenericAsset', 0, 900), (25, 'GenericAlbum', 0, 0)");
    sql.assets = LibrarySql::assetTable("ZGENERICASSET");
    sql.rows = insertAsset({}, "ZGENERICASSET");
    Photos_DB &db = open();
    EXPECT_EQ(db.assetEntityNumber(), 34);
    EXPECT_EQ(db.nextAssetPk(), 901);
    EXPECT_EQ(probe().maxPk("Asset"), 700);
}

// Additions.

TEST_F(RecordStore, AddedRecordsAreFoundUnderTheirKey)
{
    Photos_DB &db = openStore();
    albumRecord *album = newAlbum(7, 2);
    assetRecord *asset = newAsset(8);
    db.addAlbum(album);
    db.addAsset(asset);
    EXPECT_EQ(db.findAlbum(7), album);
    EXPECT_EQ(db.findAsset(8), asset);
    EXPECT_EQ(db.albumIdList(), (QList<qint64>{2, 5, 7, 30}));
    EXPECT_EQ(db.assetIdList(), (QList<qint64>{1, 4, 8, 12}));
}

TEST_F(RecordStore, AnAddedRecordReplacesTheOneUnderItsKey)
{
    Photos_DB &db = openStore();
    const albumRecord *oldAlbum = db.findAlbum(5);
    const assetRecord *oldAsset = db.findAsset(4);
    albumRecord *album = newAlbum(5, 2);
    assetRecord *asset = newAsset(4);
    db.addAlbum(album);
    db.addAsset(asset);
    EXPECT_EQ(db.findAlbum(5), album);
    EXPECT_EQ(db.findAsset(4), asset);
    EXPECT_EQ(db.albumRecords().size(), 3);
    EXPECT_EQ(db.assetRecords().size(), 3);
    // Callers may still hold the replaced ones.
    EXPECT_EQ(oldAlbum->title, "five");
    EXPECT_EQ(oldAsset->pk, 4);
}

TEST_F(RecordStore, AddingARecordAgainKeepsIt)
{
    Photos_DB &db = openStore();
    albumRecord *album = db.findAlbum(5);
    assetRecord *asset = db.findAsset(4);
    db.addAlbum(album);
    db.addAsset(asset);
    EXPECT_EQ(db.findAlbum(5), album);
    EXPECT_EQ(db.findAsset(4), asset);
}

TEST_F(RecordStore, ARemovedAlbumMayBeAddedAgain)
{
    Photos_DB &db = openStore();
    albumRecord *album = db.findAlbum(5);
    EXPECT_TRUE(db.removeAlbum(5));
    db.addAlbum(album);
    EXPECT_EQ(db.findAlbum(5), album);
    close(); // frees it once
}

TEST_F(RecordStore, AnAlbumThatWasAddedAgainMayBeRemovedAgain)
{
    Photos_DB &db = openStore();
    albumRecord *album = db.findAlbum(5);
    EXPECT_TRUE(db.removeAlbum(5));
    db.addAlbum(album);
    EXPECT_TRUE(db.removeAlbum(5));
    EXPECT_EQ(db.findAlbum(5), nullptr);
    EXPECT_EQ(album->title, "five");
}

// Removals.

TEST_F(RecordStore, OnlyUserAlbumsCanBeRemoved)
{
    Photos_DB &db = openStore();
    EXPECT_FALSE(db.removeAlbum(2));
    EXPECT_EQ(db.albumIdList(), (QList<qint64>{2, 5, 30}));
    EXPECT_TRUE(db.removeAlbum(5));
    EXPECT_EQ(db.findAlbum(5), nullptr);
    EXPECT_EQ(db.albumIdList(), (QList<qint64>{2, 30}));
}

TEST_F(RecordStore, AlbumsOfNeighbouringKindsCannotBeRemoved)
{
    Photos_DB &db = openStore();
    for (const int kind : {0, 1549, 1551, -1550}) {
        db.addAlbum(newAlbum(60, kind));
        EXPECT_FALSE(db.removeAlbum(60)) << kind;
        EXPECT_NE(db.findAlbum(60), nullptr);
    }
}

TEST_F(RecordStore, ARemovedAlbumIsUnlinkedButNotFreed)
{
    Photos_DB &db = openStore();
    const albumRecord *album = db.findAlbum(5);
    EXPECT_TRUE(db.removeAlbum(5));
    EXPECT_EQ(album->title, "five");
    EXPECT_EQ(album->memberIds, (QList<qint64>{4, 12}));
}

TEST_F(RecordStore, RemovingAnUnknownAlbumFailsAndAddsNothing)
{
    Photos_DB &db = openStore();
    EXPECT_FALSE(db.removeAlbum(99));
    EXPECT_TRUE(db.removeAlbum(5));
    EXPECT_FALSE(db.removeAlbum(5));
    EXPECT_EQ(db.albumIdList(), (QList<qint64>{2, 30}));
}

TEST_F(RecordStore, ARemovedAssetIsGone)
{
    Photos_DB &db = openStore();
    EXPECT_TRUE(db.removeAsset(4));
    EXPECT_EQ(db.findAsset(4), nullptr);
    EXPECT_EQ(db.assetIdList(), (QList<qint64>{1, 12}));
}

TEST_F(RecordStore, ARemovedAssetStaysInItsAlbums)
{
    Photos_DB &db = openStore();
    EXPECT_TRUE(db.removeAsset(4));
    EXPECT_EQ(db.findAlbum(5)->memberIds, (QList<qint64>{4, 12}));
}

TEST_F(RecordStore, RemovingAnUnknownAssetSucceedsAndChangesNothing)
{
    Photos_DB &db = openStore();
    EXPECT_TRUE(db.removeAsset(99));
    EXPECT_EQ(db.assetIdList(), (QList<qint64>{1, 4, 12}));
}

TEST_F(RecordStore, RemovingAPlaceWithoutARecordEmptiesIt)
{
    Photos_DB &db = openStore();
    probe().assets().insert(50, nullptr);
    EXPECT_TRUE(db.removeAsset(50));
    EXPECT_EQ(db.assetIdList(), (QList<qint64>{1, 4, 12}));
}

TEST_F(RecordStore, EditsNeverTouchTheDatabase)
{
    Photos_DB &db = openStore();
    const QByteArray copy = device.localFile("Photos.sqlite");
    device.clearOperations();
    db.addAlbum(newAlbum(static_cast<quint64>(db.nextAlbumPk()), 1550));
    db.addAsset(newAsset(db.nextAssetPk()));
    db.removeAlbum(5);
    db.removeAsset(4);
    EXPECT_EQ(device.operationCount(testkit::allOperations), 0);
    EXPECT_EQ(device.localFile("Photos.sqlite"), copy);
    EXPECT_EQ(log.lines(), QStringList());
}

// Faces and memories.

TEST_F(FacesAndMemories, FaceGroupKeysAreListedOnceForEachFaceInTextOrder)
{
    EXPECT_EQ(open().faceGroupKeys(), (QStringList{"10", "9", "9"}));
}

TEST_F(FacesAndMemories, AssetsOfAFaceGroupComeNewestFirst)
{
    const Photos_DB &db = open();
    EXPECT_EQ(db.faceGroupAssetIds("9"), (QList<qint64>{102, 100}));
    EXPECT_EQ(db.faceGroupAssetIds("10"), QList<qint64>{101});
    EXPECT_EQ(db.faceGroupAssetIds("1"), QList<qint64>());
    EXPECT_EQ(db.faceGroupAssetIds(""), QList<qint64>());
    EXPECT_EQ(db.faceGroupKeys().size(), 3);
}

TEST_F(FacesAndMemories, TheKeyFaceOfAGroupIsItsOwnNumberOrZero)
{
    const Photos_DB &db = open();
    EXPECT_EQ(db.faceGroupKeyFace("9"), 9);
    EXPECT_EQ(db.faceGroupKeyFace("10"), 0);
    EXPECT_EQ(db.faceGroupKeyFace("11"), 0);
    EXPECT_EQ(QStringList(probe().faceGroupKeyFaces().keys()), QStringList{"9"});
}

TEST_F(FacesAndMemories, MemoryKeysAreListedOnceInTextOrder)
{
    EXPECT_EQ(open().memoryKeys(), (QStringList{"10", "9"}));
}

TEST_F(FacesAndMemories, AMemoryIsCopiedWithAllItsFields)
{
    const Photos_DB &db = open();
    memoryRecord memory;
    ASSERT_TRUE(db.copyMemory("9", &memory));
    EXPECT_EQ(memory.pk, 9);
    EXPECT_EQ(memory.favorite, 1);
    EXPECT_EQ(memory.keyAsset, 100);
    EXPECT_EQ(memory.subtitle, "Spring");
    EXPECT_EQ(memory.title, "Garden");
    EXPECT_EQ(memory.curatedAssets, (QList<qint64>{5, 7}));

    memory.curatedAssets.clear();
    memoryRecord again;
    ASSERT_TRUE(db.copyMemory("9", &again));
    EXPECT_EQ(again.curatedAssets.size(), 2);
}

TEST_F(FacesAndMemories, AnUnknownMemoryLeavesTheTargetAlone)
{
    const Photos_DB &db = open();
    memoryRecord memory;
    memory.title = "kept";
    memory.curatedAssets = {1};
    EXPECT_FALSE(db.copyMemory("11", &memory));
    EXPECT_EQ(memory.title, "kept");
    EXPECT_EQ(memory.curatedAssets, QList<qint64>{1});
    EXPECT_EQ(db.memoryKeys().size(), 2);
}
