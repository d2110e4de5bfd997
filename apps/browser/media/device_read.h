#ifndef APPS_BROWSER_MEDIA_DEVICE_READ_H
#define APPS_BROWSER_MEDIA_DEVICE_READ_H

#include <QString>
#include <QStringList>

#include <functional>

class IIPod;
struct photoItem;

namespace browser
{

/// How the reading of a file of the device ended.
enum class ReadEnd {
    Complete,
    Absent,     ///< there is no such file
    Failed,     ///< see ReadResult::reason
    DeviceGone, ///< the device cannot be opened
    GivenUp,    ///< the receiver did not want more
};

struct ReadResult {
    ReadEnd end = ReadEnd::Complete;
    QString reason; ///< for Failed: a clause without full stop; may be empty
};

/// What a device tells of a file before it is read.
struct FileLook {
    ReadEnd end = ReadEnd::Complete; ///< Complete: the file is there
    qint64 size = -1;                ///< bytes, for Complete
};

/// Takes one block of a file that has `total` bytes by what the device says. False ends the reading.
using BlockReceiver = std::function<bool(const char *block, int size, qint64 total)>;

/// Path of a photo's original from the root of the device; empty when the library names none, or one that would lead
/// elsewhere.
QString originalPathOf(const photoItem &photo);

/// Where the result of a photo's edits may lie, the likeliest first; none of a photo that nobody edited. Films of
/// videos, else pictures.
QStringList renderedPathsOf(const photoItem &photo);

/// Asks for the size of a file. Blocks; any thread.
FileLook lookAtDeviceFile(IIPod &device, const QString &path);

/// Reads a file of the device block by block, so that it can be given up and needs little memory. `receive` is called
/// at least once before the device is asked for any bytes, with an empty block. Blocks; any thread. A stop of the
/// device's host ends it. Throws std::bad_alloc, and what `receive` throws.
ReadResult readDeviceFile(IIPod &device, const QString &path, const BlockReceiver &receive);

} // namespace browser

#endif
