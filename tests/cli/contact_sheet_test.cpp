#include "apps/cli/contact_sheet/group_title.h"
#include "apps/cli/contact_sheet/html_text.h"
#include "apps/cli/contact_sheet/sheet_page.h"
#include "tests/cli/fake_library.h"
#include "tests/cli/written.h"

#include <gtest/gtest.h>

#include <QImage>

namespace photocli
{

namespace
{

// A bitmap of 2x1 pixels, as the library makes one from a frame.
QByteArray bitmap()
{
    QByteArray bytes("BM\x3E\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x02\0\0\0\x01\0\0\0\x01\0\x18\0", 30);
    bytes += QByteArray(24, '\0');
    return bytes + QByteArray("\xF8\0\0\0\0\xF8\0\0", 8);
}

class PictureLibrary : public FakeLibrary
{
public:
    int getThumbnail(const qint64 *photoId, QByteArray *out) override
    {
        ++asked[*photoId];
        const auto found = thumbnails.constFind(*photoId);
        if (found == thumbnails.constEnd())
            return -1;
        *out = *found;
        return 0;
    }

    QMap<qint64, QByteArray> thumbnails;
    QMap<qint64, int> asked;
};

QStringList titles(const SheetPlan &plan)
{
    QStringList list;
    for (const SheetSection &section : plan.sections) {
        list += section.title;
        for (const SheetGroup &group : section.groups)
            list += QStringLiteral("- %1 (%2)").arg(group.title).arg(group.photos).simplified();
    }
    return list;
}

} // namespace

TEST(HtmlText, WhatIsMarkupIsEscaped)
{
    EXPECT_EQ(htmlText(QStringLiteral("<a href=\"x\">'&amp;'</a>")),
              QByteArray("&lt;a href=&quot;x&quot;&gt;&#39;&amp;amp;&#39;&lt;/a&gt;"));
    EXPECT_EQ(htmlText(QString::fromUtf8("Straße 東京 😀")), QByteArray("Straße 東京 😀"));
}

TEST(HtmlText, WhatHtmlForbidsIsMadeVisible)
{
    EXPECT_EQ(htmlText(QString::fromUtf16(u"a\u0001b\u007Fc\u0085d")), QByteArray("a\u2401b\u2421c\uFFFDd"));
    EXPECT_EQ(htmlText(QString(QChar(0))), QByteArray("\u2400"));
    EXPECT_EQ(htmlText(QString::fromUtf16(u"\u202Eabc")), QByteArray("\uFFFDabc"));
    EXPECT_EQ(htmlText(QString(QChar(0xFFFE)) + QChar(0xFDD0)), QByteArray("\uFFFD\uFFFD"));
    EXPECT_EQ(htmlText(QString(QChar(0xD800)) + QChar('x')), QByteArray("\uFFFDx"));
}

TEST(GroupTitle, KeysBecomeWordsWhereTheyMeanSomething)
{
    FakeLibrary library;
    photoItem &photo = library.addPhoto(1);
    photo.latitude = -33.96251;
    photo.longitude = 18.41;
    for (const int category : {4, 5, 15, 16, 23})
        library.addGroup(category, QStringLiteral("12"), {1});
    EXPECT_EQ(groupTitle(library, 4, QStringLiteral("12"), 1), QStringLiteral("Person 12"));
    EXPECT_EQ(groupTitle(library, 5, QStringLiteral("12"), 1), QString::fromUtf8("33.9625° S, 18.4100° E"));
    EXPECT_EQ(groupTitle(library, 15, QStringLiteral("12"), 1), QStringLiteral("Memory 12"));
    EXPECT_EQ(groupTitle(library, 16, QStringLiteral("12"), 1), QStringLiteral("Burst"));
    EXPECT_EQ(groupTitle(library, 23, QStringLiteral("12"), 1), QStringLiteral("12"));
    EXPECT_EQ(groupTitle(library, 7, QStringLiteral("0"), 1), QString());
}

TEST(SheetPlan, EverythingIsSortedWhenNothingIsNamed)
{
    FakeLibrary library;
    for (qint64 id = 1; id <= 4; ++id)
        library.addPhoto(id);
    library.addGroup(1, QStringLiteral("0"), {2});
    library.addGroup(3, QStringLiteral("0"), {1, 3, 3, 99});
    library.addGroup(7, QStringLiteral("0"), {3});
    library.addAlbum(5, QStringLiteral("Trip"), {3, 1});
    library.addAlbum(6, QString(), {1});
    EXPECT_EQ(titles(planSheet(library, {})), QStringList({"Photos", "- (2)", "Videos", "- (1)", "Albums", "- Trip (2)",
                                                           "Favorites", "- (1)", "In no group", "- (1)"}))
        << titles(planSheet(library, {})).join('|').toStdString();
}

TEST(SheetPlan, GroupsWithoutAChosenPhotoAreLeftOut)
{
    FakeLibrary library;
    library.addPhoto(1).favorite = 1;
    library.addPhoto(2);
    library.addGroup(3, QStringLiteral("0"), {1, 2});
    library.addGroup(17, QStringLiteral("0"), {2});
    SelectionRequest request;
    request.favorite = true;
    EXPECT_EQ(titles(planSheet(library, request)), QStringList({"Photos", "- (1)"}));
}

TEST(SheetPlan, AlbumNamedTwiceComesOnceInItsOrder)
{
    FakeLibrary library;
    for (qint64 id = 1; id <= 3; ++id)
        library.addPhoto(id);
    library.addAlbum(5, QStringLiteral("Trip"), {3, 1, 3});
    SelectionRequest request;
    request.albums = QStringList{"Trip", "5"};
    const SheetPlan plan = planSheet(library, request);
    ASSERT_EQ(titles(plan), QStringList({"Albums", "- Trip (2)"}));
    EXPECT_EQ(photosOf(library, plan, plan.sections.first().groups.first()), QList<qint64>({3, 1}));
}

TEST(SheetPictures, BitmapsBecomeSmallerAndEachIsAskedForOnce)
{
    PictureLibrary library;
    library.thumbnails[1] = bitmap();
    library.thumbnails[2] = "no picture";
    SheetPictures pictures(library);
    const SheetPicture first = pictures.take(1);
    EXPECT_TRUE(first.uri.startsWith("data:image/jpeg;base64,/9j/")) << first.uri.toStdString();
    EXPECT_EQ(first.size, QSize(2, 1));
    EXPECT_FALSE(pictures.take(1).isFirst());
    EXPECT_TRUE(pictures.take(1).isThere());
    EXPECT_EQ(library.asked[1], 1);
    EXPECT_FALSE(pictures.take(2).isThere());
    EXPECT_FALSE(pictures.take(3).isThere());
    EXPECT_FALSE(pictures.take(3).isThere());
    EXPECT_EQ(library.asked[3], 1);
    EXPECT_EQ(pictures.taken(), 3);
    EXPECT_EQ(pictures.missing(), 2);
}

TEST(SheetPage, EndsEarlyWhenAskedTo)
{
    PictureLibrary library;
    for (qint64 id = 1; id <= 10; ++id)
        library.addPhoto(id);
    library.addGroup(3, QStringLiteral("0"), library.getPhotoList());
    const SheetPlan plan = planSheet(library, {});
    int left = 3;
    written([&](Output &out) { SheetPage(out, library, plan).write(QStringLiteral("x"), [&] { return left-- > 0; }); });
    EXPECT_EQ(library.asked.size(), 3);
}

} // namespace photocli
