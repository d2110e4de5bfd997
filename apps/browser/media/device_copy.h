#ifndef APPS_BROWSER_MEDIA_DEVICE_COPY_H
#define APPS_BROWSER_MEDIA_DEVICE_COPY_H

#include <QString>

#include <functional>

class IIPod;

namespace browser
{

/// How the copying of a file of the device ended.
enum class CopyEnd { Complete, Absent, ReadFailed, DeviceGone, NoRoom, CannotWrite, Cancelled };

struct CopyResult {
    CopyEnd end = CopyEnd::Complete;
    QString reason; ///< for ReadFailed and CannotWrite: a clause without full stop; may be empty
};

/// Called after each block, with bytes; false cancels.
using CopyProgress = std::function<bool(qint64 done, qint64 total)>;

/// Copies a file of the device to `target`, which must not be there, block by block. What is there after a failure is a
/// part and stays. Blocks; any thread. Throws std::bad_alloc.
CopyResult copyDeviceFile(IIPod &device, const QString &path, const QString &target, const CopyProgress &progress);

} // namespace browser

#endif
