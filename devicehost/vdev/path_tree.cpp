#include "devicehost/vdev/path_tree.h"

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <string>
#include <string_view>

namespace devicehost
{

namespace
{

std::atomic<bool> walkForced{false};

/// Cuts the next component off the front; empty at the end.
std::string_view takeComponent(std::string_view *path)
{
    const std::size_t begin = path->find_first_not_of('/');
    if (begin == std::string_view::npos)
        return {};
    const std::size_t end = path->find('/', begin);
    const std::string_view component = path->substr(begin, end - begin);
    path->remove_prefix(end == std::string_view::npos ? path->size() : end);
    return component;
}

bool climbs(const char *path)
{
    std::string_view rest(path);
    for (std::string_view part = takeComponent(&rest); !part.empty(); part = takeComponent(&rest))
        if (part == "..")
            return true;
    return false;
}

/// Opens again what an O_PATH descriptor stands for: the very same file, even if its name was replaced meanwhile.
UniqueFd reopen(const UniqueFd &file, int flags)
{
    std::array<char, 32> name = {};
    std::snprintf(name.data(), name.size(), "/proc/self/fd/%d", file.get());
    return UniqueFd(::open(name.data(), flags | O_CLOEXEC));
}

VError irregularFile(mode_t mode)
{
    if (S_ISDIR(mode))
        return errnoError(EISDIR);
    return {EINVAL, S_ISLNK(mode) ? QStringLiteral("it is a symbolic link") : QStringLiteral("it is no regular file")};
}

int makeFolder(int parent, const char *name)
{
    if (::mkdirat(parent, name, 0700) == 0)
        return 0;
    const int code = errno;
    struct stat info = {};
    if (code == EEXIST && ::fstatat(parent, name, &info, 0) == 0)
        return S_ISDIR(info.st_mode) ? 0 : ENOTDIR;
    return code;
}

} // namespace

void forceComponentWalk(bool forced)
{
    walkForced = forced;
}

PathTree PathTree::below(const char *rootPath, VError *error, Links links)
{
    UniqueFd folder(::open(rootPath, O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!folder || ::faccessat(folder.get(), ".", X_OK, AT_EACCESS) != 0) {
        *error = errnoError(errno);
        return PathTree(UniqueFd(), true);
    }
    return PathTree(std::move(folder), true, links);
}

UniqueFd PathTree::open(const char *path, int flags, mode_t mode, VError *error) const
{
    if (confined && climbs(path)) {
        *error = {EXDEV, QStringLiteral("the name leads out of the device's folder")};
        return {};
    }
    UniqueFd file = confined ? openBelow(path, flags, mode) : UniqueFd(::open(path, flags | O_CLOEXEC, mode));
    if (!file)
        *error = errnoError(errno);
    return file;
}

UniqueFd PathTree::openBelow(const char *path, int flags, mode_t mode) const
{
    open_how how = {};
    how.flags = static_cast<__u64>(flags | O_CLOEXEC);
    how.mode = (flags & O_CREAT) != 0 ? mode : 0;
    how.resolve = RESOLVE_IN_ROOT | RESOLVE_NO_MAGICLINKS;
    if (links == Links::Refused)
        how.resolve |= RESOLVE_NO_SYMLINKS;
    if (walkForced)
        return walk(path, flags, mode);
    // EAGAIN: the tree was changed while the name was looked up, and the kernel would not vouch for the result.
    for (int attempt = 0; attempt < 16; ++attempt) {
        const long fd = ::syscall(SYS_openat2, root.get(), path, &how, sizeof how);
        if (fd >= 0)
            return UniqueFd(static_cast<int>(fd));
        if (errno == ENOSYS || errno == EPERM) // no such call, or a sandbox that forbids it
            return walk(path, flags, mode);
        if (errno != EAGAIN)
            break;
    }
    return {};
}

UniqueFd PathTree::walk(const char *path, int flags, mode_t mode) const
{
    std::string_view rest(path);
    std::string_view name = takeComponent(&rest);
    UniqueFd folder(::openat(root.get(), ".", O_PATH | O_DIRECTORY | O_CLOEXEC));
    while (folder) {
        std::string_view ahead = rest;
        const bool last = takeComponent(&ahead).empty();
        const std::string component = name.empty() ? std::string(".") : std::string(name);
        if (last)
            return UniqueFd(::openat(folder.get(), component.c_str(), flags | O_NOFOLLOW | O_CLOEXEC, mode));
        folder = UniqueFd(::openat(folder.get(), component.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        name = takeComponent(&rest);
    }
    return {};
}

UniqueFd PathTree::openForReading(const char *path, VError *error) const
{
    const UniqueFd found = open(path, O_PATH, 0, error);
    if (!found)
        return {};
    struct stat info = {};
    if (::fstat(found.get(), &info) != 0) {
        *error = errnoError(errno);
        return {};
    }
    if (!S_ISREG(info.st_mode)) {
        *error = irregularFile(info.st_mode);
        return {};
    }
    UniqueFd file = reopen(found, O_RDONLY | O_NONBLOCK | O_NOCTTY);
    if (!file) // ENOENT would say that the device has no such file
        *error = errno == ENOENT ? VError{EIO, QStringLiteral("/proc is not mounted")} : errnoError(errno);
    return file;
}

UniqueFd PathTree::openForWriting(const char *path, VError *error) const
{
    // Emptied after the look at its kind only, so that nothing but a regular file is ever changed.
    UniqueFd file = open(path, O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY, 0600, error);
    struct stat info = {};
    if (!file)
        return {};
    if (::fstat(file.get(), &info) == 0 && !S_ISREG(info.st_mode)) {
        *error = irregularFile(info.st_mode);
        return {};
    }
    if (::ftruncate(file.get(), 0) != 0) {
        *error = errnoError(errno);
        return {};
    }
    return file;
}

int PathTree::createFolder(const char *path) const
{
    if (confined && climbs(path))
        return EXDEV;
    std::string_view rest(path);
    std::string done = !confined && *path == '/' ? "/" : "";
    int result = *path == '\0' ? ENOENT : 0;
    for (std::string_view name = takeComponent(&rest); result == 0 && !name.empty(); name = takeComponent(&rest)) {
        VError error;
        const UniqueFd parent = open(done.empty() ? "." : done.c_str(), O_PATH | O_DIRECTORY, 0, &error);
        result = parent ? makeFolder(parent.get(), std::string(name).c_str()) : error.code;
        done.append(name).append("/");
    }
    return result;
}

} // namespace devicehost
