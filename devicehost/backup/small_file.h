#ifndef DEVICEHOST_BACKUP_SMALL_FILE_H
#define DEVICEHOST_BACKUP_SMALL_FILE_H

#include "devicehost/backup/secret_bytes.h"
#include "devicehost/vdev/path_tree.h"

namespace devicehost
{

/// The whole of a regular file. Empty, with `*error` filled, on failure and when it holds more than `most` bytes; an
/// empty file has no error.
SecretBytes readWholeFile(const PathTree &tree, const char *name, qint64 most, VError *error);

/// Reads up to `size` bytes from a place of a file until they are there or it ends. The count; -1 on an error, with
/// `*error` filled.
qint64 readAt(const UniqueFd &file, qint64 offset, unsigned char *buffer, qint64 size, VError *error);

} // namespace devicehost

#endif
