#ifndef EXPORTER_VERIFY_H
#define EXPORTER_VERIFY_H

#include "exporter/observer.h"
#include "exporter/outcome.h"

#include <QString>

namespace exporter
{

/// How an exported file differs from what the record says of it.
enum class Difference {
    Missing,    ///< the file is gone
    Size,       ///< it has another size
    Content,    ///< the bytes are others
    Unreadable, ///< it cannot be read, or is no plain file
};

/// One difference that verify() found.
struct VerifyFinding {
    Difference difference = Difference::Missing;
    QString destination; ///< path below the destination folder
    QByteArray uuid;     ///< of the photo
    Role role = Role::Original;
    bool inAlbum = false;    ///< a link or copy in an album folder
    qint64 expectedSize = 0; ///< bytes
    qint64 foundSize = -1;   ///< bytes; -1 when not known
    QString reason;          ///< one line for people, without full stop
};

/// As ExportObserver, of which verify() calls progress() and isCancelled() only.
class VerifyObserver : public ExportObserver
{
public:
    virtual void found(const VerifyFinding &) {}
};

struct VerifyOutcome {
    /// Completed, Cancelled, DestinationRefused (no such folder, no record in it, or in use by a run),
    /// RecordUnusable or OutOfMemory.
    RunEnd end = RunEnd::Completed;
    QString message;         ///< as in RunOutcome
    qint64 filesChecked = 0; ///< files in the record that were looked at, album folders included
    qint64 differences = 0;  ///< findings

    bool isSuccess() const { return end == RunEnd::Completed && differences == 0; }
};

/// Reads every exported file in `destination` again and compares it with the record. Each difference is told to
/// `observer`, in the order of the record. Hard links are read once only. Exported files are not changed. Blocks; any
/// thread; nothing is thrown.
VerifyOutcome verify(const QString &destination, VerifyObserver &observer);

} // namespace exporter

#endif
