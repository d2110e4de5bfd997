#include "photolib/db/photos_db.h"

#include "photolib/host/handles.h"
#include "photolib/host/iipod.h"
#include "photolib/host/log.h"
#include "photolib/logging.h"

#include <memory>

using namespace photolib;

namespace
{

constexpr int blockSize = 0x400000;

// Everything before the last separator of either kind; the whole path when it has none.
QString folderOf(const QString &path)
{
    const int slash = path.lastIndexOf(QLatin1Char('/'), -1, Qt::CaseSensitive);
    const int backslash = path.lastIndexOf(QLatin1Char('\\'), -1, Qt::CaseSensitive);
    return path.left(qMax(slash, backslash));
}

void copyBlocks(VFile *source, VFile *destination, const bool &stop)
{
    const std::unique_ptr<char[]> block(new char[blockSize]);
    for (;;) {
        const int count = vFileRead(source, block.get(), blockSize);
        if (count <= 0 || stop || vFileWrite(destination, block.get(), count) != count)
            return;
    }
}

} // namespace

// Only the main file must be there; a library that was closed cleanly has no -wal and no -shm.
bool Photos_DB::copyDatabase(const QString &localFolder)
{
    const bool copied =
        copyDeviceFile(QLatin1String("/PhotoData/Photos.sqlite"), localFolder + QLatin1String("Photos.sqlite"));
    if (stop || !copied)
        return false;
    copyDeviceFile(QLatin1String("/PhotoData/Photos.sqlite-wal"), localFolder + QLatin1String("Photos.sqlite-wal"));
    if (stop)
        return false;
    copyDeviceFile(QLatin1String("/PhotoData/Photos.sqlite-shm"), localFolder + QLatin1String("Photos.sqlite-shm"));
    return !stop;
}

// False only when something cannot be opened. A copy that is not attempted is a success, and one that breaks off
// leaves a short file, which SQLite judges.
bool Photos_DB::copyDeviceFile(const QString &devicePath, const QString &localPath)
{
    if (!device || device->shouldStop() || devicePath.isEmpty() || localPath.isEmpty())
        return true;
    const QByteArray sourcePath = devicePath.toUtf8();
    const QByteArray destinationPath = localPath.toUtf8();

    DeviceHandle deviceSide(vDevOpen(VDevDevice, device->devicePath().toUtf8().constData()));
    if (!deviceSide) {
        Log(logTag, logError, "Can not open device");
        return false;
    }
    FileHandle source(vFileOpen(deviceSide.get(), sourcePath.constData(), openForReading));
    if (!source) {
        deviceSide.reset();
        Log(logTag, logError, "Can not open file: %s", sourcePath.constData());
        return false;
    }
    DeviceHandle localSide(vDevOpen(VDevLocal, ""));
    if (!localSide) {
        Log(logTag, logError, "Can not open folder: %s", destinationPath.constData());
        // Hosts count on these two staying open here.
        source.release();
        deviceSide.release();
        return false;
    }
    vDevCreateDir(localSide.get(), folderOf(localPath).toUtf8().constData());
    FileHandle destination(vFileOpen(localSide.get(), destinationPath.constData(), openForWriting));
    if (!destination) {
        source.reset();
        deviceSide.reset();
        localSide.reset();
        Log(logTag, logError, "Can not open file: %s", destinationPath.constData());
        return false;
    }
    copyBlocks(source.get(), destination.get(), stop);
    source.reset();
    deviceSide.reset();
    destination.reset();
    localSide.reset();
    return true;
}
