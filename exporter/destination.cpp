#include "exporter/destination.h"

#include "exporter/errors.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <new>
#include <sys/file.h>

namespace exporter
{

namespace
{

[[noreturn]] void refuse(const QString &sentences)
{
    throw RunEnded(RunEnd::DestinationRefused, sentences);
}

// Not QFileInfo::canonicalFilePath(): that loses the answer of realpath() when memory runs short.
QString resolved(const QByteArray &name)
{
    struct Free {
        void operator()(char *text) const { std::free(text); }
    };
    const std::unique_ptr<char, Free> real(::realpath(name.constData(), nullptr));
    if (real == nullptr && errno == ENOMEM)
        throw std::bad_alloc();
    // The record is opened by this path: without it that would be in the root folder.
    if (real == nullptr)
        refuse(QStringLiteral("The destination %1 cannot be used as a folder: %2.")
                   .arg(QFile::decodeName(name), errnoText(errno)));
    return QFile::decodeName(real.get());
}

} // namespace

FileState stateOf(const struct stat &found)
{
    return {S_ISREG(found.st_mode), S_ISDIR(found.st_mode),
            found.st_size,          found.st_mtim.tv_sec * 1'000'000'000LL + found.st_mtim.tv_nsec,
            found.st_dev,           found.st_ino};
}

void requireSafeStep(const QString &name, const QString &path)
{
    if (name.isEmpty() || name == QLatin1String(".") || name == QLatin1String("..") || name.contains(QChar(0)) ||
        name.contains(QLatin1Char('/')))
        throw FileProblem(QStringLiteral("%1 is no path below the destination").arg(path));
}

QString folderOf(const QString &path)
{
    return path.left(qMax(0, path.lastIndexOf(QLatin1Char('/'))));
}

QString nameOf(const QString &path)
{
    return path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
}

Destination::Destination(FileOperations &fileOperations, const QString &path, Access access) : files(fileOperations)
{
    if (path.isEmpty() || path.contains(QChar(0)))
        refuse(QStringLiteral("No destination folder is given."));
    openRoot(path, access);
    if (root)
        lock(access);
}

void Destination::openRoot(const QString &path, Access access)
{
    const QByteArray name = QFile::encodeName(path);
    root = UniqueFd(files.openAt(AT_FDCWD, name.constData(), O_RDONLY | O_DIRECTORY, 0));
    if (!root && errno == ENOENT) {
        if (access == Access::ReadOnly)
            return;
        QDir().mkpath(path);
        root = UniqueFd(files.openAt(AT_FDCWD, name.constData(), O_RDONLY | O_DIRECTORY, 0));
    }
    if (!root) {
        const int code = errno;
        if (isLackOfSpace(code))
            throwDestinationFull();
        refuse(QStringLiteral("The destination %1 cannot be used as a folder: %2.").arg(path, errnoText(code)));
    }
    canonicalPath = resolved(name);
}

void Destination::lock(Access access)
{
    const int how = access == Access::Write ? LOCK_EX : LOCK_SH;
    // Where folders cannot be locked (some network file systems), the lock on the record has to do.
    if (::flock(root.get(), how | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        refuse(QStringLiteral("Another export is working on %1. Wait until it has ended, or choose another folder.")
                   .arg(canonicalPath));
}

void Destination::sweep()
{
    const QStringList found = names(QString());
    for (const QString &name : found) {
        if (!name.startsWith(QLatin1String(".photolib-")) || !name.contains(QLatin1String(".partial")))
            continue;
        const auto state = stat(name);
        if (state && state->regular)
            remove(name);
    }
}

std::optional<FileState> Destination::stat(const QString &path)
{
    const int folder = folderFd(folderOf(path), false);
    const QString name = nameOf(path);
    requireSafeStep(name, path);
    struct stat found = {};
    if (folder < 0)
        return std::nullopt;
    if (files.statAt(folder, name.toUtf8().constData(), &found) == 0)
        return stateOf(found);
    if (errno == ENOENT)
        return std::nullopt;
    throwDestinationError(errno, path);
}

UniqueFd Destination::openForReading(const QString &path)
{
    const auto before = stat(path);
    if (!before || !before->regular)
        throw FileProblem(before ? path + QStringLiteral(": not a plain file") : path + QStringLiteral(": not there"));
    const int folder = existingFolderFd(folderOf(path));
    // O_NONBLOCK: the file may have been replaced by a FIFO since.
    UniqueFd file(files.openAt(folder, nameOf(path).toUtf8().constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK, 0));
    struct stat found = {};
    if (!file || files.stat(file.get(), &found) != 0)
        throw FileProblem(path + QStringLiteral(": ") + errnoText(errno));
    if (!S_ISREG(found.st_mode))
        throw FileProblem(path + QStringLiteral(": not a plain file"));
    return file;
}

void Destination::makeFolder(const QString &folder)
{
    folderFd(folder, true);
}

bool Destination::publish(const QByteArray &temporaryName, const QString &path)
{
    requireSafeStep(nameOf(path), path);
    const QByteArray name = nameOf(path).toUtf8();
    const auto move = [&] {
        const int folder = folderFd(folderOf(path), true);
        return moveToFreeName(files, root.get(), temporaryName.constData(), folder, name.constData());
    };
    int moved = move();
    if (moved != 0 && errno == ENOENT) { // the folder was removed while it was kept open here
        opened.clear();
        moved = move();
    }
    if (moved == 0)
        return true;
    if (errno == EEXIST)
        return false;
    if (errno == EXDEV)
        throw FileProblem(
            QStringLiteral("another file system is mounted at %1; export into it on its own").arg(folderOf(path)));
    throwDestinationError(errno, path);
}

void Destination::unpublish(const QString &path, const QByteArray &temporaryName)
{
    const int folder = existingFolderFd(folderOf(path));
    if (moveToFreeName(files, folder, nameOf(path).toUtf8().constData(), root.get(), temporaryName.constData()) != 0)
        throwDestinationError(errno, path);
}

Destination::LinkResult Destination::link(const QString &from, const QString &to)
{
    requireSafeStep(nameOf(to), to);
    const int target = folderFd(folderOf(to), true);
    const int source = existingFolderFd(folderOf(from));
    if (files.linkAt(source, nameOf(from).toUtf8().constData(), target, nameOf(to).toUtf8().constData()) == 0)
        return LinkResult::Linked;
    switch (errno) {
    case EEXIST:
        return LinkResult::Taken;
    case EPERM:
    case EACCES:
    case EOPNOTSUPP:
    case ENOSYS:
    case EINVAL:
    case EMLINK:
    case EXDEV:
        return LinkResult::Impossible;
    default:
        throwDestinationError(errno, to);
    }
}

void Destination::remove(const QString &path)
{
    requireSafeStep(nameOf(path), path);
    const int folder = folderFd(folderOf(path), false);
    if (folder >= 0 && files.unlinkAt(folder, nameOf(path).toUtf8().constData(), 0) != 0 && errno != ENOENT)
        throwDestinationError(errno, path);
}

void Destination::removeEmptyFolder(const QString &path)
{
    requireSafeStep(nameOf(path), path);
    const int parent = folderFd(folderOf(path), false);
    opened.remove_if([&path](const OpenFolder &folder) { return folder.path == path; });
    if (parent < 0 || files.unlinkAt(parent, nameOf(path).toUtf8().constData(), AT_REMOVEDIR) == 0)
        return;
    if (errno != ENOENT && errno != ENOTEMPTY && errno != EEXIST && errno != ENOTDIR)
        throwDestinationError(errno, path);
}

void Destination::syncFolder(const QString &folder)
{
    // Some file systems cannot sync a folder; then there is nothing more that could be done.
    if (files.sync(existingFolderFd(folder)) != 0 && errno != EINVAL && errno != ENOTSUP)
        throwDestinationError(errno, folder);
}

void Destination::requireRoom(qint64 size, qint64 reserve)
{
    struct statvfs facts = {};
    if (files.statFileSystem(root.get(), &facts) != 0)
        throwDestinationError(errno, canonicalPath);
    if (facts.f_blocks == 0) // does not tell
        return;
    const auto available = static_cast<qint64>(facts.f_bavail) * static_cast<qint64>(facts.f_frsize);
    if (available - size < reserve)
        throwDestinationFull();
}

QByteArray Destination::temporaryName()
{
    return ".photolib-" + QByteArray::number(++lastTemporary) + ".partial";
}

} // namespace exporter
