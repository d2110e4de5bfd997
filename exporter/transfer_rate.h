#ifndef EXPORTER_TRANSFER_RATE_H
#define EXPORTER_TRANSFER_RATE_H

#include <QtGlobal>

namespace exporter
{

/// How fast bytes come, smoothed over some seconds so that it can be read.
class TransferRate
{
public:
    /// So many bytes are done at this time, in milliseconds on any clock that only goes forward.
    void note(qint64 bytes, qint64 milliseconds);

    /// Begins anew, as for another kind of work.
    void reset() { *this = TransferRate(); }

    /// 0 until there is enough to tell.
    qint64 bytesPerSecond() const { return static_cast<qint64>(rate); }

    /// For so many bytes more; -1 when it cannot be told.
    qint64 secondsFor(qint64 bytes) const;

private:
    bool begun = false;
    qint64 lastBytes = 0;
    qint64 lastTime = 0;
    double rate = 0;
};

} // namespace exporter

#endif
