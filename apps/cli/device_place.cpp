#include "apps/cli/device_place.h"

#include "apps/cli/failure.h"
#include "apps/cli/messages.h"

namespace photocli
{

void refuseToWriteToDevice(const QString &path, const QString &device)
{
    if (placeOf(path, device) == Place::Within)
        throw Failure{ExitUsage, QStringLiteral("%1 lies in the device's own folder, to which nothing is ever written; "
                                                "name a place outside of it")
                                     .arg(quoted(path))};
}

} // namespace photocli
