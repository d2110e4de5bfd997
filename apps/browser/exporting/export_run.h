#ifndef APPS_BROWSER_EXPORTING_EXPORT_RUN_H
#define APPS_BROWSER_EXPORTING_EXPORT_RUN_H

#include "apps/browser/exporting/export_job.h"

#include <QElapsedTimer>
#include <QList>

#include <condition_variable>
#include <functional>
#include <mutex>

namespace browser
{

/// One run of the exporter: what its thread and the job share, as the job may be gone before the thread is.
class ExportRun final : public exporter::ExportObserver
{
public:
    /// Called on the exporter's thread, some times a second.
    using Listener = std::function<void(const exporter::ExportProgress &)>;

    ExportRun(std::shared_ptr<OpenedLibrary> library, const exporter::ExportOptions &exportOptions,
              const std::vector<qint64> &ids, Listener progressListener);

    /// Runs the exporter. On its thread, once; instead, where there is none to be had, giveUp().
    void work();
    void giveUp();

    /// Any thread.
    void pause();
    void resume();
    void cancel();
    std::shared_ptr<const ExportResult> waitForResult();

private:
    void progress(const exporter::ExportProgress &now) override;
    void fileFinished(const exporter::FileReport &file) override;
    void note(const QString &sentence) override;
    bool isCancelled() override;

    ExportProblem::Kind kindOfMissing(const exporter::FileReport &file) const;
    void addPlace(const QString &destination);
    void add(const ExportProblem &problem);
    void end();

    const std::shared_ptr<OpenedLibrary> opened;
    exporter::ExportOptions options;
    const QList<qint64> photos;
    const Listener listener;
    QElapsedTimer sinceReport;
    exporter::Phase phase = exporter::Phase::Measuring;
    const std::shared_ptr<ExportResult> result; ///< of the thread until `ended`

    std::mutex mutex;
    std::condition_variable changed;
    bool paused = false; ///< guarded by `mutex`, as the rest
    bool cancelled = false;
    bool ended = false;
};

} // namespace browser

#endif
