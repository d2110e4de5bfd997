#include "apps/cli/export/export_progress.h"
#include "apps/cli/export/export_words.h"

#include <gtest/gtest.h>

#include <QSet>

namespace photocli
{

using exporter::ExportProgress;
using exporter::FileStatus;
using exporter::Phase;

namespace
{

ExportProgress copying(qint64 done, qint64 total)
{
    ExportProgress progress;
    progress.bytesDone = done;
    progress.bytesTotal = total;
    progress.photosDone = 3;
    progress.photosTotal = 12;
    return progress;
}

} // namespace

TEST(ExportProgress, LineTellsBytesRateAndTimeLeft)
{
    TransferRate rate;
    rate.note(0, 0);
    rate.note(20000000, 1000);
    EXPECT_EQ(exportLine(copying(1000000000, 2000000000), rate),
              QStringLiteral("copying  [##########----------]  1.0 GB of 2.0 GB  20.0 MB/s  0:50 left  "
                             "3 of 12 photos"));
}

TEST(ExportProgress, LineWithoutRateOrTotalSaysWhatIsKnown)
{
    EXPECT_EQ(exportLine(copying(500, 1000), {}),
              QStringLiteral("copying  [##########----------]  500 B of 1.0 kB  3 of 12 photos"));
    EXPECT_EQ(exportLine(copying(500, -1), {}), QStringLiteral("copying  500 B  3 of 12 photos"));
}

TEST(ExportProgress, MoreBytesThanWereToldFillTheBar)
{
    TransferRate rate;
    rate.note(0, 0);
    rate.note(3000, 1000);
    EXPECT_EQ(exportLine(copying(3000, 2000), rate),
              QStringLiteral("copying  [####################]  3.0 kB of 2.0 kB  3.0 kB/s  3 of 12 photos"));
}

TEST(ExportProgress, OtherPhasesCountWhatTheyDo)
{
    ExportProgress progress;
    progress.photosDone = 5;
    progress.photosTotal = 10;
    progress.phase = Phase::Measuring;
    EXPECT_EQ(exportLine(progress, {}), QStringLiteral("looking at the files  [##########----------]  5 of 10 photos"));
    progress.phase = Phase::Albums;
    EXPECT_EQ(exportLine(progress, {}), QStringLiteral("albums  [##########----------]  5 of 10 albums"));
    progress.photosTotal = 0;
    EXPECT_EQ(exportLine(progress, {}), QStringLiteral("albums"));
    progress.phase = Phase::Verifying;
    progress.bytesDone = 1;
    progress.bytesTotal = 4;
    EXPECT_EQ(exportLine(progress, {}), QStringLiteral("verifying  [#####---------------]  1 B of 4 B"));
}

TEST(TransferRate, IsUnknownUntilThereIsEnoughToTell)
{
    TransferRate rate;
    EXPECT_EQ(rate.secondsFor(100), -1);
    rate.note(0, 1000);
    rate.note(1000000, 1100);
    EXPECT_EQ(rate.bytesPerSecond(), 0);
    rate.note(1000000, 2000);
    EXPECT_EQ(rate.bytesPerSecond(), 1000000);
    EXPECT_EQ(rate.secondsFor(2500000), 3);
}

TEST(TransferRate, FollowsAChangeSlowly)
{
    TransferRate rate;
    rate.note(0, 0);
    rate.note(1000000, 1000);
    rate.note(1000000, 2000); // one second without a byte
    EXPECT_GT(rate.bytesPerSecond(), 700000);
    EXPECT_LT(rate.bytesPerSecond(), 1000000);
    rate.note(1000000, 60000);
    EXPECT_LT(rate.bytesPerSecond(), 100);
}

TEST(TransferRate, FileThatIsReadAnewBeginsAnew)
{
    TransferRate rate;
    rate.note(0, 0);
    rate.note(1000000, 1000);
    rate.note(500000, 2000);
    rate.note(1500000, 3000);
    EXPECT_EQ(rate.bytesPerSecond(), 1000000);
}

TEST(ExportWords, SummaryNamesWhatThereIs)
{
    exporter::RunOutcome outcome;
    outcome.photosTotal = outcome.photosDone = 2;
    outcome.files[static_cast<std::size_t>(FileStatus::Exported)] = 1;
    outcome.bytesExported = 5;
    EXPECT_EQ(summaryLine(outcome, false), QStringLiteral("2 photos and videos: 1 file exported (5 B)"));
    EXPECT_EQ(summaryLine(outcome, true), QStringLiteral("2 photos and videos: 1 file to export (5 B)"));
    outcome.photosDone = 1;
    outcome.files[static_cast<std::size_t>(FileStatus::Adopted)] = 2;
    outcome.files[static_cast<std::size_t>(FileStatus::Skipped)] = 3;
    outcome.files[static_cast<std::size_t>(FileStatus::Missing)] = 4;
    outcome.files[static_cast<std::size_t>(FileStatus::Failed)] = 5;
    outcome.albums = 1;
    outcome.albumsFailed = 2;
    EXPECT_EQ(summaryLine(outcome, false),
              QStringLiteral("1 of 2 photos and videos: 1 file exported (5 B), 2 found there and taken over, 3 already "
                             "there, 4 not on the device, 5 failed, 1 album, 2 albums failed"));
}

TEST(ExportWords, EveryRoleAndStatusHasAName)
{
    QSet<QString> names;
    for (int role = 0; role <= static_cast<int>(exporter::Role::EditedFilm); ++role)
        names.insert(roleName(static_cast<exporter::Role>(role)));
    EXPECT_EQ(names.size(), 5);
    names.clear();
    for (std::size_t status = 0; status < exporter::fileStatusCount; ++status)
        names.insert(statusName(static_cast<FileStatus>(status), false));
    EXPECT_EQ(names.size(), 5);
    EXPECT_FALSE(names.contains(QString()));
    EXPECT_EQ(statusName(FileStatus::Exported, true), QStringLiteral("planned"));
}

} // namespace photocli
