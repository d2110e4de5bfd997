#include "tests/browser/support/opened_folder.h"
#include "tests/cli/sample/sample_folder.h"

#include <QDir>

#include <gtest/gtest.h>

namespace
{

using browser::OpenedLibrary;

class OpenedSample : public testing::Test
{
protected:
    static void SetUpTestSuite() { folder = new SampleFolder; }
    static void TearDownTestSuite()
    {
        delete folder;
        folder = nullptr;
    }

    static SampleFolder *folder;
    std::shared_ptr<OpenedLibrary> library = openFolder(folder->root());
};

SampleFolder *OpenedSample::folder = nullptr;

TEST_F(OpenedSample, GivesTheBytesOfAnOriginal)
{
    ASSERT_NE(library, nullptr);
    const browser::Photo &photo = library->snapshot().photos.front();
    const std::optional<QByteArray> bytes = library->file(photo.id);
    ASSERT_TRUE(bytes.has_value());
    EXPECT_EQ(*bytes, folder->read(library->devicePath(photo.id)));
}

TEST_F(OpenedSample, KnowsNothingOfAnUnknownPhoto)
{
    ASSERT_NE(library, nullptr);
    EXPECT_FALSE(library->item(999'999).has_value());
    EXPECT_FALSE(library->file(999'999).has_value());
    EXPECT_TRUE(library->thumbnail(999'999).isEmpty());
}

TEST_F(OpenedSample, ReadsNothingMoreOnceStopped)
{
    ASSERT_NE(library, nullptr);
    const qint64 id = library->snapshot().photos.front().id;
    library->stop();
    EXPECT_FALSE(library->file(id).has_value());
    EXPECT_TRUE(library->thumbnail(id).isEmpty());
    EXPECT_TRUE(library->item(id).has_value());
}

TEST_F(OpenedSample, IsNotThereOnceItsMountIsEmpty)
{
    ASSERT_NE(library, nullptr);
    EXPECT_TRUE(library->isAvailable());
    const QString photos = folder->path(QStringLiteral("PhotoData"));
    ASSERT_TRUE(QDir().rename(photos, photos + QStringLiteral(".away")));
    EXPECT_FALSE(library->isAvailable());
    ASSERT_TRUE(QDir().rename(photos + QStringLiteral(".away"), photos));
}

TEST_F(OpenedSample, IsFreedByTheTimeThatWaitingForItEnds)
{
    ASSERT_NE(library, nullptr);
    const std::weak_ptr<OpenedLibrary> watched = library;
    browser::retire(std::move(library));
    browser::waitForRetired();
    EXPECT_TRUE(watched.expired());
}

} // namespace
