#ifndef EXPORTER_DEVICE_SOURCE_H
#define EXPORTER_DEVICE_SOURCE_H

#include "exporter/options.h"
#include "photolib/host/vdev.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>

class IIPod;

namespace exporter
{

/// A file of the device, open for reading. Must go before the DeviceSource that opened it is reopened.
class DeviceFile
{
public:
    DeviceFile(VFile *openFile, qint64 bytes) : file(openFile), fileSize(bytes) {}
    DeviceFile(DeviceFile &&other, qint64 bytes) : file(std::move(other.file)), fileSize(bytes) {}

    bool isOpen() const { return file != nullptr; }

    /// Bytes, as the device told when the file was opened.
    qint64 size() const { return fileSize; }

    /// Up to `size` bytes from the current position; 0 at the end. Throws DeviceProblem on an error.
    int read(char *buffer, int size);

private:
    struct Close {
        void operator()(VFile *open) const { vFileClose(open); }
    };
    std::unique_ptr<VFile, Close> file;
    qint64 fileSize;
};

/// The device, opened when it is first needed. One thread at a time.
class DeviceSource
{
public:
    DeviceSource(IIPod &device, const ExportOptions &exportOptions);

    /// Null when there is no such file on the device. Throws DeviceProblem when the file cannot be opened, or when the
    /// device does not answer; RunEnded when the device could not be opened several times in a row.
    std::unique_ptr<DeviceFile> open(const QString &path);

    /// Whether a file that is there for certain, the library's own database, can be opened now. A device that went away
    /// looks, in a mounted folder, like one without files.
    bool isAlive() const;

    /// Gives the device up, so that the next open() opens it again.
    void close() { device.reset(); }

    /// Has `attempt` tried once and then `retries` times more while it throws DeviceProblem, on a fresh device each
    /// time. The last DeviceProblem passes.
    void withRetries(const std::function<void()> &attempt);

private:
    struct Close {
        void operator()(VDev *open) const { vDevClose(open); }
    };

    void requireDevice();
    VFile *openNow(const QString &path) const;

    const ExportOptions &options;
    QByteArray name;
    std::unique_ptr<VDev, Close> device;
    int failuresInARow = 0;
};

} // namespace exporter

#endif
