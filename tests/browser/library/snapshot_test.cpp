#include "apps/browser/library/place_areas.h"
#include "photolib/photolib.h"
#include "tests/browser/support/opened_folder.h"
#include "tests/cli/sample/sample_folder.h"

#include <QSet>

#include <gmock/gmock.h>

namespace
{

using browser::Collection;
using browser::Photo;
using browser::Section;
using browser::Snapshot;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class SampleSnapshot : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        folder = new SampleFolder;
        library = openFolder(folder->root());
    }
    static void TearDownTestSuite()
    {
        library.reset();
        delete folder;
        folder = nullptr;
    }

    void SetUp() override { ASSERT_NE(library, nullptr); }

    const Snapshot &snapshot() const { return library->snapshot(); }
    photo_manager_int &manager() const { return library->library(); }

    QSet<qint64> shownOf(int category) const
    {
        QSet<qint64> ids;
        for (const Collection &collection : snapshot().collections) {
            if (collection.category == category && collection.albumId == 0 && !collection.isPart)
                ids += QSet<qint64>(collection.photoIds.begin(), collection.photoIds.end());
        }
        return ids;
    }

    // What the library has in a category, without those that are shown in their own collections only.
    QSet<qint64> expectedOf(int category) const
    {
        QSet<qint64> ids;
        for (const QString &key : manager().getGroupKeys(category)) {
            for (const qint64 id : manager().getPhotoGroup(category, key).assetIds) {
                photoItem item;
                if (!manager().getPhotoItem(&id, &item))
                    continue;
                const bool isSpecial = item.trashedState == 1 || item.hidden != 0;
                if (!isSpecial || category == 6 || (category == 19 && item.trashedState != 1))
                    ids += id;
            }
        }
        return ids;
    }

    static SampleFolder *folder;
    static std::shared_ptr<browser::OpenedLibrary> library;
};

SampleFolder *SampleSnapshot::folder = nullptr;
std::shared_ptr<browser::OpenedLibrary> SampleSnapshot::library;

TEST_F(SampleSnapshot, KnowsEveryPhotoOfTheLibraryByItsId)
{
    const QList<qint64> ids = manager().getPhotoList();
    ASSERT_EQ(int(snapshot().photos.size()), ids.size());
    for (const qint64 id : ids) {
        const Photo *photo = snapshot().find(id);
        photoItem item;
        ASSERT_NE(photo, nullptr) << id;
        ASSERT_TRUE(manager().getPhotoItem(&id, &item));
        EXPECT_EQ(photo->id, id);
        EXPECT_EQ(photo->fileName, item.fileName);
        EXPECT_EQ(photo->created, item.dateCreated.toMSecsSinceEpoch());
        EXPECT_EQ(photo->fileSize, item.fileSize);
        EXPECT_EQ(photo->duration, item.duration);
        EXPECT_EQ(photo->kind == browser::MediaKind::Video, item.mediaType == 1);
        EXPECT_EQ(photo->is(browser::Favorite), item.favorite == 1);
        EXPECT_EQ(photo->is(browser::Located), item.latitude > -180.0);
    }
    EXPECT_EQ(snapshot().find(999'999), nullptr);
}

TEST_F(SampleSnapshot, GroupsHoldWhatTheLibrarySays)
{
    for (const int category :
         {1, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 23, 24, 25, 26, 27, 28, 29})
        EXPECT_EQ(shownOf(category), expectedOf(category)) << category;
}

TEST_F(SampleSnapshot, AlbumsOfPeopleHoldWhatTheLibrarySays)
{
    int albums = 0;
    for (const Collection &collection : snapshot().collections) {
        if (collection.albumId == 0 || collection.section == Section::Others)
            continue;
        albumItem album;
        ASSERT_TRUE(manager().getAlbumItem(&collection.albumId, &album));
        EXPECT_EQ(collection.title, album.title);
        for (const qint64 id : collection.photoIds)
            EXPECT_TRUE(album.photoIds.contains(id)) << qPrintable(album.title);
        ++albums;
    }
    EXPECT_GT(albums, 3);
}

TEST_F(SampleSnapshot, NoCollectionIsEmptyOrListsAPhotoTwice)
{
    for (const Collection &collection : snapshot().collections) {
        EXPECT_THAT(collection.photoIds, Not(IsEmpty())) << qPrintable(collection.title);
        const QSet<qint64> once(collection.photoIds.begin(), collection.photoIds.end());
        EXPECT_EQ(once.size(), collection.photoIds.size()) << qPrintable(collection.title);
        EXPECT_TRUE(once.contains(collection.cover)) << qPrintable(collection.title);
    }
}

TEST_F(SampleSnapshot, HiddenAndDeletedPhotosAreInTheirOwnCollectionsOnly)
{
    int special = 0;
    for (const Collection &collection : snapshot().collections) {
        for (const qint64 id : collection.photoIds) {
            const Photo *photo = snapshot().find(id);
            ASSERT_NE(photo, nullptr);
            if (!photo->is(browser::Deleted) && !photo->is(browser::Hidden))
                continue;
            EXPECT_EQ(collection.category, photo->is(browser::Deleted) ? 6 : 19) << qPrintable(collection.title);
            ++special;
        }
    }
    EXPECT_GT(special, 1);
}

TEST_F(SampleSnapshot, CollectionsStandInTheOrderOfTheirSections)
{
    EXPECT_EQ(snapshot().collections.front().category, 0);
    for (std::size_t at = 1; at < snapshot().collections.size(); ++at)
        EXPECT_LE(snapshot().collections[at - 1].section, snapshot().collections[at].section);
}

// Newer releases have no column that tells.
TEST(SampleOfAnOlderRelease, KnowsWhichCloudPhotosWereMovedOut)
{
    const SampleFolder folder(QStringLiteral("ios14"), SampleParts::DatabaseOnly);
    const auto library = openFolder(folder.root());
    ASSERT_NE(library, nullptr);
    int inCloud = 0, away = 0;
    for (const Photo &photo : library->snapshot().photos) {
        const std::optional<photoItem> item = library->item(photo.id);
        inCloud += item && item->cloudLocalState == 1 ? 1 : 0;
        away += photo.is(browser::CloudOnly) ? 1 : 0;
    }
    EXPECT_EQ(inCloud, 12);
    EXPECT_EQ(away, 6);
}

TEST_F(SampleSnapshot, IsNotReadOnceStopped)
{
    const std::atomic<bool> stop{true};
    EXPECT_EQ(browser::readSnapshot(manager(), stop), nullptr);
}

TEST(Areas, GatherSpotsNearTheBusiestOne)
{
    const std::vector<browser::Spot> spots = {{52.0, 0.1, 1}, {48.0, 2.0, 9}, {52.01, 0.1, 5}, {51.99, 0.12, 2}};
    const std::vector<browser::Area> areas = browser::areasOf(spots);
    ASSERT_EQ(areas.size(), 2U);
    EXPECT_THAT(areas[0].spots, ElementsAre(1));
    EXPECT_THAT(areas[1].spots, ElementsAre(2, 3, 0));
}

TEST(Areas, TakeSpotsAcrossTheEdgesOfTheirCells)
{
    const std::vector<browser::Spot> spots = {{0.0499, 0.0999, 3}, {0.0501, 0.1001, 2}, {-0.02, 0.09, 1}};
    EXPECT_EQ(browser::areasOf(spots).size(), 1U);
}

TEST(Areas, OfNoSpotsAreNone)
{
    EXPECT_TRUE(browser::areasOf({}).empty());
}

} // namespace
