#include "devicehost/vdev/file_watch.h"

#include "devicehost/advice.h"
#include "devicehost/device_host.h"
#include "devicehost/host_state.h"
#include "devicehost/local_path.h"
#include "devicehost/sql_limits.h"

#include <utility>

namespace devicehost
{

FileWatch FileWatch::onDevice(std::shared_ptr<HostState> host, const char *path)
{
    return FileWatch(std::move(host), path, true);
}

FileWatch FileWatch::onLocal(std::shared_ptr<HostState> host, const char *path)
{
    return FileWatch(std::move(host), path, false);
}

FileWatch::FileWatch(std::shared_ptr<HostState> watchingHost, const char *name, bool isDevice)
    : host(std::move(watchingHost)), device(isDevice)
{
    if (host == nullptr)
        return;
    path = QString::fromUtf8(name);
    // Other files on the device may have the same name in other folders; the local folder holds the copies only.
    const QString known = device ? QStringLiteral("/PhotoData/Photos.sqlite") : QStringLiteral("/Photos.sqlite");
    const auto isNamed = [this](const QString &wanted) { return device ? path == wanted : path.endsWith(wanted); };
    if (isNamed(known))
        role = Role::Database;
    else if (isNamed(known + QStringLiteral("-wal")))
        role = Role::WriteAheadLog;
    bounded = device && (role != Role::Other || isNamed(known + QStringLiteral("-shm")));
}

bool FileWatch::stopRequested() const
{
    return host != nullptr && host->stopRequested();
}

bool FileWatch::isTooLarge(qint64 totalBytes) const
{
    return bounded && (totalBytes > largestDatabaseFile || bytesRead > largestDatabaseFile);
}

void FileWatch::openFailed(const VError &error)
{
    if (role == Role::WriteAheadLog && device && isAbsence(error))
        return;
    fail(device ? QStringLiteral("opened") : QStringLiteral("created"), error);
}

void FileWatch::readFailed(const VError &error)
{
    fail(QStringLiteral("read to its end"), error);
}

void FileWatch::writeFailed(const VError &error)
{
    fail(QStringLiteral("written"), error);
}

void FileWatch::fail(const QString &what, const VError &error)
{
    if (host == nullptr || role == Role::Other || host->stopRequested())
        return;
    const QString title =
        device ? QStringLiteral("%1 on the device").arg(path)
               : QStringLiteral("the local copy %1 of %2 on the device").arg(path, sourceOfLocalCopy(path));
    const QString advice = device ? deviceAdvice(error) : localAdvice(error.code);
    host->recordFailure(QStringLiteral("%1 cannot be %2: %3; %4").arg(title, what, error.text, advice),
                        error.deviceUnreachable);
}

void FileWatch::advanced(qint64 count, qint64 totalBytes, bool atEnd)
{
    bytesRead += count; // also beyond the announced end, which binds no device
    if (host == nullptr || !device || endReported)
        return;
    endReported = atEnd || bytesRead == totalBytes;
    host->reportProgress({path, bytesRead, totalBytes}, endReported);
}

} // namespace devicehost
