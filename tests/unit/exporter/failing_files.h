#ifndef TESTS_UNIT_EXPORTER_FAILING_FILES_H
#define TESTS_UNIT_EXPORTER_FAILING_FILES_H

#include "exporter/file_operations.h"

#include <QtGlobal>

#include <cerrno>
#include <functional>

/// The real system calls, counted; `onCall` may have one fail by answering an errno value, have a read or write stop
/// half-way by answering `half`, or end the process.
class FailingFiles final : public exporter::FileOperations
{
public:
    enum class Call {
        Open,
        MakeFolder,
        Read,
        Write,
        Sync,
        BeginWriting,
        SetTimes,
        Stat,
        StatAt,
        StatFileSystem,
        Link,
        Unlink,
        Rename
    };

    static constexpr int half = -1;

    std::function<int(Call call, int number)> onCall;
    int calls = 0;

    int openAt(int folder, const char *name, int flags, mode_t mode) override
    {
        return allowed(Call::Open) ? FileOperations::openAt(folder, name, flags, mode) : -1;
    }
    int makeFolderAt(int folder, const char *name) override
    {
        return allowed(Call::MakeFolder) ? FileOperations::makeFolderAt(folder, name) : -1;
    }
    ssize_t read(int file, void *buffer, std::size_t size) override
    {
        return allowed(Call::Read) ? FileOperations::read(file, buffer, sizeFor(size)) : -1;
    }
    ssize_t write(int file, const void *buffer, std::size_t size) override
    {
        return allowed(Call::Write) ? FileOperations::write(file, buffer, sizeFor(size)) : -1;
    }
    int sync(int file) override { return allowed(Call::Sync) ? FileOperations::sync(file) : -1; }
    int beginWriting(int file, off_t offset, off_t size) override
    {
        return allowed(Call::BeginWriting) ? FileOperations::beginWriting(file, offset, size) : -1;
    }
    int setTimes(int file, const timespec times[2]) override
    {
        return allowed(Call::SetTimes) ? FileOperations::setTimes(file, times) : -1;
    }
    int stat(int file, struct stat *out) override { return allowed(Call::Stat) ? FileOperations::stat(file, out) : -1; }
    int statAt(int folder, const char *name, struct stat *out) override
    {
        return allowed(Call::StatAt) ? FileOperations::statAt(folder, name, out) : -1;
    }
    int statFileSystem(int file, struct statvfs *out) override
    {
        return allowed(Call::StatFileSystem) ? FileOperations::statFileSystem(file, out) : -1;
    }
    int linkAt(int fromFolder, const char *from, int toFolder, const char *to) override
    {
        return allowed(Call::Link) ? FileOperations::linkAt(fromFolder, from, toFolder, to) : -1;
    }
    int unlinkAt(int folder, const char *name, int flags) override
    {
        return allowed(Call::Unlink) ? FileOperations::unlinkAt(folder, name, flags) : -1;
    }
    int renameWithoutReplacing(int fromFolder, const char *from, int toFolder, const char *to) override
    {
        return allowed(Call::Rename) ? FileOperations::renameWithoutReplacing(fromFolder, from, toFolder, to) : -1;
    }

private:
    bool allowed(Call call)
    {
        code = onCall ? onCall(call, ++calls) : 0;
        errno = qMax(code, 0);
        return code <= 0;
    }

    std::size_t sizeFor(std::size_t asked) const { return code == half && asked > 1 ? asked / 2 : asked; }

    int code = 0;
};

#endif
