// A host that does nothing. Compiled by check_abi.sh only: its debug information holds everything that a host provides.

#include "photolib/host/iipod.h"
#include "photolib/host/log.h"
#include "photolib/host/sql_utils.h"
#include "photolib/host/vdev.h"

struct PHOTOLIB_HOST ProbeDevice final : IIPod {
    bool shouldStop() override;
    QString devicePath() override;
    bool isAvailable() override;
    QString localDataFolder() override;
};

bool ProbeDevice::shouldStop()
{
    return true;
}

QString ProbeDevice::devicePath()
{
    return QString();
}

bool ProbeDevice::isAvailable()
{
    return false;
}

QString ProbeDevice::localDataFolder()
{
    return QString();
}

PHOTOLIB_HOST bool callDevice(IIPod *device)
{
    return device->isAvailable();
}

VDev *vDevOpen(VDevType, const char *)
{
    return nullptr;
}

void vDevClose(VDev *) {}

int vDevCreateDir(VDev *, const char *)
{
    return -1;
}

VFile *vFileOpen(VDev *, const char *, int)
{
    return nullptr;
}

void vFileClose(VFile *) {}

int vFileRead(VFile *, void *, int)
{
    return -1;
}

int vFileWrite(VFile *, const void *, int)
{
    return -1;
}

qint64 vFileSeek(VFile *, qint64, int)
{
    return -1;
}

qint64 vFileTell(VFile *)
{
    return -1;
}

int SqlUtils::openSqlite(const QString &, sqlite3 **)
{
    return 1;
}

int SqlUtils::prepareSqlite(sqlite3 *, const char *, int, sqlite3_stmt **, const char **)
{
    return 1;
}

void Log(const char *, int, const char *, ...) {}
