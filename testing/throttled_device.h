#ifndef TESTING_THROTTLED_DEVICE_H
#define TESTING_THROTTLED_DEVICE_H

#include "testing/fake_device.h"
#include "testing/operation_layer.h"

#include <atomic>
#include <functional>

namespace testkit
{

/// Lets the reads from a device take as long as on a slow connection, in pieces of 128 KiB, and end between two of
/// them when a stop is requested, as those of the reference host do. Layers lie over one another as those of
/// FaultyDevice; this one must go before the device.
class ThrottledDevice final : public OperationLayer
{
public:
    static constexpr qint64 pieceSize = 128 * 1024;

    ThrottledDevice(FakeDevice &device, qint64 bytesPerSecond);
    ThrottledDevice(const ThrottledDevice &) = delete;
    ThrottledDevice &operator=(const ThrottledDevice &) = delete;
    ~ThrottledDevice();

    /// From now on shouldStop() answers true, and reads from the device end with an error. May be called from any
    /// thread.
    void requestStop();

    /// Requests a stop while the piece is read that ends at or behind this many bytes, counted over all files from the
    /// making of this object on.
    void stopAtByte(qint64 byte) { stopByte = byte; }

    /// Bytes that the device gave, and those among them that it gave when a stop had been requested.
    qint64 bytesRead() const { return readBytes; }
    qint64 bytesReadAfterStop() const { return lateBytes; }

    void perform(Operation &operation) override;

private:
    void readPieces(Operation &operation);
    void takeTimeFor(qint64 bytes) const;

    FakeDevice &device;
    HostSession &session;
    OperationLayer &below;
    const qint64 rate;
    std::atomic<bool> stopped{false};
    std::atomic<qint64> stopByte{-1};
    std::atomic<qint64> readBytes{0};
    std::atomic<qint64> lateBytes{0};
};

} // namespace testkit

#endif
