#include "apps/browser/exporting/export_job.h"

#include "devicehost/device_host.h"
#include "devicehost/open_error.h"
#include "exporter/exporter.h"

#include <QElapsedTimer>

#include <new>

namespace browser
{

namespace
{

constexpr std::size_t mostProblems = 10000;
constexpr qint64 reportInterval = 100; // milliseconds

exporter::OpenFailure whyNotOpened()
{
    const devicehost::OpenError error = devicehost::lastOpenError();
    return {error.absent, error.advice.isEmpty() ? error.text : QStringLiteral("%1; %2").arg(error.text, error.advice)};
}

} // namespace

/// Lives on the exporter's thread.
class ExportJob::Observer final : public exporter::ExportObserver
{
public:
    explicit Observer(ExportJob &owner) : job(owner) {}

    void progress(const exporter::ExportProgress &now) override
    {
        if (sinceReport.isValid() && sinceReport.elapsed() < reportInterval && now.phase == phase)
            return;
        sinceReport.start();
        phase = now.phase;
        guarded([&] { QMetaObject::invokeMethod(&job, [owner = &job, now] { Q_EMIT owner->progress(now); }); });
    }

    void fileFinished(const exporter::FileReport &file) override
    {
        const bool failed = file.status == exporter::FileStatus::Failed;
        if (!failed && file.status != exporter::FileStatus::Missing)
            return;
        guarded([&] {
            add({failed ? ExportProblem::Kind::Failed : ExportProblem::Kind::OnlyInCloud, file.devicePath, file.reason,
                 file.photoId});
            std::vector<qint64> &ids = job.result->failed;
            if (failed && (ids.empty() || ids.back() != file.photoId))
                ids.push_back(file.photoId);
        });
    }

    void note(const QString &sentence) override
    {
        guarded([&] { add({ExportProblem::Kind::Note, QString(), sentence, 0}); });
    }

    bool isCancelled() override { return job.waitWhilePaused(); }

private:
    // Where memory is short, the counts of the outcome remain.
    template <class Action>
    static void guarded(const Action &action)
    {
        try {
            action();
        } catch (const std::bad_alloc &) {
        }
    }

    void add(const ExportProblem &problem)
    {
        if (job.result->problems.size() < mostProblems)
            job.result->problems.push_back(problem);
        else
            ++job.result->furtherProblems;
    }

    ExportJob &job;
    QElapsedTimer sinceReport;
    exporter::Phase phase = exporter::Phase::Measuring;
};

ExportJob::ExportJob(std::shared_ptr<OpenedLibrary> library, QObject *parent)
    : QObject(parent), opened(std::move(library))
{
}

ExportJob::~ExportJob()
{
    cancel();
    if (thread.joinable())
        thread.join();
}

void ExportJob::start(const exporter::ExportOptions &options, const std::vector<qint64> &photos)
{
    Q_ASSERT(!isRunning());
    result = std::make_shared<ExportResult>();
    result->wasDryRun = options.dryRun;
    cancelled = false; // no other thread yet
    exporter::ExportOptions complete = options;
    complete.lastOpenFailure = whyNotOpened;
    ++run;
    thread = std::thread([this, complete, ids = QList<qint64>(photos.begin(), photos.end())] { work(complete, ids); });
}

void ExportJob::work(const exporter::ExportOptions &options, const QList<qint64> &photos)
{
    Observer observer(*this);
    result->outcome = exporter::run(opened->library(), opened->host(), photos, options, observer);
    QMetaObject::invokeMethod(this, [this, number = run] { conclude(number); });
}

// Once for each run: by the thread's last call, or by cancelAndWait(), which leaves that call nothing to do.
void ExportJob::conclude(int number)
{
    if (number != run || !thread.joinable())
        return;
    thread.join();
    paused = false;
    Q_EMIT finished(std::move(result));
}

bool ExportJob::isPaused() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return paused;
}

void ExportJob::pause()
{
    const std::lock_guard<std::mutex> lock(mutex);
    paused = true;
}

void ExportJob::resume()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        paused = false;
    }
    changed.notify_all();
}

void ExportJob::cancel()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        cancelled = true;
        paused = false;
    }
    changed.notify_all();
}

void ExportJob::cancelAndWait()
{
    cancel();
    conclude(run);
}

bool ExportJob::waitWhilePaused()
{
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait(lock, [this] { return !paused; });
    return cancelled;
}

} // namespace browser
