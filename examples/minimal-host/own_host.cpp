// Everything that a host provides, over a plain folder. A real program puts its connection to the phone in the place
// of QFile. The library calls all this on the thread that called it.

#include "own_host.h"

#include <photolib/host/log.h>
#include <photolib/host/sql_utils.h>
#include <photolib/host/vdev.h>

#include <sqlite3.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdarg>
#include <cstdio>
#include <memory>

bool FolderDevice::isAvailable()
{
    return copies.isValid() && QFileInfo(folder).isDir();
}

// ------------------------------------------------------------------------------------------------------- device files

// The library only passes these two on: what is in them is the host's affair.
struct VDev {
    QString root; // of the device; null for this computer
};

struct VFile {
    QFile file;
};

namespace
{

// Paths on a device come from its database, which somebody else wrote: one must not lead out of the device's folder,
// neither with ".." nor through a symbolic link. Null when it does, or when there is no such file.
QString pathOnDevice(const VDev &device, const char *path)
{
    const QString root = QDir(device.root).canonicalPath();
    const QString real = QFileInfo(root + QLatin1Char('/') + QString::fromUtf8(path)).canonicalFilePath();
    return real.startsWith(root + QLatin1Char('/')) ? real : QString();
}

} // namespace

VDev *vDevOpen(VDevType type, const char *path)
{
    if (type == VDevLocal)
        return new VDev{QString()};
    // The device's name comes back in UTF-8 or in the local 8-bit encoding, which is UTF-8 on today's systems.
    if (!QFileInfo(QString::fromUtf8(path)).isDir())
        return nullptr;
    return new VDev{QString::fromUtf8(path)};
}

void vDevClose(VDev *device)
{
    delete device; // null is allowed
}

int vDevCreateDir(VDev *, const char *path)
{
    return QDir().mkpath(QString::fromUtf8(path)) ? 0 : -1; // asked for on this computer only
}

VFile *vFileOpen(VDev *device, const char *path, int mode)
{
    constexpr int reading = 0;
    const bool onDevice = !device->root.isNull();
    if (onDevice && mode != reading)
        return nullptr; // this host never writes to a device
    auto result = std::make_unique<VFile>();
    result->file.setFileName(onDevice ? pathOnDevice(*device, path) : QString::fromUtf8(path));
    const bool opened = result->file.open(mode == reading ? QIODevice::ReadOnly : QIODevice::WriteOnly);
    return opened ? result.release() : nullptr;
}

void vFileClose(VFile *file)
{
    delete file;
}

int vFileRead(VFile *file, void *buffer, int size)
{
    return int(file->file.read(static_cast<char *>(buffer), size)); // -1 on an error, 0 at the end
}

int vFileWrite(VFile *file, const void *buffer, int size)
{
    const qint64 count = file->file.write(static_cast<const char *>(buffer), size);
    return file->file.flush() ? int(count) : -1; // a full disk must show here: vFileClose() cannot tell
}

qint64 vFileSeek(VFile *file, qint64 offset, int origin)
{
    constexpr int end = 2;
    const qint64 position = origin == end ? file->file.size() + offset : offset;
    return file->file.seek(position) ? position : -1;
}

qint64 vFileTell(VFile *file)
{
    return file->file.pos();
}

// ------------------------------------------------------------------------------------------------------------- SQLite

int SqlUtils::openSqlite(const QString &path, sqlite3 **db)
{
    // For writing, too: SQLite completes the copy from its -wal file. Double-quoted texts stay allowed, as they are in
    // SQLite's usual configuration: the library's statements have some.
    int result = sqlite3_open_v2(path.toUtf8().constData(), db, SQLITE_OPEN_READWRITE, nullptr);
    // The database comes from outside: its views and triggers must not run functions with effects.
    if (result == SQLITE_OK)
        result = sqlite3_db_config(*db, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    if (result == SQLITE_OK)
        result = sqlite3_db_config(*db, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    if (result != SQLITE_OK) { // the library closes nothing then
        sqlite3_close(*db);
        *db = nullptr;
    }
    return result;
}

int SqlUtils::prepareSqlite(sqlite3 *db, const char *sql, int length, sqlite3_stmt **statement, const char **tail)
{
    return sqlite3_prepare_v2(db, sql, length, statement, tail);
}

// ---------------------------------------------------------------------------------------------------------------- log

void Log(const char *tag, int level, const char *format, ...)
{
    // Level 1 tells of progress, level 2 of an error. The arguments are gone after the call: format them now.
    std::fprintf(stderr, "log: %s %d ", tag, level);
    va_list arguments;
    va_start(arguments, format);
    std::vfprintf(stderr, format, arguments);
    va_end(arguments);
    std::fputc('\n', stderr);
}
