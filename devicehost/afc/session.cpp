#include "devicehost/afc/session.h"

#include "devicehost/afc/errors.h"

#include <cerrno>
#include <utility>

namespace devicehost::afc
{

Session::Session(std::unique_ptr<Connector> deviceConnector, std::chrono::milliseconds patience,
                 std::function<bool()> stopRequested, std::chrono::milliseconds restTime)
    : timeout(patience), watchdog(std::make_shared<Watchdog>(std::move(stopRequested))),
      connector(std::move(deviceConnector)), rest(restTime)
{
}

std::shared_ptr<Client> Session::take(VError *error)
{
    std::vector<std::shared_ptr<Client>> dead; // closed when the lock is free again
    {
        const std::lock_guard<std::mutex> lock(mutex);
        while (!idle.empty()) {
            std::shared_ptr<Client> client = std::move(idle.back());
            idle.pop_back();
            if (client->isIdle())
                return client;
            dead.push_back(std::move(client));
        }
    }
    return connect(error);
}

std::shared_ptr<Client> Session::connect(VError *error)
{
    const std::shared_ptr<Watchdog> guard = watchdog;
    if (guard->stopRequested()) {
        *error = clientOutcome(Stopped).error;
        return nullptr;
    }
    if (isResting(error))
        return nullptr;
    std::unique_ptr<Transport> transport = connector->connect(
        timeout, [guard] { return guard->stopRequested(); }, error);
    if (transport == nullptr && error->code == ETIMEDOUT)
        restAfter(*error);
    if (transport != nullptr && transport->socket() >= 0 && !guard->start()) {
        *error = clientOutcome(NoThread).error;
        return nullptr;
    }
    return transport == nullptr ? nullptr : std::make_shared<Client>(std::move(transport), guard, timeout);
}

bool Session::isResting(VError *error)
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (std::chrono::steady_clock::now() >= restsUntil)
        return false;
    *error = timeOut;
    return true;
}

void Session::restAfter(const VError &error)
{
    const std::lock_guard<std::mutex> lock(mutex);
    timeOut = error;
    restsUntil = std::chrono::steady_clock::now() + rest;
}

void Session::giveBack(std::shared_ptr<Client> client)
{
    if (client == nullptr || !client->isUsable())
        return;
    const std::lock_guard<std::mutex> lock(mutex);
    if (idle.size() < mostIdle)
        idle.push_back(std::move(client));
}

} // namespace devicehost::afc
