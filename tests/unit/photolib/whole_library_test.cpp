#include "testing/log_recorder.h"
#include "tests/unit/photolib/made_library.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

using testkit::AssetRow;
using testkit::Era;
using testkit::EraFacts;
using testkit::FakeDevice;
using testkit::LibraryBuilder;
using testkit::LogRecorder;

namespace testkit
{

// Names the release in the names of tests.
static void PrintTo(Era era, std::ostream *out)
{
    *out << factsOf(era).name;
}

} // namespace testkit

namespace
{

/// A library of every release with something in each category that the release knows.
class WholeLibrary : public testing::TestWithParam<Era>
{
protected:
    WholeLibrary()
    {
        library.setLibraryUuid("DB-UUID");
        addCameraRoll();
        addOtherFolders();
        addLaterFeatures();
        addWallpaper();
        addAlbumFacesAndMemory();
        const testkit::LibraryBytes bytes = library.bytes(testkit::WalMode::WithContent);
        device.addFile("/PhotoData/Photos.sqlite", bytes.database);
        device.addFile("/PhotoData/Photos.sqlite-wal", bytes.wal);
        device.addFile("/PhotoData/Photos.sqlite-shm", bytes.shm);
    }

    static testkit::BuilderOptions wholeLibrary()
    {
        testkit::BuilderOptions options;
        options.attributeKeys = testkit::AttributeKeys::SameAsAsset;
        return options;
    }

    template <typename Change>
    void add(qint64 key, Change change)
    {
        AssetRow row;
        row.key = key;
        change(row);
        library.addAsset(row);
    }

    void addCameraRoll()
    {
        add(1, [](AssetRow &row) { row.fileSize = 123456; });
        add(2, [](AssetRow &row) {
            row.kind = 1;
            row.kindSubtype = 101;
            row.duration = 12.9;
            row.favorite = 1;
            row.hidden = 1;
        });
        add(3, [](AssetRow &row) {
            row.trashedState = 1;
            row.favorite = 1;
        });
        for (const qint64 key : {4, 5}) {
            add(key, [key](AssetRow &row) {
                row.avalancheUuid = "BURST";
                row.avalanchePickType = key == 4 ? 16 : 4;
            });
        }
        add(6, [](AssetRow &row) {
            row.latitude = 48.8584;
            row.longitude = -2.2945;
        });
        add(7, [](AssetRow &row) { row.uniformTypeIdentifier = "com.compuserve.gif"; });
        add(8, [](AssetRow &row) { row.cameraDevice = 1; });
    }

    void addOtherFolders()
    {
        add(9, [](AssetRow &row) { row.directory = "PhotoData/Sync/100SYNCD"; });
        add(10, [](AssetRow &row) { row.directory = "PhotoData/PhotoCloudSharingData/1/100CLOUD"; });
        add(11, [](AssetRow &row) { row.directory = "PhotoData/CPLAssets/group1"; });
        add(12, [](AssetRow &row) { row.directory = "PhotoStreamsData/1/100APPLE"; });
    }

    void addLaterFeatures()
    {
        add(13, [](AssetRow &row) { row.importSession = 40; });
        add(14, [](AssetRow &row) { row.packedBadgeAttributes = 6; });
        add(15, [](AssetRow &row) { row.depthType = 1; });
        add(16, [this](AssetRow &row) {
            if (since(Era::Ios16))
                row.columns = {{"ZDUPLICATEASSETVISIBILITYSTATE", 1}, {"ZDUPLICATEMETADATAMATCHINGALBUM", 9}};
        });
    }

    void addWallpaper()
    {
        if (facts.wallpaperAssetEntity == 0)
            return;
        add(17, [this](AssetRow &row) { row.columns = {{"Z_ENT", facts.wallpaperAssetEntity}}; });
    }

    void addAlbumFacesAndMemory()
    {
        albumsOfEveryLibrary = testkit::builtinAlbumsOf(GetParam()).size();
        testkit::AlbumRow trip;
        trip.title = "Trip";
        album = library.addAlbum(trip);
        for (const qint64 asset : {6, 1, 4})
            library.addToAlbum(album, asset);

        for (const qint64 asset : {1, 2}) {
            testkit::FaceRow face;
            face.asset = asset;
            face.faceGroup = 5;
            face.crop = 1;
            if (asset == 1)
                face.keyFaceOfGroup = 5;
            library.addFace(face);
        }
        testkit::MemoryRow memory;
        memory.title = "Paris";
        memory.subtitle = "May";
        memory.keyAsset = 6;
        memory.curatedAssets = {1, 6};
        library.addMemory(memory);
    }

    bool since(Era era) const { return GetParam() >= era; }

    /// Faces name their photo in a column of another name from then on.
    bool readsFaces() const { return !since(Era::Ios17); }

    QStringList expectedLines() const
    {
        QStringList lines{"PHOTOLIB 1 load ATHCameraDB", "PHOTOLIB 1 Parser_Ath_camera_DB",
                          "PHOTOLIB 1 Got asset table name: " + facts.albumJoinTable(),
                          "PHOTOLIB 1 Parser_Ath_camera_DB success"};
        if (!readsFaces())
            lines += "PHOTOLIB 2 Can not parse camera photos: no such column: ZASSET";
        return lines + QStringList{"PHOTOLIB 1 load ATHCameraDB end"};
    }

    QStringList expectedGroups() const
    {
        QStringList groups{"1/0: 2"};
        groups += "3/0: 1 4 5 6 7 8 9 10 11 12 13 14 15 16";
        if (readsFaces())
            groups += "4/5: 2 1";
        groups += {"5/48.8584--2.2945: 6", "6/0: 3", "7/0: 2"};
        if (since(Era::Ios14))
            groups += "8/0: 15";
        groups += {"13/0: 2", "14/0: 7", "15/1: 1 6", "16/BURST: 4 5", "18/0: 8", "19/0: 2"};
        if (since(Era::Ios12))
            groups += "20/0: 13";
        if (since(Era::Ios13))
            groups += "21/0: 14";
        if (since(Era::Ios16))
            groups += "23/9: 16";
        groups += {"25/0: 1 2 4 5 6 7 8 13 14 15 16", "26/0: 10", "27/0: 11", "28/0: 9", "29/0: 12"};
        return groups;
    }

    QStringList groups() const
    {
        QStringList lines;
        for (int category = 0; category < 40; ++category) {
            for (const QString &key : manager->getGroupKeys(category)) {
                QStringList ids;
                for (const qint64 id : manager->getPhotoGroup(category, key).assetIds)
                    ids += QString::number(id);
                lines += QString::number(category) + '/' + key + ": " + ids.join(' ');
            }
        }
        return lines;
    }

    photoItem photo(qint64 id) const
    {
        photoItem item;
        EXPECT_TRUE(manager->getPhotoItem(&id, &item)) << id;
        return item;
    }

    const EraFacts &facts = testkit::factsOf(GetParam());
    LogRecorder log;
    FakeDevice device;
    LibraryBuilder library{GetParam(), wholeLibrary()};
    qint64 album = 0;
    int albumsOfEveryLibrary = 0;
    const Manager manager = makeManager(device);
};

} // namespace

TEST_P(WholeLibrary, OpensWithItsLogLines)
{
    EXPECT_TRUE(manager->openLibrary());
    log.expectLines(expectedLines());
    EXPECT_EQ(manager->getLibraryUuid(), QString("DB-UUID"));
}

TEST_P(WholeLibrary, ListsEveryPhotoButWallpapers)
{
    ASSERT_TRUE(manager->openLibrary());
    log.takeAll();
    EXPECT_EQ(manager->getPhotoCount(), 16);
    EXPECT_EQ(manager->getPhotoList().first(), 1);
    EXPECT_EQ(manager->getPhotoList().last(), 16);
}

TEST_P(WholeLibrary, SortsPhotosIntoTheCategoriesThatTheReleaseKnows)
{
    ASSERT_TRUE(manager->openLibrary());
    log.takeAll();
    EXPECT_EQ(groups(), expectedGroups());
    EXPECT_EQ(manager->getPhotoGroup(16, "BURST").coverAssetId, 4);
    EXPECT_EQ(manager->getPhotoGroup(4, "5").coverAssetId, readsFaces() ? 5 : 0);
    EXPECT_EQ(manager->getPhotoGroup(15, "1").coverAssetId, 6);
    EXPECT_EQ(manager->getPhotoGroup(15, "1").title, QString("May Paris"));
}

TEST_P(WholeLibrary, ListsAlbumsAndTheirPhotosInOrderOfTheirRows)
{
    ASSERT_TRUE(manager->openLibrary());
    log.takeAll();
    EXPECT_EQ(manager->getAlbumCount(), albumsOfEveryLibrary + 1);
    EXPECT_TRUE(manager->getAlbumList().contains(album));
    albumItem item;
    ASSERT_TRUE(manager->getAlbumItem(&album, &item));
    EXPECT_EQ(item.title, QString("Trip"));
    EXPECT_EQ(item.kind, 2);
    EXPECT_EQ(item.albumType, 1);
    EXPECT_EQ(item.entity, facts.album);
    EXPECT_EQ(item.photoIds, (QList<qint64>{6, 1, 4}));
}

TEST_P(WholeLibrary, FillsPhotos)
{
    ASSERT_TRUE(manager->openLibrary());
    log.takeAll();
    const photoItem still = photo(1);
    EXPECT_EQ(still.entity, facts.concreteAssetEntity);
    EXPECT_EQ(still.fileName, QString("IMG_0001.JPG"));
    EXPECT_EQ(still.mediaType, 3);
    EXPECT_EQ(still.fileSize, 123456);
    EXPECT_EQ(still.latitude, -180.0);
    EXPECT_EQ(still.dateCreated, QDateTime(QDate(2001, 1, 1), QTime(), Qt::UTC).addSecs(600000037));
    const photoItem video = photo(2);
    EXPECT_EQ(video.mediaType, 1);
    EXPECT_EQ(video.duration, 12);
    EXPECT_EQ(video.metadataPath, QString("PhotoData/Metadata/DCIM/100APPLE"));
    EXPECT_EQ(photo(13).importSession, since(Era::Ios12) ? 40 : 0);
    EXPECT_EQ(photo(15).depthType, since(Era::Ios14) ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(, WholeLibrary, testing::ValuesIn(testkit::allEras()),
                         [](const auto &parameter) { return std::string(testkit::factsOf(parameter.param).name); });
