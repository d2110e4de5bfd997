#ifndef EXPORTER_EXPORTER_H
#define EXPORTER_EXPORTER_H

#include "exporter/observer.h"
#include "exporter/options.h"
#include "exporter/outcome.h"

#include <QList>

class IIPod;
class photo_manager_int;

namespace exporter
{

/// Copies the originals of photos, with what belongs to them, off the device into a folder.
///
/// `manager` must have an open library, which nothing may edit meanwhile, and `device` be the one that it was made
/// for; both stay the caller's and are not used after the return. Photos are dealt with in the order of `ids`, each
/// once; an id that the library does not know is reported as Failed.
///
/// What is promised:
/// - No file that exists in the destination is ever replaced or changed, unless it is a link in an album folder that an
///   earlier run made. A file appears under its name only when it is complete, checked and safely on disk.
/// - The files of one photo keep one name. Where it is taken (capital and small letters are the same) all of them get
///   " (1)", " (2)", ... before their extensions.
/// - The destination holds a record, ".photolib-export.sqlite", by which a later run copies only what is new or
/// changed,
///   and a run that was killed goes on where it stopped. One run at a time works on a destination.
/// - Every photo is accounted for by at least one FileReport, unless the run ended early.
/// - Nothing outside of the destination is written, whatever the names in the library are.
///
/// Blocks until the run is over. Any thread, one run at a time for each manager; nothing is thrown. Problems with
/// single files are reported through `observer` and do not end the run.
RunOutcome run(photo_manager_int &manager, IIPod &device, const QList<qint64> &ids, const ExportOptions &options,
               ExportObserver &observer);

} // namespace exporter

#endif
