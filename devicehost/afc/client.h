#ifndef DEVICEHOST_AFC_CLIENT_H
#define DEVICEHOST_AFC_CLIENT_H

#include "devicehost/afc/file_info.h"
#include "devicehost/afc/outcome.h"
#include "devicehost/afc/packet.h"
#include "devicehost/afc/transport.h"
#include "devicehost/afc/watchdog.h"

#include <QByteArray>

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>

namespace devicehost::afc
{

/// Speaks the protocol of the file service over one connection. An answer is believed only when all of it fits what
/// was asked; no length in it makes this side allocate more than `largestInfo` bytes.
///
/// Any thread may call any function; operations wait for one another. Each ends after the connection's time-out, or
/// within a fraction of a second when the user stops. An outcome that is not `leavesConnection()` spoils the client for
/// good: later operations fail without touching the connection.
class Client
{
public:
    static constexpr qint64 largestRequest = 1024 * 1024; ///< bytes asked for at once
    static constexpr qint64 largestInfo = 64 * 1024;

    Client(std::unique_ptr<Transport> connection, std::shared_ptr<Watchdog> guard, std::chrono::milliseconds patience);

    /// Paths are UTF-8 without a zero in them, from the media root.
    Outcome fileInfo(const QByteArray &path, FileInfo *info);

    /// Opens for reading. `*handle` is the device's number of the file, of meaning on this connection only.
    Outcome open(const QByteArray &path, quint64 *handle);
    Outcome close(quint64 handle);

    /// From the start of the file.
    Outcome seek(quint64 handle, qint64 offset);

    /// Reads up to `size` bytes into `buffer`; `*count` 0 at the end of the file. `expected` bytes are thought to be
    /// left in the file: up to there the next piece is asked for while one is on its way. After an answer that is
    /// shorter than what was asked for, the position of the file is not known.
    Outcome read(quint64 handle, char *buffer, qint64 size, qint64 expected, qint64 *count);

    /// Whether the connection can be used, as far as is known.
    bool isUsable() const { return usable.load(); }

    /// Whether it can be, and nothing came that nobody asked for: the end of the connection is such a thing. Asks the
    /// device nothing.
    bool isIdle() const;

private:
    struct Reply;

    Outcome exchange(Operation operation, const QByteArray &parameters, Operation wanted, Reply *reply);
    Outcome simple(Operation operation, const QByteArray &parameters);
    Outcome send(Watchdog::Watch &watch, Operation operation, const QByteArray &parameters);
    Outcome receiveReply(Watchdog::Watch &watch, Operation wanted, Reply *reply);
    Outcome receiveExactly(Watchdog::Watch &watch, char *buffer, qint64 size);
    Outcome readPieces(Watchdog::Watch &watch, quint64 handle, char *buffer, qint64 size, qint64 expected,
                       qint64 *count);
    template <class Work>
    Outcome operate(const Work &work);

    const std::unique_ptr<Transport> transport;
    const std::shared_ptr<Watchdog> watchdog;
    const std::chrono::milliseconds timeout;
    std::mutex mutex; ///< held for a request and its answer
    quint64 sent = 0; ///< number of the last request
    quint64 answered = 0;
    std::atomic<bool> usable{true};
};

} // namespace devicehost::afc

#endif
