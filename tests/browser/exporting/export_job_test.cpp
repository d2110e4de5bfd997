#include "apps/browser/exporting/export_choices.h"
#include "apps/browser/exporting/export_job.h"
#include "apps/browser/library/background.h"
#include "tests/browser/exporting/exporting_device.h"

#include <QSignalSpy>
#include <QTest>

namespace
{

using browser::ExportJob;
using browser::ExportProblem;
using browser::ExportResult;
using exporter::FileStatus;
using exporter::RunEnd;

class Exporting : public ExportingDevice
{
protected:
    void SetUp() override
    {
        ExportingDevice::SetUp();
        job = std::make_unique<ExportJob>(library);
        QObject::connect(job.get(), &ExportJob::finished, [this](const auto &ended) {
            result = ended;
            ++finishes;
        });
        options.destination = target();
        options.layout = QStringLiteral("dcim");
    }

    bool waitForEnd()
    {
        return QTest::qWaitFor([this] { return result != nullptr; }, patience);
    }

    void startPaused(const std::vector<qint64> &ids)
    {
        job->pause();
        job->start(options, ids);
    }

    exporter::ExportOptions options;
    std::unique_ptr<ExportJob> job;
    std::shared_ptr<const ExportResult> result;
    int finishes = 0;
};

TEST_F(Exporting, CopiesTheBytesOfTheDevice)
{
    job->start(options, some);
    EXPECT_TRUE(job->isRunning());
    ASSERT_TRUE(waitForEnd());
    EXPECT_FALSE(job->isRunning());
    EXPECT_TRUE(result->outcome.isSuccess());
    EXPECT_TRUE(result->failed.empty());
    EXPECT_TRUE(result->places.contains(QStringLiteral("DCIM")));
    EXPECT_EQ(QStringList(result->places).removeDuplicates(), 0);
    for (const qint64 id : some) {
        const QByteArray original = read(originalOf(id));
        const QString path = library->devicePath(id);
        EXPECT_EQ(read(target() + QLatin1Char('/') + path), original) << path.toStdString();
    }
}

TEST_F(Exporting, OnlyPlansADryRun)
{
    options.dryRun = true;
    job->start(options, some);
    ASSERT_TRUE(waitForEnd());
    EXPECT_TRUE(result->wasDryRun);
    EXPECT_GE(result->outcome.count(FileStatus::Exported), qint64(some.size()));
    EXPECT_FALSE(QFile::exists(target()));
}

TEST_F(Exporting, CanBeCancelledWhilePausedAndStartedAgain)
{
    startPaused(some);
    job->cancel();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(result->outcome.end, RunEnd::Cancelled);
    EXPECT_TRUE(filesIn(target()).isEmpty());
    result.reset();
    job->start(options, some);
    EXPECT_FALSE(job->isPaused());
    ASSERT_TRUE(waitForEnd());
    EXPECT_TRUE(result->outcome.isSuccess());
}

TEST_F(Exporting, StandsStillWhilePausedAndEndsAfterIt)
{
    startPaused(some);
    EXPECT_TRUE(job->isPaused());
    QTest::qWait(200);
    EXPECT_TRUE(filesIn(target()).isEmpty());
    EXPECT_EQ(result, nullptr);
    job->resume();
    ASSERT_TRUE(waitForEnd());
    EXPECT_TRUE(result->outcome.isSuccess());
    EXPECT_GE(filesIn(target()).size(), int(some.size()));
}

TEST_F(Exporting, TellsOnceWhenItIsWaitedFor)
{
    startPaused(some);
    job->cancelAndWait();
    EXPECT_EQ(finishes, 1);
    result.reset();
    job->start(options, firstHere(3));
    ASSERT_TRUE(waitForEnd());
    QCoreApplication::processEvents();
    EXPECT_EQ(finishes, 2);
    job->cancelAndWait();
    EXPECT_EQ(finishes, 2);
}

TEST_F(Exporting, EndsWithItsOwner)
{
    startPaused(some);
    job.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(finishes, 0);
}

TEST_F(Exporting, ListsWhatIsOnlyInTheCloudAndWhatIsUnknown)
{
    job->start(options, {here[0], absent[0], 999'999});
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(result->outcome.count(FileStatus::Missing), 1);
    ASSERT_EQ(result->problems.size(), 2U);
    EXPECT_EQ(result->problems[0].kind, ExportProblem::Kind::OnlyInCloud);
    EXPECT_EQ(result->problems[0].photoId, absent[0]);
    EXPECT_EQ(result->problems[1].kind, ExportProblem::Kind::Failed);
    EXPECT_FALSE(result->problems[1].text.isEmpty());
    EXPECT_EQ(result->failed, std::vector<qint64>{999'999});
}

TEST_F(Exporting, TellsWhatIsLostFromWhatIsOnlyInTheCloud)
{
    const qint64 taken = firstBelow("DCIM/"), shared = firstBelow("PhotoData/PhotoCloudSharingData/");
    const Absence lost(originalOf(taken)), notFetched(originalOf(shared));
    for (const bool isPlan : {true, false}) {
        options.dryRun = isPlan;
        result.reset();
        job->start(options, {taken, absent[0], shared, here.back()});
        ASSERT_TRUE(waitForEnd());
        EXPECT_EQ(result->outcome.count(FileStatus::Missing), 3);
        EXPECT_EQ(result->notThere, 1);
        ASSERT_EQ(result->problems.size(), 3U);
        EXPECT_EQ(result->problems[0].kind, ExportProblem::Kind::NotThere);
        EXPECT_EQ(result->problems[1].kind, ExportProblem::Kind::OnlyInCloud);
        EXPECT_EQ(result->problems[2].kind, ExportProblem::Kind::OnlyInCloud);
        EXPECT_FALSE(result->wasBackup);
    }
}

TEST_F(Exporting, CountsOriginalsAsLostThatTheCloudLeftOnTheDevice)
{
    const SampleFolder brokenOff(QStringLiteral("ios14"), SampleParts::DatabaseOnly);
    library = openFolder(brokenOff.root());
    ASSERT_NE(library, nullptr);
    std::vector<qint64> inCloud;
    qint64 stillThere = 0;
    for (const qint64 id : library->library().getPhotoList()) {
        if (library->item(id)->cloudLocalState != 1)
            continue;
        const browser::Photo *const photo = library->snapshot().find(id);
        ASSERT_NE(photo, nullptr);
        inCloud.push_back(id);
        stillThere += photo->is(browser::CloudOnly) ? 0 : 1;
    }
    ASSERT_GT(stillThere, 0);
    ASSERT_LT(stillThere, qint64(inCloud.size()));
    job = std::make_unique<ExportJob>(library);
    QObject::connect(job.get(), &ExportJob::finished, [this](const auto &ended) { result = ended; });
    job->start(options, inCloud);
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(result->outcome.count(FileStatus::Missing), qint64(inCloud.size()));
    EXPECT_EQ(result->notThere, stillThere);
}

TEST_F(Exporting, LeavesAThreadThatTheDeviceHoldsUpBehind)
{
    startPaused(some);
    std::weak_ptr<browser::OpenedLibrary> used = library;
    job.reset();
    browser::retire(std::move(library));
    EXPECT_TRUE(browser::waitForBackground(std::chrono::milliseconds(patience)));
    browser::waitForRetired();
    EXPECT_TRUE(used.expired());
    EXPECT_TRUE(filesIn(target()).isEmpty());
}

TEST_F(Exporting, EndsWhenTheDestinationIsFull)
{
    options.reserve = std::numeric_limits<qint64>::max() / 4; // more than any disk has
    job->start(options, firstHere(3));
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(result->outcome.end, RunEnd::DestinationFull);
    EXPECT_FALSE(result->outcome.message.isEmpty());
    EXPECT_TRUE(filesIn(target()).isEmpty());
}

TEST_F(Exporting, EndsWhenTheDestinationIsNoFolder)
{
    QFile inTheWay(target());
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    job->start(options, firstHere(3));
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(result->outcome.end, RunEnd::DestinationRefused);
}

TEST_F(Exporting, TellsThatTheDeviceIsGone)
{
    library->stop();
    job->start(options, firstHere(5));
    ASSERT_TRUE(waitForEnd());
    EXPECT_FALSE(result->outcome.isSuccess());
    EXPECT_TRUE(filesIn(target()).isEmpty());
}

} // namespace
