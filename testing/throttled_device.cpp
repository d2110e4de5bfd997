#include "testing/throttled_device.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace testkit
{

ThrottledDevice::ThrottledDevice(FakeDevice &throttled, qint64 bytesPerSecond)
    : device(throttled), session(throttled.hostSession()), below(*session.top()), rate(bytesPerSecond)
{
    session.setTop(this);
}

ThrottledDevice::~ThrottledDevice()
{
    session.setTop(&below);
}

void ThrottledDevice::requestStop()
{
    device.setShouldStop(true);
    stopped = true;
}

void ThrottledDevice::perform(Operation &operation)
{
    if (operation.kind == OperationKind::Read && operation.fileSystem == VDevDevice)
        readPieces(operation);
    else
        below.perform(operation);
}

void ThrottledDevice::readPieces(Operation &operation)
{
    const Operation whole = operation;
    qint64 done = 0;
    bool atEnd = false;
    while (done < whole.size && !atEnd) {
        if (stopped) {
            operation = whole;
            operation.fail();
            return;
        }
        operation.destination = static_cast<char *>(whole.destination) + done;
        operation.size = static_cast<int>(std::min<qint64>(whole.size - done, pieceSize));
        below.perform(operation);
        const qint64 count = std::max<qint64>(operation.result, 0);
        readBytes += count;
        takeTimeFor(count);
        if (stopByte >= 0 && readBytes >= stopByte && !stopped)
            requestStop(); // while the piece is on its way
        if (stopped)
            lateBytes += count;
        atEnd = count == 0;
        done += count;
    }
    operation = whole;
    operation.result = done;
}

void ThrottledDevice::takeTimeFor(qint64 bytes) const
{
    constexpr std::chrono::milliseconds slice(5);
    const auto end = std::chrono::steady_clock::now() + std::chrono::microseconds(bytes * 1'000'000 / rate);
    for (auto now = std::chrono::steady_clock::now(); now < end; now = std::chrono::steady_clock::now())
        std::this_thread::sleep_for(std::min<std::chrono::nanoseconds>(slice, end - now));
}

} // namespace testkit
