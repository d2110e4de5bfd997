#include "exporter/transfer_rate.h"

#include <cmath>

namespace exporter
{

namespace
{

constexpr qint64 shortestSpan = 500; // milliseconds; caches make what is shorter look too fast
constexpr double memory = 5000;      // milliseconds after which an old rate counts for a third

} // namespace

void TransferRate::note(qint64 bytes, qint64 milliseconds)
{
    if (!begun || bytes < lastBytes) {
        begun = true;
        lastBytes = bytes;
        lastTime = milliseconds;
        return;
    }
    const qint64 span = milliseconds - lastTime;
    if (span < shortestSpan)
        return;
    const double now = static_cast<double>(bytes - lastBytes) * 1000 / static_cast<double>(span);
    const double weight = rate > 0 ? std::exp(-static_cast<double>(span) / memory) : 0;
    rate = rate * weight + now * (1 - weight);
    lastBytes = bytes;
    lastTime = milliseconds;
}

qint64 TransferRate::secondsFor(qint64 bytes) const
{
    if (rate < 1)
        return -1;
    return static_cast<qint64>(std::ceil(static_cast<double>(bytes) / rate));
}

} // namespace exporter
