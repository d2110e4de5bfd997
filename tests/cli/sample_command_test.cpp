#include "tests/cli/command_run.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QJsonObject>

#include <csignal>

namespace clitest
{

TEST(SampleCommand, DeviceIsReadByTheOtherCommands)
{
    const QTemporaryDir folder;
    const QString device = folder.path() + "/device";
    const RunResult made = run({"sample", device});
    ASSERT_EQ(made.code, 0) << made.err.toStdString();
    EXPECT_TRUE(made.out.contains("photos and videos"));
    const RunResult info = run({"info", "--json", device});
    EXPECT_EQ(info.code, 0) << info.err.toStdString();
    EXPECT_EQ(info.err, QByteArray());
    EXPECT_GT(info.json().object().value("photos").toInt(), 100);
    EXPECT_GT(info.json().object().value("videos").toInt(), 1);
}

TEST(SampleCommand, FolderThatIsNotEmptyIsLeftAlone)
{
    const QTemporaryDir folder;
    QFile file(folder.path() + "/mine");
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    const RunResult result = run({"sample", folder.path()});
    EXPECT_EQ(result.code, 5);
    EXPECT_EQ(result.out, QByteArray());
    EXPECT_EQ(result.err.count('\n'), 1);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList({"mine"}));
}

TEST(SampleCommand, EmptyNameIsWrongUsage)
{
    const RunResult result = run({"sample", ""});
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(result.out, QByteArray());
    EXPECT_EQ(result.err.count('\n'), 1);
    EXPECT_TRUE(result.err.contains("name a new or an empty folder")) << result.err.toStdString();
}

TEST(SampleCommand, InterruptRemovesWhatWasWritten)
{
    for (const int signalNumber : {SIGINT, SIGTERM}) {
        const QTemporaryDir folder;
        const QString device = folder.path() + "/device";
        // The test may have been started in the background, where shells ignore the signal.
        ::signal(signalNumber, SIG_DFL);
        CommandProcess process;
        process.startCommand({"sample", device});
        while (!QDir(device + "/DCIM").exists() && process.state() == QProcess::Running)
            process.waitForFinished(10);
        if (process.state() ==
            QProcess::Running) // no process has the number 0: it would mean this test and its parents
            ::kill(static_cast<pid_t>(process.processId()), signalNumber);
        const RunResult result = process.wait();
        EXPECT_EQ(result.code, 130);
        EXPECT_EQ(result.out, QByteArray());
        EXPECT_EQ(result.err, "photolib: interrupted; what was written to " + device.toUtf8() + " is removed\n");
        EXPECT_FALSE(QDir(device).exists());
    }
}

TEST(SampleCommand, EraMayBeWrittenInAnyCase)
{
    const QTemporaryDir folder;
    const QString device = folder.path() + "/device";
    const RunResult made = run({"sample", device, "--era", "iOS13"});
    ASSERT_EQ(made.code, 0) << made.err.toStdString();
    EXPECT_EQ(made.err, QByteArray()); // no progress bar into a pipe
    QFile database(device + "/PhotoData/Photos.sqlite");
    ASSERT_TRUE(database.open(QIODevice::ReadOnly));
    EXPECT_TRUE(database.readAll().contains("CREATE TABLE ZGENERICASSET"));
}

TEST(SampleCommand, HelpListsTheEras)
{
    const RunResult help = run({"sample", "--help"});
    EXPECT_EQ(help.code, 0);
    EXPECT_TRUE(help.out.contains("--era ERA")) << help.out.toStdString();
    for (const char *era : {"ios11", "ios15", "ios26"})
        EXPECT_TRUE(help.out.contains(era)) << era;
}

TEST(SampleCommand, UnknownEraIsRefusedWithTheListOfEras)
{
    const QTemporaryDir folder;
    const RunResult result = run({"sample", folder.path() + "/device", "--era", "ios3"});
    EXPECT_EQ(result.code, 2);
    EXPECT_TRUE(result.err.contains("ios15"));
}

} // namespace clitest
