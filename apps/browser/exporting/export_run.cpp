#include "apps/browser/exporting/export_run.h"

#include "devicehost/device_host.h"
#include "devicehost/open_error.h"
#include "exporter/exporter.h"

#include <new>

namespace browser
{

namespace
{

using exporter::FileStatus;

constexpr std::size_t mostProblems = 10000;
constexpr int mostPlaces = 50;
constexpr qint64 reportInterval = 100; // milliseconds

exporter::OpenFailure whyNotOpened()
{
    const devicehost::OpenError error = devicehost::lastOpenError();
    return {error.absent, error.advice.isEmpty() ? error.text : QStringLiteral("%1; %2").arg(error.text, error.advice)};
}

// Photos of shared albums and streams, which the device fetches when somebody looks at them.
bool isSharedByCloud(const QString &path)
{
    return path.startsWith(QLatin1String("/PhotoData/PhotoCloudSharingData/")) ||
           path.startsWith(QLatin1String("/PhotoStreamsData/"));
}

// Where memory is short, the counts of the outcome remain.
template <class Action>
void guarded(const Action &action)
{
    try {
        action();
    } catch (const std::bad_alloc &) {
    }
}

} // namespace

ExportRun::ExportRun(std::shared_ptr<OpenedLibrary> library, const exporter::ExportOptions &exportOptions,
                     const std::vector<qint64> &ids, Listener progressListener)
    : opened(std::move(library)), options(exportOptions), photos(ids.begin(), ids.end()),
      listener(std::move(progressListener)), result(std::make_shared<ExportResult>())
{
    options.lastOpenFailure = whyNotOpened;
    result->wasDryRun = options.dryRun;
    result->wasBackup = opened->deviceName().startsWith(QLatin1String("backup:"));
}

void ExportRun::work()
{
    result->outcome = exporter::run(opened->library(), opened->host(), photos, options, *this);
    end();
}

void ExportRun::giveUp()
{
    result->outcome.end = exporter::RunEnd::OutOfMemory;
    end();
}

void ExportRun::end()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        ended = true;
    }
    changed.notify_all();
}

std::shared_ptr<const ExportResult> ExportRun::waitForResult()
{
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait(lock, [this] { return ended; });
    return result;
}

void ExportRun::pause()
{
    const std::lock_guard<std::mutex> lock(mutex);
    paused = true;
}

void ExportRun::resume()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        paused = false;
    }
    changed.notify_all();
}

void ExportRun::cancel()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        cancelled = true;
        paused = false;
    }
    changed.notify_all();
}

bool ExportRun::isCancelled()
{
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait(lock, [this] { return !paused; });
    return cancelled;
}

void ExportRun::progress(const exporter::ExportProgress &now)
{
    if (sinceReport.isValid() && sinceReport.elapsed() < reportInterval && now.phase == phase)
        return;
    sinceReport.start();
    phase = now.phase;
    guarded([&] { listener(now); });
}

void ExportRun::fileFinished(const exporter::FileReport &file)
{
    guarded([&] { addPlace(file.destination); });
    const bool hasFailed = file.status == FileStatus::Failed;
    if (!hasFailed && file.status != FileStatus::Missing)
        return;
    const ExportProblem::Kind kind = hasFailed ? ExportProblem::Kind::Failed : kindOfMissing(file);
    if (kind == ExportProblem::Kind::NotThere)
        ++result->notThere;
    guarded([&] {
        add({kind, file.devicePath, file.reason, file.photoId});
        std::vector<qint64> &ids = result->failed;
        if (hasFailed && (ids.empty() || ids.back() != file.photoId))
            ids.push_back(file.photoId);
    });
}

void ExportRun::addPlace(const QString &destination)
{
    const QString name = destination.section(QLatin1Char('/'), 0, 0);
    if (!name.isEmpty() && result->places.size() < mostPlaces && !result->places.contains(name))
        result->places += name;
}

// A copy or a backup that was broken off lacks originals, too, and nobody may take that for the cloud's doing.
ExportProblem::Kind ExportRun::kindOfMissing(const exporter::FileReport &file) const
{
    const Photo *const photo = opened->snapshot().find(file.photoId);
    const bool isInCloud = photo != nullptr && (photo->is(CloudOnly) || photo->is(InCloud));
    return isInCloud || isSharedByCloud(file.devicePath) ? ExportProblem::Kind::OnlyInCloud
                                                         : ExportProblem::Kind::NotThere;
}

void ExportRun::note(const QString &sentence)
{
    guarded([&] { add({ExportProblem::Kind::Note, QString(), sentence, 0}); });
}

void ExportRun::add(const ExportProblem &problem)
{
    if (result->problems.size() < mostProblems)
        result->problems.push_back(problem);
    else
        ++result->furtherProblems;
}

} // namespace browser
