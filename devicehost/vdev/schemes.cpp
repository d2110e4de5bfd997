#include "devicehost/vdev/schemes.h"

#include "devicehost/vdev/backup_device.h"
#include "devicehost/vdev/folder.h"

#include <cerrno>
#include <string_view>

namespace devicehost
{

namespace
{

struct Scheme {
    std::string_view prefix;
    std::unique_ptr<VDev> (*open)(const char *rest, VError *error);
};

/// Every kind of device that a name can stand for.
constexpr Scheme schemes[] = {
    {"backup:", &openBackupDevice},
    {"folder:", &openFolderDevice},
};

} // namespace

std::unique_ptr<VDev> openDevice(const char *name, VError *error)
{
    const std::string_view text(name);
    for (const Scheme &scheme : schemes)
        if (text.substr(0, scheme.prefix.size()) == scheme.prefix)
            return scheme.open(name + scheme.prefix.size(), error);
    *error = {EPROTONOSUPPORT, QStringLiteral("there is no such kind of device")};
    return nullptr;
}

} // namespace devicehost
