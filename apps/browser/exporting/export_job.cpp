#include "apps/browser/exporting/export_job.h"

#include "apps/browser/exporting/export_run.h"
#include "apps/browser/library/background.h"

namespace browser
{

ExportJob::ExportJob(std::shared_ptr<OpenedLibrary> library, QObject *parent)
    : QObject(parent), opened(std::move(library)), mailbox((new Reply(this))->mailbox)
{
}

ExportJob::~ExportJob()
{
    cancel();
}

void ExportJob::start(const exporter::ExportOptions &options, const std::vector<qint64> &photos)
{
    Q_ASSERT(!isRunning());
    const auto listener = [this, box = mailbox](const exporter::ExportProgress &now) {
        box->post([this, now] { Q_EMIT progress(now); });
    };
    run = std::make_shared<ExportRun>(opened, options, photos, listener);
    if (paused)
        run->pause();
    const auto tellEnd = [this, box = mailbox, number = ++runs] { box->post([this, number] { conclude(number); }); };
    const bool started = startBackground([exporting = run, tellEnd] {
        exporting->work();
        tellEnd();
    });
    if (!started) {
        run->giveUp();
        tellEnd();
    }
}

// Once for each run: by the thread's last call, or by cancelAndWait(), which leaves that call nothing to do.
void ExportJob::conclude(int number)
{
    if (number != runs || !run)
        return;
    const std::shared_ptr<const ExportResult> result = run->waitForResult();
    run.reset();
    paused = false;
    Q_EMIT finished(result);
}

void ExportJob::pause()
{
    paused = true;
    if (run)
        run->pause();
}

void ExportJob::resume()
{
    paused = false;
    if (run)
        run->resume();
}

void ExportJob::cancel()
{
    paused = false;
    if (run)
        run->cancel();
}

void ExportJob::cancelAndWait()
{
    cancel();
    conclude(runs);
}

} // namespace browser
