// The program itself, in processes of its own.

#include "tests/browser/support/opening.h"
#include "tests/cli/sample/sample_folder.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace
{

class Program : public testing::Test
{
protected:
    ~Program() override
    {
        for (const auto &process : processes)
            if (process->state() != QProcess::NotRunning) {
                process->kill();
                process->waitForFinished();
            }
    }

    QProcess &start(const QStringList &arguments)
    {
        processes.push_back(std::make_unique<QProcess>());
        QProcess &process = *processes.back();
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *variable : {"HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR", "TMPDIR"})
            environment.insert(QLatin1String(variable), home.path());
        // Qt's platform without a screen never frees the screen that it makes up.
        environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(PHOTOLIB_BROWSER), arguments);
        return process;
    }

    static bool ends(const QProcess &process)
    {
        return comesTrueSoon([&process] { return process.state() == QProcess::NotRunning; });
    }

    bool isWaitedFor() const
    {
        return !QDir(home.path()).entryList({QStringLiteral("photolib-browser-*")}, QDir::System).isEmpty();
    }

    QTemporaryDir home;
    std::vector<std::unique_ptr<QProcess>> processes;
};

TEST_F(Program, AnswersOnStandardOutputWithoutAScreen)
{
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    qputenv("QT_QPA_PLATFORM", "no such platform");
    QProcess &help = start({QStringLiteral("--help")});
    QProcess &version = start({QStringLiteral("--version")});
    EXPECT_TRUE(ends(help));
    EXPECT_TRUE(ends(version));
    qputenv("QT_QPA_PLATFORM", platform);
    EXPECT_EQ(help.exitCode(), 0);
    EXPECT_TRUE(help.readAllStandardOutput().contains("--password-file"));
    EXPECT_EQ(version.exitCode(), 0);
    EXPECT_TRUE(version.readAllStandardOutput().startsWith("photolib-browser "));
}

TEST_F(Program, EndsWithTwoForWrongUsage)
{
    const QList<QStringList> wrong = {{QStringLiteral("--nonsense")},
                                      {QStringLiteral("one"), QStringLiteral("two")},
                                      {QStringLiteral("--password-file"), home.filePath(QStringLiteral("missing"))}};
    for (const QStringList &arguments : wrong) {
        QProcess &process = start(arguments);
        EXPECT_TRUE(ends(process));
        EXPECT_EQ(process.exitCode(), 2);
        EXPECT_TRUE(process.readAllStandardError().contains("photolib-browser: "));
    }
}

TEST_F(Program, LeavesADeviceToTheProcessThatHasIt)
{
    const SampleFolder sample({}, SampleParts::DatabaseOnly);
    QProcess &first = start({sample.root()});
    ASSERT_TRUE(comesTrueSoon([this] { return isWaitedFor(); }));
    QProcess &second = start({sample.root()});
    EXPECT_TRUE(ends(second));
    EXPECT_EQ(second.exitCode(), 0);
    EXPECT_EQ(first.state(), QProcess::Running);
}

TEST_F(Program, TakesADeviceOverFromAProcessThatWasKilled)
{
    const SampleFolder sample({}, SampleParts::DatabaseOnly);
    QProcess &first = start({sample.root()});
    ASSERT_TRUE(comesTrueSoon([this] { return isWaitedFor(); }));
    first.kill();
    ASSERT_TRUE(ends(first));
    QProcess &second = start({sample.root()});
    const QString settings = home.filePath(QStringLiteral("photolib/photolib-browser.conf"));
    EXPECT_TRUE(comesTrueSoon([&] {
        QFile file(settings);
        return file.open(QIODevice::ReadOnly) && file.readAll().contains("device");
    }));
    EXPECT_EQ(second.state(), QProcess::Running);
}

} // namespace
