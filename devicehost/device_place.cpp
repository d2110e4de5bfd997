#include "devicehost/device_place.h"

#include <filesystem>

namespace devicehost
{

namespace
{

namespace fs = std::filesystem;

// The absolute path, with symbolic links resolved as far as the path is there.
fs::path realPath(const QString &path)
{
    std::error_code error;
    const fs::path absolute = fs::absolute(path.toStdString(), error);
    const fs::path real = fs::weakly_canonical(absolute, error);
    return error ? absolute : real;
}

bool sameFolder(const fs::path &one, const fs::path &other)
{
    std::error_code error;
    return fs::equivalent(one, other, error) && !error;
}

// Whether `folder` is `path` or one of the folders above it.
bool holds(const fs::path &folder, fs::path path)
{
    for (;;) {
        if (sameFolder(folder, path))
            return true;
        const fs::path parent = path.parent_path();
        if (parent == path || parent.empty())
            return false;
        path = parent;
    }
}

// The device's folder; empty when it is not reached through one.
QString folderOf(const QString &device)
{
    for (const char *scheme : {"folder:", "backup:"}) {
        if (device.startsWith(QLatin1String(scheme)))
            return device.mid(static_cast<int>(qstrlen(scheme)));
    }
    return {};
}

} // namespace

Place placeOf(const QString &path, const QString &device)
{
    const QString folder = folderOf(device);
    if (folder.isEmpty())
        return Place::Apart;
    const fs::path deviceFolder = realPath(folder);
    const fs::path place = realPath(path);
    if (holds(deviceFolder, place))
        return Place::Within;
    return holds(place, deviceFolder) ? Place::Around : Place::Apart;
}

} // namespace devicehost
