#include "apps/cli/selection/selection.h"

#include "apps/cli/failure.h"
#include "tests/cli/fake_library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace photocli
{

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

// 1 plain, 2 favorite video, 3 recently deleted, 4 hidden favorite, 5 animated GIF.
class SelectionOf : public testing::Test
{
protected:
    SelectionOf()
    {
        for (qint64 id = 1; id <= 5; ++id)
            library.addPhoto(id).dateCreated = day(static_cast<int>(id));
        edit(2).favorite = 1;
        edit(2).mediaType = 1;
        edit(3).trashedState = 1;
        edit(4).favorite = 1;
        edit(4).hidden = 1;
        edit(5).mediaType = 2;
        library.addAlbum(10, QStringLiteral("Trip"), {5, 3, 1, 99});
        library.addAlbum(11, QStringLiteral("Home"), {2, 5});
        library.addAlbum(12, QStringLiteral("10"), {4});
        library.addGroup(6, QStringLiteral("0"), {3});
        library.addGroup(7, QStringLiteral("0"), {2, 4});
        library.addGroup(4, QStringLiteral("1"), {1, 5, 1});
        library.addGroup(4, QStringLiteral("2"), {4, 3});
    }

    static QDateTime day(int n) { return QDateTime(QDate(2024, 5, n), QTime(12, 0), Qt::UTC); }

    photoItem &edit(qint64 id) { return library.addPhoto(id); }

    std::vector<qint64> ids(const SelectionRequest &request)
    {
        std::vector<qint64> found;
        Selection(library, request).forEach([&found](const photoItem &photo) {
            found.push_back(photo.id);
            return true;
        });
        return found;
    }

    ExitCode failureOf(const SelectionRequest &request, QString *message = nullptr)
    {
        try {
            const Selection selection(library, request);
        } catch (const Failure &failure) {
            if (message != nullptr)
                *message = failure.message;
            return failure.code;
        }
        return ExitOk;
    }

    static SelectionRequest albums(const QStringList &names)
    {
        SelectionRequest request;
        request.albums = names;
        return request;
    }

    FakeLibrary library;
};

} // namespace

TEST_F(SelectionOf, NothingIsEverythingButRecentlyDeletedPhotos)
{
    EXPECT_THAT(ids({}), ElementsAre(1, 2, 4, 5));
}

TEST_F(SelectionOf, MarksNarrowTheChoiceTogether)
{
    SelectionRequest request;
    request.favorite = true;
    EXPECT_THAT(ids(request), ElementsAre(2, 4));
    request.hidden = true;
    EXPECT_THAT(ids(request), ElementsAre(4));
    request.onlyMovies = true;
    EXPECT_THAT(ids(request), IsEmpty());
}

TEST_F(SelectionOf, AnimatedPicturesArePhotos)
{
    SelectionRequest request;
    request.onlyPhotos = true;
    EXPECT_THAT(ids(request), ElementsAre(1, 4, 5));
    request.onlyPhotos = false;
    request.onlyMovies = true;
    EXPECT_THAT(ids(request), ElementsAre(2));
}

TEST_F(SelectionOf, DeletedMeansDeletedPhotosOnly)
{
    SelectionRequest request;
    request.deleted = true;
    EXPECT_THAT(ids(request), ElementsAre(3));
}

TEST_F(SelectionOf, DeletedPhotosComeWithTheirGroupOrTheirUuid)
{
    SelectionRequest request;
    request.groups = {{6, QString()}};
    EXPECT_THAT(ids(request), ElementsAre(3));
    request.groups = {{4, QStringLiteral("2")}};
    EXPECT_THAT(ids(request), ElementsAre(4));
    request.groups.clear();
    request.uuids = QStringList{"uuid-3"};
    EXPECT_THAT(ids(request), ElementsAre(3));
}

TEST_F(SelectionOf, AlbumKeepsItsOrderAndSkipsPhotosThatAreNotThere)
{
    EXPECT_THAT(ids(albums({"Trip"})), ElementsAre(5, 1));
}

TEST_F(SelectionOf, SeveralAlbumsGiveEachPhotoOnce)
{
    EXPECT_THAT(ids(albums({"Home", "Trip"})), ElementsAre(2, 5, 1));
    EXPECT_THAT(ids(albums({"Trip", "Trip"})), ElementsAre(5, 1));
}

TEST_F(SelectionOf, AlbumIsFoundByTitleUuidOrIdInAnyCase)
{
    EXPECT_THAT(ids(albums({"home"})), ElementsAre(2, 5));
    EXPECT_THAT(ids(albums({"album-11"})), ElementsAre(2, 5));
    EXPECT_THAT(ids(albums({"11"})), ElementsAre(2, 5));
}

TEST_F(SelectionOf, AlbumsOfTheSameTitleAreAllTaken)
{
    library.addAlbum(13, QStringLiteral("Trip"), {4});
    EXPECT_THAT(ids(albums({"Trip"})), ElementsAre(5, 1, 4));
}

TEST_F(SelectionOf, ExactTitleWinsOverOtherCase)
{
    library.addAlbum(13, QStringLiteral("TRIP"), {4});
    EXPECT_THAT(ids(albums({"TRIP"})), ElementsAre(4));
    EXPECT_THAT(ids(albums({"trip"})), ElementsAre(5, 1, 4));
}

TEST_F(SelectionOf, NumberThatIsAnIdAndAnotherTitleIsRefused)
{
    QString message;
    EXPECT_EQ(failureOf(albums({"10"}), &message), ExitUsage);
    EXPECT_TRUE(message.contains(QStringLiteral("UUID")));
    EXPECT_THAT(ids(albums({"12"})), ElementsAre(4));
}

TEST_F(SelectionOf, UnknownAlbumIsAFailureThatListsTheTitles)
{
    QString message;
    EXPECT_EQ(failureOf(albums({"Nowhere"}), &message), ExitSomeFailed);
    EXPECT_TRUE(message.contains(QStringLiteral("\"Nowhere\"")));
    EXPECT_TRUE(message.contains(QStringLiteral("\"Trip\", \"Home\"")));
    EXPECT_EQ(failureOf(albums({""})), ExitUsage);
}

TEST_F(SelectionOf, GroupsWidenEachOtherAndNarrowAlbums)
{
    SelectionRequest request;
    request.groups = {{7, QString()}, {4, QStringLiteral("1")}};
    EXPECT_THAT(ids(request), ElementsAre(1, 2, 4, 5));
    request.albums = QStringList{"Trip"};
    EXPECT_THAT(ids(request), ElementsAre(5, 1));
    request.groups = {{4, QString()}};
    EXPECT_THAT(ids(request), ElementsAre(5, 1));
}

TEST_F(SelectionOf, CategoryWithoutGroupsSelectsNothing)
{
    SelectionRequest request;
    request.groups = {{9, QString()}};
    EXPECT_THAT(ids(request), IsEmpty());
}

TEST_F(SelectionOf, UnknownUuidIsAFailure)
{
    SelectionRequest request;
    request.uuids = QStringList{"UUID-1", "UUID-77"};
    QString message;
    EXPECT_EQ(failureOf(request, &message), ExitSomeFailed);
    EXPECT_TRUE(message.contains(QStringLiteral("\"UUID-77\"")));
    request.uuids = QStringList{"UUID-4", "uuid-1"};
    EXPECT_THAT(ids(request), ElementsAre(1, 4));
}

TEST_F(SelectionOf, BytesOfAUuidAreNamedInHexadecimal)
{
    edit(1).uuid = QByteArray("\xFF\x0A", 2);
    SelectionRequest request;
    request.uuids = QStringList{"hex:FF0a"};
    EXPECT_THAT(ids(request), ElementsAre(1));
}

TEST_F(SelectionOf, DatesIncludeTheirBounds)
{
    SelectionRequest request;
    request.fromDates = {day(2)};
    request.toDates = {day(4)};
    EXPECT_THAT(ids(request), ElementsAre(2, 4));
    request.fromDates = {day(2).addSecs(1)};
    EXPECT_THAT(ids(request), ElementsAre(4));
    request.toDates = {day(4).addSecs(-1), day(5)};
    EXPECT_THAT(ids(request), ElementsAre(4, 5));
}

TEST_F(SelectionOf, PhotoWithoutDateIsLeftOutWhenDatesAreAskedFor)
{
    edit(1).dateCreated = QDateTime();
    SelectionRequest request;
    request.toDates = {day(5)};
    EXPECT_THAT(ids(request), ElementsAre(2, 4, 5));
}

TEST_F(SelectionOf, LimitCountsSelectedPhotosOnly)
{
    SelectionRequest request;
    request.favorite = true;
    request.limit = 1;
    EXPECT_THAT(ids(request), ElementsAre(2));
    request.limit = 0;
    EXPECT_THAT(ids(request), IsEmpty());
}

TEST_F(SelectionOf, VisitorEndsTheWalk)
{
    int visits = 0;
    Selection(library, {}).forEach([&visits](const photoItem &) {
        ++visits;
        return false;
    });
    EXPECT_EQ(visits, 1);
}

} // namespace photocli
