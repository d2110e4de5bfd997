#include "tests/cli/command_run.h"
#include "tests/cli/device_folder.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

namespace clitest
{

namespace
{

// Every failure is one line on standard error, and nothing on standard output.
void expectFailure(const RunResult &result, int code, const char *part)
{
    EXPECT_EQ(result.code, code) << result.err.toStdString();
    EXPECT_EQ(result.out, QByteArray());
    EXPECT_EQ(result.err.count('\n'), 1) << result.err.toStdString();
    EXPECT_TRUE(result.err.startsWith("photolib: ")) << result.err.toStdString();
    EXPECT_TRUE(result.err.contains(part)) << result.err.toStdString();
    EXPECT_TRUE(result.leftovers.isEmpty());
}

const QStringList readingCommands = {"info", "albums", "photos", "groups", "dump"};

} // namespace

TEST(Usage, HelpAndVersionSucceed)
{
    const RunResult help = run({"--help"});
    EXPECT_EQ(help.code, 0);
    for (const QString &command :
         readingCommands + QStringList{"show", "thumbnail", "contact-sheet", "export", "sample"})
        EXPECT_TRUE(help.out.contains("  " + command.toUtf8() + " ")) << command.toStdString();
    EXPECT_TRUE(help.out.contains("Exit status"));
    EXPECT_TRUE(run({"photos", "--help"}).out.contains("--from-date"));
    const RunResult version = run({"--version"});
    EXPECT_EQ(version.code, 0);
    EXPECT_TRUE(version.out.startsWith("photolib "));
}

TEST(Usage, WrongLinesAreRefusedBeforeAnythingIsRead)
{
    const QList<QStringList> lines = {
        {},
        {"unknown"},
        {"photos"},
        {"show", "/dev"},
        {"photos", "/dev", "--nonsense"},
        {"photos", "/dev", "--json", "--csv"},
        {"photos", "/dev", "--only-photos", "--only-movies"},
        {"photos", "/dev", "--limit", "-1"},
        {"photos", "/dev", "--limit", "many"},
        {"photos", "/dev", "--from-date", "soon"},
        {"photos", "/dev", "--to-date", "2024-02-30"},
        {"photos", "/dev", "--group", "pets"},
        {"groups", "/dev", "--group", "people/"},
        {"photos", "/dev", "--album"},
        {"dump", "/dev", "--csv"},
        {"info", "/dev", "/dev"},
        {"sample", "/dev", "--era", "ios1"},
        {"thumbnail", "/dev", "1"},
        {"thumbnail", "/dev", "-o", "x"},
        {"contact-sheet", "/dev"},
        {"contact-sheet", "/dev", "-o", ""},
        {"contact-sheet", "/dev", "-o", "x", "--group", "pets"},
        {"export", "/dev"},
    };
    for (const QStringList &line : lines) {
        SCOPED_TRACE(line.join(QChar(' ')).toStdString());
        expectFailure(run(line), 2, "");
    }
}

TEST(Usage, UnknownCommandIsNamedBesideThoseThereAre)
{
    const char *commands = "the commands are devices, info, albums, photos, groups, show, thumbnail, contact-sheet, "
                           "export, dump, sample";
    expectFailure(run({"foo"}), 2, "there is no command \"foo\"; the commands are devices, info,");
    expectFailure(run({"foo", "/dev"}), 2, commands);
    expectFailure(run({"--verbose", "foo"}), 2, "\"foo\"");
    expectFailure(run({}), 2, commands);
    expectFailure(run({"--nonsense"}), 2, "\"--nonsense\"");
    expectFailure(run({"--nonsense", "info", "/dev"}), 2, "--nonsense");
}

TEST(Usage, ErrorInsideACommandPointsToTheHelpOfThatCommand)
{
    expectFailure(run({"photos"}), 2, "see \"photolib photos --help\"");
    expectFailure(run({"dump", "/dev", "--csv"}), 2, "see \"photolib dump --help\"");
}

TEST(Usage, HelpOfACommandLeavesOutWhatHoldsForAll)
{
    for (const QString &command :
         readingCommands + QStringList{"show", "thumbnail", "contact-sheet", "export", "sample"}) {
        const RunResult help = run({command, "--help"});
        EXPECT_EQ(help.code, 0);
        EXPECT_TRUE(help.out.contains("Usage: photolib " + command.toUtf8())) << help.out.toStdString();
        EXPECT_FALSE(help.out.contains("Exit status")) << command.toStdString();
    }
}

TEST(Usage, LogOptionsMayStandBeforeTheCommand)
{
    SmallLibrary library;
    DeviceFolder device(library.builder);
    const QString log = device.path() + "/lines.log";
    const RunResult result = run({"--verbose", "--no-progress", "--log-file", log, "info", device.path()});
    EXPECT_EQ(result.code, 0);
    EXPECT_TRUE(result.err.contains("PHOTOLIB 1 load ATHCameraDB\n")) << result.err.toStdString();
    EXPECT_TRUE(QFile::exists(log));
    const QString other = device.path() + "/other.log";
    EXPECT_EQ(run({"--log-file", "/nonexistent/log", "info", device.path(), "--log-file", other}).err, QByteArray());
    EXPECT_TRUE(QFile::exists(other));
}

TEST(Usage, EmptyDeviceIsWrongUsage)
{
    expectFailure(run({"info", ""}), 2, "no device folder is named");
    expectFailure(run({"info", "folder:"}), 2, "no device folder is named");
}

TEST(Usage, AbsentFolderIsADeviceThatCannotBeReached)
{
    for (const QString &command : readingCommands)
        expectFailure(run({command, "/nonexistent/device"}), 3, "/nonexistent/device");
    expectFailure(run({"show", "/nonexistent/device", "1"}), 3, "/nonexistent/device");
}

TEST(Usage, FileInPlaceOfAFolderCannotBeReached)
{
    expectFailure(run({"info", "/dev/null"}), 3, "/dev/null");
}

TEST(Usage, FolderWithoutDatabaseHoldsNoLibrary)
{
    const QTemporaryDir empty;
    for (const QString &command : readingCommands)
        expectFailure(run({command, empty.path()}), 4, "Photos.sqlite");
}

TEST(Usage, FolderInPlaceOfTheDatabaseHoldsNoLibrary)
{
    DeviceFolder device;
    QDir().mkpath(device.database());
    expectFailure(run({"dump", device.path()}), 4, "Photos.sqlite");
}

TEST(Usage, OptionsMayStandBeforeOrAfterTheDevice)
{
    SmallLibrary library;
    DeviceFolder device(library.builder);
    const RunResult before = run({"photos", "--limit", "1", "--csv", device.path()});
    const RunResult after = run({"photos", device.path(), "--csv", "--limit=1"});
    EXPECT_EQ(before.code, 0);
    EXPECT_EQ(before.out, after.out);
    EXPECT_EQ(before.outLines().size(), 2);
}

TEST(Usage, DeviceMayCarryItsScheme)
{
    SmallLibrary library;
    DeviceFolder device(library.builder);
    EXPECT_EQ(run({"albums", "--json", "folder:" + device.path()}).out, run({"albums", "--json", device.path()}).out);
}

TEST(Usage, PathBeyondAsciiIsReadInAnyLocale)
{
    SmallLibrary library;
    const QTemporaryDir folder;
    const QString device = folder.path() + QString::fromUtf8("/Gerät 東京");
    QDir().mkpath(device + "/PhotoData");
    library.builder.write(device + "/PhotoData/Photos.sqlite");
    CommandProcess process;
    QProcessEnvironment environment = process.processEnvironment();
    environment.insert("LC_ALL", "C");
    process.setProcessEnvironment(environment);
    process.startCommand({"info", device});
    const RunResult result = process.wait();
    EXPECT_EQ(result.code, 0) << result.err.toStdString();
    EXPECT_TRUE(result.out.contains("Gerät 東京"));
}

} // namespace clitest
