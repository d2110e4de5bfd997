#ifndef EXPORTER_TEMP_FILE_H
#define EXPORTER_TEMP_FILE_H

#include "exporter/destination.h"

namespace exporter
{

/// A new file in the root of the destination under a temporary name. Goes away with the object, unless it was
/// published. Borrows the destination. Functions throw as those of Destination.
class TempFile
{
public:
    explicit TempFile(Destination &owner);
    TempFile(const TempFile &) = delete;
    TempFile &operator=(const TempFile &) = delete;
    ~TempFile();

    void write(const char *data, qint64 size);

    /// Sets the times, in nanoseconds since 1970 UTC, and makes the content last. Afterwards nothing can be written.
    FileState finish(std::optional<qint64> mtimeNs);

    /// False when the name is taken; the file is then still temporary.
    bool publish(const QString &path);

    /// Makes the published file temporary again.
    void unpublish(const QString &path);

private:
    Destination &destination;
    QByteArray name;
    UniqueFd fd;
    qint64 written = 0; ///< bytes
    bool published = false;
};

} // namespace exporter

#endif
