#ifndef APPS_CLI_SAMPLE_MEDIA_WRITER_H
#define APPS_CLI_SAMPLE_MEDIA_WRITER_H

#include "apps/cli/sample/file_store.h"
#include "apps/cli/sample/plan.h"

namespace sample
{

/// Paints `asset`, writes its files below the device's root, and notes their sizes in its row. Answers its small
/// picture, upright, from which thumbnails are made. Throws FileError.
QImage writeMedia(FileStore &files, PlannedAsset &asset);

} // namespace sample

#endif
