#ifndef TESTING_FAKE_DEVICE_H
#define TESTING_FAKE_DEVICE_H

#include "testing/counting_ipod.h"
#include "testing/fake_files.h"
#include "testing/host_session.h"
#include "testing/operation.h"
#include "testing/qt_printers.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <mutex>

namespace testkit
{

/// A made-up device: the device object that a test hands to the library, and the files behind vDevOpen() to
/// vFileTell() and SqlUtils. Device files live in memory, each under the exact path by which it is opened; folders
/// exist by themselves. Local files are real ones. Every operation is recorded as one line:
///
///     vDevOpen 2 "fake:device" = dev1
///     vFileOpen dev1 "/PhotoData/Photos.sqlite" 0 = file1
///     vFileRead file1 4194304 = 12288
///     vFileClose file1
///     vDevClose dev1
///
/// Handles are numbered in the order in which they were opened, per device object; paths below the device's own
/// temporary folder are shown as "<local>/...". The destructor fails the test for every handle and every database
/// connection left open; wrong use of a handle, of a slot, or a write to the device fails it at once.
///
/// Several devices may be alive when their device paths differ. Operations that do not name a device (the local
/// side, SQL) belong to the device that the same thread used last, or else to the newest.
///
/// Threads: all functions may be called from any thread.
class FakeDevice final : public CountingIPod
{
public:
    explicit FakeDevice(const QString &devicePath = "fake:device");
    ~FakeDevice();

    // Files on the device.

    void addFile(const QString &path, const QByteArray &content);

    /// A file of `size` bytes that `reader` makes up when they are read; nothing is allocated. `reader` must not call
    /// this object.
    void addVirtualFile(const QString &path, qint64 size, ContentReader reader);

    /// A file with the content of a file of this computer, read when the library reads it.
    void addFileOfHost(const QString &path, const QString &hostPath);

    /// The database file `sqlitePath` as /PhotoData/Photos.sqlite, with its "-wal" and "-shm" where they exist.
    void addDatabase(const QString &sqlitePath);

    void removeFile(const QString &path);

    // Answers. Each holds until it is set again.

    void setShouldStop(bool stop);
    /// Answers true from the `call`-th call of shouldStop() on, counted from now; 1 is the next one.
    void stopFromCall(int call);
    /// Has `answer` decide; it is told the number of the call, the first one ever being 1.
    void decideShouldStop(std::function<bool(int call)> answer);
    void setDevicePath(const QString &path);
    void setAvailable(bool available);
    /// False: vDevOpen() of the device answers null.
    void setReachable(bool reachable);
    /// The folder as the library gets it; may be empty. By default a folder of this object's own, with a trailing
    /// slash.
    void setLocalDataFolder(const QString &folder);
    /// Replaces SqlUtils::openSqlite(), for example to hand out a connection that a test has prepared. The library
    /// closes what it is given. An empty function brings the plain one back.
    void setOpenSqlite(std::function<int(const QString &path, sqlite3 **db)> opener);

    /// Called before each operation, without its result, on the thread of the operation; no lock is held.
    void onOperation(std::function<void(const Operation &)> hook);

    // What the library did.

    /// The lines of the operations of these kinds, in order.
    QStringList operations(OperationKinds kinds = fileOperations) const { return session.recorded().lines(kinds); }
    int operationCount(OperationKinds kinds = fileOperations) const { return session.recorded().count(kinds); }

    /// Forgets the operations so far. When no handle is open, handles are numbered from 1 again.
    void clearOperations();

    /// Names of the handles that are open now, devices first.
    QStringList openHandles() const { return session.openHandles(); }

    /// A file named `name` in this object's own folder, with that folder's path.
    QString localPath(const QString &name) const { return temporary.path() + '/' + name; }
    /// The content of that file; null when there is none.
    QByteArray localFile(const QString &name) const;

    /// Handles that the library leaves open on purpose: the destructor insists on exactly so many.
    void expectLeftOpen(int count) { expectedOpen = count; }
    /// Accepts that a device is closed before its own files are.
    void allowClosingDeviceBeforeFiles() { session.allowClosingDeviceBeforeFiles(); }

    // The device object, as the library calls it.
    bool shouldStop() override;
    QString devicePath() override;
    bool isAvailable() override;
    QString localDataFolder() override;

    /// For layers above the files, such as FaultyDevice.
    HostSession &hostSession() { return session; }

private:
    /// Runs the hook, then takes the answer, then records it.
    QString answerText(OperationKind kind, const QString &member);
    bool answerFlag(OperationKind kind, const std::function<bool()> &answer);

    QTemporaryDir temporary;
    FakeFiles files;
    HostSession session;
    mutable std::mutex mutex; ///< guards the answers
    std::function<bool(int)> stopAnswer;
    QString path;
    QString folder;
    bool available = true;
    std::atomic<int> expectedOpen{0};
};

} // namespace testkit

#endif
