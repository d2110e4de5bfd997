#include "exporter/errors.h"

#include <cerrno>
#include <cstring>

namespace exporter
{

namespace
{

// The file system itself is gone or closed to us, so that every further file would fail the same way.
bool endsEverything(int code)
{
    switch (code) {
    case EROFS:
    case EIO:
    case ENODEV:
    case ENXIO:
    case ESTALE:
    case ENOTCONN:
    case EHOSTDOWN:
    case ETIMEDOUT:
        return true;
    default:
        return false;
    }
}

} // namespace

QString errnoText(int code)
{
    char buffer[128] = {};
    return QString::fromLocal8Bit(strerror_r(code, buffer, sizeof buffer));
}

bool isLackOfSpace(int code)
{
    return code == ENOSPC || code == EDQUOT;
}

void throwDestinationFull()
{
    throw RunEnded(RunEnd::DestinationFull,
                   QStringLiteral("There is no room left in the destination. Make room, or choose another folder, and "
                                  "run the export again: what is there is not copied a second time."));
}

void throwRecordUnusable(const QString &why)
{
    throw RunEnded(
        RunEnd::RecordUnusable,
        QStringLiteral("The record of earlier exports, .photolib-export.sqlite in the destination, %1. To go on "
                       "without it, move it (and .photolib-export.sqlite-wal, when it is there) to another "
                       "place and run the export again: files that are there are then recognised by their "
                       "content and not copied twice.")
            .arg(why));
}

void throwDestinationError(int code, const QString &what)
{
    if (isLackOfSpace(code))
        throwDestinationFull();
    // A limit of the file system for one file (4 GiB on FAT) or of this process: smaller files still fit.
    if (code == EFBIG)
        throw FileProblem(what + QStringLiteral(": the destination cannot hold a file of this size"));
    if (endsEverything(code))
        throw RunEnded(
            RunEnd::DestinationRefused,
            QStringLiteral("The destination cannot be written any more (%1: %2). Check the drive and run the "
                           "export again.")
                .arg(what, errnoText(code)));
    throw FileProblem(what + QStringLiteral(": ") + errnoText(code));
}

} // namespace exporter
