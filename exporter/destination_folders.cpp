// How folders below the destination are reached.
#include "exporter/destination.h"
#include "exporter/errors.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>

namespace exporter
{

namespace
{

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW;
constexpr std::size_t openFolderLimit = 4;

struct CloseFolder {
    void operator()(DIR *folder) const { ::closedir(folder); }
};

QStringList readNames(UniqueFd fd, const QString &folder)
{
    const std::unique_ptr<DIR, CloseFolder> listing(::fdopendir(fd.get()));
    if (listing == nullptr)
        throwDestinationError(errno, folder);
    fd.release();
    QStringList result;
    for (;;) {
        errno = 0;
        const dirent *entry = ::readdir(listing.get());
        if (entry == nullptr && errno != 0)
            throwDestinationError(errno, folder);
        if (entry == nullptr)
            return result;
        const QString name = QString::fromUtf8(static_cast<const char *>(entry->d_name));
        if (name != QLatin1String(".") && name != QLatin1String(".."))
            result.append(name);
    }
}

} // namespace

QStringList Destination::names(const QString &folder)
{
    const int fd = root ? folderFd(folder, false) : -1;
    if (fd < 0)
        return {};
    UniqueFd own(files.openAt(fd, ".", folderFlags, 0));
    if (!own)
        throwDestinationError(errno, folder);
    return readNames(std::move(own), folder);
}

int Destination::existingFolderFd(const QString &folder)
{
    const int fd = folderFd(folder, false);
    if (fd < 0)
        throw FileProblem(QStringLiteral("the folder %1 has vanished").arg(folder));
    return fd;
}

int Destination::folderFd(const QString &folder, bool make)
{
    if (!root)
        return -1;
    if (folder.isEmpty())
        return root.get();
    for (auto known = opened.begin(); known != opened.end(); ++known) {
        if (known->path == folder) {
            opened.splice(opened.begin(), opened, known);
            return opened.front().fd.get();
        }
    }
    UniqueFd current;
    QString path;
    const QStringList steps = folder.split(QLatin1Char('/'));
    for (const QString &name : steps) {
        path += path.isEmpty() ? name : QLatin1Char('/') + name;
        current = openStep(current ? current.get() : root.get(), name, path, make);
        if (!current)
            return -1;
    }
    opened.push_front({folder, std::move(current)});
    if (opened.size() > openFolderLimit)
        opened.pop_back();
    return opened.front().fd.get();
}

UniqueFd Destination::openStep(int parent, const QString &name, const QString &path, bool make)
{
    requireSafeStep(name, path);
    const QByteArray bytes = name.toUtf8();
    UniqueFd step(files.openAt(parent, bytes.constData(), folderFlags, 0));
    if (!step && errno == ENOENT && make) {
        if (files.makeFolderAt(parent, bytes.constData()) != 0 && errno != EEXIST)
            throwDestinationError(errno, path);
        files.sync(parent); // where this fails, the folder's own files will tell
        step = UniqueFd(files.openAt(parent, bytes.constData(), folderFlags, 0));
    }
    if (!step && errno == ENOENT && !make)
        return step;
    if (!step)
        throwNoFolder(parent, name, path, errno);
    return step;
}

void Destination::throwNoFolder(int parent, const QString &name, const QString &path, int code)
{
    struct stat found = {};
    if (files.statAt(parent, name.toUtf8().constData(), &found) == 0) {
        if (S_ISLNK(found.st_mode))
            throw FileProblem(
                QStringLiteral("%1 in the destination is a symbolic link, and none is followed; move it away "
                               "or put a folder in its place")
                    .arg(path));
        if (!S_ISDIR(found.st_mode))
            throw FileProblem(QStringLiteral("%1 in the destination is no folder; move it away").arg(path));
    }
    throwDestinationError(code, path);
}

} // namespace exporter
