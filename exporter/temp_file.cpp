#include "exporter/temp_file.h"

#include "exporter/errors.h"

#include <cerrno>
#include <fcntl.h>

namespace exporter
{

namespace
{

QString what()
{
    return QStringLiteral("a temporary file");
}

} // namespace

TempFile::TempFile(Destination &owner) : destination(owner), name(owner.temporaryName())
{
    fd = UniqueFd(destination.operations().openAt(destination.rootFd(), name.constData(),
                                                  O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0666));
    if (fd)
        return;
    const int code = errno;
    if (isLackOfSpace(code))
        throwDestinationFull();
    throw RunEnded(
        RunEnd::DestinationRefused,
        QStringLiteral("No file can be made in the destination %1: %2. Check the folder and its permissions.")
            .arg(destination.rootPath(), errnoText(code)));
}

TempFile::~TempFile()
{
    if (!published)
        destination.operations().unlinkAt(destination.rootFd(), name.constData(), 0);
}

void TempFile::write(const char *data, qint64 size)
{
    const qint64 start = written;
    written += size;
    while (size > 0) {
        const ssize_t count = destination.operations().write(fd.get(), data, static_cast<std::size_t>(size));
        if (count <= 0)
            throwDestinationError(count == 0 ? ENOSPC : errno, what());
        data += count;
        size -= count;
    }
    // The disk works while more is read, and finish() has less to wait for.
    destination.operations().beginWriting(fd.get(), start, written - start);
}

FileState TempFile::finish(std::optional<qint64> mtimeNs)
{
    constexpr qint64 second = 1'000'000'000;
    FileOperations &files = destination.operations();
    if (mtimeNs) {
        timespec moment = {};
        moment.tv_sec = *mtimeNs / second - (*mtimeNs % second < 0 ? 1 : 0);
        moment.tv_nsec = *mtimeNs - moment.tv_sec * second;
        const timespec times[2] = {moment, moment};
        // A file system may know no such year; the file is worth more than its date.
        files.setTimes(fd.get(), times);
    }
    if (files.sync(fd.get()) != 0)
        throwDestinationError(errno, what());
    struct stat found = {};
    if (files.stat(fd.get(), &found) != 0)
        throwDestinationError(errno, what());
    if (fd.reset() != 0)
        throwDestinationError(errno, what());
    return stateOf(found);
}

bool TempFile::publish(const QString &path)
{
    published = destination.publish(name, path);
    return published;
}

void TempFile::unpublish(const QString &path)
{
    destination.unpublish(path, name);
    published = false;
}

} // namespace exporter
