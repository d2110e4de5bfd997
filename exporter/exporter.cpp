#include "exporter/exporter.h"

#include "exporter/album_folders.h"
#include "exporter/errors.h"
#include "exporter/library_access.h"
#include "exporter/photo_export.h"
#include "exporter/recovery.h"
#include "exporter/run.h"
#include "photolib/host/iipod.h"
#include "photolib/photolib.h"

#include <new>
#include <set>

namespace exporter
{

namespace
{

class Run
{
public:
    Run(photo_manager_int &library, IIPod &pod, const QList<qint64> &wanted, RunState &runState)
        : manager(library), device(pod), state(runState)
    {
        std::set<qint64> seen;
        for (const qint64 id : wanted) {
            if (seen.insert(id).second)
                ids.append(id);
        }
        state.outcome.photosTotal = ids.size();
    }

    void go(FileOperations &files);

    /// When the device went away: everything that was not reached is accounted for.
    void failTheRest(const QString &reason);

private:
    void measure(RunTools &tools);
    void exportPhotos(RunTools &tools);
    void exportPhoto(RunTools &tools, qint64 id);

    photo_manager_int &manager;
    IIPod &device;
    RunState &state;
    QList<qint64> ids;
};

std::unique_ptr<const Layout> layoutOf(RunState &state)
{
    LayoutError error;
    auto layout = Layout::parse(state.options.layout, &error);
    if (layout != nullptr)
        return layout;
    state.outcome.layoutPosition = error.position;
    throw RunEnded(RunEnd::BadLayout, QStringLiteral("The layout \"%1\" is not valid at position %2: %3.")
                                          .arg(state.options.layout)
                                          .arg(error.position + 1)
                                          .arg(error.text));
}

void Run::go(FileOperations &files)
{
    const ExportOptions &options = state.options;
    const std::unique_ptr<const Layout> layout = layoutOf(state);
    const LibraryFacts library(manager);
    Destination destination(files, options.destination, options.dryRun ? Access::ReadOnly : Access::Write);
    if (!options.dryRun)
        destination.sweep();
    Record record(destination, options.dryRun ? RecordUse::Imagine : RecordUse::Keep);
    settleIntents(destination, record, state, options.dryRun);
    DeviceSource source(device, options);
    RunTools tools{state, destination, record, source, library, *layout, NameAllocation(destination, record)};
    if (options.measureFirst && !options.dryRun)
        measure(tools);
    exportPhotos(tools);
    source.close();
    if (state.forgotten > 0 && !options.dryRun)
        state.observer.note(QStringLiteral("files of earlier versions of photos that are not in the destination any "
                                           "more, and now out of the record too: %1")
                                .arg(state.forgotten));
    if (options.albums && !options.dryRun)
        AlbumFolders(tools, manager).update();
}

void Run::measure(RunTools &tools)
{
    state.begin(Phase::Measuring, ids.size());
    state.progress.filesTotal = 0;
    state.progress.bytesTotal = 0;
    for (const qint64 id : qAsConst(ids)) {
        state.requireGoOn();
        photoItem photo;
        if (readPhoto(manager, id, &photo)) {
            try {
                PhotoExport(tools, photo).measure();
            } catch (const DeviceProblem &) {
                // The totals stay unknown; the copying will find out what is wrong, and say so.
                state.progress.filesTotal = -1;
                state.progress.bytesTotal = -1;
                return;
            }
        }
        ++state.progress.photosDone;
        state.tell();
    }
}

void Run::exportPhotos(RunTools &tools)
{
    const qint64 files = state.progress.filesTotal;
    const qint64 bytes = state.progress.bytesTotal;
    state.begin(Phase::Copying, ids.size());
    state.progress.filesTotal = files;
    state.progress.bytesTotal = bytes;
    for (const qint64 id : qAsConst(ids)) {
        state.requireGoOn();
        exportPhoto(tools, id);
        ++state.outcome.photosDone;
        ++state.progress.photosDone;
        state.tell();
    }
}

void Run::exportPhoto(RunTools &tools, qint64 id)
{
    photoItem photo;
    if (readPhoto(manager, id, &photo)) {
        PhotoExport(tools, photo).run();
        return;
    }
    FileReport unknown;
    unknown.photoId = id;
    unknown.status = FileStatus::Failed;
    unknown.reason = QStringLiteral("the library has no photo of this number");
    state.report(unknown);
}

void Run::failTheRest(const QString &reason)
{
    for (qint64 index = state.outcome.photosDone; index < ids.size(); ++index) {
        photoItem photo;
        photo.id = ids[static_cast<int>(index)];
        manager.getPhotoItem(&ids[static_cast<int>(index)], &photo);
        FileReport failed = emptyReport(photo, FileStatus::Failed);
        failed.reason = reason;
        state.report(failed);
    }
}

} // namespace

RunOutcome run(photo_manager_int &manager, IIPod &device, const QList<qint64> &ids, const ExportOptions &options,
               ExportObserver &observer)
{
    FileOperations files;
    return runWith(files, manager, device, ids, options, observer);
}

RunOutcome runWith(FileOperations &files, photo_manager_int &manager, IIPod &device, const QList<qint64> &ids,
                   const ExportOptions &options, ExportObserver &observer)
{
    RunState state(options, observer);
    const auto endAs = [&state](RunEnd end, const QString &message) {
        state.outcome.end = end;
        state.outcome.message = message;
    };
    try {
        Run all(manager, device, ids, state);
        try {
            all.go(files);
        } catch (const RunEnded &ended) {
            endAs(ended.end, ended.message);
            if (ended.end == RunEnd::DeviceGone) {
                state.requireGoOn(); // a host that was told to stop does not open the device either
                all.failTheRest(QStringLiteral("the device cannot be opened any more"));
            }
        } catch (const FileProblem &problem) {
            // In a part that has nothing to do with one file alone: the sweep, the record's own files.
            endAs(RunEnd::DestinationRefused, QStringLiteral("The destination cannot be used: %1.").arg(problem.text));
        }
    } catch (const RunEnded &ended) {
        endAs(ended.end, ended.message);
    } catch (const std::bad_alloc &) {
        endAs(RunEnd::OutOfMemory, QStringLiteral("There is not enough memory to go on. Run the export again."));
    }
    return state.outcome;
}

} // namespace exporter
