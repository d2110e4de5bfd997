#include "tests/cli/command_run.h"
#include "tests/cli/media_device.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>

namespace clitest
{

namespace
{

using testing::HasSubstr;

const QStringList everything = {"--albums", "--edited"};

// Live Photos, an album over all of it, and plain photos.
void fill(MediaDevice &device, int photos)
{
    testkit::AlbumRow trip;
    trip.title = "Trip";
    const qint64 album = device.builder.addAlbum(trip);
    for (int n = 1; n <= photos; ++n) {
        const QString stem = QStringLiteral("IMG_%1").arg(n, 4, 10, QChar('0'));
        testkit::AssetRow row;
        row.kindSubtype = n % 3 == 0 ? 2 : 0;
        const qint64 id = device.addPhoto(stem + ".JPG", 2000, row);
        if (row.kindSubtype == 2)
            device.addFile("DCIM/100APPLE/" + stem + ".MOV", bytesOfPhoto(1000 + n, 3000));
        if (n % 4 == 0)
            device.builder.addToAlbum(album, id);
    }
    device.write();
}

void startExport(CommandProcess &process, const MediaDevice &device, const QString &destination,
                 const QStringList &options = everything)
{
    process.startCommand(QStringList{"export", device.path(), destination} + options);
}

// Until there are so many exported files, or the process has ended.
void waitForFiles(CommandProcess &process, const QString &destination, int count)
{
    const QString years = destination + "/2020";
    while (process.state() == QProcess::Running && namesIn(years).size() < count)
        process.waitForFinished(1);
}

void kill(const CommandProcess &process, int signalNumber)
{
    if (process.state() == QProcess::Running) // no process has the number 0: it would mean this test and its parents
        ::kill(static_cast<pid_t>(process.processId()), signalNumber);
}

} // namespace

TEST(ExportStop, KilledRunGoesOnToTheSameEnd)
{
    MediaDevice device;
    fill(device, 60);
    const QTemporaryDir folder;
    const QString whole = folder.path() + "/whole";
    ASSERT_EQ(run(QStringList{"export", device.path(), whole} + everything).code, 0);
    for (const int files : {0, 1, 17, 60}) {
        const QString place = folder.path() + QStringLiteral("/killed-%1").arg(files);
        CommandProcess process;
        startExport(process, device, place);
        waitForFiles(process, place, files);
        kill(process, SIGKILL);
        process.waitForFinished(-1);
        const RunResult resumed = run(QStringList{"export", device.path(), place} + everything);
        EXPECT_EQ(resumed.code, 0) << resumed.err.toStdString();
        EXPECT_EQ(treeOf(place), treeOf(whole)) << files;
    }
}

TEST(ExportStop, InterruptKeepsWhatIsCompleteAndSaysHowToGoOn)
{
    MediaDevice device;
    fill(device, 600);
    const QTemporaryDir folder;
    for (const int signalNumber : {SIGINT, SIGTERM}) {
        const QString place = folder.path() + QStringLiteral("/%1").arg(signalNumber);
        const QString report = folder.path() + QStringLiteral("/%1.json").arg(signalNumber);
        ::signal(signalNumber, SIG_DFL);
        CommandProcess process;
        startExport(process, device, place, {"--report", report});
        waitForFiles(process, place, 5);
        kill(process, signalNumber);
        const RunResult result = process.wait();
        EXPECT_EQ(result.code, 130) << result.err.toStdString();
        EXPECT_THAT(result.err.toStdString(), HasSubstr("photolib: interrupted; every file that is there is complete, "
                                                        "and the same command goes on where this one stopped\n"));
        EXPECT_EQ(result.err.count('\n'), 1) << result.err.toStdString();
        EXPECT_TRUE(result.leftovers.isEmpty());
        EXPECT_THAT(result.out.toStdString(), HasSubstr(" of 600 photos and videos: "));
        const auto rows = QJsonDocument::fromJson(contentOfFile(report));
        EXPECT_TRUE(rows.isArray()) << contentOfFile(report).right(200).toStdString();
        for (const QString &name : namesIn(place))
            EXPECT_FALSE(name.endsWith(".partial")) << name.toStdString();
        const int before = treeOf(place).size();
        EXPECT_GE(before, 5);
        EXPECT_LT(before, 800);
        if (signalNumber == SIGTERM)
            continue; // the other one shows that it goes on
        EXPECT_EQ(run({"export", device.path(), place}).code, 0);
        EXPECT_EQ(treeOf(place).size(), 800);
    }
}

TEST(ExportStop, SecondRunIntoTheSamePlaceIsRefusedMeanwhile)
{
    MediaDevice device;
    fill(device, 600);
    const QTemporaryDir folder;
    const QString place = folder.path() + "/backup";
    CommandProcess process;
    startExport(process, device, place);
    waitForFiles(process, place, 5);
    ASSERT_EQ(process.state(), QProcess::Running);
    ::kill(static_cast<pid_t>(process.processId()), SIGSTOP);
    const RunResult second = run({"export", device.path(), place});
    ::kill(static_cast<pid_t>(process.processId()), SIGCONT);
    kill(process, SIGTERM);
    process.wait();
    EXPECT_EQ(second.code, 5);
    EXPECT_EQ(second.err.count('\n'), 1) << second.err.toStdString();
    EXPECT_THAT(second.err.toStdString(), HasSubstr(place.toStdString()));
}

// Needs a file system of its own, and so a user name space.
TEST(ExportStop, FullDiskEndsCleanlyAndLosesNothing)
{
    MediaDevice device;
    device.addPhotos(12, 1000 * 1000);
    device.write();
    const QTemporaryDir folder;
    QProcess probe;
    probe.start("unshare", {"-rm", "mount", "-t", "tmpfs", "tmpfs", folder.path()});
    if (!probe.waitForFinished(-1) || probe.exitStatus() != QProcess::NormalExit || probe.exitCode() != 0)
        GTEST_SKIP() << "no file system can be mounted here";
    const char *script = "mount -t tmpfs -o size=24m tmpfs \"$2\" || exit 99\n"
                         "\"$0\" export \"$1\" \"$2/backup\" --layout dcim; echo \"status $?\"\n"
                         "cd \"$2/backup\" && find . -name '*.partial' && cd DCIM/100APPLE && for f in *; do\n"
                         "cmp \"$f\" \"$1/DCIM/100APPLE/$f\" && echo same; done\n";
    QProcess shell;
    shell.start("unshare", {"-rm", "sh", "-c", script, PHOTOLIB_COMMAND, device.path(), folder.path()});
    ASSERT_TRUE(shell.waitForFinished(-1));
    const QByteArray out = shell.readAllStandardOutput();
    const QByteArray errors = shell.readAllStandardError();
    EXPECT_TRUE(out.contains("status 5\n")) << out.toStdString() << errors.toStdString();
    EXPECT_GE(out.count("same\n"), 2) << out.toStdString();
    EXPECT_LT(out.count("same\n"), 12);
    EXPECT_FALSE(out.contains(".partial"));
    EXPECT_FALSE(out.contains("differ"));
    EXPECT_EQ(errors.count('\n'), 1) << errors.toStdString();
}

} // namespace clitest
