#ifndef DEVICEHOST_AFC_TRANSPORT_H
#define DEVICEHOST_AFC_TRANSPORT_H

#include <QtGlobal>

#include <chrono>
#include <cstddef>

namespace devicehost::afc
{

/// A connection to the file service of a device: bytes in both directions. The destructor closes it. Used by one
/// thread at a time.
class Transport
{
public:
    virtual ~Transport() = default;

    /// Sends all of the bytes. False: the connection has ended.
    virtual bool send(const char *bytes, std::size_t size) = 0;

    /// What receive() answers in place of a count.
    static constexpr qint64 ended = 0;
    static constexpr qint64 timedOut = -1;

    /// Waits for bytes, and gives 1 to `size` of them. `ended` when the connection has; `timedOut` when nothing came
    /// within `timeout`. After either, what arrived in between may be lost.
    virtual qint64 receive(char *buffer, std::size_t size, std::chrono::milliseconds timeout) = 0;

    /// The socket, on which shutdown() ends a transfer that waits; -1 for none.
    virtual int socket() const { return -1; }
};

} // namespace devicehost::afc

#endif
