#include "devicehost/afc/client.h"

#include <algorithm>
#include <numeric>

namespace devicehost::afc
{

namespace
{

constexpr quint64 fromStart = 0;

} // namespace

Outcome Client::read(const Place &place, char *buffer, qint64 size, qint64 *count)
{
    *count = 0;
    return operate([&](Watchdog::Watch &watch) {
        const Outcome ready = prepare(watch, place, size);
        return ready.ok() ? readPieces(watch, place, buffer, size, count) : ready;
    });
}

Outcome Client::seek(quint64 handle, qint64 offset)
{
    return operate([&](Watchdog::Watch &watch) {
        const Outcome free = dropAhead(watch);
        return free.ok() ? seekNow(watch, handle, offset) : free;
    });
}

Outcome Client::close(quint64 handle)
{
    Reply nothing;
    const Outcome outcome = exchange(Operation::FileRefClose, number(handle), Operation::Status, &nothing);
    const std::lock_guard<std::mutex> lock(mutex);
    displaced.erase(handle);
    return outcome;
}

Outcome Client::prepare(Watchdog::Watch &watch, const Place &place, qint64 size)
{
    if (aheadOf != place.handle || callSize != size) {
        const Outcome free = dropAhead(watch);
        if (!free.ok())
            return free;
    }
    aheadOf = place.handle;
    callSize = size;
    return displaced.count(place.handle) == 0 ? Outcome() : seekNow(watch, place.handle, place.position);
}

Outcome Client::readPieces(Watchdog::Watch &watch, const Place &place, char *buffer, qint64 size, qint64 *count)
{
    // Whoever reads a little may want no more of it.
    const bool isForMore = readsAhead && size >= largestRequest;
    const qint64 limit = isForMore ? place.expected : std::min(size, place.expected);
    qint64 asked = std::accumulate(ahead.begin(), ahead.end(), qint64{0}); // from the position on
    Outcome result;
    bool inOrder = true; // as long as every answer is as long as was asked for
    do {
        const Outcome request = askAhead(watch, limit, &asked);
        if (!request.ok())
            return request;
        Reply reply{buffer + *count, ahead.front()};
        result = receiveReply(watch, Operation::Data, &reply);
        if (!result.leavesConnection())
            return result;
        if (result.ok())
            *count += reply.size;
        inOrder = result.ok() && reply.size == ahead.front();
        ahead.pop_front();
        watch.renew();
    } while (inOrder && *count < size && (!ahead.empty() || asked < limit));
    // Behind an answer that was too short nothing is where it seems to be.
    const Outcome rest = inOrder ? Outcome() : takeIn(watch);
    if (!rest.ok())
        return rest;
    // What came before a refusal is good; the refusal comes again when the rest is asked for.
    return *count > 0 ? Outcome() : result;
}

/// Asks for pieces as long as `asked` is below `limit`, and for one in any case.
Outcome Client::askAhead(Watchdog::Watch &watch, qint64 limit, qint64 *asked)
{
    while (ahead.size() < requestsOnTheWay && (*asked == 0 || *asked < limit)) {
        const qint64 piece = std::min(largestRequest, callSize - *asked % callSize);
        const Outcome request =
            send(watch, Operation::FileRefRead, number(aheadOf) + number(static_cast<quint64>(piece)));
        if (!request.ok())
            return request;
        ahead.push_back(piece);
        *asked += piece;
    }
    return {};
}

Outcome Client::seekNow(Watchdog::Watch &watch, quint64 handle, qint64 offset)
{
    Reply nothing;
    const QByteArray parameters = number(handle) + number(fromStart) + number(static_cast<quint64>(offset));
    const Outcome outcome = ask(watch, Operation::FileRefSeek, parameters, Operation::Status, &nothing);
    if (outcome.ok())
        displaced.erase(handle);
    return outcome;
}

/// Frees the connection for something else.
Outcome Client::dropAhead(Watchdog::Watch &watch)
{
    if (ahead.empty())
        return {};
    displaced.insert(aheadOf);
    readsAhead = false;
    return takeIn(watch);
}

Outcome Client::takeIn(Watchdog::Watch &watch)
{
    while (!ahead.empty()) {
        Reply nowhere{nullptr, ahead.front()};
        const Outcome outcome = receiveReply(watch, Operation::Data, &nowhere);
        if (!outcome.leavesConnection())
            return outcome;
        ahead.pop_front();
        watch.renew();
    }
    return {};
}

} // namespace devicehost::afc
