#ifndef TESTING_HOST_SESSION_H
#define TESTING_HOST_SESSION_H

#include "testing/operation_layer.h"
#include "testing/operation_record.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <set>
#include <vector>

namespace testkit
{

/// What stands between the library's calls and the layers that carry them out, for one device object: it gives out
/// handles and checks their use, asks the hook, has the topmost layer do the work, and records the outcome. Misuse of
/// a handle is a test failure, at once; the operation then answers as if it had failed.
///
/// Threads: any. Operations of one session are carried out one at a time; the hook runs before that, without a lock.
class HostSession
{
public:
    /// `base` carries the operations out; `temporaryFolder` (with a trailing slash) is shown as "<local>/".
    HostSession(OperationLayer &base, const QByteArray &temporaryFolder);
    HostSession(const HostSession &) = delete;
    HostSession &operator=(const HostSession &) = delete;
    ~HostSession();

    quint64 id() const { return number; }

    void setName(const QString &devicePath);
    bool isNamed(const char *devicePath) const;

    /// `layer` carries the operations out from now on. Not owned.
    void setTop(OperationLayer *layer);
    OperationLayer *top() const;

    void setHook(std::function<void(const Operation &)> hook);

    VDev *openDevice(VDevType type, const char *path);
    void closeDevice(VDev *device);
    int createFolder(VDev *device, const char *path);
    VFile *openFile(VDev *device, const char *path, int mode);
    void closeFile(VFile *file);
    int read(VFile *file, void *buffer, int size);
    int write(VFile *file, const void *buffer, int size);
    qint64 seek(VFile *file, qint64 offset, int origin);
    qint64 tell(VFile *file);
    int openSqlite(const QString &path, sqlite3 **db);
    int prepareSqlite(sqlite3 *db, const char *sql, int length, sqlite3_stmt **statement, const char **tail);

    /// For calls on the device object: the hook first, then the caller's answer, then the record.
    void callHook(const Operation &operation);
    void record(Operation operation);

    void allowClosingDeviceBeforeFiles() { closingDeviceFirstIsAllowed = true; }

    /// Names of the handles that are open, devices first.
    QStringList openHandles() const;
    int openDatabases() const { return databases; }
    bool hasOpenHandles() const { return !openHandles().isEmpty(); }

    const OperationRecord &recorded() const { return operations; }
    void clearRecord() { operations.clear(); }

private:
    Operation operationOn(OperationKind kind, const VDev *device) const;
    Operation operationOn(OperationKind kind, const VFile *file) const;
    QByteArray shown(const QByteArray &path) const;
    bool mayUse(const Operation &operation, const VDev *device) const;
    bool mayUse(const Operation &operation, const VFile *file) const;
    bool mayTransfer(const Operation &operation, const VFile *file) const;
    void carryOut(Operation &operation, bool allowed);

    const quint64 number;
    const QByteArray temporaryFolder;
    mutable std::recursive_mutex mutex;
    mutable std::mutex settings; ///< guards the two below; held for no call
    QString name;
    std::function<void(const Operation &)> hook;
    OperationLayer *topLayer;
    std::vector<std::unique_ptr<VDev>> devices;
    std::vector<std::unique_ptr<VFile>> files;
    std::atomic<bool> closingDeviceFirstIsAllowed{false};
    std::atomic<int> databases{0};
    OperationRecord operations;
};

} // namespace testkit

#endif
