#ifndef DEVICEHOST_VDEV_BACKEND_H
#define DEVICEHOST_VDEV_BACKEND_H

#include "devicehost/vdev/file_watch.h"
#include "devicehost/vdev/verror.h"
#include "photolib/host/vdev.h"

#include <memory>

/// What a way to reach files implements. The functions of photolib/host/vdev.h do everything that is the same for
/// all of them: null handles, pieces, retries, stop requests, progress, and remembering failures.
///
/// Names arrive as the library wrote them: UTF-8, zero-terminated, never null or empty, with any number of slashes
/// anywhere, and hostile: a backend answers only with files of its own tree.

/// One open file. The destructor closes it.
struct VFile {
    using Error = devicehost::VError;

    virtual ~VFile() = default;

    /// Reads up to `size` bytes, `size` being between 1 and pieceSize(). The count read; 0 at the end; -1 on an
    /// error, where the code EINTR stands for "nothing happened, ask again".
    virtual qint64 read(char *buffer, qint64 size, Error *error);

    /// Writes up to `size` bytes. The count written, at least 1; -1 on an error, EINTR as above.
    virtual qint64 write(const char *buffer, qint64 size, Error *error);

    /// As vFileSeek() and vFileTell(); origin 1 is the current position.
    virtual qint64 seek(qint64 offset, int origin) = 0;
    virtual qint64 tell() = 0;

    /// Size in bytes when the file was opened, -1 when not known.
    virtual qint64 size() const { return -1; }

    /// The most bytes that one read() is asked for. A stop request is honoured between two pieces, so this is
    /// what a slow device delivers well within a second.
    virtual qint64 pieceSize() const { return 128 * 1024; }

    /// Writes out what is pending, ahead of the destructor. False when written data may be lost.
    virtual bool finish(Error *) { return true; }

    devicehost::FileWatch watch;
};

/// One open file system. It may be used by several threads at once.
struct VDev {
    using Error = devicehost::VError;

    virtual ~VDev() = default;

    /// Mode 0 reads, 1 writes. Null on failure, with `*error` filled.
    virtual std::unique_ptr<VFile> openFile(const char *path, int mode, Error *error) = 0;

    /// Creates a folder and those above it that are missing. 0 also when it is there already; else an errno value.
    virtual int createDir(const char *path);

    /// The host object behind a device; null for the local file system and for a device that nobody announced.
    std::shared_ptr<devicehost::HostState> host;
    bool isLocal = false;
};

#endif
