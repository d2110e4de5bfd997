#ifndef DEVICEHOST_VDEV_FILE_WATCH_H
#define DEVICEHOST_VDEV_FILE_WATCH_H

#include "devicehost/vdev/verror.h"

#include <QString>

#include <memory>

namespace devicehost
{

class HostState;

/// What the host wants to know about one file: whether its failure makes the library unreadable, and how far its
/// reading has come. The library is told of failures by counts and null handles only, and often goes on without a
/// word; the reasons are kept here.
class FileWatch
{
public:
    FileWatch() = default;

    /// `host` may be null: then nothing is kept.
    static FileWatch onDevice(std::shared_ptr<HostState> host, const char *path);
    static FileWatch onLocal(std::shared_ptr<HostState> host, const char *path);

    bool stopRequested() const;

    /// Whether a file of `totalBytes` (-1 when not known) is larger than the device's database may be, or was read
    /// further than that.
    bool isTooLarge(qint64 totalBytes) const;

    void openFailed(const VError &error);
    void readFailed(const VError &error);
    void writeFailed(const VError &error);

    /// `count` more bytes of a file of `totalBytes` (-1 when not known) were read; `atEnd` when there is no more.
    void advanced(qint64 count, qint64 totalBytes, bool atEnd);

private:
    enum class Role {
        Database,      ///< without it there is no library
        WriteAheadLog, ///< may be missing; but when it is there and cut short, the newest changes are lost silently
        Other,         ///< its failure is the library's to handle
    };

    FileWatch(std::shared_ptr<HostState> watchingHost, const char *path, bool device);
    void fail(const QString &what, const VError &error);

    std::shared_ptr<HostState> host;
    QString path;
    Role role = Role::Other;
    bool bounded = false; ///< one of the files of the database
    bool device = false;
    bool endReported = false;
    qint64 bytesRead = 0;
};

} // namespace devicehost

#endif
