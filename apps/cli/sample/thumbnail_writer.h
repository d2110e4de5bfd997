#ifndef APPS_CLI_SAMPLE_THUMBNAIL_WRITER_H
#define APPS_CLI_SAMPLE_THUMBNAIL_WRITER_H

#include "apps/cli/sample/file_store.h"
#include "apps/cli/sample/plan.h"

namespace sample
{

/// Collects small pictures in the order of the assets: some as files of their own, and all that have a place there in
/// the two shared containers.
class ThumbnailWriter
{
public:
    explicit ThumbnailWriter(FileStore &files) : store(files) {}

    /// Throws FileError. Assets come with thumbnail indices 0, 1, 2, ...; a negative one has no place in the
    /// containers.
    void add(const PlannedAsset &asset, const QImage &picture);
    /// Writes the containers.
    void finish();

private:
    void writeOwnFile(const PlannedAsset &asset, const QImage &picture);

    FileStore &store;
    QByteArray large;
    QByteArray small;
};

} // namespace sample

#endif
