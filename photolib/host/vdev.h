#ifndef PHOTOLIB_HOST_VDEV_H
#define PHOTOLIB_HOST_VDEV_H

#include "photolib/export.h"

#include <QtGlobal>

/// @file
/// The host's virtual-device file library: one way to reach the files of the connected device and of this
/// computer. The host defines these functions and both handle types; the library only passes the handles on.
///
/// Ownership: buffers and paths stay the library's and are valid during the call only. Each handle is closed once;
/// docs/integrating.md names the one case in which two are left open.
/// Threads: the library calls the functions on whichever thread the host called it from. A handle is used by one
/// thread at a time; different handles are used by different threads at once.
/// Units: sizes, offsets and counts are bytes.
/// Failure: as each function says. No function may throw.

/// Which file system vDevOpen() opens.
enum VDevType {
    VDevLocal = 0,  ///< this computer's file system
    VDevDevice = 2, ///< the connected device's media file system
};

/// An open file system; the host's own type.
struct VDev;

/// An open file; the host's own type.
struct VFile;

/// Opens a file system. For VDevDevice, `path` is IIPod::devicePath() as UTF-8 or in the local 8-bit encoding (see
/// there); for VDevLocal it is empty. The caller owns the handle and gives it back with vDevClose(). Null on failure,
/// for example when the device was unplugged. It is called for each file anew and should be cheap.
PHOTOLIB_HOST VDev *vDevOpen(VDevType type, const char *path);

/// Closes a file system, after its files. A null handle must be accepted and ignored: the library passes one on where
/// vDevOpen() gave none.
PHOTOLIB_HOST void vDevClose(VDev *device);

/// Creates a local folder, `path` in UTF-8, without the separator at its end. One that exists already is no failure.
/// The result is a status of the host's own, which the library does not look at: opening the file in it fails then.
PHOTOLIB_HOST int vDevCreateDir(VDev *device, const char *path);

/// Opens a file, `path` in UTF-8: absolute with "/" on the device, the local folder and the file name on this computer.
/// Mode 0 reads an existing file, mode 1 writes: it creates the file or truncates it. The caller owns the handle and
/// gives it back with vFileClose(), before it closes the device. Null on failure, and for an empty path; a file that is
/// not there is nothing unusual. Device paths come from the device's database: a host must not let them lead out of the
/// device's media root.
PHOTOLIB_HOST VFile *vFileOpen(VDev *device, const char *path, int mode);

/// Closes a file. The library passes no null handle; a host does well to ignore one, as vDevClose() must.
PHOTOLIB_HOST void vFileClose(VFile *file);

/// Reads up to `size` bytes (0 to 2,147,483,647; 4 MiB for the database) from the current position into `buffer`, and
/// moves the position behind them. Returns the count of bytes read; 0 at the end of the file, below 0 on an error.
/// Fewer than `size` means that the end or an error was met: the library does not ask for the rest.
PHOTOLIB_HOST int vFileRead(VFile *file, void *buffer, int size);

/// Writes `size` bytes at the current position of a local file, and moves the position behind them. Returns the count
/// of bytes written; any other count than `size` is a failure.
PHOTOLIB_HOST int vFileWrite(VFile *file, const void *buffer, int size);

/// Moves the current position to `offset` bytes from the origin: 0 the start of the file, 2 its end. Returns the
/// new position, counted from the start, or below 0 on failure.
PHOTOLIB_HOST qint64 vFileSeek(VFile *file, qint64 offset, int origin);

/// The current position in bytes from the start, or below 0 on failure.
PHOTOLIB_HOST qint64 vFileTell(VFile *file);

#endif
