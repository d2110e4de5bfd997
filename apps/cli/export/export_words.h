#ifndef APPS_CLI_EXPORT_EXPORT_WORDS_H
#define APPS_CLI_EXPORT_EXPORT_WORDS_H

#include "exporter/outcome.h"

#include <QString>

namespace photocli
{

/// What a report calls a file's part of its photo: "original", "film", "edit-notes", "edited", "edited-film".
QString roleName(exporter::Role role);

/// What a report calls what became of a file: "exported" ("planned" in a dry run), "adopted", "skipped", "missing",
/// "failed".
QString statusName(exporter::FileStatus status, bool dryRun);

/// How people call the file in a message: its path on the device, or its photo where the library names no file.
QString fileName(const exporter::FileReport &file);

/// What a run did, or would do, in one line such as "240 photos and videos: 251 files exported (412.3 MB), 2 only in
/// the cloud".
QString summaryLine(const exporter::RunOutcome &outcome, bool dryRun);

} // namespace photocli

#endif
