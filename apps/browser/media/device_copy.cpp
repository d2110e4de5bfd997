#include "apps/browser/media/device_copy.h"

#include "apps/browser/media/device_read.h"
#include "apps/browser/media/free_space.h"

#include <QFile>
#include <QFileInfo>

namespace browser
{

namespace
{

constexpr qint64 roomLeftFree = 64 * 1024 * 1024; // bytes

CopyEnd copyEnd(ReadEnd end)
{
    switch (end) {
    case ReadEnd::Complete:
        return CopyEnd::Complete;
    case ReadEnd::Absent:
        return CopyEnd::Absent;
    case ReadEnd::Failed:
        return CopyEnd::ReadFailed;
    case ReadEnd::DeviceGone:
        return CopyEnd::DeviceGone;
    case ReadEnd::GivenUp:
        return CopyEnd::Cancelled;
    }
    return CopyEnd::ReadFailed;
}

// Writes what is read, and remembers why it wants no more.
class Receiver
{
public:
    Receiver(QFile &target, const CopyProgress &toTell) : file(target), progress(toTell) {}

    bool take(const char *block, int size, qint64 total)
    {
        if (size == 0) {
            const qint64 available = freeSpace(QFileInfo(file).path());
            if (available >= 0 && available < total + roomLeftFree)
                return refuse(CopyEnd::NoRoom);
        }
        if (size != 0 && file.write(block, size) != size)
            return refuse(CopyEnd::CannotWrite);
        done += size;
        return progress(done, total) || refuse(CopyEnd::Cancelled);
    }

    CopyEnd refusal = CopyEnd::Cancelled;

private:
    bool refuse(CopyEnd why)
    {
        refusal = why;
        return false;
    }

    QFile &file;
    const CopyProgress &progress;
    qint64 done = 0;
};

} // namespace

CopyResult copyDeviceFile(IIPod &device, const QString &path, const QString &target, const CopyProgress &progress)
{
    QFile file(target);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return {CopyEnd::CannotWrite, file.errorString()};
    Receiver receiver(file, progress);
    const ReadResult read = readDeviceFile(device, path, [&receiver](const char *block, int size, qint64 total) {
        return receiver.take(block, size, total);
    });
    CopyResult result{read.end == ReadEnd::GivenUp ? receiver.refusal : copyEnd(read.end), read.reason};
    if (result.end == CopyEnd::Complete && !file.flush())
        result.end = CopyEnd::CannotWrite;
    if (result.end == CopyEnd::CannotWrite)
        result.reason = file.errorString();
    return result;
}

} // namespace browser
