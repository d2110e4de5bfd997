#include "tests/unit/exporter/export_fixture.h"
#include "tests/unit/exporter/failing_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace exporter;
using namespace testkit;
using Call = FailingFiles::Call;

namespace
{

const QStringList onlyTheRecord{".photolib-export.sqlite"};

void writeNumber(const char *path, const QByteArray &text)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(text);
}

/// In a child process: a file system of its own of two MiB over `folder`. False where the system does not let us.
bool mountSmallFileSystem(const QString &folder)
{
    const QByteArray user = QByteArray::number(::getuid());
    const QByteArray group = QByteArray::number(::getgid());
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
        return false;
    writeNumber("/proc/self/setgroups", "deny");
    writeNumber("/proc/self/uid_map", "0 " + user + " 1");
    writeNumber("/proc/self/gid_map", "0 " + group + " 1");
    QDir().mkpath(folder);
    return ::mount("tmpfs", folder.toUtf8().constData(), "tmpfs", 0, "size=2m") == 0;
}

} // namespace

TEST(Destination, SymbolicLinksBelowAreNotFollowed)
{
    ExportFixture fixture;
    fixture.options.layout = "{created:yyyy}/{stem}";
    fixture.addPhoto("A.JPG", "a");
    fixture.addPhoto("B.JPG", "b", takenAt("2021-01-01T00:00:00"));
    QDir(fixture.folder.path()).mkpath("outside");
    QDir(fixture.folder.path()).mkpath("out");
    QFile::link(fixture.folder.path() + "/outside", fixture.path("2020"));
    const RunOutcome outcome = fixture.run();
    EXPECT_EQ(RunEnd::Completed, outcome.end);
    EXPECT_EQ(1, outcome.count(FileStatus::Failed));
    EXPECT_TRUE(fixture.report("/DCIM/100APPLE/A.JPG").reason.contains("2020 in the destination is a symbolic link"))
        << qPrintable(fixture.lines().join('\n'));
    EXPECT_EQ(QByteArray("b"), fixture.read("2021/B.JPG"));
    EXPECT_TRUE(QDir(fixture.folder.path() + "/outside").isEmpty());
}

TEST(Destination, ItsOwnPathMayLeadThroughLinks)
{
    ExportFixture fixture;
    fixture.addPhoto("A.JPG", "a");
    QDir(fixture.folder.path()).mkpath("real");
    QFile::link(fixture.folder.path() + "/real", fixture.destination());
    EXPECT_TRUE(fixture.run().isSuccess());
    EXPECT_EQ(1, ExportFixture::treeOf(fixture.folder.path() + "/real").size());
}

TEST(Destination, LinksPipesAndFoldersInTheWayGiveTheNextNumber)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    fixture.addPhoto("A.JPG", "a");
    fixture.addPhoto("B.JPG", "b");
    fixture.addPhoto("C.JPG", "c");
    QDir().mkpath(fixture.path("C.JPG"));
    QFile::link("/nowhere", fixture.path("A.JPG"));
    ASSERT_EQ(0, ::mkfifo(fixture.path("B.JPG").toUtf8().constData(), 0600));
    EXPECT_TRUE(fixture.run().isSuccess());
    EXPECT_EQ((Tree{{"A.JPG", "-> /nowhere"}, {"A (1).JPG", "a"}, {"B (1).JPG", "b"}, {"C (1).JPG", "c"}}), [&] {
        ::unlink(fixture.path("B.JPG").toUtf8().constData());
        return fixture.tree();
    }());
}

TEST(Destination, APipeInPlaceOfAnExportedFileIsNeverWaitedFor)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    fixture.addPhoto("A.JPG", "a");
    fixture.run();
    QFile::remove(fixture.path("A.JPG"));
    ASSERT_EQ(0, ::mkfifo(fixture.path("A.JPG").toUtf8().constData(), 0600));
    EXPECT_FALSE(fixture.verify().isSuccess());
    EXPECT_TRUE(fixture.run().isSuccess());
    EXPECT_EQ(QByteArray("a"), fixture.read("A (1).JPG"));
}

TEST(Destination, AFileWhereAFolderIsNeededIsToldByName)
{
    ExportFixture fixture;
    fixture.addPhoto("A.JPG", "a");
    fixture.write("2020", "a file");
    EXPECT_EQ(1, fixture.run().count(FileStatus::Failed));
    EXPECT_TRUE(fixture.lines().first().contains("2020 in the destination is no folder"));
}

TEST(Destination, TwoRunsAtATimeAreRefused)
{
    ExportFixture fixture;
    fixture.addPhoto("A.JPG", "a");
    fixture.run();
    const int other = ::open(fixture.destination().toUtf8().constData(), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(0, ::flock(other, LOCK_EX | LOCK_NB));
    const RunOutcome outcome = fixture.run();
    EXPECT_EQ(RunEnd::DestinationRefused, outcome.end);
    EXPECT_TRUE(outcome.message.contains("Another export is working on")) << qPrintable(outcome.message);
    ::close(other);
    EXPECT_TRUE(fixture.run().isSuccess());
}

TEST(Destination, AFileInItsPlaceIsRefused)
{
    ExportFixture fixture;
    fixture.addPhoto("A.JPG", "a");
    fixture.options.destination = fixture.folder.path() + "/file";
    QFile file(fixture.destination());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(RunEnd::DestinationRefused, fixture.run().end);
}

TEST(Destination, LackOfRoomIsNoticedBeforeItIsFilled)
{
    ExportFixture fixture;
    fixture.addPhoto("A.JPG", "a");
    fixture.options.reserve = std::numeric_limits<qint64>::max() / 2;
    const RunOutcome outcome = fixture.run();
    EXPECT_EQ(RunEnd::DestinationFull, outcome.end);
    EXPECT_FALSE(outcome.message.isEmpty());
    EXPECT_EQ(0, fixture.device.operationCount(OperationKind::Read));
    EXPECT_EQ(onlyTheRecord, ExportFixture::hiddenFilesOf(fixture.destination()));
}

TEST(Destination, AFullDiskEndsTheRunAndHarmsNothing)
{
    for (const int code : {ENOSPC, EDQUOT}) {
        for (const Call at : {Call::Write, Call::Sync, Call::Rename, Call::MakeFolder}) {
            ExportFixture fixture;
            fixture.addPhoto("A.JPG", "a");
            fixture.run();
            fixture.addPhoto("B.JPG", "b", takenAt("2021-01-01T00:00:00"));
            FailingFiles files;
            files.onCall = [at, code](Call call, int) { return call == at ? code : 0; };
            fixture.files = &files;
            EXPECT_EQ(RunEnd::DestinationFull, fixture.run().end);
            EXPECT_EQ(onlyTheRecord, ExportFixture::hiddenFilesOf(fixture.destination()));
            EXPECT_EQ((Tree{{"2020/2020-05-17_A.JPG", "a"}}), fixture.tree());
            fixture.files = &fixture.realFiles;
            EXPECT_TRUE(fixture.run().isSuccess());
            EXPECT_EQ(2, fixture.tree().size());
        }
    }
}

TEST(Destination, AReallyFullFileSystemEndsTheRunAndTheNextOneGoesOn)
{
    constexpr int unable = 3;
    const pid_t child = ::fork();
    if (child == 0) {
        ExportFixture fixture;
        fixture.options.layout = "{stem}";
        if (!mountSmallFileSystem(fixture.destination()))
            ::_exit(unable);
        fixture.addPhoto("A.JPG", QByteArray(200'000, 'a'));
        fixture.addPhoto("B.JPG", QByteArray(2'500'000, 'b'));
        fixture.options.reserve = -100'000'000; // so that the disk itself has to say it
        const RunOutcome full = fixture.run();
        const bool good = full.end == RunEnd::DestinationFull && fixture.tree().keys() == QStringList{"A.JPG"} &&
                          ExportFixture::hiddenFilesOf(fixture.destination()) == onlyTheRecord &&
                          fixture.verify().isSuccess();
        fixture.addFile("/DCIM/100APPLE/B.JPG", "b");
        const bool goesOn = fixture.run().isSuccess() && fixture.tree().size() == 2;
        ::umount(fixture.destination().toUtf8().constData());
        ::_exit(good && goesOn ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(child, ::waitpid(child, &status, 0));
    ASSERT_TRUE(WIFEXITED(status));
    if (WEXITSTATUS(status) == unable)
        GTEST_SKIP() << "this system lets nobody mount a file system";
    EXPECT_EQ(0, WEXITSTATUS(status));
}

TEST(Destination, ALackOfRoomForTheRecordEndsTheRunAsFull)
{
    const pid_t child = ::fork();
    if (child == 0) {
        ExportFixture fixture;
        fixture.options.layout = "{stem}";
        fixture.addPhoto("A.JPG", "a");
        fixture.run();
        for (int number = 0; number < 200; ++number)
            fixture.addPhoto(QString("IMG_%1.JPG").arg(number), "b");
        photo_manager_int &manager = fixture.open();
        const QList<qint64> ids = manager.getPhotoList();
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{1'000'000, 1'000'000}; // of every file; the photos are smaller, the record's log is not
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const RunOutcome full = fixture.run(ids);
        const bool good = full.end == RunEnd::DestinationFull && full.count(FileStatus::Exported) > 5;
        if (!good)
            ::fprintf(stderr, "%d %s %d\n", static_cast<int>(full.end), qPrintable(full.message),
                      static_cast<int>(full.count(FileStatus::Exported)));
        ::_exit(good ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(child, ::waitpid(child, &status, 0));
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(0, WEXITSTATUS(status));
}

TEST(Destination, AFileTooLargeForTheFileSystemFailsAloneAndTheRestIsExported)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    fixture.addPhoto("A.JPG", "a");
    fixture.addPhoto("B.JPG", "b");
    FailingFiles files;
    int writes = 0;
    files.onCall = [&writes](Call call, int) { return call == Call::Write && ++writes == 1 ? EFBIG : 0; };
    fixture.files = &files;
    const RunOutcome outcome = fixture.run();
    EXPECT_EQ(RunEnd::Completed, outcome.end);
    EXPECT_EQ(1, outcome.count(FileStatus::Failed));
    EXPECT_EQ((Tree{{"B.JPG", "b"}}), fixture.tree());
}

TEST(Destination, AReadOnlyOrVanishedFileSystemEndsTheRun)
{
    for (const int code : {EROFS, EIO, ENODEV, ESTALE}) {
        ExportFixture fixture;
        fixture.addPhoto("A.JPG", "a");
        FailingFiles files;
        files.onCall = [code](Call call, int) { return call == Call::Write ? code : 0; };
        fixture.files = &files;
        const RunOutcome outcome = fixture.run();
        EXPECT_EQ(RunEnd::DestinationRefused, outcome.end);
        EXPECT_FALSE(outcome.message.isEmpty());
        EXPECT_EQ(onlyTheRecord, ExportFixture::hiddenFilesOf(fixture.destination()));
    }
}

TEST(Destination, WhicheverCallFailsTheNextRunHasEverything)
{
    int failures = 0;
    for (int number = 1;; ++number) {
        ExportFixture fixture;
        fixture.options.layout = "{stem}";
        fixture.addPhoto("A.JPG", "a");
        fixture.addFile("/DCIM/100APPLE/A.MOV", "film");
        FailingFiles files;
        bool failed = false;
        files.onCall = [&](Call, int call) {
            failed = failed || call == number;
            return call == number ? EACCES : 0;
        };
        fixture.files = &files;
        fixture.run();
        if (!failed)
            break;
        ++failures;
        fixture.files = &fixture.realFiles;
        ASSERT_TRUE(fixture.run().isSuccess()) << number;
        ASSERT_EQ((Tree{{"A.JPG", "a"}, {"A.MOV", "film"}}), fixture.tree()) << number;
    }
    EXPECT_GT(failures, 20);
}

TEST(Destination, WithoutRenamingWithoutReplacingLinksDoTheSame)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    fixture.addPhoto("A.JPG", "a");
    FailingFiles files;
    files.onCall = [](Call call, int) { return call == Call::Rename ? EINVAL : 0; };
    fixture.files = &files;
    EXPECT_TRUE(fixture.run().isSuccess());
    EXPECT_EQ((Tree{{"A.JPG", "a"}}), fixture.tree());
    EXPECT_EQ(onlyTheRecord, ExportFixture::hiddenFilesOf(fixture.destination()));
}

TEST(Destination, WithoutLinksTooNamesAreReservedFirst)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    fixture.options.albums = true;
    const qint64 photo = fixture.addPhoto("A.JPG", "a");
    fixture.addFile("/DCIM/100APPLE/A.AAE", "notes");
    fixture.addAlbum("Album", {photo});
    FailingFiles files;
    files.onCall = [](Call call, int) { return call == Call::Rename || call == Call::Link ? EINVAL : 0; };
    fixture.files = &files;
    EXPECT_TRUE(fixture.run().isSuccess());
    fixture.addFile("/DCIM/100APPLE/A.AAE", "other notes");
    EXPECT_TRUE(fixture.run().isSuccess());
    EXPECT_EQ((Tree{{"A.JPG", "a"},
                    {"A.AAE", "notes"},
                    {"A (1).JPG", "a"},
                    {"A (1).AAE", "other notes"},
                    {"Albums/Album/1_A (1).JPG", "a"},
                    {"Albums/Album/1_A (1).AAE", "other notes"}}),
              fixture.tree());
    EXPECT_TRUE(fixture.verify().isSuccess());
    EXPECT_EQ(onlyTheRecord, ExportFixture::hiddenFilesOf(fixture.destination()));
}

TEST(Destination, ANameTakenAtTheLastMomentMovesTheWholeSet)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    fixture.addPhoto("A.JPG", "a");
    fixture.addFile("/DCIM/100APPLE/A.MOV", "film");
    FailingFiles files;
    int names = 0;
    files.onCall = [&](Call call, int) {
        // The record is the first to get its name; the film is the third.
        if (call == Call::Rename && ++names == 3)
            fixture.write("A.MOV", "somebody else's");
        return 0;
    };
    fixture.files = &files;
    EXPECT_TRUE(fixture.run().isSuccess());
    EXPECT_EQ((Tree{{"A.MOV", "somebody else's"}, {"A (1).JPG", "a"}, {"A (1).MOV", "film"}}), fixture.tree());
}

TEST(Destination, ANameThatTheFileSystemTakesForAnotherGivesTheNextNumber)
{
    class OddlyFolding final : public FileOperations
    {
    public:
        int renameWithoutReplacing(int fromFolder, const char *from, int toFolder, const char *to) override
        {
            if (QByteArray(to) != "A.JPG")
                return FileOperations::renameWithoutReplacing(fromFolder, from, toFolder, to);
            errno = EEXIST;
            return -1;
        }
    };
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    fixture.addPhoto("A.JPG", "a");
    fixture.addFile("/DCIM/100APPLE/A.MOV", "film");
    OddlyFolding files;
    fixture.files = &files;
    EXPECT_TRUE(fixture.run().isSuccess());
    EXPECT_EQ((Tree{{"A (1).JPG", "a"}, {"A (1).MOV", "film"}}), fixture.tree());
}

TEST(Destination, AFolderThatIsRemovedDuringTheRunIsMadeAgain)
{
    ExportFixture fixture;
    fixture.options.layout = "{created:yyyy}/{stem}";
    fixture.addPhoto("A.JPG", "a");
    fixture.addPhoto("B.JPG", "b");
    fixture.prepareListener = [&](Listener &listener) {
        listener.onProgress = [&](const ExportProgress &progress) {
            if (progress.phase == Phase::Copying && progress.photosDone == 1)
                QDir(fixture.path("2020")).removeRecursively();
        };
    };
    EXPECT_TRUE(fixture.run().isSuccess()) << qPrintable(fixture.lines().join('\n'));
    EXPECT_EQ((Tree{{"2020/B.JPG", "b"}}), fixture.tree());
    EXPECT_EQ(1, fixture.verify().differences);
}
