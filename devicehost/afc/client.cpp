#include "devicehost/afc/client.h"

#include "devicehost/afc/errors.h"

#include <poll.h>

#include <algorithm>
#include <array>
#include <utility>

namespace devicehost::afc
{

namespace
{

constexpr int numberSize = 8;
constexpr quint64 modeReadOnly = 1;

bool isOperation(quint64 value, Operation operation)
{
    return value == static_cast<quint64>(operation);
}

/// Why a transfer failed. When the watchdog has shut the socket down, that looks like the end of the connection.
Outcome brokenOff(Watchdog::Watch &watch)
{
    switch (watch.verdict()) {
    case Watchdog::Verdict::Stopped:
        return clientOutcome(Stopped);
    case Watchdog::Verdict::TimedOut:
        return clientOutcome(TimedOut);
    case Watchdog::Verdict::Quiet:
        break;
    }
    return clientOutcome(Disconnected);
}

QByteArray terminated(const QByteArray &path)
{
    return path + '\0';
}

} // namespace

Client::Client(std::unique_ptr<Transport> connection, std::shared_ptr<Watchdog> guard,
               std::chrono::milliseconds patience)
    : transport(std::move(connection)), watchdog(std::move(guard)), timeout(patience)
{
}

bool Client::isIdle() const
{
    if (!usable || transport->socket() < 0)
        return usable;
    pollfd socket = {transport->socket(), POLLIN | POLLRDHUP, 0};
    return ::poll(&socket, 1, 0) == 0;
}

Outcome Client::fileInfo(const QByteArray &path, FileInfo *info)
{
    QByteArray content(largestInfo, Qt::Uninitialized);
    Reply reply{content.data(), content.size()};
    const Outcome outcome = exchange(Operation::GetFileInfo, terminated(path), Operation::Data, &reply);
    if (!outcome.ok())
        return outcome;
    content.truncate(static_cast<int>(reply.size));
    return readFileInfo(content, info) ? outcome : clientOutcome(BadFileInfo);
}

Outcome Client::open(const QByteArray &path, quint64 *handle)
{
    std::array<char, numberSize> result = {};
    Reply reply{result.data(), numberSize};
    const Outcome outcome =
        exchange(Operation::FileRefOpen, number(modeReadOnly) + terminated(path), Operation::FileRefOpenResult, &reply);
    if (outcome.ok())
        *handle = readNumber(result.data());
    return outcome;
}

Outcome Client::exchange(Operation operation, const QByteArray &parameters, Operation wanted, Reply *reply)
{
    return operate([&](Watchdog::Watch &watch) {
        const Outcome free = dropAhead(watch);
        readsAhead = readsAhead || operation == Operation::FileRefOpen;
        return free.ok() ? ask(watch, operation, parameters, wanted, reply) : free;
    });
}

Outcome Client::ask(Watchdog::Watch &watch, Operation operation, const QByteArray &parameters, Operation wanted,
                    Reply *reply)
{
    const Outcome request = send(watch, operation, parameters);
    return request.ok() ? receiveReply(watch, wanted, reply) : request;
}

Outcome Client::send(Watchdog::Watch &watch, Operation operation, const QByteArray &parameters)
{
    const QByteArray bytes = message(++sent, operation, parameters);
    return transport->send(bytes.constData(), static_cast<std::size_t>(bytes.size())) ? Outcome() : brokenOff(watch);
}

Outcome Client::receiveReply(Watchdog::Watch &watch, Operation wanted, Reply *reply)
{
    std::array<char, Header::size> bytes = {};
    const Outcome came = receiveExactly(watch, bytes.data(), static_cast<qint64>(bytes.size()));
    if (!came.ok())
        return came;
    Header header;
    if (!readHeader(bytes.data(), &header) || header.packetNumber != ++answered)
        return clientOutcome(OutOfStep);
    const quint64 length = header.entireLength - Header::size;
    if (isOperation(header.operation, Operation::Status)) {
        std::array<char, numberSize> status = {};
        if (length != status.size())
            return clientOutcome(OutOfStep);
        const Outcome rest = receiveExactly(watch, status.data(), numberSize);
        if (!rest.ok())
            return rest;
        const quint64 code = readNumber(status.data());
        // Success is no answer to a question.
        return code == 0 && wanted != Operation::Status ? clientOutcome(OutOfStep) : outcomeOfStatus(code);
    }
    const bool isNumber = wanted == Operation::FileRefOpenResult;
    const bool fits = isNumber ? length == numberSize
                               : header.thisLength == Header::size && length <= static_cast<quint64>(reply->room);
    if (wanted == Operation::Status || !isOperation(header.operation, wanted) || !fits)
        return clientOutcome(OutOfStep);
    reply->size = static_cast<qint64>(length);
    return reply->buffer == nullptr ? discardExactly(watch, reply->size)
                                    : receiveExactly(watch, reply->buffer, reply->size);
}

Outcome Client::discardExactly(Watchdog::Watch &watch, qint64 size)
{
    std::array<char, 16 * 1024> nowhere = {};
    for (qint64 left = size; left > 0;) {
        const qint64 piece = std::min<qint64>(left, nowhere.size());
        const Outcome came = receiveExactly(watch, nowhere.data(), piece);
        if (!came.ok())
            return came;
        left -= piece;
    }
    return {};
}

Outcome Client::receiveExactly(Watchdog::Watch &watch, char *buffer, qint64 size)
{
    for (qint64 done = 0; done < size;) {
        const qint64 count = transport->receive(buffer + done, static_cast<std::size_t>(size - done), watch.left());
        if (count > 0 && count <= size - done) {
            done += count;
            continue;
        }
        const Outcome reason = brokenOff(watch);
        return reason.kind == Outcome::Lost && count == Transport::timedOut ? clientOutcome(TimedOut) : reason;
    }
    return {};
}

} // namespace devicehost::afc
