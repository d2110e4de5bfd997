#include "tests/unit/photolib/made_library.h"
#include "tests/unit/photolib/photo_manager_probe.h"

#include "testing/log_recorder.h"
#include "testing/patience.h"

#include <QTextCodec>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <thread>

using testkit::comesTrue;
using testkit::Era;
using testkit::FakeDevice;
using testkit::isReady;
using testkit::LibraryBuilder;
using testkit::LogRecorder;
using testkit::Operation;
using testkit::OperationKind;

namespace
{

class OpenedManager : public testing::Test
{
protected:
    void open(const QByteArray &libraryUuid = "DB-UUID")
    {
        LibraryBuilder library(Era::Ios16, bareLibrary());
        library.setLibraryUuid(QString::fromUtf8(libraryUuid));
        library.addAsset();
        putOn(device, library);
        ASSERT_TRUE(manager->openLibrary());
        log.takeAll();
    }

    LogRecorder log;
    FakeDevice device;
    const Manager manager = makeManager(device);
    PhotoManagerProbe probe{implementationOf(manager)};
};

} // namespace

TEST_F(OpenedManager, FreshOneHasNoLibraryAndNoModel)
{
    EXPECT_EQ(probe.reader(), nullptr);
    EXPECT_TRUE(probe.knownUuids().isEmpty());
    EXPECT_TRUE(probe.groups().isEmpty());
    EXPECT_TRUE(probe.currentLibraryUuid().isEmpty());
    EXPECT_TRUE(probe.databaseUuid().isEmpty());
    EXPECT_EQ(probe.busySemaphore().available(), 1);
    EXPECT_FALSE(manager->isCancelled());
}

TEST_F(OpenedManager, ReferenceDateIsTheStartOf2001InUtc)
{
    EXPECT_EQ(probe.referenceDate().timeSpec(), Qt::UTC);
    EXPECT_EQ(probe.referenceDate().addSecs(0).toString(Qt::ISODate), QString("2001-01-01T00:00:00Z"));
    EXPECT_EQ(probe.referenceDate().addSecs(-86400).toString(Qt::ISODate), QString("2000-12-31T00:00:00Z"));
    EXPECT_EQ(probe.referenceDate().toSecsSinceEpoch(), 978307200);
}

TEST(PhotoManager, ReferenceDateDoesNotDependOnTheTimeZone)
{
    qputenv("TZ", "America/New_York");
    FakeDevice device;
    photo_manager manager(&device);
    EXPECT_EQ(PhotoManagerProbe(manager).referenceDate().toSecsSinceEpoch(), 978307200);
}

TEST_F(OpenedManager, LibraryUuidIsEmptyWithoutALibraryEvenWhenTheCurrentOneIsKnown)
{
    EXPECT_TRUE(manager->getLibraryUuid().isEmpty());
    probe.currentLibraryUuid() = "KNOWN";
    EXPECT_TRUE(manager->getLibraryUuid().isEmpty());
}

TEST_F(OpenedManager, LibraryUuidIsTheDatabasesWithoutAMarker)
{
    open();
    EXPECT_EQ(manager->getLibraryUuid(), QString("DB-UUID"));
}

TEST_F(OpenedManager, LibraryUuidIsTheMarkersWhenThereIsOne)
{
    device.addFile(markerPath, markerNaming("CURRENT"));
    open();
    EXPECT_EQ(manager->getLibraryUuid(), QString("CURRENT"));
    EXPECT_EQ(probe.databaseUuid(), QString("DB-UUID"));
}

TEST_F(OpenedManager, LibraryUuidOfTheMarkerIsUtf8)
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    open();
    probe.currentLibraryUuid() = "Z\xC3\xBCrich";
    EXPECT_EQ(manager->getLibraryUuid(), QString::fromUtf8("Z\xC3\xBCrich"));
}

TEST_F(OpenedManager, CancelWithoutAnOpeningReturnsAndStaysUntilTheNextOpening)
{
    manager->cancel();
    EXPECT_TRUE(manager->isCancelled());
    manager->cancel();
    EXPECT_TRUE(manager->isCancelled());
    EXPECT_EQ(probe.busySemaphore().available(), 1);
    open();
    EXPECT_FALSE(manager->isCancelled());
    manager->cancel();
    EXPECT_TRUE(manager->isCancelled());
}

TEST_F(OpenedManager, CancelReturnsOnlyAfterARunningOpeningHasEnded)
{
    std::future<QStringList> cancelled;
    bool returnedEarly = true;
    int availableWhileOpening = -1;
    device.onOperation([&](const Operation &operation) {
        if (operation.kind != OperationKind::OpenFile || cancelled.valid())
            return;
        cancelled = std::async(std::launch::async, [&] {
            manager->cancel();
            return device.operations();
        });
        EXPECT_TRUE(comesTrue([&] { return manager->isCancelled(); }));
        returnedEarly = isReady(cancelled);
        availableWhileOpening = probe.busySemaphore().available();
    });
    open();
    EXPECT_FALSE(returnedEarly);
    EXPECT_EQ(availableWhileOpening, 0);
    // The cancelling thread saw the last operation of the opening done.
    EXPECT_EQ(cancelled.get(), device.operations());
    EXPECT_EQ(device.operations().last(), QString("vDevClose dev5"));
    EXPECT_TRUE(manager->isCancelled()) << "the request outlives the opening during which it came";
}

TEST_F(OpenedManager, CancelDuringAnOpeningDoesNotEndIt)
{
    std::thread canceller;
    device.onOperation([&](const Operation &operation) {
        if (operation.kind != OperationKind::OpenSqlite)
            return;
        canceller = std::thread([&] { manager->cancel(); });
        EXPECT_TRUE(comesTrue([&] { return manager->isCancelled(); }));
    });
    open();
    canceller.join();
    EXPECT_EQ(manager->getPhotoCount(), 1);
    EXPECT_FALSE(probe.groups().isEmpty());
}

TEST_F(OpenedManager, OpeningClearsTheCancelRequestBeforeItWaitsForAnotherToEnd)
{
    manager->cancel();
    device.clearOperations();
    probe.busySemaphore().acquire();
    std::future<bool> opened = std::async(std::launch::async, [&] { return manager->openLibrary(); });
    EXPECT_TRUE(comesTrue([&] { return !manager->isCancelled(); }));
    EXPECT_FALSE(isReady(opened));
    EXPECT_EQ(device.operations(testkit::allOperations), QStringList());
    probe.busySemaphore().release();
    EXPECT_FALSE(opened.get()) << "the device holds no library";
    log.takeAll();
}

TEST_F(OpenedManager, NullDeviceFailsSilentlyWithoutTouchingTheSemaphore)
{
    photo_manager lonely(nullptr);
    PhotoManagerProbe lonelyProbe(lonely);
    lonely.cancel();
    lonelyProbe.busySemaphore().acquire(); // an opening that waited for it would never return
    EXPECT_FALSE(lonely.openLibrary());
    EXPECT_EQ(lonelyProbe.busySemaphore().available(), 0);
    EXPECT_FALSE(lonely.isCancelled());
    EXPECT_EQ(lonelyProbe.reader(), nullptr);
    lonelyProbe.busySemaphore().release();
}
