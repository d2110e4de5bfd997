#include "devicehost/vdev/backend.h"

#include <cerrno>

qint64 VFile::read(char *, qint64, Error *error)
{
    *error = devicehost::errnoError(EBADF);
    return -1;
}

qint64 VFile::write(const char *, qint64, Error *error)
{
    *error = devicehost::errnoError(EROFS);
    return -1;
}

int VDev::createDir(const char *)
{
    return EROFS;
}
