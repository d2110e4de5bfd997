#include "exporter/file_operations.h"

#include "exporter/unique_fd.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace exporter
{

namespace
{

template <typename Call>
auto uninterrupted(const Call &call) -> decltype(call())
{
    for (;;) {
        const auto result = call();
        if (result >= 0 || errno != EINTR)
            return result;
    }
}

bool isUnsupported(int code)
{
    return code == EINVAL || code == ENOSYS || code == EOPNOTSUPP || code == ENOTTY;
}

bool cannotLink(int code)
{
    return isUnsupported(code) || code == EPERM || code == EMLINK || code == EACCES;
}

} // namespace

int FileOperations::openAt(int folder, const char *name, int flags, mode_t mode)
{
    return uninterrupted([=] { return ::openat(folder, name, flags | O_CLOEXEC | O_NOCTTY, mode); });
}

int FileOperations::makeFolderAt(int folder, const char *name)
{
    return ::mkdirat(folder, name, 0777);
}

ssize_t FileOperations::read(int file, void *buffer, std::size_t size)
{
    return uninterrupted([=] { return ::read(file, buffer, size); });
}

ssize_t FileOperations::write(int file, const void *buffer, std::size_t size)
{
    return uninterrupted([=] { return ::write(file, buffer, size); });
}

int FileOperations::sync(int file)
{
    return uninterrupted([=] { return ::fsync(file); });
}

int FileOperations::beginWriting(int file, off_t offset, off_t size)
{
    return ::sync_file_range(file, offset, size, SYNC_FILE_RANGE_WRITE);
}

int FileOperations::setTimes(int file, const timespec times[2])
{
    return ::futimens(file, times);
}

int FileOperations::stat(int file, struct stat *out)
{
    return ::fstat(file, out);
}

int FileOperations::statAt(int folder, const char *name, struct stat *out)
{
    return ::fstatat(folder, name, out, AT_SYMLINK_NOFOLLOW);
}

int FileOperations::statFileSystem(int file, struct statvfs *out)
{
    return uninterrupted([=] { return ::fstatvfs(file, out); });
}

int FileOperations::linkAt(int fromFolder, const char *from, int toFolder, const char *to)
{
    return ::linkat(fromFolder, from, toFolder, to, 0);
}

int FileOperations::unlinkAt(int folder, const char *name, int flags)
{
    return ::unlinkat(folder, name, flags);
}

int FileOperations::renameWithoutReplacing(int fromFolder, const char *from, int toFolder, const char *to)
{
    return ::renameat2(fromFolder, from, toFolder, to, RENAME_NOREPLACE);
}

int FileOperations::renameOverOwnEmptyFile(int fromFolder, const char *from, int toFolder, const char *to)
{
    UniqueFd reserved(::openat(toFolder, to, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666));
    if (!reserved)
        return -1;
    reserved.reset();
    if (::renameat(fromFolder, from, toFolder, to) == 0)
        return 0;
    const int code = errno;
    ::unlinkat(toFolder, to, 0);
    errno = code;
    return -1;
}

int moveToFreeName(FileOperations &operations, int fromFolder, const char *from, int toFolder, const char *to)
{
    const int renamed = operations.renameWithoutReplacing(fromFolder, from, toFolder, to);
    if (renamed == 0 || !isUnsupported(errno))
        return renamed;
    if (operations.linkAt(fromFolder, from, toFolder, to) == 0)
        return operations.unlinkAt(fromFolder, from, 0);
    if (!cannotLink(errno))
        return -1;
    return operations.renameOverOwnEmptyFile(fromFolder, from, toFolder, to);
}

} // namespace exporter
