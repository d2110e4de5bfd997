#include "devicehost/backup/small_file.h"

#include <sys/stat.h>

#include <cerrno>

namespace devicehost
{

SecretBytes readWholeFile(const PathTree &tree, const char *name, qint64 most, VError *error)
{
    *error = {};
    const UniqueFd file = tree.openForReading(name, error);
    struct stat info = {};
    if (!file)
        return {};
    if (::fstat(file.get(), &info) != 0) {
        *error = errnoError(errno);
        return {};
    }
    if (info.st_size > most) {
        *error = {EFBIG, QStringLiteral("it is larger than that of any backup")};
        return {};
    }
    SecretBytes bytes(static_cast<std::size_t>(info.st_size));
    const qint64 count = readAt(file, 0, bytes.data(), info.st_size, error);
    if (count < 0)
        return {};
    bytes.truncate(static_cast<std::size_t>(count)); // it may shrink meanwhile
    return bytes;
}

qint64 readAt(const UniqueFd &file, qint64 offset, unsigned char *buffer, qint64 size, VError *error)
{
    qint64 done = 0;
    while (done < size) {
        const ssize_t count = ::pread(file.get(), buffer + done, static_cast<std::size_t>(size - done), offset + done);
        if (count == 0)
            break;
        if (count < 0 && errno != EINTR) {
            *error = errnoError(errno);
            return -1;
        }
        done += count < 0 ? 0 : count;
    }
    return done;
}

} // namespace devicehost
