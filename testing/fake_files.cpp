#include "testing/fake_files.h"

#include "testing/test_sql_utils.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace testkit
{

struct FakeFiles::Content {
    qint64 size;
    ContentReader reader;
};

class FakeFiles::OpenFile
{
public:
    OpenFile() = default;
    virtual ~OpenFile() = default;
    OpenFile(const OpenFile &) = delete;
    OpenFile &operator=(const OpenFile &) = delete;

    /// All three answer below 0 on failure.
    virtual qint64 size() const = 0;
    virtual qint64 readAt(qint64 offset, char *buffer, qint64 count) = 0;
    virtual qint64 writeAt(qint64 offset, const char *buffer, qint64 count) = 0;

    qint64 position = 0;
};

class FakeFiles::DeviceFile final : public OpenFile
{
public:
    explicit DeviceFile(std::shared_ptr<const Content> fileContent) : content(std::move(fileContent)) {}

    qint64 size() const override { return content->size; }

    qint64 readAt(qint64 offset, char *buffer, qint64 count) override
    {
        const qint64 available = std::clamp<qint64>(content->size - offset, 0, count);
        if (available > 0)
            content->reader(offset, buffer, available);
        return available;
    }

    qint64 writeAt(qint64, const char *, qint64) override { return -1; }

private:
    std::shared_ptr<const Content> content;
};

/// Works on the path's bytes as they are: SQLite opens the same file by its UTF-8 name in every locale.
class FakeFiles::LocalFile final : public OpenFile
{
public:
    LocalFile(const QByteArray &path, int mode)
        : descriptor(::open(path.constData(), mode == 0 ? O_RDONLY | O_CLOEXEC : O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC,
                            S_IRUSR | S_IWUSR))
    {
    }
    LocalFile(const LocalFile &) = delete;
    LocalFile &operator=(const LocalFile &) = delete;
    ~LocalFile() override
    {
        if (descriptor >= 0)
            ::close(descriptor);
    }

    bool isRegularFile() const
    {
        struct stat status {
        };
        return descriptor >= 0 && ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
    }

    qint64 size() const override
    {
        struct stat status {
        };
        return ::fstat(descriptor, &status) == 0 ? status.st_size : -1;
    }

    qint64 readAt(qint64 offset, char *buffer, qint64 count) override
    {
        return ::pread(descriptor, buffer, static_cast<size_t>(count), offset);
    }

    qint64 writeAt(qint64 offset, const char *buffer, qint64 count) override
    {
        return ::pwrite(descriptor, buffer, static_cast<size_t>(count), offset);
    }

private:
    int descriptor;
};

namespace
{

int createFolder(const QByteArray &path)
{
    std::error_code error;
    std::filesystem::create_directories(path.toStdString(), error);
    return error ? -1 : 0;
}

} // namespace

FakeFiles::FakeFiles() = default;
FakeFiles::~FakeFiles() = default;

void FakeFiles::add(const QByteArray &path, qint64 size, ContentReader reader)
{
    const std::lock_guard<std::mutex> lock(mutex);
    tree[path] = std::make_shared<const Content>(Content{size, std::move(reader)});
}

void FakeFiles::remove(const QByteArray &path)
{
    const std::lock_guard<std::mutex> lock(mutex);
    tree.erase(path);
}

void FakeFiles::setReachable(bool canBeOpened)
{
    const std::lock_guard<std::mutex> lock(mutex);
    reachable = canBeOpened;
}

void FakeFiles::setOpenSqlite(std::function<int(const QString &path, sqlite3 **db)> newOpener)
{
    const std::lock_guard<std::mutex> lock(mutex);
    opener = std::move(newOpener);
}

void FakeFiles::restartNumbering()
{
    const std::lock_guard<std::mutex> lock(mutex);
    lastDevice = 0;
    lastFile = 0;
}

int FakeFiles::openDevice(const Operation &operation)
{
    if (operation.fileSystem == VDevDevice && !reachable)
        return 0;
    return ++lastDevice;
}

int FakeFiles::openFile(const Operation &operation)
{
    std::unique_ptr<OpenFile> file;
    if (operation.fileSystem == VDevDevice) {
        const auto found = tree.find(operation.path);
        if (found == tree.end() || operation.mode != 0)
            return 0;
        file = std::make_unique<DeviceFile>(found->second);
    } else {
        auto local = std::make_unique<LocalFile>(operation.path, operation.mode);
        if (!local->isRegularFile())
            return 0;
        file = std::move(local);
    }
    files[++lastFile] = std::move(file);
    return lastFile;
}

void FakeFiles::performSql(Operation &operation)
{
    if (operation.kind == OperationKind::PrepareSqlite) {
        operation.result = prepareSqliteStatement(operation.connection, static_cast<const char *>(operation.source),
                                                  operation.size, operation.statement, operation.tail);
        return;
    }
    std::function<int(const QString &, sqlite3 **)> open = openSqliteFile;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        if (opener)
            open = opener;
    }
    operation.result = open(QString::fromUtf8(operation.path), operation.openedConnection);
}

qint64 FakeFiles::seek(OpenFile &file, qint64 offset, int origin)
{
    const qint64 base = origin == 2 ? file.size() : 0;
    qint64 target = 0;
    if (base < 0 || __builtin_add_overflow(base, offset, &target) || target < 0)
        return -1;
    file.position = target;
    return target;
}

void FakeFiles::performOnFile(Operation &operation, OpenFile &file)
{
    switch (operation.kind) {
    case OperationKind::Read:
        operation.result = file.readAt(file.position, static_cast<char *>(operation.destination), operation.size);
        file.position += std::max<qint64>(operation.result, 0);
        break;
    case OperationKind::Write:
        operation.result = file.writeAt(file.position, static_cast<const char *>(operation.source), operation.size);
        file.position += std::max<qint64>(operation.result, 0);
        break;
    case OperationKind::Seek:
        operation.result = seek(file, operation.offset, operation.origin);
        break;
    case OperationKind::Tell:
        operation.result = file.position;
        break;
    case OperationKind::CloseFile:
        files.erase(operation.file);
        break;
    default:
        break;
    }
}

void FakeFiles::perform(Operation &operation)
{
    if (sqlOperations.testFlag(operation.kind)) {
        performSql(operation);
        return;
    }
    const std::lock_guard<std::mutex> lock(mutex);
    switch (operation.kind) {
    case OperationKind::OpenDevice:
        operation.result = openDevice(operation);
        break;
    case OperationKind::CloseDevice:
        break;
    case OperationKind::CreateFolder:
        operation.result = createFolder(operation.path);
        break;
    case OperationKind::OpenFile:
        operation.result = openFile(operation);
        break;
    default:
        performOnFile(operation, *files.at(operation.file));
        break;
    }
}

} // namespace testkit
