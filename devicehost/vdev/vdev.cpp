#include "photolib/host/vdev.h"

#include "devicehost/advice.h"
#include "devicehost/host_state.h"
#include "devicehost/open_error.h"
#include "devicehost/vdev/backend.h"
#include "devicehost/vdev/local.h"
#include "devicehost/vdev/schemes.h"

#include <algorithm>
#include <cerrno>
#include <utility>

using devicehost::FileWatch;
using devicehost::HostState;
using devicehost::VError;

namespace
{

/// The interface tells of a failure by a null handle only.
thread_local VError lastFailure;

VError tooLarge()
{
    return {EFBIG, QStringLiteral("it is larger than any photo library")};
}

/// A request of no bytes needs no buffer.
bool isUsableRequest(const void *buffer, int size)
{
    return size >= 0 && (buffer != nullptr || size == 0);
}

std::unique_ptr<VDev> openAnnouncedDevice(const char *name)
{
    const std::shared_ptr<HostState> host = devicehost::hosts::forDevice(name);
    // The name may have lost characters in the local encoding; the host knows it in full.
    const QByteArray fullName = host == nullptr ? QByteArray(name) : host->devicePath().toUtf8();
    VError error;
    std::unique_ptr<VDev> device = devicehost::openDevice(fullName.constData(), host, &error);
    if (device != nullptr)
        device->host = host;
    else if (host != nullptr && !host->stopRequested())
        host->recordFailure(QStringLiteral("the device %1 cannot be opened: %2; %3")
                                .arg(host->devicePath(), error.text, devicehost::deviceAdvice(error)),
                            error.deviceUnreachable);
    return device;
}

} // namespace

devicehost::OpenError devicehost::lastOpenError()
{
    const bool absent = isAbsence(lastFailure);
    const bool hasAdvice = !absent && lastFailure.code != 0;
    return {absent, lastFailure.text, hasAdvice ? deviceAdvice(lastFailure) : QString()};
}

VDev *vDevOpen(VDevType type, const char *path)
{
    const char *name = path == nullptr ? "" : path;
    VError error;
    switch (type) {
    case VDevLocal:
        return devicehost::openLocalDevice(name, &error).release();
    case VDevDevice:
        return openAnnouncedDevice(name).release();
    }
    return nullptr;
}

void vDevClose(VDev *device)
{
    delete device;
}

int vDevCreateDir(VDev *device, const char *path)
{
    return device == nullptr || path == nullptr ? EINVAL : device->createDir(path);
}

VFile *vFileOpen(VDev *device, const char *path, int mode)
{
    if (device == nullptr || path == nullptr || *path == '\0' || (mode != 0 && mode != 1)) {
        lastFailure = devicehost::errnoError(EINVAL);
        return nullptr;
    }
    FileWatch watch = device->isLocal ? FileWatch::onLocal(devicehost::hosts::forLocalPath(path), path)
                                      : FileWatch::onDevice(device->host, path);
    VError error;
    std::unique_ptr<VFile> file = device->openFile(path, mode, &error);
    if (file != nullptr && watch.isTooLarge(file->size())) {
        file.reset();
        error = tooLarge();
    }
    if (file != nullptr) {
        file->watch = std::move(watch);
    } else {
        watch.openFailed(error);
        lastFailure = error;
    }
    return file.release();
}

void vFileClose(VFile *file)
{
    const std::unique_ptr<VFile> owned(file);
    VError error;
    if (file != nullptr && !file->finish(&error))
        file->watch.writeFailed(error);
}

int vFileRead(VFile *file, void *buffer, int size)
{
    if (file == nullptr || !isUsableRequest(buffer, size))
        return -1;
    char *const target = static_cast<char *>(buffer);
    qint64 done = 0;
    bool atEnd = false;
    while (done < size && !atEnd) {
        if (file->watch.stopRequested())
            return -1;
        VError error;
        const qint64 count = file->read(target + done, std::min<qint64>(size - done, file->pieceSize()), &error);
        if (count < 0 && error.code == EINTR)
            continue;
        if (count < 0) { // a part is no use: the caller would take it for the end of the file
            file->watch.readFailed(error);
            return -1;
        }
        atEnd = count == 0;
        done += count;
        file->watch.advanced(count, file->size(), atEnd);
        if (file->watch.isTooLarge(-1)) { // it grows while it is read
            file->watch.readFailed(tooLarge());
            return -1;
        }
    }
    return static_cast<int>(done);
}

int vFileWrite(VFile *file, const void *buffer, int size)
{
    if (file == nullptr || !isUsableRequest(buffer, size))
        return -1;
    const char *const source = static_cast<const char *>(buffer);
    qint64 done = 0;
    while (done < size) {
        VError error;
        const qint64 count = file->write(source + done, size - done, &error);
        if (count < 0 && error.code == EINTR)
            continue;
        if (count <= 0) {
            file->watch.writeFailed(count == 0 ? devicehost::errnoError(EIO) : error);
            return -1;
        }
        done += count;
    }
    return static_cast<int>(done);
}

qint64 vFileSeek(VFile *file, qint64 offset, int origin)
{
    return file == nullptr ? -1 : file->seek(offset, origin);
}

qint64 vFileTell(VFile *file)
{
    return file == nullptr ? -1 : file->tell();
}
