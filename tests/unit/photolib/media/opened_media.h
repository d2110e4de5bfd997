#ifndef TESTS_UNIT_PHOTOLIB_MEDIA_OPENED_MEDIA_H
#define TESTS_UNIT_PHOTOLIB_MEDIA_OPENED_MEDIA_H

#include "testing/log_recorder.h"
#include "tests/unit/photolib/made_library.h"
#include "tests/unit/photolib/photo_manager_probe.h"

#include <gtest/gtest.h>

/// A manager with an open library of the photos that a test adds; no database stands behind it. A test must consume
/// every line that is logged.
class OpenedMedia
{
public:
    static constexpr qint64 id = 7;

    explicit OpenedMedia(testkit::FakeDevice &device) : manager(makeManager(device))
    {
        probe.setReader(new Photos_DB(nullptr));
        log.takeAll();
        device.clearOperations();
    }

    /// Puts the photo 7 into the library, in place of the one before.
    assetRecord &setPhoto(const QString &directory, const QString &fileName, int kind = 0, int thumbnailIndex = -1)
    {
        auto *photo = new assetRecord;
        photo->pk = id;
        photo->directory = directory;
        photo->fileName = fileName;
        photo->kind = kind;
        photo->thumbnailIndex = thumbnailIndex;
        probe.reader()->addAsset(photo);
        return *photo;
    }

    int thumbnail(QByteArray *out) const
    {
        const qint64 key = id;
        return manager->getThumbnail(&key, out);
    }

    int file(QByteArray *out) const
    {
        const qint64 key = id;
        return manager->readPhotoFile(&key, out);
    }

    testkit::LogRecorder log;
    const Manager manager;
    PhotoManagerProbe probe{implementationOf(manager)};
};

/// A library with one photo, DCIM/100APPLE/IMG_0001.JPG without a frame, on a device without files.
class MediaTest : public testing::Test
{
protected:
    MediaTest() { library.setPhoto("DCIM/100APPLE", "IMG_0001.JPG"); }

    /// Has the library asked to cancel just before the `number`-th operation of this kind is carried out.
    void cancelAt(testkit::OperationKind kind, int number = 1)
    {
        operationsUntilCancel = number;
        device.onOperation([this, kind](const testkit::Operation &operation) {
            if (operation.kind == kind && --operationsUntilCancel == 0)
                library.manager->cancel();
        });
    }

    /// Has the test fail for every handle that is open while a line is logged.
    void expectLinesAfterCloses()
    {
        library.log.onLine([this](const QString &line) {
            EXPECT_EQ(device.openHandles(), QStringList()) << line.toStdString();
            EXPECT_TRUE(device.operations().last().startsWith("vDevClose")) << line.toStdString();
        });
    }

    testkit::FakeDevice device;
    OpenedMedia library{device};
    QByteArray out = "untouched";

private:
    int operationsUntilCancel = 0;
};

constexpr char newlyAdded[] = "PHOTOLIB 1 This is a newly added photo?";
constexpr char disconnected[] = "PHOTOLIB 2 Can not vDevOpen m_pDev , disconnected ?  fake:device";
constexpr char noContainer[] = "PHOTOLIB 2 Can not decide teh iThmb file";

/// What the library does on the device to find that a file is not there.
inline QStringList missingFile(int deviceNumber, const QString &path)
{
    const QString dev = "dev" + QString::number(deviceNumber);
    return {"vDevOpen 2 \"fake:device\" = " + dev, "vFileOpen " + dev + " \"" + path + "\" 0 = null",
            "vDevClose " + dev};
}

#endif
