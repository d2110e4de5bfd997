#include "apps/cli/progress_bar.h"

#include <gtest/gtest.h>

namespace photocli
{

TEST(ProgressBar, LineTellsHowMuchOfTheFileIsRead)
{
    EXPECT_EQ(progressLine({QStringLiteral("/a"), 1500000, 3000000}),
              QStringLiteral("reading /a  [##########----------]  1.5 MB of 3.0 MB"));
    EXPECT_EQ(progressLine({QStringLiteral("/a"), 0, 10}),
              QStringLiteral("reading /a  [--------------------]  0 B of 10 B"));
}

TEST(ProgressBar, FileOfUnknownSizeShowsBytesOnly)
{
    EXPECT_EQ(progressLine({QStringLiteral("/a"), 1500, -1}), QStringLiteral("reading /a  1.5 kB"));
    EXPECT_EQ(progressLine({QStringLiteral("/a"), 0, 0}), QStringLiteral("reading /a  0 B"));
}

TEST(ProgressBar, FileThatGrowsWhileReadEndsFull)
{
    EXPECT_EQ(progressLine({QStringLiteral("/a"), 20, 10}),
              QStringLiteral("reading /a  [####################]  10 B of 10 B"));
}

TEST(ProgressBar, LineTellsHowManyPhotosAreWritten)
{
    EXPECT_EQ(writingLine(0, 240), QStringLiteral("writing  [--------------------]  0 of 240 photos and videos"));
    EXPECT_EQ(writingLine(120, 240), QStringLiteral("writing  [##########----------]  120 of 240 photos and videos"));
    EXPECT_EQ(writingLine(240, 240), QStringLiteral("writing  [####################]  240 of 240 photos and videos"));
}

TEST(ProgressBar, NothingToDoIsAllDone)
{
    EXPECT_EQ(barCells(0, 0), QStringLiteral("[####################]"));
}

TEST(ProgressBar, LineIsCutToTheTerminal)
{
    const devicehost::Progress progress{QStringLiteral("/PhotoData/Photos.sqlite"), 1500000, 3000000};
    EXPECT_EQ(barText(progress, 200), progressLine(progress));
    EXPECT_EQ(barText(progress, 20), QStringLiteral("reading /PhotoData/"));
    EXPECT_EQ(barText(progress, 1), QString());
}

TEST(ProgressBar, WholeFileIsFollowedByTheReadingOfTheLibrary)
{
    EXPECT_EQ(barText({QStringLiteral("/a"), 9, 10}, 80), progressLine({QStringLiteral("/a"), 9, 10}));
    EXPECT_EQ(barText({QStringLiteral("/a"), 10, 10}, 80), QStringLiteral("reading the library..."));
    EXPECT_EQ(barText({QStringLiteral("/a"), 10, -1}, 80), QStringLiteral("reading /a  10 B"));
}

} // namespace photocli
