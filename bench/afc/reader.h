#ifndef BENCH_AFC_READER_H
#define BENCH_AFC_READER_H

#include <QString>
#include <QtGlobal>

#include <memory>
#include <string>

#include <sys/types.h>

namespace bench
{

/// One way to read a file of the phone that USBMUXD_SOCKET_ADDRESS names. All functions throw std::runtime_error.
class Reader
{
public:
    virtual ~Reader() = default;

    /// Path from the media root, with "/" in front.
    virtual void open(const std::string &path) = 0;
    /// The next bytes, fewer than `size` only where the way gives no more at once; 0 at the end.
    virtual qint64 read(char *buffer, qint64 size) = 0;
    virtual void close() = 0;

    /// Another process that works for this one, or 0.
    virtual pid_t helper() const { return 0; }
};

/// The reference host's functions, as the library and the exporter use them.
std::unique_ptr<Reader> hostReader(const QString &udid);
/// afc_file_read() of libimobiledevice.
std::unique_ptr<Reader> libraryReader();
/// A mount made by ifuse, and read(). Throws when nothing can be mounted here.
std::unique_ptr<Reader> mountReader();
/// As fast as it goes: requests of 1 MiB far ahead, and answers thrown away unseen. It shows what the phone can give.
std::unique_ptr<Reader> ceilingReader();

} // namespace bench

#endif
