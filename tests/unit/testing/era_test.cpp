#include "testing/builtin_albums.h"
#include "testing/era.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace testkit
{

namespace
{

TEST(Era, NamesFindTheirEraInAnyCase)
{
    EXPECT_EQ(eraFromName(QStringLiteral("ios13")), Era::Ios13);
    EXPECT_EQ(eraFromName(QStringLiteral("iOS26")), Era::Ios26);
    EXPECT_EQ(eraFromName(QStringLiteral("ios10")), std::nullopt);
    EXPECT_EQ(eraFromName(QString()), std::nullopt);
    ASSERT_EQ(eraNames().size(), allEras().size());
    for (int i = 0; i < allEras().size(); ++i)
        EXPECT_EQ(eraFromName(eraNames().at(i)), allEras().at(i));
}

TEST(Era, FactsBelongToTheEraAskedFor)
{
    for (const Era era : allEras())
        EXPECT_EQ(factsOf(era).era, era);
}

TEST(Era, EntityNumbersRiseInAlphabeticalOrderOfTheRoots)
{
    for (const Era era : allEras()) {
        const EraFacts &facts = factsOf(era);
        EXPECT_LT(facts.detectedFace + 1, facts.genericAlbum) << facts.name;
        EXPECT_EQ(facts.album, facts.genericAlbum + 1) << facts.name;
        EXPECT_EQ(facts.cloudSharedAlbum, facts.album + 1) << facts.name;
        EXPECT_EQ(facts.folder, facts.fetchingAlbum + 1) << facts.name;
        EXPECT_EQ(facts.importSession, facts.folder + 1) << facts.name;
        EXPECT_LT(facts.importSession, facts.memory) << facts.name;
        EXPECT_LT(facts.memory, facts.person) << facts.name;
        if (facts.hasGenericAsset()) {
            EXPECT_EQ(facts.assetEntityNumber, facts.importSession + 1) << facts.name;
        }
    }
}

TEST(Era, JoinTablesCarryTheNumbersOfBothSides)
{
    const EraFacts &ios13 = factsOf(Era::Ios13);
    EXPECT_EQ(ios13.albumJoinTable(), QStringLiteral("Z_26ASSETS"));
    EXPECT_EQ(ios13.albumJoinAlbumColumn(), QStringLiteral("Z_26ALBUMS"));
    EXPECT_EQ(ios13.albumJoinAssetColumn(), QStringLiteral("Z_34ASSETS"));
    EXPECT_EQ(ios13.albumJoinOrderColumn(), QStringLiteral("Z_FOK_34ASSETS"));
    const EraFacts &ios18 = factsOf(Era::Ios18);
    EXPECT_EQ(ios18.memoryJoinTable(), QStringLiteral("Z_3MEMORIESBEINGEXTENDEDCURATEDASSETS"));
    EXPECT_EQ(ios18.memoryJoinAssetColumn(), QStringLiteral("Z_3EXTENDEDCURATEDASSETS"));
    EXPECT_EQ(ios18.memoryJoinMemoryColumn(), QStringLiteral("Z_51MEMORIESBEINGEXTENDEDCURATEDASSETS"));
}

TEST(Era, NoReleaseHasAllOptionalColumns)
{
    EXPECT_EQ(optionalColumns().size(), 27);
    const QVector<int> counts{6, 5, 4, 3, 5, 2, 2, 3, 3};
    ASSERT_EQ(counts.size(), allEras().size());
    for (int i = 0; i < counts.size(); ++i)
        EXPECT_EQ(missingOptionalColumns(allEras().at(i)).size(), counts.at(i)) << factsOf(allEras().at(i)).name;
}

TEST(BuiltinAlbums, GrowWithTheReleases)
{
    const QVector<int> counts{38, 38, 38, 38, 41, 45, 45, 47, 48};
    ASSERT_EQ(counts.size(), allEras().size());
    for (int i = 0; i < counts.size(); ++i)
        EXPECT_EQ(builtinAlbumsOf(allEras().at(i)).size(), counts.at(i)) << factsOf(allEras().at(i)).name;
}

TEST(BuiltinAlbums, KindDecidesTheEntity)
{
    EXPECT_EQ(albumEntityOf(Era::Ios13, 2), 26);
    EXPECT_EQ(albumEntityOf(Era::Ios13, 1505), 27);
    EXPECT_EQ(albumEntityOf(Era::Ios13, 1506), 33);
    EXPECT_EQ(albumEntityOf(Era::Ios13, 1507), 31);
    EXPECT_EQ(albumEntityOf(Era::Ios13, 1550), 26);
    EXPECT_EQ(albumEntityOf(Era::Ios13, 1615), 31);
    EXPECT_EQ(albumEntityOf(Era::Ios13, 3999), 32);
    EXPECT_EQ(albumEntityOf(Era::Ios26, 1510), 35);
}

TEST(BuiltinAlbums, KindWhoseEntityTheEraLacksIsAnAlbum)
{
    EXPECT_EQ(albumEntityOf(Era::Ios14, 1509), 26);
    EXPECT_EQ(albumEntityOf(Era::Ios15, 1509), 32);
}

} // namespace

} // namespace testkit
