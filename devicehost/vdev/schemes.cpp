#include "devicehost/vdev/schemes.h"

#include "devicehost/afc/scheme.h"
#include "devicehost/vdev/backup_device.h"
#include "devicehost/vdev/folder.h"

#include <cerrno>
#include <string_view>

namespace devicehost
{

namespace
{

std::unique_ptr<VDev> openFolder(const char *root, const std::shared_ptr<HostState> &, VError *error)
{
    return openFolderDevice(root, error);
}

struct Scheme {
    std::string_view prefix;
    std::unique_ptr<VDev> (*open)(const char *rest, const std::shared_ptr<HostState> &host, VError *error);
};

/// Every kind of device that a name can stand for.
constexpr Scheme schemes[] = {
    {"afc:", &openUsbDevice},
    {"backup:", &openBackupDevice},
    {"folder:", &openFolder},
};

} // namespace

std::unique_ptr<VDev> openDevice(const char *name, const std::shared_ptr<HostState> &host, VError *error)
{
    const std::string_view text(name);
    for (const Scheme &scheme : schemes)
        if (text.substr(0, scheme.prefix.size()) == scheme.prefix)
            return scheme.open(name + scheme.prefix.size(), host, error);
    *error = {EPROTONOSUPPORT, QStringLiteral("there is no such kind of device")};
    return nullptr;
}

} // namespace devicehost
