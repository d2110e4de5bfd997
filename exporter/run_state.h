#ifndef EXPORTER_RUN_STATE_H
#define EXPORTER_RUN_STATE_H

#include "exporter/observer.h"
#include "exporter/options.h"

namespace exporter
{

/// What one run counts and tells. One thread.
class RunState
{
public:
    RunState(const ExportOptions &exportOptions, ExportObserver &listener) : options(exportOptions), observer(listener)
    {
    }

    const ExportOptions &options;
    ExportObserver &observer;
    RunOutcome outcome;
    ExportProgress progress;
    qint64 forgotten = 0; ///< files of earlier versions that people removed

    void report(const FileReport &file);

    /// Throws RunEnded when the observer wants the run to end.
    void requireGoOn();

    /// Begins a phase with `total` photos (or albums), all counts from zero.
    void begin(Phase phase, qint64 total);

    void tell() { observer.progress(progress); }

    /// After a block was copied.
    void advance(qint64 bytes);
};

} // namespace exporter

#endif
