#include "apps/browser/exporting/export_texts.h"
#include "apps/browser/exporting/problem_model.h"

#include <QLocale>

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

TEST(ExportTexts, WriteNumbersAsTheLocaleDoes)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const QStringList lines = browser::summaryLines(resultWith(FileStatus::Failed, 100'000));
    QLocale::setDefault(before);
    ASSERT_EQ(lines.size(), 2);
    EXPECT_TRUE(lines[1].startsWith(QStringLiteral("100.000 "))) << lines[1].toStdString();
}

TEST(ExportTexts, DoNotCallABrokenOffBackupEverything)
{
    ExportResult inCloud = resultWith(FileStatus::Missing, 3);
    const QString good = browser::headline(inCloud);
    EXPECT_TRUE(browser::advice(inCloud).isEmpty());
    ExportResult inBackup = inCloud;
    inBackup.wasBackup = true;
    EXPECT_FALSE(browser::headline(inBackup).contains(QStringLiteral("device")));
    for (const bool isBackup : {true, false}) {
        ExportResult lost = inCloud;
        lost.notThere = 2;
        lost.wasBackup = isBackup;
        const QStringList lines = browser::summaryLines(lost);
        ASSERT_EQ(lines.size(), 3);
        EXPECT_TRUE(lines[1].startsWith(QStringLiteral("2 "))) << lines[1].toStdString();
        EXPECT_FALSE(lines[1].contains(QStringLiteral("cloud")));
        EXPECT_EQ(lines[1].contains(QStringLiteral("backup")), isBackup);
        EXPECT_TRUE(lines[2].startsWith(QStringLiteral("1 "))) << lines[2].toStdString();
        EXPECT_NE(browser::headline(lost), good);
        EXPECT_EQ(browser::advice(lost).contains(QStringLiteral("backup")), isBackup);
        lost.notThere = 3;
        EXPECT_EQ(browser::summaryLines(lost).size(), 2);
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
                        {ExportProblem::Kind::Note, QString(), QStringLiteral("note"), 0},
                        {ExportProblem::Kind::NotThere, QStringLiteral("/DCIM/C.JPG"), QString(), 3}};
    browser::ProblemModel model;
    model.setResult(result);
    EXPECT_EQ(model.rowCount(), 4);
    EXPECT_EQ(model.columnCount(), 3);
    EXPECT_EQ(model.data(model.index(0, 2)).toString(), QStringLiteral("why"));
    EXPECT_FALSE(model.data(model.index(1, 2)).toString().isEmpty());
    EXPECT_FALSE(model.data(model.index(3, 0)).toString().contains(QStringLiteral("cloud")));
    EXPECT_FALSE(model.data(model.index(3, 2)).toString().isEmpty());
    const QList<QByteArray> lines = model.asCsv().split('\n');
    ASSERT_EQ(lines.size(), 6);
    EXPECT_EQ(lines[1].toStdString(), "\"Failed\",\"/DCIM/A \"\"1\"\",2.JPG\",\"why\"\r");
    EXPECT_EQ(model.asText().count(QLatin1Char('\n')), 4);
}

} // namespace
