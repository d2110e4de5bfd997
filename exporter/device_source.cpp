#include "exporter/device_source.h"

#include "exporter/errors.h"
#include "photolib/host/iipod.h"

namespace exporter
{

namespace
{

constexpr int openFailureLimit = 3;

// The library was read from it, so it is on every device.
QString landmark()
{
    return QStringLiteral("/PhotoData/Photos.sqlite");
}

} // namespace

int DeviceFile::read(char *buffer, int size)
{
    const int count = vFileRead(file.get(), buffer, size);
    if (count < 0 || count > size)
        throw DeviceProblem(QStringLiteral("the device answered with an error while the file was read"));
    return count;
}

DeviceSource::DeviceSource(IIPod &pod, const ExportOptions &exportOptions)
    : options(exportOptions), name(pod.devicePath().toUtf8())
{
}

void DeviceSource::requireDevice()
{
    if (device != nullptr)
        return;
    device.reset(vDevOpen(VDevDevice, name.constData()));
    if (device != nullptr) {
        if (isAlive()) {
            failuresInARow = 0;
            return;
        }
        device.reset();
    }
    if (++failuresInARow >= openFailureLimit)
        throw RunEnded(RunEnd::DeviceGone,
                       QStringLiteral("The device cannot be opened any more. Connect it again, unlock it, and run the "
                                      "export again: it goes on where it stopped."));
    throw DeviceProblem(QStringLiteral("the device cannot be opened"));
}

VFile *DeviceSource::openNow(const QString &path) const
{
    return vFileOpen(device.get(), path.toUtf8().constData(), 0);
}

bool DeviceSource::isAlive() const
{
    return device != nullptr && DeviceFile(openNow(landmark()), 0).isOpen();
}

std::unique_ptr<DeviceFile> DeviceSource::open(const QString &path)
{
    requireDevice();
    VFile *const opened = openNow(path);
    if (opened == nullptr) {
        const OpenFailure failure = options.lastOpenFailure ? options.lastOpenFailure() : OpenFailure();
        if (failure.absent)
            return nullptr;
        throw DeviceProblem(failure.text.isEmpty() ? QStringLiteral("the device refuses to open the file")
                                                   : failure.text);
    }
    DeviceFile plain(opened, 0);
    const qint64 size = vFileSeek(opened, 0, 2);
    if (size < 0 || vFileTell(opened) != size || vFileSeek(opened, 0, 0) != 0)
        throw DeviceProblem(QStringLiteral("the device does not tell the size of the file"));
    return std::make_unique<DeviceFile>(std::move(plain), size);
}

void DeviceSource::withRetries(const std::function<void()> &attempt)
{
    for (int left = options.retries;; --left) {
        try {
            attempt();
            return;
        } catch (const DeviceProblem &) {
            if (left <= 0)
                throw;
        }
        close();
    }
}

} // namespace exporter
