// Every operation of the host that an opening uses fails once: the answer and the log agree, nothing stays open but
// what is meant to, and the same manager opens the library when the device is well again.

#include "testing/faulty_device.h"
#include "testing/log_recorder.h"
#include "tests/unit/photolib/made_library.h"

#include <gtest/gtest.h>

using testkit::FakeDevice;
using testkit::Fault;
using testkit::FaultyDevice;
using testkit::LibraryBuilder;
using testkit::LibraryBytes;
using testkit::LogRecorder;
using testkit::Operation;
using testkit::OperationKind;

namespace
{

constexpr char failureLine[] = "PHOTOLIB 2 Can not parse photo lib";
constexpr int photos = 3;

/// A library of which a part is in the write-ahead log.
const LibraryBytes &library()
{
    static const LibraryBytes bytes = [] {
        LibraryBuilder builder(testkit::Era::Ios15, bareLibrary());
        const qint64 album = builder.addAlbum();
        for (int i = 0; i < photos; ++i)
            builder.addToAlbum(album, builder.addAsset());
        builder.checkpoint();
        builder.addAlbum();
        return builder.bytes(testkit::WalMode::WithContent);
    }();
    return bytes;
}

class OpeningFaults : public testing::TestWithParam<Fault::Effect>
{
protected:
    /// Handles that stay open on purpose: of the device's side, when the local side cannot be opened.
    static int leftOpen(const FaultyDevice &faulty)
    {
        const Operation operation = faulty.firedOperation();
        const bool localSide = GetParam() == Fault::Effect::Fail && operation.kind == OperationKind::OpenDevice &&
                               operation.fileSystem == VDevLocal;
        return localSide ? 2 : 0;
    }

    /// What can go wrong in this way.
    static testkit::OperationKinds kindsOf(Fault::Effect effect)
    {
        return effect == Fault::Effect::Answer
                   ? OperationKind::Read | OperationKind::Write | OperationKind::CreateFolder
                   : testkit::faultableOperations;
    }

    /// Whether the operation is one without which there is no copy of the main file, or no connection.
    static bool isEssential(const FaultyDevice &faulty)
    {
        const Operation operation = faulty.firedOperation();
        return GetParam() == Fault::Effect::Fail &&
               (operation.kind == OperationKind::OpenSqlite ||
                (operation.kind == OperationKind::OpenFile && operation.path.endsWith("/Photos.sqlite")));
    }

    static void expectNothingLeft(FakeDevice &device, const FaultyDevice &faulty)
    {
        device.expectLeftOpen(leftOpen(faulty));
        EXPECT_EQ(device.openHandles().size(), leftOpen(faulty));
        EXPECT_EQ(device.operations(OperationKind::OpenSqlite).filter(" = 0").size(),
                  device.operationCount(OperationKind::CloseSqlite));
    }

    LogRecorder log;
};

TEST_P(OpeningFaults, LeaveAnAnswerThatTheLogAgreesWith)
{
    const int fired =
        forEveryFault(Fault(kindsOf(GetParam()), GetParam()), [this](FakeDevice &device, FaultyDevice &faulty) {
            device.addFile("/PhotoData/Photos.sqlite", library().database);
            device.addFile("/PhotoData/Photos.sqlite-wal", library().wal);
            device.addFile("/PhotoData/Photos.sqlite-shm", library().shm);
            device.addFile(markerPath, markerNaming("MARKER"));
            const Manager manager = makeManager(device);
            const bool opened = manager->openLibrary();
            EXPECT_EQ(log.consumeMatching(QString::fromLatin1(failureLine)).size(), opened ? 0 : 1);
            log.takeAll();
            EXPECT_LE(manager->getPhotoCount(), photos);
            EXPECT_TRUE(opened || faulty.fired());
            if (!faulty.fired()) // what comes next would meet it
                return;
            expectNothingLeft(device, faulty);
            EXPECT_FALSE(opened && isEssential(faulty));
            if (GetParam() == Fault::Effect::DeviceGone)
                return;
            EXPECT_TRUE(manager->openLibrary());
            EXPECT_EQ(manager->getPhotoCount(), photos);
            EXPECT_EQ(manager->getAlbumCount(), 2);
            EXPECT_EQ(manager->getLibraryUuid(), QStringLiteral("MARKER"));
            log.takeAll();
        });
    // Devices, files and folders of three copies at least.
    EXPECT_GE(fired, 3 * 4);
}

std::string nameOf(const testing::TestParamInfo<Fault::Effect> &instance)
{
    switch (instance.param) {
    case Fault::Effect::Fail:
        return "Fail";
    case Fault::Effect::ShortTransfer:
        return "ShortTransfer";
    case Fault::Effect::Truncate:
        return "Truncate";
    case Fault::Effect::Answer:
        return "NegativeAnswer";
    default:
        return "DeviceGone";
    }
}

INSTANTIATE_TEST_SUITE_P(Effects, OpeningFaults,
                         testing::Values(Fault::Effect::Fail, Fault::Effect::ShortTransfer, Fault::Effect::Truncate,
                                         Fault::Effect::DeviceGone, Fault::Effect::Answer),
                         nameOf);

} // namespace
