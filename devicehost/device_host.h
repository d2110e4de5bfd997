#ifndef DEVICEHOST_DEVICE_HOST_H
#define DEVICEHOST_DEVICE_HOST_H

/// @file
/// The reference device object.

#include "photolib/host/iipod.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>

/// The reference host: everything that the library expects of its host, over the files of a device.
namespace devicehost
{

class HostState;

/// What became of DeviceHost::unlock().
enum class Unlocking {
    Unlocked,      ///< the device can be opened; also when it needed no password
    WrongPassword, ///< nothing changed; another one can be tried
    Failed,        ///< the backup is damaged, or not there; see UnlockResult::message
};

/// The answer of DeviceHost::unlock(). A plain value.
struct UnlockResult {
    Unlocking status = Unlocking::Failed; ///< what became of it
    QString message; ///< what is wrong and what to do next, one line without a final full stop; empty when Unlocked
};

/// How far the reading of one file of the device has come.
struct Progress {
    QString path;          ///< the file on the device, such as /PhotoData/Photos.sqlite
    qint64 bytesRead = 0;  ///< bytes read from it so far
    qint64 totalBytes = 0; ///< its size, or -1 when not known
};

/// The reference implementation of the host's device object.
///
/// Threads: requestStop() may be called from any thread and from a signal handler; everything else on any thread,
/// but setProgress() only while no operation of the library runs.
class DeviceHost final : public IIPod
{
public:
    /// `devicePath` is a name with a scheme, such as "folder:/media/phone" or "backup:/home/me/backup", as
    /// resolveDevice() gives it. Nothing is opened yet.
    explicit DeviceHost(const QString &devicePath);

    /// Removes the local folders that localDataFolder() made, with the database copies in them.
    ~DeviceHost();

    DeviceHost(const DeviceHost &) = delete;
    DeviceHost &operator=(const DeviceHost &) = delete;

    bool shouldStop() override;    ///< whether requestStop() was called
    QString devicePath() override; ///< the name given to the constructor
    bool isAvailable() override;   ///< whether the device can be opened now

    /// A fresh private folder (mode 0700) for each call, with a trailing "/". When none can be made, a path on
    /// which every creation fails, and failure() says why: never a folder that others can write to.
    /// It lies in TMPDIR, else in /tmp. A process that is killed leaves its folders there; the next host of the same
    /// user that makes one removes those whose process is gone.
    QString localDataFolder() override;

    /// Whether the device is an encrypted backup that unlock() did not open yet: until then nothing of it can be
    /// opened. False for a backup that cannot be read; its opening says why.
    bool needsPassword() const;

    /// Opens an encrypted backup with the password (UTF-8) that was set for the backups of the device. This takes some
    /// seconds, as devices mean it to, and heeds no stop request. The keys stay in this object and are overwritten when
    /// it goes and the last file of the device is closed; of the password nothing is kept, and the caller overwrites
    /// its own copy.
    UnlockResult unlock(const QByteArray &password);

    /// Ends the running opening or reading: reads of this device's files answer an error, SQLite statements on its
    /// database copy are interrupted, shouldStop() answers true. Async-signal-safe. Install the handler without
    /// SA_RESTART: a read that waits for a slow mount then ends, too.
    void requestStop() noexcept;

    /// Removes the local folders made so far, with the database copies in them, ahead of the destructor: for a program
    /// that ends without waiting for a running operation of the library. Such an operation goes on without them, but
    /// what it reads may be a part only. May be called from any thread while one runs.
    void discardLocalData();

    /// Called on the reading thread while a file of the device is read, at most some times a second, and once when the
    /// file's last byte was read. Files read on several threads report on these threads, possibly at the same time.
    void setProgress(std::function<void(const Progress &)> callback);

    /// Why the opening failed: the first failure of a host operation that makes the library unreadable since this
    /// object was made, as one line without a final full stop that names the file and says what to do next; empty when
    /// there was none.
    /// Missing -wal, -shm and other optional files are no failures.
    QString failure() const;

    /// What people should know of the device that was opened, though nothing failed: that it is a backup that was
    /// interrupted. One line without a final full stop that says what to do next; empty for none.
    QString notice() const;

    /// Whether failure() came of a device on USB or on the network that cannot be reached: it left, fell silent, was
    /// locked. False for other kinds of devices, and when the device answers but does not give a file away.
    bool deviceIsUnreachable() const;

    /// What SQLite met while it read this device's database copy, such as "database disk image is malformed"; empty
    /// when all went well. Statements that cannot be prepared are not counted.
    QString databaseDamage() const;

    /// Whether the database that was opened last is a file of 0 bytes. SQLite reads one as a database without tables,
    /// so the opening succeeds and finds no photos; a copy of a device that was broken off looks like that, too. False
    /// before an opening and after a failed one.
    bool databaseIsEmpty() const;

private:
    struct LocalFolders;

    std::shared_ptr<HostState> state;
    std::unique_ptr<LocalFolders> localFolders;
};

/// Lets databaseDamage() hear of errors inside the statements that the library steps itself; without it only errors at
/// opening and preparing are known. It takes SQLite's process-wide error log, so it is the application's to decide.
/// Call it before anything uses SQLite, and before other threads run: main() is the place. False when too late.
bool watchDatabaseErrors();

} // namespace devicehost

#endif
