// Which failures of host operations make the library unreadable, and what is said about them.

#include "support.h"

#include "devicehost/device_host.h"
#include "devicehost/host_state.h"
#include "devicehost/sql_limits.h"
#include "devicehost/vdev/backend.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <thread>

using devicehost::DeviceHost;

namespace
{

const char database[] = "/PhotoData/Photos.sqlite";
const char writeAheadLog[] = "/PhotoData/Photos.sqlite-wal";
const char sharedMemory[] = "/PhotoData/Photos.sqlite-shm";

class Failure : public testing::Test
{
protected:
    Failure() { qputenv("TMPDIR", temporary.path().toUtf8()); }

    std::string failureAfterOpening(const char *path)
    {
        EXPECT_EQ(vFileOpen(device().get(), path, 0), nullptr) << path;
        return host.failure().toStdString();
    }

    Device device() { return Device(vDevOpen(VDevDevice, host.devicePath().toUtf8().constData())); }

    QString path(const char *name) const { return folder.path() + QString::fromUtf8(name); }

    QTemporaryDir folder;
    QTemporaryDir temporary;
    DeviceHost host{QStringLiteral("folder:") + folder.path()};
};

TEST_F(Failure, AMissingDatabaseIsOne)
{
    EXPECT_EQ(failureAfterOpening(database),
              "/PhotoData/Photos.sqlite on the device cannot be opened: No such file or directory; check that "
              "the device is still connected and mounted, and that the copy of it is whole");
}

TEST_F(Failure, ADatabaseThatIsNoFileIsOne)
{
    QDir().mkpath(path(database));
    EXPECT_EQ(failureAfterOpening(database),
              "/PhotoData/Photos.sqlite on the device cannot be opened: Is a directory; a "
              "copy of the device must hold the file itself; copy it again");
}

TEST_F(Failure, MissingCompanionsAreNone)
{
    EXPECT_EQ(failureAfterOpening(writeAheadLog), "");
    EXPECT_EQ(failureAfterOpening(sharedMemory), "");
    EXPECT_EQ(failureAfterOpening("/Photos/Sync/CurrentLibraryUUID.plist"), "");
    EXPECT_EQ(failureAfterOpening("/PhotoData/Thumbnails/V2/Photos.sqlite"), "");
}

TEST_F(Failure, ALogThatIsThereButCannotBeOpenedIsOne)
{
    QDir().mkpath(path(writeAheadLog));
    QDir().mkpath(path(sharedMemory));
    EXPECT_EQ(failureAfterOpening(sharedMemory), "");
    EXPECT_EQ(failureAfterOpening(writeAheadLog),
              "/PhotoData/Photos.sqlite-wal on the device cannot be opened: Is a directory; a copy of the device must "
              "hold the file itself; copy it again");
}

TEST_F(Failure, AFileThatMayNotBeReadIsOne)
{
    writeFile(path(database), "database");
    ASSERT_EQ(::chmod(folder.path().toUtf8().constData(), 0755), 0);
    ASSERT_EQ(::chmod(path("/PhotoData").toUtf8().constData(), 0755), 0);
    ASSERT_EQ(::chmod(path(database).toUtf8().constData(), 0), 0);
    const QString failure = inUnprivilegedChild([this] {
        File(vFileOpen(device().get(), database, 0));
        return host.failure();
    });
    EXPECT_EQ(failure.toStdString(), "/PhotoData/Photos.sqlite on the device cannot be opened: Permission denied; make "
                                     "it readable for you, or mount the device as your own user");
}

TEST_F(Failure, ADatabaseFileLargerThanAnyIsOne)
{
    for (const char *file : {sharedMemory, writeAheadLog, database}) {
        writeFile(path(file), "");
        ASSERT_EQ(::truncate(path(file).toUtf8().constData(), devicehost::largestDatabaseFile), 0);
        EXPECT_NE(File(vFileOpen(device().get(), file, 0)), nullptr);
        ASSERT_EQ(::truncate(path(file).toUtf8().constData(), devicehost::largestDatabaseFile + 1), 0);
        EXPECT_EQ(vFileOpen(device().get(), file, 0), nullptr) << file;
    }
    EXPECT_EQ(host.failure().toStdString(), "/PhotoData/Photos.sqlite-wal on the device cannot be opened: it is larger "
                                            "than any photo library; unlock the device, connect it again, and mount or "
                                            "copy it again");
    writeFile(path("/DCIM/film"), "");
    ASSERT_EQ(::truncate(path("/DCIM/film").toUtf8().constData(), devicehost::largestDatabaseFile + 1), 0);
    EXPECT_NE(File(vFileOpen(device().get(), "/DCIM/film", 0)), nullptr);
}

TEST_F(Failure, TheFirstOneIsKept)
{
    const std::string first = failureAfterOpening(database);
    QDir().mkpath(path(writeAheadLog));
    EXPECT_EQ(failureAfterOpening(writeAheadLog), first);
}

TEST_F(Failure, AMissingDeviceIsOne)
{
    DeviceHost gone(QStringLiteral("folder:/no/such/device"));
    EXPECT_EQ(vDevOpen(VDevDevice, "folder:/no/such/device"), nullptr);
    EXPECT_EQ(gone.failure(),
              QStringLiteral("the device folder:/no/such/device cannot be opened: No such file or directory; check "
                             "that the device is still connected and mounted, and that the copy of it is whole"));
}

TEST_F(Failure, NothingCountsAfterAStopRequest)
{
    host.requestStop();
    EXPECT_EQ(failureAfterOpening(database), "");
}

TEST_F(Failure, ALocalCopyThatCannotBeCreatedIsOne)
{
    const QString copy = host.localDataFolder() + QStringLiteral("Photos.sqlite");
    QDir().mkpath(copy);
    const Device local(vDevOpen(VDevLocal, ""));
    EXPECT_EQ(vFileOpen(local.get(), copy.toUtf8().constData(), 1), nullptr);
    EXPECT_EQ(host.failure(), QStringLiteral("the local copy %1 of /PhotoData/Photos.sqlite on the device cannot be "
                                             "created: Is a directory; try again, and if that does not help, set "
                                             "TMPDIR to another folder than %2")
                                  .arg(copy, temporary.path()));
}

TEST_F(Failure, ALocalCopyThatCannotBeWrittenIsOne)
{
    const QString copy = host.localDataFolder() + QStringLiteral("Photos.sqlite");
    const Device local(vDevOpen(VDevLocal, ""));
    const File file(vFileOpen(local.get(), copy.toUtf8().constData(), 1));
    const QByteArray content(10000, 'x');
    rlimit before = {};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small = {4096, before.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &small);
    const int count = vFileWrite(file.get(), content.constData(), content.size());
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_LT(count, 0);
    EXPECT_EQ(host.failure(), QStringLiteral("the local copy %1 of /PhotoData/Photos.sqlite on the device cannot be "
                                             "written: File too large; free space in %2, or set TMPDIR to a folder "
                                             "with more")
                                  .arg(copy, temporary.path()));
}

TEST_F(Failure, OtherLocalFilesAreNone)
{
    const Device local(vDevOpen(VDevLocal, ""));
    EXPECT_EQ(vFileOpen(local.get(), folder.path().toUtf8().constData(), 1), nullptr);
    EXPECT_EQ(vFileOpen(local.get(), host.localDataFolder().toUtf8().constData(), 1), nullptr);
    EXPECT_TRUE(host.failure().isEmpty());
}

/// Gives some bytes, tells of an interrupted call before each piece, and fails in the end.
struct FailingFile final : VFile {
    explicit FailingFile(qint64 good) : remaining(good) {}

    qint64 read(char *buffer, qint64 size, Error *error) override
    {
        interrupted = !interrupted;
        if (interrupted || remaining == 0) {
            *error = devicehost::errnoError(interrupted ? EINTR : EIO);
            return -1;
        }
        const qint64 count = std::min(size, remaining);
        std::fill_n(buffer, count, 'x');
        remaining -= count;
        return count;
    }
    qint64 write(const char *, qint64 size, Error *) override { return std::min<qint64>(size, 7); }
    qint64 seek(qint64, int) override { return -1; }
    qint64 tell() override { return -1; }
    bool finish(Error *error) override
    {
        *error = devicehost::errnoError(ENOSPC);
        return false;
    }

    qint64 remaining;
    bool interrupted = false;
};

class BrokenFile : public testing::Test
{
protected:
    File failingFile(const char *name, qint64 good) const
    {
        File file(new FailingFile(good));
        file->watch = devicehost::FileWatch::onDevice(state, name);
        return file;
    }

    std::shared_ptr<devicehost::HostState> state = std::make_shared<devicehost::HostState>(QStringLiteral("x:"));
};

TEST_F(BrokenFile, AReadErrorInTheMiddleIsAnErrorAndAFailure)
{
    for (const char *name : {database, writeAheadLog}) {
        state = std::make_shared<devicehost::HostState>(QStringLiteral("x:"));
        const File file = failingFile(name, 300000);
        QByteArray buffer(200000, '\0');
        EXPECT_EQ(vFileRead(file.get(), buffer.data(), buffer.size()), 200000);
        EXPECT_LT(vFileRead(file.get(), buffer.data(), buffer.size()), 0); // half of it was there
        EXPECT_EQ(state->failure().toStdString(),
                  std::string(name) + " on the device cannot be read to its end: Input/output error; unlock the "
                                      "device, connect it again, and mount or copy it again");
    }
}

TEST_F(BrokenFile, AReadErrorInAPictureIsTheLibrarysToHandle)
{
    const File file = failingFile("/DCIM/100APPLE/IMG_0001.JPG", 10);
    char buffer[20] = {};
    EXPECT_LT(vFileRead(file.get(), buffer, 20), 0);
    EXPECT_TRUE(state->failure().isEmpty());
}

TEST_F(BrokenFile, InterruptedCallsAreRepeated)
{
    const File file = failingFile("/a", 1000000);
    QByteArray buffer(1000000, '\0');
    EXPECT_EQ(vFileRead(file.get(), buffer.data(), buffer.size()), 1000000);
    EXPECT_EQ(buffer.count('x'), 1000000);
}

TEST_F(BrokenFile, AnInterruptedReadEndsWhenStopIsAskedFor)
{
    const File file = failingFile("/a", 10);
    char byte = 0;
    state->requestStop();
    EXPECT_LT(vFileRead(file.get(), &byte, 1), 0);
    EXPECT_TRUE(state->failure().isEmpty());
}

// A gigabyte that comes slowly; the request to stop comes while its fifth piece is on the way.
struct SlowFile final : VFile {
    explicit SlowFile(devicehost::HostState &state) : host(state) {}

    qint64 read(char *buffer, qint64 size, Error *) override
    {
        EXPECT_FALSE(host.stopRequested()) << "a piece was begun after the request";
        EXPECT_LE(size, 128 * 1024);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        std::fill_n(buffer, size, 'x');
        if (++pieces == 5)
            std::thread([this] { host.requestStop(); }).join();
        return size;
    }
    qint64 seek(qint64, int) override { return -1; }
    qint64 tell() override { return -1; }
    qint64 size() const override { return 1 << 30; }

    devicehost::HostState &host;
    int pieces = 0;
};

TEST_F(BrokenFile, ASlowReadEndsWithThePieceInWhichStopIsAskedFor)
{
    auto *const slow = new SlowFile(*state);
    const File file(slow);
    file->watch = devicehost::FileWatch::onDevice(state, database);
    QByteArray buffer(4194304, '\0');
    EXPECT_LT(vFileRead(file.get(), buffer.data(), buffer.size()), 0);
    EXPECT_EQ(slow->pieces, 5);
    EXPECT_LT(vFileRead(file.get(), buffer.data(), buffer.size()), 0);
    EXPECT_EQ(slow->pieces, 5);
    EXPECT_TRUE(state->failure().isEmpty());
}

/// Announces some bytes, gives them, and never ends.
struct EndlessFile final : VFile {
    explicit EndlessFile(qint64 bytes) : announced(bytes) {}

    qint64 read(char *, qint64 size, Error *) override { return std::min(size, announced); }
    qint64 seek(qint64, int) override { return -1; }
    qint64 tell() override { return -1; }
    qint64 size() const override { return announced; }

    qint64 announced;
};

TEST_F(BrokenFile, ADatabaseFileThatGoesOnAfterItsAnnouncedEndIsRefusedAtTheLimit)
{
    for (const char *name : {database, writeAheadLog}) {
        state = std::make_shared<devicehost::HostState>(QStringLiteral("x:"));
        const File file(new EndlessFile(131072));
        file->watch = devicehost::FileWatch::onDevice(state, name);
        QByteArray buffer(4194304, '\0');
        qint64 taken = 0;
        int count = 0;
        while ((count = vFileRead(file.get(), buffer.data(), buffer.size())) > 0 &&
               taken <= 2 * devicehost::largestDatabaseFile)
            taken += count;
        EXPECT_LT(count, 0);
        EXPECT_LE(taken, devicehost::largestDatabaseFile);
        EXPECT_EQ(state->failure().toStdString(),
                  std::string(name) + " on the device cannot be read to its end: it is larger than any photo library; "
                                      "unlock the device, connect it again, and mount or copy it again");
    }
}

TEST_F(BrokenFile, PartialWritesAreContinued)
{
    const File file = failingFile("/a", 0);
    EXPECT_EQ(vFileWrite(file.get(), "0123456789abcdef", 16), 16);
}

TEST_F(BrokenFile, BytesLostWhenClosingAreAFailure)
{
    File file(new FailingFile(0));
    file->watch = devicehost::FileWatch::onLocal(state, "/tmp/x/Photos.sqlite-wal");
    qunsetenv("TMPDIR");
    file.reset();
    EXPECT_EQ(state->failure(),
              QStringLiteral("the local copy /tmp/x/Photos.sqlite-wal of /PhotoData/Photos.sqlite-wal on the device "
                             "cannot be written: No space left on device; free space in /tmp, or set TMPDIR to a "
                             "folder with more"));
}

} // namespace
