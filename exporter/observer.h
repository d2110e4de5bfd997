#ifndef EXPORTER_OBSERVER_H
#define EXPORTER_OBSERVER_H

#include "exporter/outcome.h"

#include <QString>

namespace exporter
{

/// What a run is busy with.
enum class Phase {
    Measuring, ///< looking at the files on the device
    Copying,   ///< also that which a dry run does
    Albums,    ///< making album folders
    Verifying, ///< reading exported files again
};

/// How far a phase has come. Bytes and files count what is to be copied, or to be verified; files that are skipped
/// count as photos only.
struct ExportProgress {
    Phase phase = Phase::Copying;
    qint64 photosDone = 0;  ///< in phase Albums: albums; 0 in phase Verifying
    qint64 photosTotal = 0; ///< the same; known from the start
    qint64 filesDone = 0;
    qint64 filesTotal = -1; ///< -1 when not known, see ExportOptions::measureFirst
    qint64 bytesDone = 0;   ///< with the part of the file in hand
    qint64 bytesTotal = -1; ///< -1 when not known
    QString currentFile;    ///< path on the device, for Verifying and Albums below the destination; may be empty
};

/// Hears of a run. Implement what is of interest. Owned by the caller.
///
/// All functions are called on the thread that runs the exporter, must not call the exporter, and must not throw.
class ExportObserver
{
public:
    virtual ~ExportObserver() = default;

    /// After each photo and after each block of 1 MiB or more. Not throttled.
    virtual void progress(const ExportProgress &) {}

    /// Once for each file that was dealt with, as soon as that is settled. Nothing is kept for later.
    virtual void fileFinished(const FileReport &) {}

    /// Something about an album, or another thing of no photo, that people should know: one sentence without full stop.
    virtual void note(const QString &) {}

    /// Asked before each photo and between two blocks. True ends the run: the file in hand is given up and its
    /// temporary file removed; what is complete stays.
    virtual bool isCancelled() { return false; }

protected:
    ExportObserver() = default;
    ExportObserver(const ExportObserver &) = default;
    ExportObserver &operator=(const ExportObserver &) = default;
};

} // namespace exporter

#endif
