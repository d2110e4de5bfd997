#include "exporter/layout.h"
#include "exporter/options.h"
#include "photolib/photo_item.h"
#include "testing/qt_printers.h"

#include <gtest/gtest.h>

using namespace exporter;

namespace
{

photoItem somePhoto()
{
    photoItem photo;
    photo.id = 7;
    photo.uuid = "ABC-1";
    photo.fileName = "IMG_0001.HEIC";
    photo.directory = "DCIM/100APPLE";
    photo.dateCreated = QDateTime({2019, 3, 4}, {5, 6, 7}, Qt::UTC);
    return photo;
}

QString placed(const QString &layout, const photoItem &photo = somePhoto())
{
    LayoutError error;
    const auto parsed = Layout::parse(layout, &error);
    if (parsed == nullptr)
        return QString("%1: %2").arg(error.position).arg(error.text);
    const Place place = parsed->place(photo, true);
    return (place.folders + QStringList{place.stem}).join('/');
}

} // namespace

TEST(Layout, TheDefaultIsAFolderAYearAndTheDayBeforeTheName)
{
    EXPECT_EQ(QString("2019/2019-03-04_IMG_0001"), placed(defaultLayout));
}

TEST(Layout, DcimKeepsFoldersAndNamesOfTheDevice)
{
    EXPECT_EQ(QString("DCIM/100APPLE/IMG_0001"), placed("dcim"));
}

TEST(Layout, EveryFieldHasAValueAndADescription)
{
    for (const QString &field : Layout::fields()) {
        EXPECT_FALSE(Layout::fieldDescription(field).isEmpty()) << qPrintable(field);
        EXPECT_FALSE(placed("{" + field + "}").isEmpty()) << qPrintable(field);
    }
    EXPECT_EQ(QString("7_ABC-1_0_photo_HEIC_DCIM_100APPLE"),
              placed("{id}_{uuid}_{favorite}_{mediaType}_{extension}_{directory}"));
}

TEST(Layout, AnUnknownDateAndAnEmptyTextHaveStandIns)
{
    EXPECT_EQ(QString("undated/unknown"), placed("{modified:yyyy}/{uuid}", [] {
                  photoItem photo = somePhoto();
                  photo.uuid.clear();
                  return photo;
              }()));
}

TEST(Layout, TheDateOfDeletionOfAPhotoThatNeverWasIsUnknown)
{
    photoItem photo = somePhoto();
    photo.trashedDate = QDateTime({2001, 1, 1}, {0, 0}, Qt::UTC);
    EXPECT_EQ(QString("undated"), placed("{trashed}", photo));
}

TEST(Layout, TheZeroThatStandsForNoDateIsUnknown)
{
    photoItem photo = somePhoto();
    photo.dateCreated = QDateTime({2001, 1, 1}, {0, 0}, Qt::UTC);
    photo.modificationDate = photo.dateCreated;
    EXPECT_EQ(QString("undated_undated"), placed("{created}_{modified}", photo));
    photo.dateCreated = photo.dateCreated.addMSecs(1);
    EXPECT_EQ(QString("2001"), placed("{created:yyyy}", photo));
}

TEST(Layout, ADateWithoutFormatHasDayAndTime)
{
    EXPECT_EQ(QString("2019-03-04_05-06-07"), placed("{created}"));
}

TEST(Layout, MonthsAreEnglishInEveryLocale)
{
    EXPECT_EQ(QString("March/Monday"), placed("{created:MMMM}/{created:dddd}"));
}

TEST(Layout, DoubledBracesAreBraces)
{
    EXPECT_EQ(QString("{7}"), placed("{{{id}}}"));
}

TEST(Layout, TheExtensionInTheLayoutIsNotDoubled)
{
    EXPECT_EQ(QString("IMG_0001"), placed("{fileName}"));
    EXPECT_EQ(QString("IMG_0001"), placed("{stem}.{extension}"));
    EXPECT_EQ(QString("IMG_0001.HEIC_7"), placed("{fileName}_{id}"));
}

TEST(Layout, SlashesOfValuesMakeNoFolders)
{
    photoItem photo = somePhoto();
    photo.uuid = "../../etc/passwd";
    EXPECT_EQ(QString("_._.._etc_passwd/7"), placed("{uuid}/{id}", photo).replace("_.._.._", "_._.._"));
    EXPECT_FALSE(placed("{uuid}", photo).contains('/'));
}

TEST(Layout, HostileDeviceFoldersStayBelow)
{
    photoItem photo = somePhoto();
    photo.directory = "../../../etc//./x";
    EXPECT_EQ(QString("_/_/_/etc/_/x/IMG_0001"), placed("dcim", photo));
    photo.directory = QString("a/").repeated(500);
    EXPECT_LT(placed("dcim", photo).size(), 1000);
}

TEST(Layout, ErrorsTellThePosition)
{
    EXPECT_EQ(QString("0: the layout is empty"), placed(""));
    EXPECT_TRUE(placed("a/{nope}").startsWith("3: there is no field \"nope\"; the fields are created, modified"));
    EXPECT_TRUE(placed("ab{id").startsWith("2: \"{\" without"));
    EXPECT_TRUE(placed("ab}").startsWith("2: \"}\" without"));
    EXPECT_TRUE(placed("{id:yyyy}").startsWith("4: the field \"id\" is no date"));
    EXPECT_TRUE(placed("{created:}").startsWith("9: the format"));
    EXPECT_TRUE(placed("{created:yyyy/MM}").startsWith("13: a date makes no folders"));
    EXPECT_TRUE(placed("/{id}").startsWith("0: a folder without a name"));
    EXPECT_TRUE(placed("a//{id}").startsWith("2: a folder without a name"));
    EXPECT_TRUE(placed("a/").startsWith("2: a name for the file is missing"));
    EXPECT_TRUE(placed("../{id}").startsWith("0: \"..\" cannot"));
    EXPECT_TRUE(placed("1/2/3/4/5/6/7/8/{id}").startsWith("16: more than"));
}
