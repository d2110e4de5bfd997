#include "devicehost/vdev/posix_file.h"

#include <sys/stat.h>

#include <cerrno>
#include <utility>

namespace devicehost
{

PosixFile::PosixFile(UniqueFd opened) : file(std::move(opened))
{
    struct stat info = {};
    if (::fstat(file.get(), &info) == 0)
        sizeAtOpening = info.st_size;
}

qint64 PosixFile::read(char *buffer, qint64 size, Error *error)
{
    const ssize_t count = ::read(file.get(), buffer, static_cast<std::size_t>(size));
    if (count < 0)
        *error = errnoError(errno);
    return count;
}

qint64 PosixFile::write(const char *buffer, qint64 size, Error *error)
{
    const ssize_t count = ::write(file.get(), buffer, static_cast<std::size_t>(size));
    if (count < 0)
        *error = errnoError(errno);
    return count;
}

qint64 PosixFile::seek(qint64 offset, int origin)
{
    static_assert(SEEK_SET == 0 && SEEK_CUR == 1 && SEEK_END == 2, "origins are passed on as they are");
    return origin < SEEK_SET || origin > SEEK_END ? -1 : ::lseek(file.get(), offset, origin);
}

qint64 PosixFile::tell()
{
    return ::lseek(file.get(), 0, SEEK_CUR);
}

bool PosixFile::finish(Error *error)
{
    // Some file systems tell of a full disk here only. After EINTR the descriptor is closed all the same.
    if (file.reset() == 0 || errno == EINTR)
        return true;
    *error = errnoError(errno);
    return false;
}

} // namespace devicehost
