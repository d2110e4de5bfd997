#include "tests/cli/sample/sample_folder.h"

#include "devicehost/device_host.h"
#include "photolib/photolib.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QMap>
#include <gtest/gtest.h>

namespace
{

// A sample device, opened through the library as any host opens one.
class OpenedSample
{
public:
    explicit OpenedSample(const QString &era, SampleParts parts)
        : folder(era, parts), host(QStringLiteral("folder:") + folder.root()), manager(getPhotolib(&host))
    {
    }
    ~OpenedSample() { releasePhotolib(&manager); }
    OpenedSample(const OpenedSample &) = delete;
    OpenedSample &operator=(const OpenedSample &) = delete;

    SampleFolder folder;
    devicehost::DeviceHost host;
    photo_manager_int *manager;
};

// ZORIGINALFILESIZE of the attribute rows by the value of `column`.
QMap<qint64, qint64> sizesBy(const SampleFolder &folder, const char *column)
{
    QMap<qint64, qint64> sizes;
    const auto rows = folder.rows(
        QStringLiteral("SELECT %1, ZORIGINALFILESIZE FROM ZADDITIONALASSETATTRIBUTES").arg(QLatin1String(column)));
    for (const auto &row : rows)
        sizes.insert(numberOf(row[0]), numberOf(row[1]));
    return sizes;
}

int sizeOfGroups(photo_manager_int *manager, int category)
{
    int size = 0;
    for (const QString &key : manager->getGroupKeys(category))
        size += manager->getPhotoGroup(category, key).assetIds.size();
    return size;
}

} // namespace

TEST(SampleLibrary, EveryKindOfGroupHasMembers)
{
    OpenedSample sample(QStringLiteral("ios16"), SampleParts::DatabaseOnly);
    ASSERT_TRUE(sample.folder.written()) << qPrintable(sample.folder.error());
    ASSERT_NE(sample.manager, nullptr);
    ASSERT_TRUE(sample.manager->openLibrary()) << qPrintable(sample.host.failure());
    EXPECT_EQ(sample.manager->getPhotoCount(), sample.folder.report().assets);
    // Code 2 is never made, and no release that is known sets the badge of code 22.
    for (int category = 1; category <= 29; ++category)
        if (category != 2 && category != 22) {
            EXPECT_GT(sizeOfGroups(sample.manager, category), 0) << "category " << category;
        }
}

TEST(SampleLibrary, BurstsHaveACoverAndMemoriesATitle)
{
    OpenedSample sample(QString(), SampleParts::DatabaseOnly);
    ASSERT_TRUE(sample.folder.written()) << qPrintable(sample.folder.error());
    ASSERT_TRUE(sample.manager->openLibrary()) << qPrintable(sample.host.failure());
    ASSERT_EQ(sample.manager->getGroupKeys(16).size(), 3);
    for (const QString &key : sample.manager->getGroupKeys(16)) {
        const photoGroup burst = sample.manager->getPhotoGroup(16, key);
        EXPECT_EQ(burst.assetIds.size(), 5);
        EXPECT_TRUE(burst.assetIds.contains(burst.coverAssetId)) << qPrintable(key);
    }
    ASSERT_EQ(sample.manager->getGroupKeys(15).size(), sample.folder.report().memories);
    for (const QString &key : sample.manager->getGroupKeys(15)) {
        const photoGroup memory = sample.manager->getPhotoGroup(15, key);
        EXPECT_FALSE(memory.title.isEmpty()) << qPrintable(key);
        EXPECT_TRUE(memory.assetIds.contains(memory.coverAssetId)) << qPrintable(key);
    }
}

TEST(SampleLibrary, EveryPhotoHasAThumbnailAndEveryOneOnTheDeviceItsFile)
{
    OpenedSample sample(QStringLiteral("ios18"), SampleParts::All);
    ASSERT_TRUE(sample.folder.written()) << qPrintable(sample.folder.error());
    ASSERT_TRUE(sample.manager->openLibrary()) << qPrintable(sample.host.failure());
    const QDir device(sample.folder.root());
    const QMap<qint64, qint64> sizes = sizesBy(sample.folder, "ZASSET");
    int fromContainers = 0, fromFiles = 0;
    for (const qint64 id : sample.manager->getPhotoList()) {
        photoItem photo;
        ASSERT_TRUE(sample.manager->getPhotoItem(&id, &photo));
        QByteArray thumbnail;
        EXPECT_EQ(sample.manager->getThumbnail(&id, &thumbnail), 0) << qPrintable(photo.fileName);
        EXPECT_FALSE(QImage::fromData(thumbnail).isNull()) << qPrintable(photo.fileName);
        (thumbnail.startsWith("BM") ? fromContainers : fromFiles)++;
        const QFileInfo file(device.filePath(photo.directory + QLatin1Char('/') + photo.fileName));
        const bool inCloud = photo.fileName.endsWith(QLatin1String(".HEIC"));
        EXPECT_EQ(file.exists(), !inCloud) << qPrintable(photo.fileName);
        QByteArray content;
        EXPECT_EQ(sample.manager->readPhotoFile(&id, &content), inCloud ? 0 : 1) << qPrintable(photo.fileName);
        if (!inCloud) {
            EXPECT_EQ(content.size(), sizes.value(id)) << qPrintable(photo.fileName);
            EXPECT_TRUE(content == sample.folder.read(photo.directory + QLatin1Char('/') + photo.fileName))
                << qPrintable(photo.fileName);
        }
    }
    EXPECT_GT(fromContainers, 30);
    EXPECT_GT(fromFiles, 150);
}

// The attribute rows have keys of their own, and the library pairs them with the assets by these.
TEST(SampleLibrary, SizesAsReadFollowTheKeyOfTheAttributeRow)
{
    OpenedSample sample(QString(), SampleParts::All);
    ASSERT_TRUE(sample.folder.written()) << qPrintable(sample.folder.error());
    ASSERT_TRUE(sample.manager->openLibrary()) << qPrintable(sample.host.failure());
    const QMap<qint64, qint64> byKey = sizesBy(sample.folder, "Z_PK"), byAsset = sizesBy(sample.folder, "ZASSET");
    int ofAnother = 0;
    for (const qint64 id : sample.manager->getPhotoList()) {
        photoItem photo;
        ASSERT_TRUE(sample.manager->getPhotoItem(&id, &photo));
        EXPECT_EQ(photo.fileSize, byKey.value(id)) << qPrintable(photo.fileName);
        ofAnother += photo.fileSize != byAsset.value(id);
    }
    EXPECT_GT(ofAnother, 0);
}
