#include "apps/browser/page/date_words.h"
#include "apps/browser/page/natural_order.h"
#include "apps/browser/page/photo_query.h"
#include "tests/browser/page/made_snapshot.h"

#include <gmock/gmock.h>

namespace
{

using browser::Photo;
using browser::PhotoQuery;
using browser::SortKey;
using testing::ElementsAre;
using testing::IsEmpty;

QDateTime at(int year, int month, int day)
{
    return {QDate(year, month, day), QTime(12, 0), Qt::UTC};
}

std::vector<qint64> idsOf(const MadeSnapshot &made, const PhotoQuery &query)
{
    const std::atomic<bool> stop{false};
    const auto list = browser::findPhotos(*made.get(), query, stop);
    std::vector<qint64> ids;
    for (const int row : list->rows)
        ids.push_back(made.get()->photos[static_cast<std::size_t>(row)].id);
    return ids;
}

PhotoQuery sortedBy(SortKey key, bool descending = false)
{
    PhotoQuery query;
    query.sort = key;
    query.descending = descending;
    return query;
}

PhotoQuery searchFor(const QString &text)
{
    PhotoQuery query = sortedBy(SortKey::Added);
    query.text = text;
    return query;
}

PhotoQuery filteredBy(quint32 filters)
{
    PhotoQuery query = sortedBy(SortKey::Added);
    query.filters = filters;
    return query;
}

TEST(FindPhotos, SortsByDateTaken)
{
    MadeSnapshot made;
    made.add(QStringLiteral("a"), at(2020, 1, 1));
    made.add(QStringLiteral("b"), at(2018, 1, 1));
    made.add(QStringLiteral("c"), at(2019, 1, 1));
    EXPECT_THAT(idsOf(made, sortedBy(SortKey::Taken)), ElementsAre(2, 3, 1));
    EXPECT_THAT(idsOf(made, sortedBy(SortKey::Taken, true)), ElementsAre(1, 3, 2));
}

TEST(FindPhotos, SortsNamesAsPeopleCount)
{
    MadeSnapshot made;
    for (const char *name : {"IMG_10.JPG", "img_9.jpg", "IMG_0100.JPG", "A.JPG"})
        made.add(QLatin1String(name));
    EXPECT_THAT(idsOf(made, sortedBy(SortKey::Name)), ElementsAre(4, 2, 1, 3));
    EXPECT_THAT(idsOf(made, sortedBy(SortKey::Name, true)), ElementsAre(3, 1, 2, 4));
}

TEST(FindPhotos, SortsBySizeKindAndOrderOfAdding)
{
    MadeSnapshot made;
    made.add(QStringLiteral("a")).fileSize = 30;
    made.add(QStringLiteral("b")).fileSize = 10;
    Photo &video = made.add(QStringLiteral("c"));
    video.fileSize = 20;
    video.kind = browser::MediaKind::Video;
    EXPECT_THAT(idsOf(made, sortedBy(SortKey::Size)), ElementsAre(2, 3, 1));
    EXPECT_THAT(idsOf(made, sortedBy(SortKey::Kind, true)), ElementsAre(3, 2, 1));
    EXPECT_THAT(idsOf(made, sortedBy(SortKey::Added, true)), ElementsAre(3, 2, 1));
}

TEST(FindPhotos, MakesASectionOfEachMonthInLocalTime)
{
    MadeSnapshot made;
    made.add(QStringLiteral("a"), at(2019, 6, 1));
    made.add(QStringLiteral("b"), at(2019, 6, 30));
    made.add(QStringLiteral("c"), at(2019, 7, 1));
    made.add(QStringLiteral("d"));
    const std::atomic<bool> stop{false};
    const auto list = browser::findPhotos(*made.get(), sortedBy(SortKey::Taken, true), stop);
    ASSERT_EQ(list->sections.size(), 3U);
    EXPECT_TRUE(list->hasHeadings);
    EXPECT_EQ(list->sections[0].month, QDate(2019, 7, 1));
    EXPECT_EQ(list->sections[1].month, QDate(2019, 6, 1));
    EXPECT_EQ(list->sections[1].first, 1);
    EXPECT_EQ(list->sections[1].count, 2);
    EXPECT_TRUE(list->sections[2].month.isNull());
}

TEST(FindPhotos, OtherOrdersHaveNoHeadings)
{
    MadeSnapshot made;
    made.add(QStringLiteral("a"), at(2019, 6, 1));
    made.add(QStringLiteral("b"), at(2020, 6, 1));
    const std::atomic<bool> stop{false};
    const auto list = browser::findPhotos(*made.get(), sortedBy(SortKey::Name), stop);
    ASSERT_EQ(list->sections.size(), 1U);
    EXPECT_FALSE(list->hasHeadings);
    EXPECT_EQ(list->sections[0].count, 2);
}

TEST(FindPhotos, KnowsThePositionOfEachPhoto)
{
    MadeSnapshot made;
    made.add(QStringLiteral("b"));
    made.add(QStringLiteral("x"));
    made.add(QStringLiteral("a.b"));
    const std::atomic<bool> stop{false};
    PhotoQuery query = searchFor(QStringLiteral("b"));
    query.descending = true;
    EXPECT_THAT(browser::findPhotos(*made.get(), query, stop)->positions, ElementsAre(1, -1, 0));
}

TEST(FindPhotos, LeavesOutWhatTheDeviceSaidItLacks)
{
    MadeSnapshot made;
    made.add(QStringLiteral("a"));
    made.add(QStringLiteral("b")).traits = browser::CloudOnly;
    made.add(QStringLiteral("c")).traits = browser::InCloud;
    made.add(QStringLiteral("d")).traits = browser::InCloud;
    PhotoQuery query = filteredBy(browser::OnlyOnDevice);
    EXPECT_THAT(idsOf(made, query), ElementsAre(1, 3, 4));
    query.lacking = std::make_shared<const QSet<qint64>>(QSet<qint64>{3});
    EXPECT_THAT(idsOf(made, query), ElementsAre(1, 4));
    query.filters = 0;
    EXPECT_THAT(idsOf(made, query), ElementsAre(1, 2, 3, 4));
}

TEST(FindPhotos, SearchesWhatTheSideBarCallsCollections)
{
    constexpr int screenshots = 17;
    MadeSnapshot made;
    made.add(QStringLiteral("a"));
    made.add(QStringLiteral("b"), at(2019, 3, 24));
    made.add(QStringLiteral("c"));
    made.addKind(screenshots, {1});
    made.addKind(browser::category::memories, {2, 3});
    EXPECT_THAT(idsOf(made, searchFor(QStringLiteral("screenshots"))), ElementsAre(1));
    EXPECT_THAT(idsOf(made, searchFor(QStringLiteral("memory"))), ElementsAre(2, 3));
    EXPECT_THAT(idsOf(made, searchFor(QStringLiteral("all"))), IsEmpty()) << "that is where everything is";
}

TEST(FindPhotos, SearchesNamesTitlesAndDatesWordByWord)
{
    MadeSnapshot made;
    made.add(QStringLiteral("IMG_0001.JPG"), at(2019, 6, 24));
    made.add(QStringLiteral("IMG_0002.MOV"), at(2019, 7, 1));
    made.add(QStringLiteral("IMG_2019.JPG"), at(2021, 6, 1));
    made.addAlbum(QStringLiteral("Summer in Kyoto"), {2});
    EXPECT_THAT(idsOf(made, searchFor(QStringLiteral("0001"))), ElementsAre(1));
    EXPECT_THAT(idsOf(made, searchFor(QStringLiteral(".jpg"))), ElementsAre(1, 3));
    EXPECT_THAT(idsOf(made, searchFor(QStringLiteral("kyoto"))), ElementsAre(2));
    EXPECT_THAT(idsOf(made, searchFor(QStringLiteral("2019"))), ElementsAre(1, 2, 3));
    EXPECT_THAT(idsOf(made, searchFor(QStringLiteral("June 2019"))), ElementsAre(1, 3));
    EXPECT_THAT(idsOf(made, searchFor(QStringLiteral("2019-06"))), ElementsAre(1));
    EXPECT_THAT(idsOf(made, searchFor(QStringLiteral("07/2019"))), ElementsAre(2));
    EXPECT_THAT(idsOf(made, searchFor(QStringLiteral("2019-06-24"))), ElementsAre(1));
    EXPECT_THAT(idsOf(made, searchFor(QStringLiteral("kyoto 2021"))), IsEmpty());
    EXPECT_THAT(idsOf(made, searchFor(QStringLiteral("  "))), ElementsAre(1, 2, 3));
}

TEST(FindPhotos, LooksOnlyIntoItsCollection)
{
    MadeSnapshot made;
    made.add(QStringLiteral("a"));
    made.add(QStringLiteral("b"));
    made.addAlbum(QStringLiteral("B"), {2});
    PhotoQuery query = sortedBy(SortKey::Added);
    query.collection = 1;
    EXPECT_THAT(idsOf(made, query), ElementsAre(2));
}

TEST(FindPhotos, FiltersMustAllHold)
{
    MadeSnapshot made;
    made.add(QStringLiteral("a")).traits = browser::Favorite | browser::Located;
    made.add(QStringLiteral("b")).traits = browser::Favorite | browser::CloudOnly | browser::Edited;
    made.add(QStringLiteral("c")).kind = browser::MediaKind::Video;
    made.add(QStringLiteral("d")).traits = browser::LivePhoto;
    EXPECT_THAT(idsOf(made, filteredBy(browser::OnlyVideos)), ElementsAre(3));
    EXPECT_THAT(idsOf(made, filteredBy(browser::OnlyPhotos)), ElementsAre(1, 2, 4));
    EXPECT_THAT(idsOf(made, filteredBy(browser::OnlyFavorites)), ElementsAre(1, 2));
    EXPECT_THAT(idsOf(made, filteredBy(browser::OnlyFavorites | browser::OnlyOnDevice)), ElementsAre(1));
    EXPECT_THAT(idsOf(made, filteredBy(browser::OnlyEdited)), ElementsAre(2));
    EXPECT_THAT(idsOf(made, filteredBy(browser::OnlyLocated)), ElementsAre(1));
    EXPECT_THAT(idsOf(made, filteredBy(browser::OnlyLivePhotos)), ElementsAre(4));
}

TEST(FindPhotos, GivesUpWhenToldTo)
{
    MadeSnapshot made;
    made.add(QStringLiteral("a"));
    const std::atomic<bool> stop{true};
    EXPECT_EQ(browser::findPhotos(*made.get(), PhotoQuery(), stop), nullptr);
}

TEST(DatesOf, ReadTheLocalesMonthsAndShortDates)
{
    const qint64 day = at(2019, 3, 24).toMSecsSinceEpoch();
    const QLocale german(QLocale::German, QLocale::Germany);
    const auto has = [day](const QString &word, const QLocale &locale) {
        for (const browser::MonthRange &range : browser::datesOf(word, locale)) {
            if (range.contains(day))
                return true;
        }
        return false;
    };
    EXPECT_TRUE(has(QStringLiteral("März"), german));
    EXPECT_TRUE(has(QStringLiteral("march"), german));
    EXPECT_TRUE(has(QStringLiteral("24.03.2019"), german));
    EXPECT_TRUE(has(QStringLiteral("24.03.19"), german));
    EXPECT_TRUE(has(QStringLiteral("3/24/19"), QLocale(QLocale::English, QLocale::UnitedStates)));
    EXPECT_TRUE(has(QString::fromUtf8("2019年3月"), QLocale(QLocale::Chinese)));
    EXPECT_FALSE(has(QStringLiteral("ma"), german));
    EXPECT_FALSE(has(QStringLiteral("2019-04"), german));
    EXPECT_FALSE(has(QStringLiteral("99/2019"), german));
}

TEST(NaturalOrder, ComparesDigitsAsNumbers)
{
    EXPECT_LT(browser::compareNaturally(QStringLiteral("a9"), QStringLiteral("a10")), 0);
    EXPECT_GT(browser::compareNaturally(QStringLiteral("a100"), QStringLiteral("A20")), 0);
    EXPECT_EQ(browser::compareNaturally(QStringLiteral("a007b"), QStringLiteral("A7B")), 0);
    EXPECT_LT(browser::compareNaturally(QStringLiteral("a"), QStringLiteral("a1")), 0);
}

} // namespace
