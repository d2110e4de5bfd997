#include "devicehost/vdev/verror.h"

#include <cerrno>
#include <cstring>

namespace devicehost
{

QString errnoText(int code)
{
    char buffer[128] = {};
    return QString::fromLocal8Bit(strerror_r(code, buffer, sizeof buffer));
}

VError errnoError(int code)
{
    return {code, errnoText(code)};
}

bool isAbsence(const VError &error)
{
    return error.code == ENOENT || error.code == ENOTDIR;
}

} // namespace devicehost
