#include "contract_host.h"

#include "photolib/host/log.h"
#include "photolib/host/sql_utils.h"
#include "photolib/host/vdev.h"

#include <QDir>
#include <QFile>

#include <sqlite3.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <memory>

struct VDev {
    VDevType type;
};

struct VFile {
    QByteArray content;           // of a file of the device
    int position = 0;             // in it
    std::unique_ptr<QFile> local; // or the file on this computer
};

namespace
{
ContractHost *alive = nullptr;
}

ContractHost::ContractHost()
{
    alive = this;
}

ContractHost::~ContractHost()
{
    alive = nullptr;
}

ContractHost *ContractHost::current()
{
    return alive;
}

VDev *vDevOpen(VDevType type, const char *)
{
    ++alive->openHandles;
    return new VDev{type};
}

void vDevClose(VDev *device)
{
    alive->openHandles -= device ? 1 : 0;
    delete device;
}

int vDevCreateDir(VDev *, const char *path)
{
    return QDir().mkpath(QString::fromUtf8(path)) ? 0 : -1;
}

VFile *vFileOpen(VDev *device, const char *path, int mode)
{
    auto file = std::make_unique<VFile>();
    if (device->type == VDevLocal) {
        file->local = std::make_unique<QFile>(QString::fromUtf8(path));
        if (!file->local->open(mode == 1 ? QIODevice::WriteOnly : QIODevice::ReadOnly))
            return nullptr;
    } else {
        const auto found = alive->deviceFiles.constFind(path);
        if (mode != 0 || found == alive->deviceFiles.constEnd())
            return nullptr;
        file->content = *found;
    }
    ++alive->openHandles;
    return file.release();
}

void vFileClose(VFile *file)
{
    --alive->openHandles;
    delete file;
}

int vFileRead(VFile *file, void *buffer, int size)
{
    const int count = std::min(size, file->content.size() - file->position);
    std::memcpy(buffer, file->content.constData() + file->position, static_cast<std::size_t>(count));
    file->position += count;
    return count;
}

int vFileWrite(VFile *file, const void *buffer, int size)
{
    return static_cast<int>(file->local->write(static_cast<const char *>(buffer), size));
}

qint64 vFileSeek(VFile *file, qint64 offset, int origin)
{
    file->position = static_cast<int>(offset) + (origin == 2 ? file->content.size() : 0);
    return file->position;
}

qint64 vFileTell(VFile *file)
{
    return file->position;
}

int SqlUtils::openSqlite(const QString &path, sqlite3 **db)
{
    const int result = sqlite3_open_v2(path.toUtf8().constData(), db, SQLITE_OPEN_READWRITE, nullptr);
    if (result != SQLITE_OK)
        sqlite3_close(*db);
    return result;
}

int SqlUtils::prepareSqlite(sqlite3 *db, const char *sql, int length, sqlite3_stmt **statement, const char **tail)
{
    return sqlite3_prepare_v2(db, sql, length, statement, tail);
}

void Log(const char *tag, int level, const char *format, ...)
{
    char message[1024];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(message, sizeof message, format, arguments);
    va_end(arguments);
    alive->log.append(
        QStringLiteral("%1 %2 %3").arg(QString::fromUtf8(tag)).arg(level).arg(QString::fromUtf8(message)));
}
