#ifndef APPS_BROWSER_EXPORTING_EXPORT_JOB_H
#define APPS_BROWSER_EXPORTING_EXPORT_JOB_H

#include "apps/browser/library/opened_library.h"
#include "exporter/observer.h"
#include "exporter/options.h"

#include <QMetaType>
#include <QObject>

#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

Q_DECLARE_METATYPE(exporter::ExportProgress)

namespace browser
{

/// Something that people should read after an export.
struct ExportProblem {
    enum class Kind { Failed, OnlyInCloud, Note };

    Kind kind = Kind::Note;
    QString file; ///< path on the device; empty for a note, and where the library names no file
    QString text; ///< why, or the note itself; no full stop
    qint64 photoId = 0;
};

/// What came of an export, or would come of it.
struct ExportResult {
    exporter::RunOutcome outcome;
    std::vector<ExportProblem> problems; ///< the first 10,000
    qint64 furtherProblems = 0;          ///< those that are not in `problems`
    std::vector<qint64> failed;          ///< photos of which a file failed, each once
    bool wasDryRun = false;
};

/// Runs the exporter on a thread of its own, one run at a time. No widgets.
///
/// User-interface thread. The destructor cancels and waits: for one block of a file at most, or for the device.
class ExportJob : public QObject
{
    Q_OBJECT

public:
    explicit ExportJob(std::shared_ptr<OpenedLibrary> library, QObject *parent = nullptr);
    ~ExportJob() override;

    /// Nothing may be running.
    void start(const exporter::ExportOptions &options, const std::vector<qint64> &photos);

    bool isRunning() const { return thread.joinable(); }
    bool isPaused() const;

    /// The run, or the next one, stops before its next photo or block, and goes on later.
    void pause();
    void resume();
    /// Also while paused. finished() comes all the same.
    void cancel();
    /// cancel(), and then waits until the run is over; finished() was emitted after that.
    void cancelAndWait();

Q_SIGNALS:
    /// Some times a second.
    void progress(const exporter::ExportProgress &progress);
    void finished(const std::shared_ptr<const browser::ExportResult> &result);

private:
    class Observer;

    void work(const exporter::ExportOptions &options, const QList<qint64> &photos);
    void conclude(int number);
    bool waitWhilePaused();

    const std::shared_ptr<OpenedLibrary> opened;
    std::thread thread;
    int run = 0;                          ///< number of the run that was started last
    std::shared_ptr<ExportResult> result; ///< of the thread until it has ended
    mutable std::mutex mutex;
    std::condition_variable changed;
    bool paused = false;    ///< guarded by `mutex`
    bool cancelled = false; ///< guarded by `mutex`
};

} // namespace browser

Q_DECLARE_METATYPE(std::shared_ptr<const browser::ExportResult>)

#endif
