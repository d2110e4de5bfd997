#include "devicehost/stale_folders.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace devicehost
{

namespace
{

constexpr char mark[] = ".photolib-in-use";
constexpr char unlockedMark[] = ".photolib-in-use.new";

struct FolderCloser {
    void operator()(DIR *folder) const { ::closedir(folder); }
};

std::vector<std::string> namesIn(const UniqueFd &folder)
{
    std::vector<std::string> names;
    UniqueFd again(::openat(folder.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const std::unique_ptr<DIR, FolderCloser> listing(again ? ::fdopendir(again.get()) : nullptr);
    if (listing == nullptr)
        return names;
    again.release(); // the listing closes it
    while (const dirent *const entry = ::readdir(listing.get()))
        names.emplace_back(entry->d_name);
    return names;
}

bool isFolderName(std::string_view name)
{
    constexpr std::string_view prefix = "photolib-";
    return name.size() == prefix.size() + 6 && name.substr(0, prefix.size()) == prefix;
}

bool isOwn(const UniqueFd &file, mode_t kind)
{
    struct stat info = {};
    return ::fstat(file.get(), &info) == 0 && (info.st_mode & S_IFMT) == kind && (info.st_mode & 077) == 0 &&
           info.st_uid == ::geteuid();
}

void emptyFolder(const UniqueFd &folder)
{
    for (const std::string &name : namesIn(folder))
        if (name != mark)
            ::unlinkat(folder.get(), name.c_str(), 0);
    for (const std::string &name : namesIn(folder))
        if (name != mark && name != "." && name != "..")
            return;
    ::unlinkat(folder.get(), mark, 0);
}

void removeIfStale(const UniqueFd &parent, const std::string &name)
{
    const UniqueFd folder(::openat(parent.get(), name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!folder || !isOwn(folder, S_IFDIR))
        return;
    const UniqueFd lock(::openat(folder.get(), mark, O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!lock || !isOwn(lock, S_IFREG) || ::flock(lock.get(), LOCK_EX | LOCK_NB) != 0)
        return;
    emptyFolder(folder);
    ::unlinkat(parent.get(), name.c_str(), AT_REMOVEDIR); // of an empty folder only
}

} // namespace

UniqueFd holdFolder(const QByteArray &folder)
{
    const UniqueFd place(::open(folder.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    UniqueFd lock(::openat(place.get(), unlockedMark, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    if (!lock)
        return {};
    // Under its own name it is never seen without the lock.
    if (::flock(lock.get(), LOCK_EX | LOCK_NB) == 0 && ::renameat(place.get(), unlockedMark, place.get(), mark) == 0)
        return lock;
    ::unlinkat(place.get(), unlockedMark, 0);
    return {};
}

void emptyHeldFolder(const QByteArray &folder)
{
    const UniqueFd opened(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (opened)
        emptyFolder(opened);
}

void removeStaleFolders(const QByteArray &parent)
{
    const UniqueFd place(::open(parent.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!place)
        return;
    for (const std::string &name : namesIn(place))
        if (isFolderName(name))
            removeIfStale(place, name);
}

} // namespace devicehost
