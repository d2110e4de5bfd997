#ifndef PHOTOLIB_HOST_VDEV_H
#define PHOTOLIB_HOST_VDEV_H

#include "photolib/export.h"

#include <QtGlobal>

/// The host's virtual-device file library: one way to reach the files of the connected device and of this
/// computer. The host defines these functions and both handle types; the library only passes the handles on.
///
/// Threads: the library calls the functions on whichever thread the host called it from. A handle is used by one
/// thread at a time; different handles are used by different threads at once.

/// Which file system vDevOpen() opens.
enum VDevType {
    VDevLocal = 0,  ///< this computer's file system
    VDevDevice = 2, ///< the connected device's media file system
};

struct VDev;
struct VFile;

/// Opens a file system. For VDevDevice, `path` is IIPod::devicePath() in 8-bit form; for VDevLocal it is empty.
/// The caller owns the handle and gives it back with vDevClose(). Null on failure.
PHOTOLIB_HOST VDev *vDevOpen(VDevType type, const char *path);

/// Closes a file system. A null handle is accepted and ignored.
PHOTOLIB_HOST void vDevClose(VDev *device);

/// Creates a folder. The result is a status of the host's own, which the library does not look at.
PHOTOLIB_HOST int vDevCreateDir(VDev *device, const char *path);

/// Opens a file, `path` in UTF-8. Mode 0 reads an existing file, mode 1 writes: it creates the file or truncates
/// it. The caller owns the handle and gives it back with vFileClose(), before it closes the device. Null on failure.
PHOTOLIB_HOST VFile *vFileOpen(VDev *device, const char *path, int mode);

/// Closes a file. The library passes no null handle; a host does well to ignore one, as vDevClose() must.
PHOTOLIB_HOST void vFileClose(VFile *file);

/// Reads up to `size` bytes from the current position into `buffer`. Returns the count of bytes read; 0 at the
/// end of the file, below 0 on an error. Fewer than `size` means that the end or an error was met.
PHOTOLIB_HOST int vFileRead(VFile *file, void *buffer, int size);

/// Writes `size` bytes at the current position. Returns the count of bytes written; any other count than `size`
/// is a failure.
PHOTOLIB_HOST int vFileWrite(VFile *file, const void *buffer, int size);

/// Moves the current position to `offset` bytes from the origin: 0 the start of the file, 2 its end. Returns the
/// new position, counted from the start, or below 0 on failure.
PHOTOLIB_HOST qint64 vFileSeek(VFile *file, qint64 offset, int origin);

/// The current position in bytes from the start, or below 0 on failure.
PHOTOLIB_HOST qint64 vFileTell(VFile *file);

#endif
