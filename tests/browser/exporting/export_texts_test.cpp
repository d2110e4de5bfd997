#include "apps/browser/exporting/export_texts.h"
#include "apps/browser/exporting/problem_model.h"

#include <gtest/gtest.h>

namespace
{

using browser::ExportProblem;
using browser::ExportResult;
using exporter::FileStatus;
using exporter::RunEnd;

ExportResult resultWith(FileStatus status, qint64 count)
{
    ExportResult result;
    result.outcome.files[static_cast<std::size_t>(status)] = count;
    return result;
}

TEST(ExportTexts, HaveALineForEachKindOfFileThatThereIs)
{
    EXPECT_EQ(browser::summaryLines({}).size(), 1);
    for (const FileStatus status :
         {FileStatus::Adopted, FileStatus::Skipped, FileStatus::Missing, FileStatus::Failed}) {
        const QStringList lines = browser::summaryLines(resultWith(status, 17));
        ASSERT_EQ(lines.size(), 2);
        EXPECT_TRUE(lines[1].startsWith(QStringLiteral("17 "))) << lines[1].toStdString();
    }
}

TEST(ExportTexts, HaveAHeadlineForEveryEnd)
{
    ExportResult result;
    for (int end = 0; end <= static_cast<int>(RunEnd::OutOfMemory); ++end) {
        result.outcome.end = static_cast<RunEnd>(end);
        EXPECT_FALSE(browser::headline(result).isEmpty()) << end;
    }
    result.outcome.end = RunEnd::Completed;
    const QString good = browser::headline(result);
    result.outcome.files[static_cast<std::size_t>(FileStatus::Failed)] = 1;
    EXPECT_NE(browser::headline(result), good);
}

TEST(ExportTexts, SayHowFastAndHowLong)
{
    EXPECT_TRUE(browser::paceText(0, 10).isEmpty());
    EXPECT_EQ(browser::paceText(2'000'000, -1).toStdString(), "2.0 MB/s");
    EXPECT_TRUE(browser::paceText(2'000'000, 30).contains(QStringLiteral("less than a minute")));
    EXPECT_TRUE(browser::paceText(2'000'000, 600).contains(QStringLiteral("10 minute")));
    EXPECT_TRUE(browser::paceText(2'000'000, 36'000).contains(QStringLiteral("10 hour")));
}

TEST(ProblemModel, HasARowForEachProblemAndCsvThatSurvivesQuotes)
{
    auto result = std::make_shared<ExportResult>();
    result->problems = {{ExportProblem::Kind::Failed, QStringLiteral("/DCIM/A \"1\",2.JPG"), QStringLiteral("why"), 1},
                        {ExportProblem::Kind::OnlyInCloud, QStringLiteral("/DCIM/B.JPG"), QString(), 2},
                        {ExportProblem::Kind::Note, QString(), QStringLiteral("note"), 0}};
    browser::ProblemModel model;
    model.setResult(result);
    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_EQ(model.columnCount(), 3);
    EXPECT_EQ(model.data(model.index(0, 2)).toString(), QStringLiteral("why"));
    EXPECT_FALSE(model.data(model.index(1, 2)).toString().isEmpty());
    const QList<QByteArray> lines = model.asCsv().split('\n');
    ASSERT_EQ(lines.size(), 5);
    EXPECT_EQ(lines[1].toStdString(), "\"Failed\",\"/DCIM/A \"\"1\"\",2.JPG\",\"why\"\r");
    EXPECT_EQ(model.asText().count(QLatin1Char('\n')), 3);
}

} // namespace
