#ifndef APPS_BROWSER_EXPORTING_EXPORT_JOB_H
#define APPS_BROWSER_EXPORTING_EXPORT_JOB_H

#include "apps/browser/library/opened_library.h"
#include "exporter/observer.h"
#include "exporter/options.h"

#include <QMetaType>
#include <QObject>
#include <QStringList>

#include <memory>
#include <vector>

Q_DECLARE_METATYPE(exporter::ExportProgress)

namespace browser
{

class ExportRun;
class Mailbox;

/// Something that people should read after an export.
struct ExportProblem {
    enum class Kind {
        Failed,
        OnlyInCloud,
        NotThere, ///< the original is absent, though the library does not say that it is only in the cloud
        Note,
    };

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
    qint64 notThere = 0;                 ///< how many of the missing originals are of ExportProblem::Kind::NotThere
    QStringList places;                  ///< names in the destination folder below which files are; the first 50
    bool wasDryRun = false;
    bool wasBackup = false; ///< the device is a backup
};

/// Runs the exporter on a thread of its own, one run at a time. No widgets.
///
/// User-interface thread. The destructor cancels and does not wait: a thread that the device or a slow disk holds up
/// ends in its own time, and owns what it uses.
class ExportJob : public QObject
{
    Q_OBJECT

public:
    explicit ExportJob(std::shared_ptr<OpenedLibrary> library, QObject *parent = nullptr);
    ~ExportJob() override;

    /// Nothing may be running.
    void start(const exporter::ExportOptions &options, const std::vector<qint64> &photos);

    bool isRunning() const { return run != nullptr; }
    bool isPaused() const { return paused; }

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
    void conclude(int number);

    const std::shared_ptr<OpenedLibrary> opened;
    const std::shared_ptr<Mailbox> mailbox;
    std::shared_ptr<ExportRun> run; ///< null when nothing is running
    int runs = 0;                   ///< number of the run that was started last
    bool paused = false;
};

} // namespace browser

Q_DECLARE_METATYPE(std::shared_ptr<const browser::ExportResult>)

#endif
