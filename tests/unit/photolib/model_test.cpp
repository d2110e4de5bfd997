#include "testing/log_recorder.h"
#include "tests/unit/photolib/db/photos_db_probe.h"
#include "tests/unit/photolib/made_library.h"
#include "tests/unit/photolib/photo_manager_probe.h"

#include <gtest/gtest.h>

#include <limits>

using testkit::Era;
using testkit::FaceRow;
using testkit::FakeDevice;
using testkit::LibraryBuilder;
using testkit::LogRecorder;
using testkit::MemoryRow;

namespace
{

/// A manager over a reader whose records a test adds itself, as no database could hold them.
class Model : public testing::Test
{
protected:
    Model()
    {
        probe.setReader(new Photos_DB(nullptr));
        log.expectLines(
            {"PHOTOLIB 1 load ATHCameraDB", "PHOTOLIB 2 Can not load lib", "PHOTOLIB 1 load ATHCameraDB end"});
    }

    /// Adds a photo that is in no category but for what `change` does to it.
    template <typename Change>
    void add(qint64 pk, Change change)
    {
        auto asset = std::make_unique<assetRecord>();
        asset->pk = pk;
        asset->uuid = "asset-" + QByteArray::number(pk);
        asset->kindSubtype = -1;
        asset->latitude = -180.0;
        asset->longitude = -180.0;
        change(*asset);
        probe.reader()->addAsset(asset.release());
    }

    void add(qint64 pk)
    {
        add(pk, [](assetRecord &) {});
    }

    void addAlbum(quint64 pk, const QByteArray &uuid)
    {
        auto album = std::make_unique<albumRecord>();
        album->pk = pk;
        album->uuid = uuid;
        probe.reader()->addAlbum(album.release());
    }

    /// Builds the model; answers its groups as "CATEGORY/KEY: IDS".
    QStringList built()
    {
        probe.buildModel();
        QStringList lines;
        for (const auto &category : probe.groups()) {
            for (const photoGroup &group : category) {
                QStringList ids;
                for (const qint64 id : group.assetIds)
                    ids += QString::number(id);
                lines += QString::number(group.category) + '/' + group.key + ": " + ids.join(' ');
            }
        }
        return lines;
    }

    LogRecorder log;
    photo_manager manager{nullptr};
    PhotoManagerProbe probe{manager};
};

/// A manager that opens a made-up library.
class OpenedModel : public testing::Test
{
protected:
    void open()
    {
        putOn(device, library);
        ASSERT_TRUE(manager->openLibrary());
        log.takeAll();
    }

    qint64 addFace(qint64 asset, qint64 group, std::optional<qint64> keyFaceOfGroup = {})
    {
        FaceRow face;
        face.asset = asset;
        face.faceGroup = group;
        face.keyFaceOfGroup = keyFaceOfGroup;
        face.crop = 1;
        return library.addFace(face);
    }

    QString titleOf(const QString &subtitle, const QString &title)
    {
        MemoryRow memory;
        memory.subtitle = subtitle;
        memory.title = title;
        const qint64 key = library.addMemory(memory);
        open();
        return manager->getPhotoGroup(15, QString::number(key)).title;
    }

    LogRecorder log;
    FakeDevice device;
    LibraryBuilder library{Era::Ios16, bareLibrary()};
    const Manager manager = makeManager(device);
    PhotoManagerProbe probe{implementationOf(manager)};
};

} // namespace

TEST_F(Model, AssetIsInTheGroupsOfAllItsCategories)
{
    add(5, [](assetRecord &asset) {
        asset.directory = "DCIM/100APPLE";
        asset.kind = 1;
        asset.kindSubtype = 101;
        asset.favorite = 1;
        asset.hidden = 1;
        asset.importSession = 3;
        asset.uniformTypeIdentifier = "com.compuserve.gif";
        asset.packedBadgeAttributes = 8;
        asset.depthType = 2;
        asset.avalancheUuid = "burst";
        asset.duplicateAssetVisibilityState = 1;
        asset.duplicateMetadataMatchingAlbum = 77;
        asset.latitude = 1.5;
        asset.longitude = 2.5;
        asset.cameraCaptureDevice = 1;
    });
    EXPECT_EQ(built(), (QStringList{"1/0: 5", "5/1.5-2.5: 5", "7/0: 5", "13/0: 5", "14/0: 5", "16/burst: 5", "18/0: 5",
                                    "19/0: 5", "20/0: 5", "22/0: 5", "23/77: 5", "24/0: 5", "25/0: 5"}));
}

TEST_F(Model, AssetOfNoCategoryIsInNoGroup)
{
    add(5);
    EXPECT_EQ(built(), QStringList());
}

TEST_F(Model, RecentlyDeletedAssetIsInNoOtherCategory)
{
    add(5, [](assetRecord &asset) {
        asset.trashedState = 1;
        asset.directory = "DCIM/100APPLE";
        asset.kind = 1;
        asset.favorite = 1;
        asset.hidden = 1;
        asset.avalancheUuid = "burst";
        asset.avalanchePickType = 16;
    });
    add(6, [](assetRecord &asset) {
        asset.trashedState = 2;
        asset.favorite = 1;
    });
    EXPECT_EQ(built(), (QStringList{"6/0: 5", "7/0: 6"}));
    EXPECT_EQ(manager.getPhotoGroup(6, "0").coverAssetId, 0);
}

TEST_F(Model, EachFolderHasOneCategoryOnly)
{
    add(1, [](assetRecord &asset) { asset.directory = "DCIM/100APPLE"; });
    add(2, [](assetRecord &asset) { asset.directory = "PhotoData/PhotoCloudSharingData/APPLE"; });
    add(3, [](assetRecord &asset) { asset.directory = "PhotoData/CPLAssets/APPLE"; });
    add(4, [](assetRecord &asset) { asset.directory = "PhotoStreamsData/100APPLE"; });
    add(5, [](assetRecord &asset) { asset.directory = "PhotoData/Sync/100APPLE"; });
    add(6, [](assetRecord &asset) { asset.directory = "Photos/APPLE"; });
    add(7, [](assetRecord &asset) { asset.directory = "DCIM/100XYZ"; });
    EXPECT_EQ(built(), (QStringList{"25/0: 1", "26/0: 2", "27/0: 3", "28/0: 5 6", "29/0: 4"}));
}

TEST_F(Model, GroupsListTheirAssetsInAscendingOrder)
{
    for (const qint64 pk : {30, 10, 20})
        add(pk, [](assetRecord &asset) { asset.favorite = 1; });
    EXPECT_EQ(built(), QStringList{"7/0: 10 20 30"});
}

TEST_F(Model, GroupHasAllItsFieldsSet)
{
    add(5, [](assetRecord &asset) { asset.favorite = 1; });
    built();
    const photoGroup group = probe.groups().value(7).value("0");
    EXPECT_EQ(group.category, 7);
    EXPECT_EQ(group.key, QString("0"));
    EXPECT_TRUE(group.title.isEmpty());
    EXPECT_EQ(group.coverAssetId, 0);
    EXPECT_EQ(group.favorite, 0);
    EXPECT_EQ(group.assetIds, QList<qint64>{5});
}

TEST_F(Model, SingleCharacterThatStandsForAnAbsentColumnIsNoBurst)
{
    add(5, [](assetRecord &asset) { asset.avalancheUuid = "0"; });
    add(6, [](assetRecord &asset) { asset.avalancheUuid = "x"; });
    add(7, [](assetRecord &asset) { asset.avalancheUuid = "  x"; });
    EXPECT_EQ(built(), QStringList{"16/  x: 7"});
}

TEST_F(Model, LastPickedAssetOfABurstIsItsCover)
{
    for (const qint64 pk : {9, 7, 8, 10}) {
        add(pk, [pk](assetRecord &asset) {
            asset.avalancheUuid = "burst";
            asset.avalanchePickType = pk == 10 ? 4 : 52;
        });
    }
    add(11, [](assetRecord &asset) {
        asset.avalancheUuid = "unpicked";
        asset.avalanchePickType = 4;
    });
    EXPECT_EQ(built(), (QStringList{"16/burst: 7 8 9 10", "16/unpicked: 11"}));
    EXPECT_EQ(manager.getPhotoGroup(16, "burst").coverAssetId, 9);
    EXPECT_EQ(manager.getPhotoGroup(16, "unpicked").coverAssetId, 0);
}

TEST_F(Model, CoordinateThatIsNoNumberIsAPlace)
{
    add(5, [](assetRecord &asset) {
        asset.latitude = std::numeric_limits<double>::quiet_NaN();
        asset.longitude = 10.0;
    });
    EXPECT_EQ(built(), QStringList{"5/nan-10: 5"});
}

TEST_F(Model, KnownUuidsAreThoseOfAlbumsAssetsAndTheDatabase)
{
    addAlbum(1, "album-1");
    addAlbum(2, QByteArray("raw\0bytes", 9));
    add(5);
    add(6, [](assetRecord &asset) { asset.trashedState = 1; });
    probe.databaseUuid() = QString::fromUtf8("d\xC3\xA4tabase");
    probe.buildModel();
    const QMap<QByteArray, bool> expected = {{"album-1", true},
                                             {QByteArray("raw\0bytes", 9), true},
                                             {"asset-5", true},
                                             {"asset-6", true},
                                             {"d\xC3\xA4tabase", true}};
    EXPECT_EQ(probe.knownUuids(), expected);
}

TEST_F(Model, NullRecordOfTheStoreIsSkipped)
{
    add(5, [](assetRecord &asset) { asset.favorite = 1; });
    PhotosDbProbe{*probe.reader()}.assets().insert(4, nullptr);
    EXPECT_EQ(built(), QStringList{"7/0: 5"});
}

TEST_F(Model, AddAssetToGroupAppendsWithoutLookingForDuplicates)
{
    assetRecord asset;
    asset.pk = 5;
    probe.addAssetToGroup(99, asset, "key", false);
    probe.addAssetToGroup(99, asset, "key", true);
    asset.pk = 4;
    probe.addAssetToGroup(99, asset, "key", false);
    const photoGroup group = manager.getPhotoGroup(99, "key");
    EXPECT_EQ(group.category, 99);
    EXPECT_EQ(group.key, QString("key"));
    EXPECT_EQ(group.assetIds, (QList<qint64>{5, 5, 4}));
    EXPECT_EQ(group.coverAssetId, 5);
}

TEST(ModelWithoutAReader, IsNotBuilt)
{
    photo_manager manager(nullptr);
    PhotoManagerProbe probe(manager);
    probe.databaseUuid() = "database";
    probe.buildModel();
    EXPECT_TRUE(probe.knownUuids().isEmpty());
    EXPECT_TRUE(probe.groups().isEmpty());
}

TEST_F(OpenedModel, LibraryWithoutAssetsKnowsAlbumsAndItselfAndHasFaceAndMemoryGroupsAtMost)
{
    testkit::AlbumRow album;
    album.uuid = "ALBUM-UUID";
    library.addAlbum(album);
    library.setLibraryUuid("DB-UUID");
    addFace(8, 3);
    library.addMemory({});
    open();
    EXPECT_EQ(probe.knownUuids(), (QMap<QByteArray, bool>{{"ALBUM-UUID", true}, {"DB-UUID", true}}));
    EXPECT_EQ(probe.groups().keys(), (QList<int>{4, 15}));
}

TEST_F(OpenedModel, EmptyLibraryHasNoGroups)
{
    library.setLibraryUuid("DB-UUID");
    open();
    EXPECT_EQ(probe.knownUuids(), (QMap<QByteArray, bool>{{"DB-UUID", true}}));
    EXPECT_TRUE(probe.groups().isEmpty());
}

TEST_F(OpenedModel, FaceGroupListsItsAssetsNewestFirstWithRepeats)
{
    addFace(5, 3);
    addFace(6, 3);
    addFace(5, 3);
    open();
    const photoGroup group = manager->getPhotoGroup(4, "3");
    EXPECT_EQ(group.category, 4);
    EXPECT_EQ(group.key, QString("3"));
    EXPECT_EQ(group.assetIds, (QList<qint64>{5, 6, 5}));
    EXPECT_TRUE(group.title.isEmpty());
    EXPECT_EQ(group.favorite, 0);
}

TEST_F(OpenedModel, FaceGroupsOrderIsTheOneOfReading)
{
    addFace(5, 3);
    addFace(6, 3);
    addFace(7, 3);
    open();
    EXPECT_EQ(manager->getPhotoGroup(4, "3").assetIds, (QList<qint64>{7, 6, 5}));
}

TEST_F(OpenedModel, CoverOfAFaceGroupIsItsOwnNumberWhenItsKeyFaceWasReadElseZero)
{
    addFace(5, 3, 3);
    addFace(6, 4);
    addFace(7, 8, 9);
    open();
    EXPECT_EQ(manager->getPhotoGroup(4, "3").coverAssetId, 3);
    EXPECT_EQ(manager->getPhotoGroup(4, "4").coverAssetId, 0);
    EXPECT_EQ(manager->getPhotoGroup(4, "8").coverAssetId, 0);
}

TEST_F(OpenedModel, FaceGroupKeysSortAsText)
{
    for (const qint64 group : {2, 10, 1})
        addFace(5, group);
    open();
    EXPECT_EQ(manager->getGroupKeys(4), (QStringList{"1", "10", "2"}));
}

TEST_F(OpenedModel, MemoryGroupTakesCoverFavouriteAndAssetsFromTheMemory)
{
    MemoryRow memory;
    memory.favorite = 1;
    memory.keyAsset = 7;
    memory.curatedAssets = {5, 9};
    const QString key = QString::number(library.addMemory(memory));
    open();
    const photoGroup group = manager->getPhotoGroup(15, key);
    EXPECT_EQ(group.category, 15);
    EXPECT_EQ(group.key, key);
    EXPECT_EQ(group.coverAssetId, 7);
    EXPECT_EQ(group.favorite, 1);
    EXPECT_EQ(group.assetIds, (QList<qint64>{5, 9}));
    EXPECT_TRUE(group.title.isEmpty());
}

TEST_F(OpenedModel, MemoryKeysSortAsText)
{
    for (const qint64 key : {2, 10, 1}) {
        MemoryRow memory;
        memory.key = key;
        library.addMemory(memory);
    }
    open();
    EXPECT_EQ(manager->getGroupKeys(15), (QStringList{"1", "10", "2"}));
}

TEST_F(OpenedModel, MemoryTitleJoinsSubtitleAndTitleWithABlank)
{
    EXPECT_EQ(titleOf("A", "B"), QString("A B"));
    EXPECT_EQ(titleOf(QString(), "Trip"), QString("Trip"));
    EXPECT_EQ(titleOf("May", QString()), QString("May"));
    EXPECT_EQ(titleOf("", ""), QString(""));
}

TEST_F(OpenedModel, MemoryTitleOfBlanksIsKeptWithoutASeparator)
{
    EXPECT_EQ(titleOf("May", "  "), QString("May  "));
    EXPECT_EQ(titleOf("  ", "Trip"), QString("   Trip"));
    EXPECT_EQ(titleOf("A", " B "), QString("A  B "));
}

TEST_F(OpenedModel, PlaceMarkersOfASubtitleAreFilledByWhatFollows)
{
    EXPECT_EQ(titleOf("A%2B", "T"), QString("A B T"));
    EXPECT_EQ(titleOf("A%3B", "T"), QString("ATB T"));
    EXPECT_EQ(titleOf("A%1B", "T"), QString("A BT%3"));
    EXPECT_EQ(titleOf("100%", "T"), QString("100% T"));
}

TEST_F(OpenedModel, PlaceMarkersOfATitleStay)
{
    EXPECT_EQ(titleOf("A", "%1 %2 %3"), QString("A %1 %2 %3"));
}

TEST_F(OpenedModel, TextsThatWouldFillToMoreThanATitleCanHoldAreOnlyJoined)
{
    const QString markers = QString("%3").repeated(65536);
    const QString title = QString(65536, 'A');
    EXPECT_EQ(titleOf(markers, title), markers + ' ' + title);
}

TEST_F(OpenedModel, SecondOpeningListsAssetsTwiceButReplacesFacesAndMemories)
{
    testkit::AssetRow video;
    video.kind = 1;
    const qint64 asset = library.addAsset(video);
    addFace(asset, 3);
    MemoryRow memory;
    memory.curatedAssets = {asset};
    const QString key = QString::number(library.addMemory(memory));
    open();
    addFace(99, 3);
    library.exec("UPDATE ZMEMORY SET ZTITLE = 'Later'");
    open();
    EXPECT_EQ(manager->getPhotoGroup(1, "0").assetIds, (QList<qint64>{asset, asset}));
    EXPECT_EQ(manager->getPhotoGroup(4, "3").assetIds, (QList<qint64>{99, asset}));
    EXPECT_EQ(manager->getPhotoGroup(15, key).title, QString("Later"));
    EXPECT_EQ(manager->getPhotoGroup(15, key).assetIds, QList<qint64>{asset});
    EXPECT_EQ(manager->getPhotoList(), QList<qint64>{asset});
    EXPECT_EQ(probe.knownUuids().size(), 2) << "the asset's and the database's";
}
