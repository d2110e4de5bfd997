#include "apps/browser/exporting/export_choices.h"
#include "photolib/photo_item.h"

#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace
{

photoItem samplePhoto()
{
    photoItem photo;
    photo.fileName = QStringLiteral("IMG_0001.HEIC");
    photo.directory = QStringLiteral("DCIM/100APPLE");
    photo.dateCreated = QDateTime(QDate(2024, 5, 1), QTime(12, 30, 15), Qt::UTC);
    return photo;
}

class Choices : public testing::Test
{
protected:
    QTemporaryDir folder;
    QSettings settings{folder.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat};
};

TEST(LayoutPresets, AreValidAndDifferent)
{
    QStringList examples;
    for (const browser::LayoutPreset &preset : browser::layoutPresets()) {
        EXPECT_TRUE(browser::layoutError(preset.layout).isEmpty()) << preset.layout.toStdString();
        examples += browser::layoutExample(preset.layout, samplePhoto());
        EXPECT_TRUE(examples.last().endsWith(QStringLiteral(".HEIC")));
    }
    EXPECT_EQ(examples.removeDuplicates(), 0);
    EXPECT_EQ(examples[1].toStdString(), "2024/2024-05/IMG_0001.HEIC");
    EXPECT_EQ(examples.last().toStdString(), "DCIM/100APPLE/IMG_0001.HEIC");
}

TEST(LayoutPresets, SayWhereALayoutIsWrong)
{
    EXPECT_TRUE(browser::layoutError(QStringLiteral("{created:yyyy}/{fileNam}")).contains(QStringLiteral("character")));
    EXPECT_TRUE(browser::layoutExample(QStringLiteral("{"), samplePhoto()).isEmpty());
}

TEST_F(Choices, HaveGoodDefaults)
{
    const browser::ExportChoices choices = browser::loadChoices(settings);
    EXPECT_EQ(choices.layout, browser::layoutPresets().first().layout);
    EXPECT_FALSE(choices.destination.isEmpty());
    EXPECT_FALSE(choices.albums);
}

TEST_F(Choices, AreThoseOfTheLastTime)
{
    browser::ExportChoices choices;
    choices.layout = QStringLiteral("{created:yyyy}/{fileName}");
    choices.albums = true;
    for (int i = 0; i < 12; ++i) {
        choices.destination = QStringLiteral("/exports/%1").arg(i);
        browser::saveChoices(settings, choices);
    }
    choices.destination = QStringLiteral("/exports/9");
    browser::saveChoices(settings, choices);
    const browser::ExportChoices loaded = browser::loadChoices(settings);
    EXPECT_EQ(loaded.destination, choices.destination);
    EXPECT_EQ(loaded.layout, choices.layout);
    EXPECT_TRUE(loaded.albums);
    EXPECT_FALSE(loaded.edited);
    const QStringList recent = browser::recentDestinations(settings);
    EXPECT_EQ(recent.size(), 8);
    EXPECT_EQ(recent.mid(0, 2), (QStringList{QStringLiteral("/exports/9"), QStringLiteral("/exports/11")}));
}

TEST_F(Choices, SavedByAnotherVersionAreLeftOutWhenTheyAreNotValid)
{
    settings.setValue(QStringLiteral("export/layout"), QStringLiteral("{unknown}"));
    EXPECT_EQ(browser::loadChoices(settings).layout, browser::layoutPresets().first().layout);
}

} // namespace
