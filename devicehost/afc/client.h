#ifndef DEVICEHOST_AFC_CLIENT_H
#define DEVICEHOST_AFC_CLIENT_H

#include "devicehost/afc/errors.h"
#include "devicehost/afc/file_info.h"
#include "devicehost/afc/outcome.h"
#include "devicehost/afc/packet.h"
#include "devicehost/afc/transport.h"
#include "devicehost/afc/watchdog.h"

#include <QByteArray>

#include <atomic>
#include <chrono>
#include <deque>
#include <memory>
#include <mutex>
#include <set>

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
    static constexpr std::size_t requestsOnTheWay = 8;
    static constexpr qint64 mostOnTheWay = largestRequest * static_cast<qint64>(requestsOnTheWay);

    Client(std::unique_ptr<Transport> connection, std::shared_ptr<Watchdog> guard, std::chrono::milliseconds patience);

    /// Paths are UTF-8 without a zero in them, from the media root.
    Outcome fileInfo(const QByteArray &path, FileInfo *info);

    /// Opens for reading. `*handle` is the device's number of the file, of meaning on this connection only.
    Outcome open(const QByteArray &path, quint64 *handle);
    Outcome close(quint64 handle);

    /// From the start of the file.
    Outcome seek(quint64 handle, qint64 offset);

    /// Where to read.
    struct Place {
        quint64 handle = 0;
        qint64 position = 0; ///< where the file is, after the last seek() and what was read since
        qint64 expected = 0; ///< bytes that are thought to be left in the file
    };

    /// Reads up to `size` bytes into `buffer`; `*count` 0 at the end of the file. Up to where the file is thought to
    /// end, further pieces are asked for while one is on its way: for this call, and, when it is a large one, for the
    /// next calls of the same size. What was asked for and is not called for is taken in before any other operation, at
    /// most `mostOnTheWay` bytes; when that was necessary, calls ask for themselves only until the next file is opened.
    /// After an answer that is shorter than what was asked for, the position of the file is not known.
    Outcome read(const Place &place, char *buffer, qint64 size, qint64 *count);

    /// Whether the connection can be used, as far as is known.
    bool isUsable() const { return usable.load(); }

    /// Whether it can be, and nothing came that nobody asked for: the end of the connection is such a thing. Asks the
    /// device nothing.
    bool isIdle() const;

private:
    /// Where the content of an answer goes, and how much of it came.
    struct Reply {
        char *buffer = nullptr; ///< null: nowhere
        qint64 room = 0;
        qint64 size = 0;
    };

    Outcome exchange(Operation operation, const QByteArray &parameters, Operation wanted, Reply *reply);
    Outcome send(Watchdog::Watch &watch, Operation operation, const QByteArray &parameters);
    Outcome receiveReply(Watchdog::Watch &watch, Operation wanted, Reply *reply);
    Outcome receiveExactly(Watchdog::Watch &watch, char *buffer, qint64 size);
    Outcome ask(Watchdog::Watch &watch, Operation operation, const QByteArray &parameters, Operation wanted,
                Reply *reply);
    Outcome discardExactly(Watchdog::Watch &watch, qint64 size);

    Outcome prepare(Watchdog::Watch &watch, const Place &place, qint64 size);
    Outcome readPieces(Watchdog::Watch &watch, const Place &place, char *buffer, qint64 size, qint64 *count);
    Outcome askAhead(Watchdog::Watch &watch, qint64 limit, qint64 *asked);
    Outcome seekNow(Watchdog::Watch &watch, quint64 handle, qint64 offset);
    Outcome dropAhead(Watchdog::Watch &watch);
    Outcome takeIn(Watchdog::Watch &watch);
    /// Does the work with the connection to itself, unless it is of no use.
    template <class Work>
    Outcome operate(const Work &work)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        if (!usable)
            return clientOutcome(Disconnected);
        Watchdog::Watch watch(*watchdog, transport->socket(), timeout);
        try {
            Outcome outcome = watch.verdict() == Watchdog::Verdict::Stopped ? clientOutcome(Stopped) : work(watch);
            if (!outcome.leavesConnection())
                usable = false;
            return outcome;
        } catch (...) { // lack of memory: an answer is on its way that the next operation would take for its own
            usable = false;
            throw;
        }
    }

    const std::unique_ptr<Transport> transport;
    const std::shared_ptr<Watchdog> watchdog;
    const std::chrono::milliseconds timeout;
    std::mutex mutex; ///< held for a request and its answer
    quint64 sent = 0; ///< number of the last request
    quint64 answered = 0;

    std::deque<qint64> ahead; ///< sizes of the pieces that were asked for and have not come yet, from the position on
    quint64 aheadOf = 0;      ///< the file
    qint64 callSize = 0;      ///< of the calls that they are meant for: no piece belongs to two
    bool readsAhead = true;   ///< not while several files are read in turns: what comes is thrown away then
    std::set<quint64> displaced; ///< files that the device would read on elsewhere than they are
    std::atomic<bool> usable{true};
};

} // namespace devicehost::afc

#endif
