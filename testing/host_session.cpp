#include "testing/host_session.h"

#include "testing/host_registry.h"
#include "testing/test_sql_utils.h"

#include <gtest/gtest.h>

#include <utility>

/// A handle outlives its closing, so that a later use of it is noticed.
struct VDev {
    VDevType type;
    int number;
    int openFiles;
    bool open;
};

struct VFile {
    VDev *device;
    int number;
    int mode;
    bool open;
};

namespace testkit
{
namespace
{

quint64 nextSessionNumber()
{
    static std::atomic<quint64> last{0};
    return ++last;
}

void reportMisuse(const Operation &operation, const char *problem)
{
    ADD_FAILURE() << "misuse of the host: " << problem << ": " << operation.text().toStdString();
}

} // namespace

HostSession::HostSession(OperationLayer &base, const QByteArray &folder)
    : number(nextSessionNumber()), temporaryFolder(folder), topLayer(&base)
{
    registerSession(this);
}

HostSession::~HostSession()
{
    unregisterSession(this);
}

void HostSession::setName(const QString &devicePath)
{
    const std::lock_guard<std::mutex> lock(settings);
    name = devicePath;
}

bool HostSession::isNamed(const char *devicePath) const
{
    const std::lock_guard<std::mutex> lock(settings);
    return name.toUtf8() == devicePath || name.toLocal8Bit() == devicePath;
}

void HostSession::setTop(OperationLayer *layer)
{
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    topLayer = layer;
}

OperationLayer *HostSession::top() const
{
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    return topLayer;
}

void HostSession::setHook(std::function<void(const Operation &)> newHook)
{
    const std::lock_guard<std::mutex> lock(settings);
    hook = std::move(newHook);
}

void HostSession::callHook(const Operation &operation)
{
    std::function<void(const Operation &)> called;
    {
        const std::lock_guard<std::mutex> lock(settings);
        called = hook;
    }
    if (called)
        called(operation);
}

void HostSession::record(Operation operation)
{
    if (operation.kind != OperationKind::PrepareSqlite)
        operation.shownPath = shown(operation.path);
    operations.append(operation);
}

QByteArray HostSession::shown(const QByteArray &path) const
{
    if (path.startsWith(temporaryFolder))
        return "<local>/" + path.mid(temporaryFolder.size());
    return path + '/' == temporaryFolder ? QByteArray("<local>") : path;
}

Operation HostSession::operationOn(OperationKind kind, const VDev *device) const
{
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    Operation operation;
    operation.kind = kind;
    if (device != nullptr) {
        operation.fileSystem = device->type;
        operation.device = device->number;
    }
    return operation;
}

Operation HostSession::operationOn(OperationKind kind, const VFile *file) const
{
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    Operation operation = operationOn(kind, file->device);
    operation.file = file->number;
    return operation;
}

bool HostSession::mayUse(const Operation &operation, const VDev *device) const
{
    if (!device->open) {
        reportMisuse(operation, "the device is closed");
        return false;
    }
    const bool writes = operation.kind == OperationKind::CreateFolder || operation.mode != 0;
    if (writes && device->type == VDevDevice) {
        reportMisuse(operation, "the library never writes to the device");
        return false;
    }
    return true;
}

bool HostSession::mayUse(const Operation &operation, const VFile *file) const
{
    if (file->open && (file->device->open || operation.kind == OperationKind::CloseFile))
        return true;
    reportMisuse(operation, file->open ? "the file's device is closed" : "the file is closed");
    return false;
}

bool HostSession::mayTransfer(const Operation &operation, const VFile *file) const
{
    if (!mayUse(operation, file))
        return false;
    const bool writes = operation.kind == OperationKind::Write;
    const void *buffer = writes ? operation.source : operation.destination;
    const char *problem = nullptr;
    if (operation.size < 0)
        problem = "negative size";
    else if (buffer == nullptr && operation.size > 0)
        problem = "null buffer";
    else if (writes != (file->mode == 1))
        problem = "the file was opened in the other mode";
    if (problem != nullptr)
        reportMisuse(operation, problem);
    return problem == nullptr;
}

/// The caller holds the lock.
void HostSession::carryOut(Operation &operation, bool allowed)
{
    if (allowed)
        topLayer->perform(operation);
    else
        operation.fail();
    record(operation);
}

VDev *HostSession::openDevice(VDevType type, const char *path)
{
    Operation operation = operationOn(OperationKind::OpenDevice, static_cast<VDev *>(nullptr));
    operation.fileSystem = type;
    operation.path = operation.shownPath = path;
    callHook(operation);
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    const bool named = type == VDevLocal ? operation.path.isEmpty() : type == VDevDevice && isNamed(path);
    if (type != VDevDevice && !named)
        reportMisuse(operation, "the local side has type 0 and an empty name");
    carryOut(operation, named);
    if (operation.result == 0)
        return nullptr;
    devices.push_back(std::make_unique<VDev>(VDev{type, static_cast<int>(operation.result), 0, true}));
    registerHandle(devices.back().get(), this);
    return devices.back().get();
}

void HostSession::closeDevice(VDev *device)
{
    Operation operation = operationOn(OperationKind::CloseDevice, device);
    callHook(operation);
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    if (device == nullptr || !mayUse(operation, device)) {
        record(operation);
        return;
    }
    if (device->openFiles > 0 && !closingDeviceFirstIsAllowed)
        reportMisuse(operation, "files of this device are still open");
    carryOut(operation, true);
    device->open = false;
}

int HostSession::createFolder(VDev *device, const char *path)
{
    Operation operation = operationOn(OperationKind::CreateFolder, device);
    operation.path = operation.shownPath = path;
    callHook(operation);
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    carryOut(operation, mayUse(operation, device));
    return static_cast<int>(operation.result);
}

VFile *HostSession::openFile(VDev *device, const char *path, int mode)
{
    Operation operation = operationOn(OperationKind::OpenFile, device);
    operation.path = operation.shownPath = path;
    operation.mode = mode;
    callHook(operation);
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    const bool known = mode == 0 || mode == 1;
    if (!known)
        reportMisuse(operation, "unknown mode");
    carryOut(operation, known && mayUse(operation, device));
    if (operation.result == 0)
        return nullptr;
    files.push_back(std::make_unique<VFile>(VFile{device, static_cast<int>(operation.result), mode, true}));
    ++device->openFiles;
    registerHandle(files.back().get(), this);
    return files.back().get();
}

void HostSession::closeFile(VFile *file)
{
    Operation operation = operationOn(OperationKind::CloseFile, file);
    callHook(operation);
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    if (!mayUse(operation, file)) {
        record(operation);
        return;
    }
    carryOut(operation, true);
    file->open = false;
    --file->device->openFiles;
}

int HostSession::read(VFile *file, void *buffer, int size)
{
    Operation operation = operationOn(OperationKind::Read, file);
    operation.destination = buffer;
    operation.size = size;
    callHook(operation);
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    carryOut(operation, mayTransfer(operation, file));
    return static_cast<int>(operation.result);
}

int HostSession::write(VFile *file, const void *buffer, int size)
{
    Operation operation = operationOn(OperationKind::Write, file);
    operation.source = buffer;
    operation.size = size;
    callHook(operation);
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    carryOut(operation, mayTransfer(operation, file));
    return static_cast<int>(operation.result);
}

qint64 HostSession::seek(VFile *file, qint64 offset, int origin)
{
    Operation operation = operationOn(OperationKind::Seek, file);
    operation.offset = offset;
    operation.origin = origin;
    callHook(operation);
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    const bool known = origin == 0 || origin == 2;
    if (!known)
        reportMisuse(operation, "unknown origin");
    carryOut(operation, known && mayUse(operation, file));
    return operation.result;
}

qint64 HostSession::tell(VFile *file)
{
    Operation operation = operationOn(OperationKind::Tell, file);
    callHook(operation);
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    carryOut(operation, mayUse(operation, file));
    return operation.result;
}

int HostSession::openSqlite(const QString &path, sqlite3 **db)
{
    Operation operation;
    operation.kind = OperationKind::OpenSqlite;
    operation.path = path.toUtf8();
    operation.openedConnection = db;
    callHook(operation);
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    carryOut(operation, true);
    if (operation.result == 0) {
        ++databases;
        callWhenClosed(*db, [session = id()] {
            HostSession *opener = sessionWithId(session);
            if (opener == nullptr)
                return;
            Operation closing;
            closing.kind = OperationKind::CloseSqlite;
            --opener->databases;
            opener->record(closing);
        });
    }
    return static_cast<int>(operation.result);
}

int HostSession::prepareSqlite(sqlite3 *db, const char *sql, int length, sqlite3_stmt **statement, const char **tail)
{
    Operation operation;
    operation.kind = OperationKind::PrepareSqlite;
    operation.connection = db;
    operation.source = sql;
    operation.path = operation.shownPath =
        QByteArray(sql, length < 0 ? -1 : static_cast<int>(qstrnlen(sql, static_cast<uint>(length))));
    operation.size = length;
    operation.statement = statement;
    operation.tail = tail;
    callHook(operation);
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    carryOut(operation, true);
    return static_cast<int>(operation.result);
}

QStringList HostSession::openHandles() const
{
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    QStringList names;
    for (const auto &device : devices) {
        if (device->open)
            names.append("dev" + QString::number(device->number));
    }
    for (const auto &file : files) {
        if (file->open)
            names.append("file" + QString::number(file->number));
    }
    return names;
}

} // namespace testkit
