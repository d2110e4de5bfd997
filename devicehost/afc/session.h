#ifndef DEVICEHOST_AFC_SESSION_H
#define DEVICEHOST_AFC_SESSION_H

#include "devicehost/afc/client.h"
#include "devicehost/afc/transport.h"
#include "devicehost/afc/watchdog.h"
#include "devicehost/backend_session.h"
#include "devicehost/vdev/verror.h"

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace devicehost::afc
{

/// Makes connections to the file service of one device. Any thread may use it.
class Connector
{
public:
    virtual ~Connector() = default;

    /// A new connection, made within `timeout` or given up, also as soon as `stopRequested` answers true. Null, with
    /// `*error` filled, on failure.
    virtual std::unique_ptr<Transport> connect(std::chrono::milliseconds timeout,
                                               const std::function<bool()> &stopRequested, VError *error) = 0;
};

/// The connections to one device. A new one takes a phone part of a second and the library opens the device anew for
/// each file, so those that nobody uses are kept for the next.
///
/// When a connection could not be made in time, none is tried for `restAfterTimeOut`: until then every attempt fails at
/// once as that one did, so that a silent device does not cost a time-out for each of a thousand photos. Any thread may
/// use it.
class Session final : public BackendSession
{
public:
    static constexpr std::chrono::milliseconds restAfterTimeOut = std::chrono::seconds(10);

    /// `stopRequested` is called on any thread.
    Session(std::unique_ptr<Connector> deviceConnector, std::chrono::milliseconds patience,
            std::function<bool()> stopRequested, std::chrono::milliseconds rest = restAfterTimeOut);

    /// A client for one user: an idle one, or one with a new connection. Null, with `*error` filled, on failure.
    std::shared_ptr<Client> take(VError *error);

    /// Always a new connection.
    std::shared_ptr<Client> connect(VError *error);

    /// Takes back what take() or connect() gave.
    void giveBack(std::shared_ptr<Client> client);

private:
    static constexpr std::size_t mostIdle = 4;

    bool isResting(VError *error);
    void restAfter(const VError &error);

    const std::chrono::milliseconds timeout;
    const std::shared_ptr<Watchdog> watchdog;
    const std::unique_ptr<Connector> connector;
    const std::chrono::milliseconds rest;
    std::mutex mutex; ///< guards what follows
    std::vector<std::shared_ptr<Client>> idle;
    std::chrono::steady_clock::time_point restsUntil = std::chrono::steady_clock::time_point::min();
    VError timeOut; ///< why it rests
};

} // namespace devicehost::afc

#endif
