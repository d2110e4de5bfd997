#include "tests/cli/command_run.h"
#include "tests/cli/device_folder.h"

#include <gtest/gtest.h>

#include <QFile>

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace clitest
{

namespace
{

const QStringList reading = {"info", "albums", "photos", "groups", "dump"};

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

struct Pipe {
    Pipe()
    {
        int ends[2] = {-1, -1};
        EXPECT_EQ(::pipe2(ends, O_CLOEXEC), 0);
        reading = ends[0];
        writing = ends[1];
    }
    ~Pipe()
    {
        closeWriting();
        ::close(reading);
    }
    Pipe(const Pipe &) = delete;
    Pipe &operator=(const Pipe &) = delete;

    void closeWriting()
    {
        if (writing >= 0)
            ::close(writing);
        writing = -1;
    }

    // Until nothing more goes in.
    void fill() const
    {
        const QByteArray page(4096, 'x');
        ::fcntl(writing, F_SETFL, O_NONBLOCK);
        while (::write(writing, page.constData(), static_cast<size_t>(page.size())) > 0) {
        }
        ::fcntl(writing, F_SETFL, 0);
    }

    int reading = -1;
    int writing = -1;
};

// With more photos than fit into a pipe.
testkit::LibraryBuilder &manyPhotos(testkit::LibraryBuilder &builder)
{
    for (int i = 0; i < 3000; ++i)
        builder.addAsset();
    return builder;
}

// Gives the database a tail of nothing that takes many seconds to copy.
void makeSlow(const DeviceFolder &device)
{
    constexpr qint64 length = 8LL << 30;
    QFile database(device.path() + "/PhotoData/Photos.sqlite");
    if (!database.resize(length))
        ADD_FAILURE() << "no file with holes here: " << qPrintable(database.errorString());
}

// Starts the command on a slow library and sends it `signalNumber` in the middle of the opening.
RunResult interrupted(int signalNumber)
{
    testkit::LibraryBuilder builder(testkit::Era::Ios15, plain());
    DeviceFolder device(builder);
    makeSlow(device);
    const QString log = device.path() + "/log";
    // The test may have been started in the background, where shells ignore the signal.
    ::signal(signalNumber, SIG_DFL);
    CommandProcess process;
    process.startCommand({"photos", device.path(), "--log-file", log});
    while (!contentOf(log).contains("load ATHCameraDB") && process.state() == QProcess::Running)
        process.waitForFinished(10);
    if (process.state() == QProcess::Running) // no process has the number 0: it would mean this test and its parents
        ::kill(static_cast<pid_t>(process.processId()), signalNumber);
    return process.wait();
}

} // namespace

TEST(Streams, FullOutputIsStatusFive)
{
    SmallLibrary library;
    DeviceFolder device(library.builder);
    for (const QString &command : reading) {
        const RunResult result = run({command, device.path()}, "/dev/full");
        EXPECT_EQ(result.code, 5) << command.toStdString();
        EXPECT_EQ(result.err.count('\n'), 1);
        EXPECT_TRUE(result.err.contains("No space left"));
        EXPECT_TRUE(result.leftovers.isEmpty());
    }
    EXPECT_EQ(run({"show", device.path(), "1"}, "/dev/full").code, 5);
    EXPECT_EQ(run({"--help"}, "/dev/full").code, 5);
    EXPECT_EQ(run({"--version"}, "/dev/full").code, 5);
}

TEST(Streams, ReaderThatLeavesIsNoFailure)
{
    testkit::LibraryBuilder builder(testkit::Era::Ios15, plain());
    DeviceFolder device(manyPhotos(builder));
    const QString errors = device.path() + "/errors";
    QProcess shell;
    shell.start("/bin/sh", {"-c", "{ \"$0\" dump \"$1\" 2>\"$2\"; echo status $? >>\"$2\"; } | head -c 10",
                            PHOTOLIB_COMMAND, device.path(), errors});
    shell.waitForFinished(-1);
    EXPECT_EQ(shell.readAllStandardOutput(), QByteArray("{\n\"library"));
    EXPECT_EQ(contentOf(errors), QByteArray("status 0\n"));
}

TEST(Streams, ClosedOutputIsStatusFiveAndTouchesNoFile)
{
    SmallLibrary library;
    DeviceFolder device(library.builder);
    QProcess shell;
    shell.start("/bin/sh", {"-c", "\"$0\" photos \"$1\" >&-; echo $?", PHOTOLIB_COMMAND, device.path()});
    shell.waitForFinished(-1);
    EXPECT_EQ(shell.readAllStandardOutput(), QByteArray("5\n"));
}

TEST(Streams, FirstPhotoGoesOutAtOnce)
{
    testkit::LibraryBuilder builder(testkit::Era::Ios15, plain());
    DeviceFolder device(manyPhotos(builder));
    for (const char *format : {"--csv", "--json", "--no-progress"}) {
        int ends[2];
        ASSERT_EQ(::pipe2(ends, O_DIRECT | O_CLOEXEC), 0); // one read answers one write
        CommandProcess process;
        process.setOutput(ends[1]);
        process.startCommand({"photos", device.path(), format});
        ::close(ends[1]);
        char bytes[4096];
        const ssize_t count = ::read(ends[0], bytes, sizeof bytes);
        ASSERT_GT(count, 0);
        const QByteArray first(bytes, static_cast<int>(count));
        EXPECT_TRUE(first.contains("IMG_0001.JPG")) << format;
        EXPECT_FALSE(first.contains("IMG_0002.JPG")) << format;
        ::close(ends[0]);
        EXPECT_EQ(process.wait().code, 0);
    }
}

TEST(Streams, LogFileTakesTheLinesOfTheLibrary)
{
    SmallLibrary library;
    DeviceFolder device(library.builder);
    const QString log = device.path() + "/lines.log";
    for (const QString &command : reading)
        EXPECT_EQ(run({command, device.path(), "--log-file", log}).code, 0);
    const QByteArray lines = contentOf(log);
    EXPECT_TRUE(lines.startsWith("PHOTOLIB 1 load ATHCameraDB\n")) << lines.toStdString();
    EXPECT_EQ(lines.count("PHOTOLIB 1 load ATHCameraDB end\n"), reading.size());
}

TEST(Streams, LogFileThatCannotBeWrittenIsStatusFive)
{
    SmallLibrary library;
    DeviceFolder device(library.builder);
    const RunResult result = run({"info", device.path(), "--log-file", "/nonexistent/folder/log"});
    EXPECT_EQ(result.code, 5);
    EXPECT_EQ(result.out, QByteArray());
    EXPECT_TRUE(result.err.contains("/nonexistent/folder/log"));
}

TEST(Streams, VerboseShowsLogLinesAndNoProgressIntoAPipe)
{
    SmallLibrary library;
    DeviceFolder device(library.builder);
    EXPECT_TRUE(run({"info", "-v", device.path()}).err.contains("PHOTOLIB 1 Parser_Ath_camera_DB success\n"));
    EXPECT_EQ(run({"info", device.path()}).err, QByteArray());
    EXPECT_EQ(run({"info", "--no-progress", device.path()}).err, QByteArray());
}

TEST(Streams, InterruptEndsTheOpeningCleanly)
{
    for (const int signalNumber : {SIGINT, SIGTERM}) {
        const RunResult result = interrupted(signalNumber);
        EXPECT_EQ(result.code, 130);
        EXPECT_EQ(result.out, QByteArray());
        EXPECT_EQ(result.err, QByteArray("photolib: interrupted\n"));
        EXPECT_TRUE(result.leftovers.isEmpty());
    }
}

TEST(Streams, InterruptEndsAWriteThatNobodyReads)
{
    testkit::LibraryBuilder builder(testkit::Era::Ios15, plain());
    DeviceFolder device(manyPhotos(builder));
    for (const int signalNumber : {SIGINT, SIGTERM}) {
        ::signal(signalNumber, SIG_DFL);
        Pipe pipe;
        CommandProcess process;
        process.setOutput(pipe.writing);
        process.startCommand({"photos", "--csv", device.path()});
        pipe.closeWriting();
        char first = 0;
        ASSERT_EQ(::read(pipe.reading, &first, 1), 1);
        ASSERT_GT(process.processId(), 0);
        ::kill(static_cast<pid_t>(process.processId()), signalNumber);
        const RunResult result = process.wait();
        EXPECT_EQ(result.code, 130);
        EXPECT_EQ(result.err, QByteArray("photolib: interrupted\n"));
        EXPECT_TRUE(result.leftovers.isEmpty());
    }
}

TEST(Streams, InterruptEndsLogLinesThatNobodyReads)
{
    testkit::LibraryBuilder builder(testkit::Era::Ios15, plain());
    DeviceFolder device(builder);
    makeSlow(device);
    ::signal(SIGINT, SIG_DFL);
    Pipe pipe;
    pipe.fill();
    CommandProcess process;
    process.setError(pipe.writing);
    process.startCommand({"photos", "--verbose", device.path()});
    pipe.closeWriting();
    ASSERT_GT(process.processId(), 0);
    while (!process.catches(SIGINT) && process.state() == QProcess::Running)
        process.waitForFinished(10);
    ::kill(static_cast<pid_t>(process.processId()), SIGINT);
    const RunResult result = process.wait();
    EXPECT_EQ(result.code, 130);
    EXPECT_TRUE(result.leftovers.isEmpty());
}

TEST(Streams, LogFileMayBeAPipe)
{
    SmallLibrary library;
    DeviceFolder device(library.builder);
    const RunResult result = run({"info", device.path(), "--log-file", "/dev/stderr"});
    EXPECT_EQ(result.code, 0);
    EXPECT_TRUE(result.err.contains("PHOTOLIB 1 load ATHCameraDB end\n")) << result.err.toStdString();
}

TEST(Streams, LogFileThatFillsUpIsTold)
{
    SmallLibrary library;
    DeviceFolder device(library.builder);
    const RunResult result = run({"info", device.path(), "--log-file", "/dev/full"});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.err.count('\n'), 1) << result.err.toStdString();
    EXPECT_TRUE(result.err.contains("/dev/full is not complete: No space left")) << result.err.toStdString();
}

TEST(Streams, ProgressStaysOnOneLineOfANarrowTerminal)
{
    SmallLibrary library;
    DeviceFolder device(library.builder);
    const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    ASSERT_GE(terminal, 0);
    ASSERT_EQ(::grantpt(terminal), 0);
    ASSERT_EQ(::unlockpt(terminal), 0);
    struct winsize size {
    };
    size.ws_col = 12;
    ASSERT_EQ(::ioctl(terminal, TIOCSWINSZ, &size), 0);
    const int screen = ::open(::ptsname(terminal), O_RDWR | O_NOCTTY | O_CLOEXEC);
    ASSERT_GE(screen, 0);
    CommandProcess process;
    process.setError(screen);
    process.startCommand({"info", device.path()});
    EXPECT_EQ(process.wait().code, 0);
    ::close(screen);
    QByteArray shown;
    char bytes[4096];
    for (ssize_t count = 0; (count = ::read(terminal, bytes, sizeof bytes)) > 0;) // to the end, which is an error
        shown.append(bytes, static_cast<int>(count));
    const QByteArray begin = "\r\033[K";
    EXPECT_TRUE(shown.startsWith(begin + "reading /Ph" + begin)) << shown.toStdString();
    EXPECT_TRUE(shown.endsWith(begin + "reading the" + begin)) << shown.toStdString();
    for (const QByteArray &line : shown.split('\r'))
        EXPECT_LE(line.size(), begin.size() - 1 + 11) << line.toStdString();
    ::close(terminal);
}

} // namespace clitest
