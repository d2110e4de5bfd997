#ifndef TESTING_FAKE_FILES_H
#define TESTING_FAKE_FILES_H

#include "testing/operation_layer.h"

#include <QByteArray>

#include <functional>
#include <map>
#include <memory>
#include <mutex>

namespace testkit
{

/// Fills `size` bytes of `buffer` with the file's content from `offset` on.
using ContentReader = std::function<void(qint64 offset, char *buffer, qint64 size)>;

/// The lowest layer: a made-up device tree in memory, real files on the local side, and plain SQLite.
///
/// Threads: any. A content reader runs under this object's lock and must not come back to it.
class FakeFiles final : public OperationLayer
{
public:
    FakeFiles();
    FakeFiles(const FakeFiles &) = delete;
    FakeFiles &operator=(const FakeFiles &) = delete;
    ~FakeFiles();

    /// Adds or replaces a device file. Handles that are open on a replaced file go on reading the old content.
    void add(const QByteArray &path, qint64 size, ContentReader reader);
    void remove(const QByteArray &path);

    /// From now on the device side cannot be opened, or can again.
    void setReachable(bool reachable);

    /// Replaces the way in which databases are opened; empty for the plain one.
    void setOpenSqlite(std::function<int(const QString &path, sqlite3 **db)> opener);

    /// Numbers new handles from 1 again.
    void restartNumbering();

    void perform(Operation &operation) override;

private:
    struct Content;
    class OpenFile;
    class DeviceFile;
    class LocalFile;

    int openDevice(const Operation &operation);
    int openFile(const Operation &operation);
    void performSql(Operation &operation);
    void performOnFile(Operation &operation, OpenFile &file);
    static qint64 seek(OpenFile &file, qint64 offset, int origin);

    std::mutex mutex;
    std::map<QByteArray, std::shared_ptr<const Content>> tree;
    std::map<int, std::unique_ptr<OpenFile>> files;
    std::function<int(const QString &, sqlite3 **)> opener;
    bool reachable = true;
    int lastDevice = 0;
    int lastFile = 0;
};

} // namespace testkit

#endif
