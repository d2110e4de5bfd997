#ifndef APPS_CLI_SAMPLE_LIBRARY_WRITER_H
#define APPS_CLI_SAMPLE_LIBRARY_WRITER_H

#include "apps/cli/sample/file_store.h"
#include "apps/cli/sample/plan.h"
#include "apps/cli/sample/sample_device.h"

namespace sample
{

/// Writes PhotoData/Photos.sqlite with its companions. The last assets, and the albums and memories that hold them, are
/// in the "-wal" only, as on a device that was in use a moment ago. Throws FileError, also when there is a database
/// already; testkit::LibraryError when SQLite refuses something. Counts what it wrote in `report`.
void writeLibrary(FileStore &files, const Plan &plan, testkit::Era era, SampleReport &report);

} // namespace sample

#endif
