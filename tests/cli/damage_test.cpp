#include "tests/cli/command_run.h"
#include "tests/cli/device_folder.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QJsonArray>
#include <QRandomGenerator>

#include <unistd.h>

namespace clitest
{

namespace
{

QByteArray randomBytes(int size)
{
    QRandomGenerator random(42);
    QByteArray bytes(size, '\0');
    for (char &byte : bytes)
        byte = static_cast<char>(random.bounded(256));
    return bytes;
}

void expectUnreadable(const DeviceFolder &device)
{
    for (const char *command : {"info", "albums", "photos", "groups", "dump"}) {
        const RunResult result = run({command, device.path()});
        EXPECT_EQ(result.code, 4) << result.err.toStdString();
        EXPECT_EQ(result.out, QByteArray());
        EXPECT_EQ(result.err.count('\n'), 1) << result.err.toStdString();
        EXPECT_TRUE(result.err.startsWith("photolib: "));
        EXPECT_TRUE(result.leftovers.isEmpty());
    }
}

// The result of a command for which file permissions count; its code is -1 when another user cannot run it.
RunResult runAsNobody(const QStringList &arguments)
{
    CommandProcess version;
    version.dropRoot();
    version.startCommand({"--version"});
    if (version.wait().code != 0)
        return {};
    CommandProcess process;
    process.dropRoot();
    process.startCommand(arguments);
    return process.wait();
}

// Where in the database file the first page of a table lies.
int rootOf(const DeviceFolder &device, const QString &table)
{
    testkit::SqlConnection connection(device.database());
    const auto pageSize = connection.rows("PRAGMA page_size").at(0).at(0).storage();
    const auto page =
        connection.rows(QStringLiteral("SELECT rootpage FROM sqlite_master WHERE name = '%1'").arg(table)).at(0).at(0);
    return static_cast<int>((std::get<qint64>(page.storage()) - 1) * std::get<qint64>(pageSize));
}

// An empty result with one warning that says `reason` and what to do next.
void expectWarning(const RunResult &result, const char *reason, const char *nextStep)
{
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.err.count('\n'), 1) << result.err.toStdString();
    EXPECT_TRUE(result.err.startsWith("photolib: warning: ")) << result.err.toStdString();
    EXPECT_TRUE(result.err.contains("/PhotoData/Photos.sqlite")) << result.err.toStdString();
    EXPECT_TRUE(result.err.contains(reason)) << result.err.toStdString();
    EXPECT_TRUE(result.err.contains(nextStep)) << result.err.toStdString();
    EXPECT_FALSE(result.err.contains("sql error")) << result.err.toStdString();
}

} // namespace

TEST(Damage, TextInPlaceOfADatabaseIsUnreadable)
{
    DeviceFolder device;
    device.setDatabase(
        QByteArray("this is no database at all, just a line of text that goes on for a while ").repeated(40));
    expectUnreadable(device);
}

TEST(Damage, EncryptedBytesAreUnreadable)
{
    DeviceFolder device;
    device.setDatabase(randomBytes(64 * 1024));
    expectUnreadable(device);
}

TEST(Damage, DatabaseCutInItsFirstPageIsUnreadable)
{
    SmallLibrary library;
    DeviceFolder device(library.builder);
    device.setDatabase(device.databaseBytes().left(600));
    expectUnreadable(device);
}

TEST(Damage, DatabaseWithoutReadPermissionIsALibraryThatCannotBeRead)
{
    SmallLibrary library;
    DeviceFolder device(library.builder);
    QFile::setPermissions(device.path(), QFile::Permissions(0x7755));
    QFile::setPermissions(device.database(), QFile::Permissions());
    const RunResult result = runAsNobody({"info", device.path()});
    if (result.code == -1)
        GTEST_SKIP() << "other users cannot run the command from its build folder";
    EXPECT_EQ(result.code, 4) << result.err.toStdString();
    EXPECT_EQ(result.out, QByteArray());
    EXPECT_TRUE(result.err.contains("Photos.sqlite")) << result.err.toStdString();
    EXPECT_TRUE(result.err.contains("Permission denied")) << result.err.toStdString();
    EXPECT_TRUE(result.leftovers.isEmpty());
}

TEST(Damage, FolderThatCannotBeEnteredIsADeviceThatCannotBeReached)
{
    SmallLibrary library;
    DeviceFolder device(library.builder);
    QFile::setPermissions(device.path(), QFile::Permissions(0x7700));
    const RunResult result = runAsNobody({"info", device.path()});
    if (result.code == -1 || ::geteuid() != 0)
        GTEST_SKIP() << "other users cannot run the command from its build folder, or this one owns the device's";
    EXPECT_EQ(result.code, 3) << result.err.toStdString();
    EXPECT_TRUE(result.err.contains(device.path().toUtf8())) << result.err.toStdString();
    EXPECT_TRUE(result.err.contains("Permission denied")) << result.err.toStdString();
}

TEST(Damage, EmptyDatabaseIsAnEmptyLibraryWithAWarning)
{
    DeviceFolder device;
    device.setDatabase(QByteArray());
    const RunResult result = run({"photos", "--json", device.path()});
    expectWarning(result, "is empty (0 bytes)", "copy");
    EXPECT_EQ(result.json().array().size(), 0);
    EXPECT_TRUE(result.json().isArray());
}

TEST(Damage, DatabaseOfSomethingElseIsAnEmptyLibraryWithAWarning)
{
    DeviceFolder device;
    testkit::SqlConnection(device.database()).exec("CREATE TABLE songs(title TEXT)");
    const RunResult result = run({"photos", "--json", device.path()});
    expectWarning(result, "holds none of the tables of a photo library", "DCIM");
    EXPECT_EQ(result.json().array().size(), 0);
}

TEST(Damage, DatabaseWithoutAlbumTableIsAnEmptyLibraryWithAWarning)
{
    SmallLibrary library;
    library.builder.dropTable("ZGENERICALBUM");
    DeviceFolder device(library.builder);
    expectWarning(run({"photos", "--json", device.path()}), "no album table", "DCIM");
}

TEST(Damage, DatabaseWithoutPhotoTableKeepsItsAlbums)
{
    SmallLibrary library;
    library.builder.dropTable(library.builder.facts().assetTable);
    DeviceFolder device(library.builder);
    const RunResult result = run({"albums", "--json", device.path()});
    expectWarning(result, "no photo table", "DCIM");
    EXPECT_EQ(result.json().array().size(), 3);
}

TEST(Damage, DatabaseThatIsDamagedInsideGivesWhatCanBeReadAndAWarning)
{
    testkit::BuilderOptions options = plain();
    options.indices = false;
    testkit::LibraryBuilder builder(testkit::Era::Ios15, options);
    for (int i = 0; i < 3000; ++i)
        builder.addAsset();
    builder.addAlbum();
    DeviceFolder device(builder);
    QByteArray bytes = device.databaseBytes();
    const int page = 4096;
    const int pages = bytes.size() / page;
    ASSERT_GT(pages, 60);
    // The schema, at the start, stays whole; the second half, which holds rows only, does not.
    for (int at = pages / 2; at < pages; ++at)
        bytes.replace(at * page, 64, QByteArray(64, '\x5A'));
    device.setDatabase(bytes);
    const RunResult result = run({"photos", "--csv", device.path()});
    EXPECT_EQ(result.code, 1) << result.err.toStdString();
    EXPECT_TRUE(result.out.startsWith("id,entity,uuid"));
    EXPECT_EQ(result.err.count('\n'), 1) << result.err.toStdString();
    EXPECT_TRUE(result.err.contains("read in part only: /PhotoData/Photos.sqlite")) << result.err.toStdString();
    EXPECT_TRUE(result.err.contains("copy it again")) << result.err.toStdString();
    EXPECT_TRUE(result.leftovers.isEmpty());
    EXPECT_EQ(run({"albums", "--json", device.path()}).json().array().size(), 1);
}

TEST(Damage, DatabaseWhoseRowsAreAllDamagedIsUnreadable)
{
    testkit::BuilderOptions options = plain();
    options.indices = false;
    testkit::LibraryBuilder builder(testkit::Era::Ios15, options);
    for (int i = 0; i < 100; ++i)
        builder.addAsset();
    DeviceFolder device(builder);
    QByteArray bytes = device.databaseBytes();
    for (const QString &table : {QStringLiteral("ZGENERICALBUM"), QString::fromLatin1(builder.facts().assetTable)})
        bytes.replace(rootOf(device, table), 64, QByteArray(64, '\x5A'));
    device.setDatabase(bytes);
    expectUnreadable(device);
}

} // namespace clitest
