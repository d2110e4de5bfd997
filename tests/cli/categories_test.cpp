#include "apps/cli/categories.h"

#include "apps/cli/album_kinds.h"

#include <gtest/gtest.h>

#include <set>

namespace photocli
{

TEST(Categories, CodesAscendFromOneToTwentyNineWithoutTwo)
{
    std::set<std::string> names;
    int expected = 1;
    for (const Category &category : categories()) {
        EXPECT_EQ(category.code, expected);
        expected += expected == 1 ? 2 : 1;
        EXPECT_TRUE(names.insert(category.name).second) << category.name;
    }
    EXPECT_EQ(expected, 30);
}

TEST(Categories, AreFoundByNameOrNumberInAnyCase)
{
    ASSERT_NE(findCategory(QStringLiteral("Camera-ROLL")), nullptr);
    EXPECT_EQ(findCategory(QStringLiteral("Camera-ROLL"))->code, 25);
    ASSERT_NE(findCategory(QStringLiteral("6")), nullptr);
    EXPECT_STREQ(findCategory(QStringLiteral("6"))->name, "recently-deleted");
    for (const char *unknown : {"", "2", "0", "30", "-1", "camera", "99999999999"})
        EXPECT_EQ(findCategory(QString::fromLatin1(unknown)), nullptr) << unknown;
}

TEST(AlbumKinds, HaveNamesAndUnknownOnesTheirNumber)
{
    EXPECT_EQ(albumKindName(2), QStringLiteral("user album"));
    EXPECT_EQ(albumKindName(1505), QStringLiteral("shared album"));
    EXPECT_EQ(albumKindName(4000), QStringLiteral("folder"));
    EXPECT_EQ(albumKindName(77), QStringLiteral("kind 77"));
}

TEST(AlbumKinds, BuiltinAlbumsAreTheNamelessOnesOfTheDevice)
{
    albumItem album;
    album.kind = 1605;
    EXPECT_TRUE(isBuiltinAlbum(album));
    album.title = QStringLiteral("Shown");
    EXPECT_FALSE(isBuiltinAlbum(album));
    album.kind = 3571;
    EXPECT_TRUE(isBuiltinAlbum(album));
    album.title.clear();
    for (const qint32 kind : {2, 1506, 1550, 4000}) {
        album.kind = kind;
        EXPECT_FALSE(isBuiltinAlbum(album)) << kind;
    }
}

} // namespace photocli
