// The library itself over a phone whose connections break: at every byte of what is small, and at some of what looks
// alike to the protocol, the middle of the database's files. scripts/test-every-cut.sh breaks them there, too.

#include "memory_phone.h"
#include "phone_reading.h"

#include "devicehost/device_host.h"
#include "devicehost/host_state.h"
#include "photolib/photolib.h"
#include "testing/library_builder.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <memory>

namespace
{

constexpr const char *deviceName = "afc:in this process";
constexpr int photos = 3;

struct ReleaseManager {
    void operator()(photo_manager_int *manager) const { releasePhotolib(&manager); }
};

struct Opened {
    bool opened = false;
    int photoCount = -1;
    QByteArray thumbnail;
    QByteArray file;
    QString failure;
};

/// Tests run in as many parts, which take turns over the bytes.
constexpr int parts = 8;

class LibraryOverABreakingPhone : public testing::TestWithParam<int>
{
protected:
    LibraryOverABreakingPhone()
    {
        qputenv("TMPDIR", temporary.path().toUtf8());
        testkit::BuilderOptions plain;
        plain.builtinAlbums = false;
        plain.indices = false;
        testkit::LibraryBuilder builder(testkit::Era::Ios16, plain);
        for (int n = 1; n <= photos; ++n) {
            testkit::AssetRow row;
            row.directory = QStringLiteral("DCIM/100APPLE");
            row.fileName = QStringLiteral("IMG_000%1.JPG").arg(n);
            ids += builder.addAsset(row);
        }
        const testkit::LibraryBytes library = builder.bytes(testkit::WalMode::WithContent);
        files["/PhotoData/Photos.sqlite"] = library.database;
        files["/PhotoData/Photos.sqlite-wal"] = library.wal;
        files["/DCIM/100APPLE/IMG_0001.JPG"] = photo;
        files["/PhotoData/Thumbnails/V2/DCIM/100APPLE/IMG_0001.JPG/5005.JPG"] = thumbnail;
    }

    /// Opens the library, and reads a thumbnail and a file.
    Opened openOver(MemoryPhone *phone)
    {
        phone->files = files;
        Opened result;
        devicehost::DeviceHost host(QString::fromUtf8(deviceName));
        // What the first opening of the device would do.
        devicehost::hosts::forDevice(deviceName)->session([phone] { return phone->session(); });
        const std::unique_ptr<photo_manager_int, ReleaseManager> manager(getPhotolib(&host));
        if (manager == nullptr)
            return result;
        result.opened = manager->openLibrary();
        result.failure = host.failure();
        if (!result.opened)
            return result;
        result.photoCount = manager->getPhotoCount();
        manager->getThumbnail(&ids.first(), &result.thumbnail);
        manager->readPhotoFile(&ids.first(), &result.file);
        return result;
    }

    /// What came is right. The library may open with what it got of the database; then the host says why it is a part.
    void expectNothingWrong(const Opened &result) const
    {
        if (!result.opened) {
            EXPECT_FALSE(result.failure.isEmpty());
            return;
        }
        if (result.failure.isEmpty()) {
            EXPECT_EQ(result.photoCount, photos);
        }
        EXPECT_TRUE(result.thumbnail.isEmpty() || result.thumbnail == thumbnail);
        EXPECT_TRUE(result.file.isEmpty() || result.file == photo);
    }

    /// This part's share of the bytes behind which connections break.
    QList<qint64> cuts()
    {
        QList<qint64> starts; // of the answers
        qint64 sent = 0;
        MemoryPhone whole;
        whole.edit = [&](int, devicehost::afc::Operation, QByteArray *answer) {
            starts += sent;
            sent += answer->size();
        };
        const Opened expected = openOver(&whole);
        EXPECT_TRUE(expected.opened) << expected.failure.toStdString();
        EXPECT_EQ(expected.photoCount, photos);
        EXPECT_EQ(expected.thumbnail, thumbnail);
        EXPECT_EQ(expected.file, photo);
        EXPECT_EQ(sent, whole.bytesSent);
        starts += sent;
        QList<qint64> all;
        for (int i = 0; i + 1 < starts.size(); ++i)
            all += cutsWithin(starts[i], starts[i + 1]);
        QList<qint64> share;
        for (int i = GetParam(); i < all.size(); i += parts)
            share += all[i];
        EXPECT_FALSE(share.isEmpty());
        return share;
    }

    static QList<qint64> cutsWithin(qint64 begin, qint64 end)
    {
        constexpr qint64 edge = 100;
        constexpr int placesBetween = 12;
        const bool isSmall = end - begin < 6 * edge || !qEnvironmentVariableIsEmpty("PHOTOLIB_EVERY_CUT");
        const qint64 stride = isSmall ? 1 : (end - begin) / placesBetween;
        QList<qint64> cuts;
        for (qint64 cut = begin; cut < end; cut += cut < begin + edge || cut >= end - edge ? 1 : stride)
            cuts += cut;
        return cuts;
    }

    QTemporaryDir temporary;
    QList<qint64> ids;
    QMap<QByteArray, QByteArray> files;
    const QByteArray photo = patterned(200);
    const QByteArray thumbnail = "\xFF\xD8\xFF" + patterned(100);
};

} // namespace

TEST_P(LibraryOverABreakingPhone, ACutIsMendedWhereverItComes)
{
    for (const qint64 cut : cuts()) {
        SCOPED_TRACE(cut);
        MemoryPhone phone;
        phone.cutAfter = cut;
        const Opened result = openOver(&phone);
        EXPECT_TRUE(result.opened);
        EXPECT_EQ(result.failure, QString());
        EXPECT_EQ(result.photoCount, photos);
        EXPECT_EQ(result.thumbnail, thumbnail);
        EXPECT_EQ(result.file, photo);
        EXPECT_EQ(phone.openConnections, 0);
        EXPECT_EQ(phone.openHandles, 0);
    }
}

TEST_P(LibraryOverABreakingPhone, APhoneThatIsUnpluggedIsAFailureThatIsSaid)
{
    for (const qint64 cut : cuts()) {
        SCOPED_TRACE(cut);
        MemoryPhone phone;
        phone.cutAfter = cut;
        phone.connectionsAllowed = 1;
        const Opened result = openOver(&phone);
        expectNothingWrong(result);
        if (cut < files["/PhotoData/Photos.sqlite"].size()) {
            EXPECT_TRUE(result.failure.startsWith(QStringLiteral("/PhotoData/Photos.sqlite on the device cannot be ")))
                << result.failure.toStdString();
            EXPECT_TRUE(result.failure.endsWith(QStringLiteral(
                ": the device is not connected; connect it with a cable or over the network, unlock it and try again")))
                << result.failure.toStdString();
        }
        EXPECT_EQ(phone.openConnections, 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Parts, LibraryOverABreakingPhone, testing::Range(0, parts));
