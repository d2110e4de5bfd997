#include "tests/unit/exporter/export_fixture.h"

#include "testing/faulty_device.h"

#include <gtest/gtest.h>

using namespace exporter;
using namespace testkit;

namespace
{

Fault onFile(const char *path, OperationKind kind, Fault::Effect effect = Fault::Effect::Fail, int at = 1)
{
    Fault fault(kind, effect, at);
    fault.where = [path](const Operation &operation) { return operation.path == path; };
    return fault;
}

/// A device of which one file can be opened, but gives an error, or other bytes than it said, each time.
class Spoiled final : public OperationLayer
{
public:
    enum class How { Error, Short, Long, NoSize };
    Spoiled(FakeDevice &device, const QByteArray &path, How how)
        : session(device.hostSession()), below(*session.top()), spoiledPath(path), effect(how)
    {
        session.setTop(this);
    }
    ~Spoiled() { session.setTop(&below); }

    void perform(Operation &operation) override
    {
        below.perform(operation);
        if (operation.kind == OperationKind::OpenFile && operation.path == spoiledPath)
            spoiled = static_cast<int>(operation.result);
        if (operation.file != spoiled || spoiled == 0)
            return;
        if (operation.kind == OperationKind::Read && effect == How::Error)
            operation.result = -1;
        if (operation.kind == OperationKind::Read && effect == How::Short)
            operation.result = 0;
        if (operation.kind == OperationKind::Seek && operation.origin == 2 && effect == How::Long)
            --operation.result;
        if (operation.kind == OperationKind::Tell && effect == How::Long)
            --operation.result;
        if (operation.kind == OperationKind::Seek && effect == How::NoSize)
            operation.result = -1;
    }

private:
    HostSession &session;
    OperationLayer &below;
    const QByteArray spoiledPath;
    const How effect;
    int spoiled = 0;
};

struct TwoPhotos : ExportFixture {
    TwoPhotos()
    {
        options.layout = "{stem}";
        addPhoto("A.JPG", "aaaa");
        addPhoto("B.JPG", "bbbb");
    }
};

} // namespace

TEST(Device, AFileThatFailsOnceIsReadAgainOnAFreshDevice)
{
    TwoPhotos fixture;
    fixture.options.measureFirst = false;
    fixture.open();
    const FaultyDevice faulty(fixture.device, Fault(OperationKind::Read));
    EXPECT_TRUE(fixture.run({1, 2}).isSuccess());
    EXPECT_TRUE(faulty.fired());
    EXPECT_EQ((Tree{{"A.JPG", "aaaa"}, {"B.JPG", "bbbb"}}), fixture.tree());
    EXPECT_EQ(2, fixture.device.operationCount(OperationKind::OpenDevice));
}

TEST(Device, AFilmThatFailsInItsMiddleIsWholeAfterOneRetryAndElseLeavesNothing)
{
    QByteArray film(9'000'001, '\0');
    for (int at = 0; at < film.size(); ++at)
        film[at] = static_cast<char>(at * 31 / 7);
    for (const int retries : {0, 1}) {
        for (int read = 1; read <= 5; ++read) {
            ExportFixture fixture;
            fixture.options.layout = "{stem}";
            fixture.options.retries = retries;
            fixture.addVideo("A.MOV", film);
            fixture.open();
            const FaultyDevice faulty(fixture.device, Fault(OperationKind::Read, Fault::Effect::Fail, read));
            EXPECT_EQ(retries == 1, fixture.run({1}).isSuccess()) << read;
            EXPECT_TRUE(faulty.fired()) << read;
            EXPECT_EQ((retries == 1 ? Tree{{"A.MOV", film}} : Tree{}), fixture.tree()) << read;
            EXPECT_EQ(QStringList{".photolib-export.sqlite"}, ExportFixture::hiddenFilesOf(fixture.destination()));
        }
    }
}

TEST(Device, RetriesCanBeTurnedOff)
{
    TwoPhotos fixture;
    fixture.options.retries = 0;
    fixture.open();
    const FaultyDevice faulty(fixture.device, Fault(OperationKind::Read));
    EXPECT_EQ(1, fixture.run({1, 2}).count(FileStatus::Failed));
    EXPECT_EQ((Tree{{"B.JPG", "bbbb"}}), fixture.tree());
}

TEST(Device, SpoiledFilesAreReportedAndTheRestIsExported)
{
    const QMap<int, QString> reasons{
        {static_cast<int>(Spoiled::How::Error), "the device answered with an error while the file was read"},
        {static_cast<int>(Spoiled::How::Short), "the device says that the file has 4 bytes and gave 0"},
        {static_cast<int>(Spoiled::How::Long), "the device says that the file has 3 bytes and gave more"},
        {static_cast<int>(Spoiled::How::NoSize), "the device does not tell the size of the file"}};
    for (auto reason = reasons.begin(); reason != reasons.end(); ++reason) {
        TwoPhotos fixture;
        fixture.open();
        const Spoiled spoiled(fixture.device, "/DCIM/100APPLE/A.JPG", static_cast<Spoiled::How>(reason.key()));
        const RunOutcome outcome = fixture.run({1, 2});
        EXPECT_EQ(RunEnd::Completed, outcome.end);
        EXPECT_EQ(
            (QStringList{"failed /DCIM/100APPLE/A.JPG: " + reason.value(), "exported /DCIM/100APPLE/B.JPG -> B.JPG"}),
            fixture.lines());
        EXPECT_EQ((Tree{{"B.JPG", "bbbb"}}), fixture.tree());
        EXPECT_EQ(QStringList{".photolib-export.sqlite"}, ExportFixture::hiddenFilesOf(fixture.destination()));
    }
}

TEST(Device, AFilmThatCannotBeReadDoesNotTakeItsPhotoAlong)
{
    TwoPhotos fixture;
    fixture.addFile("/DCIM/100APPLE/A.MOV", "film");
    fixture.open();
    {
        const Spoiled spoiled(fixture.device, "/DCIM/100APPLE/A.MOV", Spoiled::How::Error);
        EXPECT_EQ(1, fixture.run({1, 2}).count(FileStatus::Failed));
        EXPECT_EQ((Tree{{"A.JPG", "aaaa"}, {"B.JPG", "bbbb"}}), fixture.tree());
    }
    EXPECT_TRUE(fixture.run({1, 2}).isSuccess());
    EXPECT_EQ((Tree{{"A.JPG", "aaaa"}, {"A.MOV", "film"}, {"B.JPG", "bbbb"}}), fixture.tree());
}

TEST(Device, AFileThatCannotBeOpenedIsNotTakenForOneInTheCloud)
{
    TwoPhotos fixture;
    fixture.options.lastOpenFailure = [] { return OpenFailure{false, "Permission denied"}; };
    fixture.open();
    const FaultyDevice first(fixture.device, onFile("/DCIM/100APPLE/A.JPG", OperationKind::OpenFile));
    fixture.options.retries = 0;
    fixture.options.measureFirst = false;
    // Probing for companions fails as well with this hook; what counts is the original.
    fixture.run({1});
    EXPECT_EQ(QString("failed /DCIM/100APPLE/A.JPG: Permission denied"), fixture.lines().first());
}

TEST(Device, ADeviceThatIsGoneEndsTheRunAndTheRestIsFailed)
{
    TwoPhotos fixture;
    for (int number = 0; number < 10; ++number)
        fixture.addPhoto(QString("IMG_%1.JPG").arg(number), "x");
    fixture.open();
    RunOutcome outcome;
    {
        Fault gone(OperationKind::Read, Fault::Effect::DeviceGone, 5);
        gone.where = [](const Operation &operation) { return operation.fileSystem == VDevDevice; };
        const FaultyDevice faulty(fixture.device, gone);
        outcome = fixture.run({1, 2, 3, 4, 5, 6});
    }
    EXPECT_EQ(RunEnd::DeviceGone, outcome.end);
    EXPECT_FALSE(outcome.message.isEmpty());
    EXPECT_EQ(6, outcome.count(FileStatus::Exported) + outcome.count(FileStatus::Failed));
    EXPECT_EQ(0, outcome.count(FileStatus::Missing));
    EXPECT_GT(outcome.count(FileStatus::Exported), 0);
    EXPECT_TRUE(fixture.run({1, 2, 3, 4, 5, 6}).isSuccess());
    EXPECT_EQ(6, fixture.tree().size());
}

TEST(Device, AMountedFolderThatHasVanishedIsNotALibraryInTheCloud)
{
    TwoPhotos fixture;
    fixture.open();
    fixture.device.removeFile("/DCIM/100APPLE/A.JPG");
    fixture.device.removeFile("/DCIM/100APPLE/B.JPG");
    fixture.device.removeFile("/PhotoData/Photos.sqlite");
    const RunOutcome outcome = fixture.run({1, 2});
    EXPECT_EQ(RunEnd::DeviceGone, outcome.end);
    EXPECT_EQ(2, outcome.count(FileStatus::Failed));
    EXPECT_EQ(0, outcome.count(FileStatus::Missing));
}

TEST(Device, WhateverFailsOnceEverythingIsThereAfterOneRetry)
{
    constexpr OperationKinds kinds =
        OperationKind::OpenDevice | OperationKind::Read | OperationKind::Seek | OperationKind::Tell;
    int failures = 0;
    for (int number = 1;; ++number) {
        TwoPhotos fixture;
        fixture.open();
        const FaultyDevice faulty(fixture.device, Fault(kinds, Fault::Effect::Fail, number));
        const RunOutcome outcome = fixture.run({1, 2});
        if (!faulty.fired())
            break;
        ++failures;
        ASSERT_TRUE(outcome.isSuccess()) << number << qPrintable(fixture.lines().join('\n'));
        ASSERT_EQ((Tree{{"A.JPG", "aaaa"}, {"B.JPG", "bbbb"}}), fixture.tree()) << number;
    }
    EXPECT_GT(failures, 10);
}
