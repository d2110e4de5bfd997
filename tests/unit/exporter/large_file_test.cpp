#include "tests/unit/exporter/export_fixture.h"
#include "tests/unit/exporter/failing_files.h"

#include <QFileInfo>

#include <cstring>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

using namespace exporter;
using namespace testkit;

namespace
{

/// Leaves holes where zeros are written, so that a large file takes no room.
class HoleFiles final : public FileOperations
{
public:
    ssize_t write(int file, const void *buffer, std::size_t size) override
    {
        const char *const bytes = static_cast<const char *>(buffer);
        if (bytes[0] != 0 || std::memcmp(bytes, bytes + 1, size - 1) != 0)
            return FileOperations::write(file, buffer, size);
        const off_t end = ::lseek(file, static_cast<off_t>(size), SEEK_CUR);
        return end < 0 || ::ftruncate(file, end) != 0 ? -1 : static_cast<ssize_t>(size);
    }
};

long peakKilobytes()
{
    rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

void exportZeros(qint64 size)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    HoleFiles files;
    fixture.files = &files;
    fixture.addVideo("LONG.MOV", "");
    fixture.device.addVirtualFile("/DCIM/100APPLE/LONG.MOV", size, [](qint64, char *buffer, qint64 count) {
        std::memset(buffer, 0, static_cast<std::size_t>(count));
    });
    fixture.open();
    const long before = peakKilobytes();
    const RunOutcome outcome = fixture.run({1});
    EXPECT_TRUE(outcome.isSuccess()) << qPrintable(fixture.lines().join('\n'));
    EXPECT_EQ(size, outcome.bytesExported);
    EXPECT_EQ(size, QFileInfo(fixture.path("LONG.MOV")).size());
    EXPECT_LT(peakKilobytes() - before, 20 * 1024);
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    EXPECT_LT(peakKilobytes(), 100 * 1024);
#endif
}

} // namespace

TEST(LargeFile, MemoryStaysFlat)
{
    exportZeros(128LL * 1024 * 1024);
}

// Hashing takes a minute or more: see scripts/test-large-export.sh.
TEST(LargeFile, FiveGibibytesAreExportedWhole)
{
    if (qEnvironmentVariableIsEmpty("PHOTOLIB_LARGE_TESTS"))
        GTEST_SKIP() << "set PHOTOLIB_LARGE_TESTS=1 to run it";
    exportZeros(5LL * 1024 * 1024 * 1024 + 7);
}
