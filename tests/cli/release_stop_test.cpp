// A program of its own: it brings a releasePhotolib() that takes for ever.

#include "apps/cli/library_session.h"
#include "tests/cli/device_folder.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include <csignal>
#include <unistd.h>

void releasePhotolib(photo_manager_int **)
{
    constexpr unsigned patience = 60;
    ::alarm(patience); // so that nothing stays when the test fails
    std::raise(SIGINT);
    for (;;)
        ::pause();
}

namespace clitest
{

namespace
{

[[noreturn]] void openAndRelease(const QString &device, const QString &temporary)
{
    constexpr int wentOn = 9;
    qputenv("TMPDIR", temporary.toUtf8());
    photocli::DeviceOptions options;
    options.device = device.toStdString();
    {
        photocli::LibrarySession session(options);
    }
    ::_exit(wentOn);
}

} // namespace

TEST(InterruptedRelease, EndsTheCommandAndLeavesNothingBehind)
{
    GTEST_FLAG_SET(death_test_style, "fast"); // the child shares the folders
    SmallLibrary library;
    const DeviceFolder device(library.builder);
    const QTemporaryDir temporary;
    EXPECT_EXIT(openAndRelease(device.path(), temporary.path()), testing::ExitedWithCode(130),
                "photolib: interrupted\n$");
    EXPECT_TRUE(QDir(temporary.path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

} // namespace clitest
