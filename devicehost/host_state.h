#ifndef DEVICEHOST_HOST_STATE_H
#define DEVICEHOST_HOST_STATE_H

#include "devicehost/backend_session.h"

#include <QByteArray>
#include <QString>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>

namespace devicehost
{

class Backup;
struct Progress;

/// What one DeviceHost shares with the open files and database connections that work for it. These get no device
/// object from the library; they find the state by the device's name or by the path of a local file, and keep it
/// alive for as long as they need it.
///
/// Every function may be called from any thread, but setProgress() only while no file is read.
class HostState
{
public:
    explicit HostState(const QString &devicePath);

    const QString &devicePath() const { return path; }

    /// Async-signal-safe, both of them.
    void requestStop() noexcept { stop->store(true); }
    bool stopRequested() const noexcept { return stop->load(std::memory_order_relaxed); }

    /// What stopRequested() answers, for those who may outlive this object.
    std::shared_ptr<const std::atomic<bool>> stopFlag() const { return stop; }

    /// What the device's backend keeps from one opening to the next; made on the first call.
    std::shared_ptr<BackendSession> session(const std::function<std::shared_ptr<BackendSession>()> &make);

    /// Keeps the first failure only: those that follow are its consequences. `deviceUnreachable` as in VError.
    void recordFailure(const QString &sentence, bool deviceUnreachable = false);
    QString failure() const;
    bool failedForTheDevice() const;

    /// `code` is an SQLite result code; the first one that speaks of damage, not of a wrong statement, is kept.
    void recordDatabaseError(int code) noexcept;
    QString databaseDamage() const;

    void recordOpening(bool isEmpty) noexcept { empty.store(isEmpty); }
    bool databaseIsEmpty() const noexcept { return empty.load(); }

    void setProgress(std::function<void(const Progress &)> callback);

    /// Passes the report on when it is the last of a file or enough time has passed since the one before.
    void reportProgress(const Progress &progress, bool last);

    /// The backup that this device is, once it was opened; null before, and for other kinds of device. It holds the
    /// keys of an encrypted one, which go with this object.
    void keepBackup(std::shared_ptr<const Backup> backup);
    std::shared_ptr<const Backup> openedBackup() const;

private:
    static_assert(std::atomic<bool>::is_always_lock_free, "requestStop() is called from signal handlers");

    const QString path;
    const std::shared_ptr<std::atomic<bool>> stop = std::make_shared<std::atomic<bool>>(false);
    std::atomic<int> damage{0};
    std::atomic<bool> empty{false};
    std::atomic<qint64> nextReport{0}; ///< milliseconds on the steady clock
    std::function<void(const Progress &)> progressCallback;
    mutable std::mutex mutex; ///< guards what follows
    QString firstFailure;
    bool unreachable = false; ///< is what the first failure means
    std::shared_ptr<BackendSession> backendSession;
    std::shared_ptr<const Backup> backup;
};

/// The living hosts of this process.
namespace hosts
{

void add(const std::shared_ptr<HostState> &state);

/// Files of this folder (with a trailing "/") belong to the host from now on.
void addLocalFolder(const std::shared_ptr<HostState> &state, const QByteArray &folder);

/// The host is found no more. Handles that it has open stay valid.
void remove(const HostState *state);

/// The newest host of a device, by the name given to vDevOpen(): in UTF-8 or in the local 8-bit encoding. Null for
/// none.
std::shared_ptr<HostState> forDevice(const char *name);

/// The host whose local folder holds `path` (UTF-8). Null for none.
std::shared_ptr<HostState> forLocalPath(const char *path);

} // namespace hosts
} // namespace devicehost

#endif
