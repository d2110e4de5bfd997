#include "tests/unit/exporter/export_fixture.h"

#include "testing/sql_connection.h"

#include <QFile>

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace exporter;
using namespace testkit;

namespace
{

const char *const record = ".photolib-export.sqlite";

struct Exported : ExportFixture {
    Exported()
    {
        options.layout = "{stem}";
        options.albums = true;
        AssetRow elsewhere;
        elsewhere.directory = "DCIM/101APPLE";
        const qint64 a = addPhoto("A.HEIC", "a");
        addFile("/DCIM/100APPLE/A.MOV", "film");
        const qint64 b = addPhoto("a.heic", "b", elsewhere);
        addAlbum("Album", {b, a});
        EXPECT_TRUE(run().isSuccess());
        before = tree();
    }

    /// Nothing is done with a record that cannot be used, and the message says why.
    void expectRefusal(const QString &reason)
    {
        const QByteArray bytes = read(record);
        device.clearOperations();
        const RunOutcome outcome = run();
        EXPECT_EQ(RunEnd::RecordUnusable, outcome.end);
        EXPECT_TRUE(outcome.message.contains(reason)) << qPrintable(outcome.message);
        EXPECT_TRUE(outcome.message.contains("move it")) << qPrintable(outcome.message);
        EXPECT_TRUE(listener->files.empty());
        EXPECT_EQ(before, tree());
        EXPECT_EQ(bytes, read(record));
        EXPECT_EQ(RunEnd::RecordUnusable, verify().end);
    }

    Tree before;
};

} // namespace

TEST(Record, HasARowForEachFile)
{
    Exported fixture;
    SqlConnection database(fixture.path(record));
    const auto rows = database.rows("SELECT device_path, size, path, state, lower(hex(sha256)) FROM file ORDER BY id");
    ASSERT_EQ(3U, rows.size());
    EXPECT_EQ(SqlValue("/DCIM/100APPLE/A.HEIC"), rows[0][0]);
    EXPECT_EQ(SqlValue(1), rows[0][1]);
    EXPECT_EQ(SqlValue("A.HEIC"), rows[0][2]);
    EXPECT_EQ(SqlValue("done"), rows[0][3]);
    EXPECT_EQ(SqlValue(QString(sha256Of("a"))), rows[0][4]);
}

TEST(Record, OfANewerVersionIsLeftAlone)
{
    Exported fixture;
    SqlConnection(fixture.path(record)).exec("PRAGMA user_version = 2");
    fixture.expectRefusal("newer version");
}

TEST(Record, ThatIsDamagedIsLeftAlone)
{
    Exported fixture;
    QByteArray bytes = fixture.read(record);
    fixture.write(record, bytes.left(5000));
    fixture.expectRefusal("is damaged");
    fixture.write(record, "no database at all, but long enough to be looked at by everybody who reads it");
    fixture.expectRefusal("is damaged");
    for (int at = 4096; at < bytes.size(); ++at)
        bytes[at] = 'x';
    fixture.write(record, bytes);
    fixture.expectRefusal("is damaged");
}

TEST(Record, ThatIsEmptyIsDamagedNotNew)
{
    Exported fixture;
    fixture.write(record, "");
    fixture.expectRefusal("is empty");
}

TEST(Record, OfAnotherProgramIsLeftAlone)
{
    Exported fixture;
    QFile::remove(fixture.path(record));
    SqlConnection(fixture.path(record)).exec("CREATE TABLE x(y)");
    fixture.expectRefusal("is not a record of an export");
}

TEST(Record, ThatIsALinkOrAPipeIsNotOpened)
{
    Exported fixture;
    QFile::rename(fixture.path(record), fixture.folder.path() + "/elsewhere");
    QFile::link(fixture.folder.path() + "/elsewhere", fixture.path(record));
    EXPECT_EQ(RunEnd::RecordUnusable, fixture.run().end);
    QFile::remove(fixture.path(record));
    ASSERT_EQ(0, ::mkfifo(fixture.path(record).toUtf8().constData(), 0600));
    EXPECT_EQ(RunEnd::RecordUnusable, fixture.run().end);
    EXPECT_EQ(RunEnd::RecordUnusable, fixture.verify().end);
}

TEST(Record, MovedAwayExistingFilesAreRecognisedByTheirContent)
{
    Exported fixture;
    QFile::remove(fixture.path(record));
    const RunOutcome outcome = fixture.run();
    EXPECT_TRUE(outcome.isSuccess());
    EXPECT_EQ(3, outcome.count(FileStatus::Adopted));
    EXPECT_EQ(0, outcome.bytesExported);
    EXPECT_EQ(fixture.before, fixture.tree());
    EXPECT_EQ(3, fixture.run().count(FileStatus::Skipped));
    EXPECT_EQ(0, fixture.device.operationCount(OperationKind::Read));
    EXPECT_TRUE(fixture.verify().isSuccess());
}

TEST(Record, MovedAwayAFileOfTheSameSizeAndOtherContentIsNotTakenForTheOriginal)
{
    Exported fixture;
    QFile::remove(fixture.path(record));
    fixture.write("A.HEIC", "z");
    fixture.run();
    EXPECT_EQ(QByteArray("z"), fixture.read("A.HEIC"));
    EXPECT_TRUE(fixture.verify().isSuccess());
    EXPECT_EQ(3, fixture.run().count(FileStatus::Skipped));
}

TEST(Record, ALogLeftByALostRecordDoesNoHarm)
{
    Exported fixture;
    QFile::remove(fixture.path(record));
    fixture.write(QString(record) + "-wal", "rubbish");
    EXPECT_TRUE(fixture.run().isSuccess());
    EXPECT_EQ(fixture.before, fixture.tree());
}

TEST(Record, TemporaryFilesOfAKilledRunAreSwept)
{
    Exported fixture;
    fixture.write(".photolib-12.partial", "half a file");
    fixture.write("holiday.partial", "of people");
    fixture.run();
    EXPECT_EQ(QStringList{record}, ExportFixture::hiddenFilesOf(fixture.destination()));
    EXPECT_EQ(QByteArray("of people"), fixture.read("holiday.partial"));
}

TEST(Verify, FindsEveryKindOfDifference)
{
    Exported fixture;
    EXPECT_TRUE(fixture.verify().isSuccess());
    EXPECT_EQ(QString("Albums/Album/2_A.MOV"), fixture.listener->last.currentFile);
    EXPECT_EQ(6, fixture.listener->last.filesDone);
    EXPECT_EQ(6, fixture.listener->last.filesTotal);
    QFile::remove(fixture.path("A.HEIC"));
    QFile::remove(fixture.path("a (1).heic"));
    fixture.write("a (1).heic", "c");
    QFile::remove(fixture.path("A.MOV"));
    QFile::link("/nowhere", fixture.path("A.MOV"));
    QFile::remove(fixture.path("Albums/Album/2_A.MOV"));
    fixture.write("Albums/Album/2_A.MOV", "longer");
    const VerifyOutcome outcome = fixture.verify();
    EXPECT_EQ(RunEnd::Completed, outcome.end);
    EXPECT_EQ(4, outcome.differences);
    EXPECT_EQ(6, outcome.filesChecked);
    QMap<QString, Difference> found;
    for (const VerifyFinding &finding : fixture.listener->findings)
        found.insert(finding.destination, finding.difference);
    EXPECT_EQ((QMap<QString, Difference>{{"A.HEIC", Difference::Missing},
                                         {"a (1).heic", Difference::Content},
                                         {"A.MOV", Difference::Unreadable},
                                         {"Albums/Album/2_A.MOV", Difference::Size}}),
              found);
}

TEST(Verify, WritesNothingAndCanBeCancelled)
{
    Exported fixture;
    fixture.prepareListener = [](Listener &listener) { listener.cancelled = [] { return true; }; };
    EXPECT_EQ(RunEnd::Cancelled, fixture.verify().end);
    EXPECT_EQ(QStringList{record}, ExportFixture::hiddenFilesOf(fixture.destination()));
}

TEST(Verify, NeedsAFolderWithARecord)
{
    ExportFixture fixture;
    EXPECT_EQ(RunEnd::DestinationRefused, fixture.verify().end);
    fixture.write("x", "y");
    const VerifyOutcome outcome = fixture.verify();
    EXPECT_EQ(RunEnd::DestinationRefused, outcome.end);
    EXPECT_TRUE(outcome.message.contains("Nothing was exported")) << qPrintable(outcome.message);
}
