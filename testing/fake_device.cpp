#include "testing/fake_device.h"

#include "testing/host_registry.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <utility>

namespace testkit
{
namespace
{

constexpr int shouldStopSlot = 7;
constexpr int devicePathSlot = 16;
constexpr int isAvailableSlot = 46;
constexpr int localDataFolderSlot = 56;

} // namespace

void CountingIPod::countReserved(int slot)
{
    count(slot);
    ADD_FAILURE() << "misuse of the host: the library called slot " << slot << " of the device object";
}

FakeDevice::FakeDevice(const QString &devicePath)
    : session(files, (temporary.path() + '/').toUtf8()), path(devicePath), folder(temporary.path() + '/')
{
    if (!temporary.isValid())
        ADD_FAILURE() << "no temporary folder: " << temporary.errorString().toStdString();
    session.setName(devicePath);
    setShouldStop(false);
}

FakeDevice::~FakeDevice()
{
    const QStringList open = session.openHandles();
    if (expectedOpen == 0) {
        for (const QString &name : open)
            ADD_FAILURE() << name.toStdString() << " was left open";
    } else if (open.size() != expectedOpen) {
        ADD_FAILURE() << expectedOpen
                      << " handles should have been left open, but these were: " << open.join(' ').toStdString();
    }
    if (session.openDatabases() != 0)
        ADD_FAILURE() << session.openDatabases() << " database connections were left open";
}

void FakeDevice::addFile(const QString &filePath, const QByteArray &content)
{
    addVirtualFile(filePath, content.size(), [content](qint64 offset, char *buffer, qint64 size) {
        std::copy_n(content.constData() + offset, size, buffer);
    });
}

void FakeDevice::addVirtualFile(const QString &filePath, qint64 size, ContentReader reader)
{
    files.add(filePath.toUtf8(), size, std::move(reader));
}

void FakeDevice::addFileOfHost(const QString &filePath, const QString &hostPath)
{
    const auto file = std::make_shared<QFile>(hostPath);
    if (!file->open(QIODevice::ReadOnly)) {
        ADD_FAILURE() << "cannot open " << hostPath.toStdString() << ": " << file->errorString().toStdString();
        return;
    }
    addVirtualFile(filePath, file->size(), [file](qint64 offset, char *buffer, qint64 size) {
        if (!file->seek(offset) || file->read(buffer, size) != size)
            ADD_FAILURE() << "cannot read " << file->fileName().toStdString();
    });
}

void FakeDevice::addDatabase(const QString &sqlitePath)
{
    addFileOfHost("/PhotoData/Photos.sqlite", sqlitePath);
    for (const char *suffix : {"-wal", "-shm"}) {
        if (QFileInfo::exists(sqlitePath + suffix))
            addFileOfHost(QString("/PhotoData/Photos.sqlite") + suffix, sqlitePath + suffix);
    }
}

void FakeDevice::removeFile(const QString &filePath)
{
    files.remove(filePath.toUtf8());
}

void FakeDevice::setShouldStop(bool stop)
{
    decideShouldStop([stop](int) { return stop; });
}

void FakeDevice::stopFromCall(int call)
{
    const int first = slotCalls(shouldStopSlot) + call;
    decideShouldStop([first](int number) { return number >= first; });
}

void FakeDevice::decideShouldStop(std::function<bool(int)> answer)
{
    const std::lock_guard<std::mutex> lock(mutex);
    stopAnswer = std::move(answer);
}

void FakeDevice::setDevicePath(const QString &newPath)
{
    const std::lock_guard<std::mutex> lock(mutex);
    path = newPath;
    session.setName(newPath);
}

void FakeDevice::setAvailable(bool isThere)
{
    const std::lock_guard<std::mutex> lock(mutex);
    available = isThere;
}

void FakeDevice::setReachable(bool reachable)
{
    files.setReachable(reachable);
}

void FakeDevice::setLocalDataFolder(const QString &newFolder)
{
    const std::lock_guard<std::mutex> lock(mutex);
    folder = newFolder;
}

void FakeDevice::setOpenSqlite(std::function<int(const QString &, sqlite3 **)> opener)
{
    files.setOpenSqlite(std::move(opener));
}

void FakeDevice::onOperation(std::function<void(const Operation &)> hook)
{
    session.setHook(std::move(hook));
}

void FakeDevice::clearOperations()
{
    session.clearRecord();
    if (!session.hasOpenHandles())
        files.restartNumbering();
}

QByteArray FakeDevice::localFile(const QString &name) const
{
    QFile file(localPath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool FakeDevice::answerFlag(OperationKind kind, const std::function<bool()> &answer)
{
    useSession(&session);
    Operation operation;
    operation.kind = kind;
    session.callHook(operation);
    const bool result = answer();
    operation.result = result ? 1 : 0;
    session.record(operation);
    return result;
}

QString FakeDevice::answerText(OperationKind kind, const QString &member)
{
    useSession(&session);
    Operation operation;
    operation.kind = kind;
    session.callHook(operation);
    QString answer;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        answer = member;
    }
    operation.path = answer.toUtf8();
    session.record(operation);
    return answer;
}

bool FakeDevice::shouldStop()
{
    const int call = count(shouldStopSlot);
    return answerFlag(OperationKind::ShouldStop, [this, call] {
        std::function<bool(int)> decide;
        {
            const std::lock_guard<std::mutex> lock(mutex);
            decide = stopAnswer;
        }
        return decide(call);
    });
}

QString FakeDevice::devicePath()
{
    count(devicePathSlot);
    return answerText(OperationKind::DevicePath, path);
}

bool FakeDevice::isAvailable()
{
    count(isAvailableSlot);
    return answerFlag(OperationKind::IsAvailable, [this] {
        const std::lock_guard<std::mutex> lock(mutex);
        return available;
    });
}

QString FakeDevice::localDataFolder()
{
    count(localDataFolderSlot);
    return answerText(OperationKind::LocalDataFolder, folder);
}

} // namespace testkit
