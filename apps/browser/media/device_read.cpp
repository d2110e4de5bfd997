#include "apps/browser/media/device_read.h"

#include "apps/browser/library/device_presence.h"
#include "devicehost/open_error.h"
#include "exporter/asset_files.h"
#include "photolib/host/iipod.h"
#include "photolib/host/vdev.h"
#include "photolib/photo_item.h"

#include <memory>
#include <vector>

namespace browser
{

namespace
{

constexpr int blockSize = 1024 * 1024;

struct Close {
    void operator()(VDev *device) const { vDevClose(device); }
    void operator()(VFile *file) const { vFileClose(file); }
};
using Device = std::unique_ptr<VDev, Close>;
using File = std::unique_ptr<VFile, Close>;

File openFile(const Device &device, const QString &path)
{
    return File(vFileOpen(device.get(), path.toUtf8().constData(), 0));
}

Device openDevice(IIPod &host)
{
    return Device(vDevOpen(VDevDevice, host.devicePath().toLocal8Bit().constData()));
}

qint64 sizeOf(const File &file)
{
    const qint64 size = vFileSeek(file.get(), 0, 2);
    return size >= 0 && vFileSeek(file.get(), 0, 0) == 0 ? size : -1;
}

ReadResult whyNotOpened(const Device &device)
{
    const devicehost::OpenError error = devicehost::lastOpenError();
    if (!hasPhotoDatabase(device.get()))
        return {ReadEnd::DeviceGone, {}};
    if (error.absent)
        return {ReadEnd::Absent, {}};
    return {ReadEnd::Failed,
            error.advice.isEmpty() ? error.text : QStringLiteral("%1; %2").arg(error.text, error.advice)};
}

} // namespace

QString originalPathOf(const photoItem &photo)
{
    return exporter::originalPath(photo);
}

QStringList renderedPathsOf(const photoItem &photo)
{
    return photo.hasAdjustments == 0 ? QStringList() : exporter::companionPaths(photo, exporter::Role::Edited);
}

FileLook lookAtDeviceFile(IIPod &host, const QString &path)
{
    const Device device = openDevice(host);
    if (!device)
        return {ReadEnd::DeviceGone};
    const File file = openFile(device, path);
    if (!file)
        return {whyNotOpened(device).end};
    const qint64 size = sizeOf(file);
    return {size < 0 ? ReadEnd::Failed : ReadEnd::Complete, size};
}

ReadResult readDeviceFile(IIPod &host, const QString &path, const BlockReceiver &receive)
{
    const Device device = openDevice(host);
    if (!device)
        return {ReadEnd::DeviceGone, {}};
    const File file = openFile(device, path);
    if (!file)
        return whyNotOpened(device);
    const qint64 total = sizeOf(file);
    if (total < 0)
        return {hasPhotoDatabase(device.get()) ? ReadEnd::Failed : ReadEnd::DeviceGone, {}};
    if (!receive(nullptr, 0, total))
        return {ReadEnd::GivenUp, {}};
    std::vector<char> block(blockSize);
    for (qint64 done = 0; done < total;) {
        const int count = vFileRead(file.get(), block.data(), blockSize);
        if (count <= 0 || count > blockSize)
            return {hasPhotoDatabase(device.get()) ? ReadEnd::Failed : ReadEnd::DeviceGone, {}};
        done += count;
        if (!receive(block.data(), count, total))
            return {ReadEnd::GivenUp, {}};
    }
    return {};
}

} // namespace browser
