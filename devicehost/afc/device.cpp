#include "devicehost/afc/device.h"

#include "devicehost/afc/device_path.h"
#include "devicehost/afc/errors.h"
#include "devicehost/afc/file.h"
#include "devicehost/afc/lane.h"

#include <cerrno>
#include <climits>
#include <utility>

namespace devicehost::afc
{

namespace
{

class Device final : public VDev
{
public:
    explicit Device(std::shared_ptr<Lane> deviceLane) : lane(std::move(deviceLane)) {}

    std::unique_ptr<VFile> openFile(const char *name, int mode, Error *error) override
    {
        if (mode != 0) {
            *error = errnoError(EROFS);
            return nullptr;
        }
        const QByteArray path = devicePath(name);
        if (path.isEmpty())
            *error = explain(ErrorSource::Client, LeadsOut);
        else if (path.size() >= PATH_MAX)
            *error = errnoError(ENAMETOOLONG);
        else
            return File::open(lane, path, error);
        return nullptr;
    }

private:
    const std::shared_ptr<Lane> lane; ///< files share it: they may be left open when the device is closed
};

} // namespace

std::unique_ptr<VDev> openDevice(std::shared_ptr<Session> session, VError *error)
{
    auto lane = std::make_shared<Lane>(std::move(session));
    return lane->client(error) == nullptr ? nullptr : std::make_unique<Device>(std::move(lane));
}

} // namespace devicehost::afc
