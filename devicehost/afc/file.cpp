#include "devicehost/afc/file.h"

#include "devicehost/afc/errors.h"

#include <limits>
#include <utility>

namespace devicehost::afc
{

namespace
{

Outcome withoutConnection(const VError &error)
{
    return {Outcome::Ended, error};
}

Outcome refuseOtherThanFiles(const FileInfo &info)
{
    switch (info.type) {
    case FileInfo::Type::File:
        return {};
    case FileInfo::Type::Folder:
        return {Outcome::Refused, explain(ErrorSource::Service, 9)};
    case FileInfo::Type::Link:
        return clientOutcome(IsALink);
    case FileInfo::Type::Other:
        break;
    }
    return clientOutcome(NotAFile);
}

} // namespace

std::unique_ptr<File> File::open(std::shared_ptr<Lane> lane, const QByteArray &path, Error *error)
{
    std::unique_ptr<File> file(new File(std::move(lane), path));
    Outcome outcome = file->openFirst();
    if (outcome.ok())
        return file;
    *error = outcome.error;
    return nullptr;
}

File::~File()
{
    // A refusal changes nothing: the device closes what is open when the connection ends.
    if (client != nullptr && client->isUsable())
        static_cast<void>(client->close(handle));
}

Outcome File::openOn(std::shared_ptr<Client> newClient, FileInfo *found)
{
    client = nullptr;
    Outcome outcome = newClient->fileInfo(path, found);
    if (outcome.ok())
        outcome = refuseOtherThanFiles(*found);
    if (outcome.ok())
        outcome = newClient->open(path, &handle);
    if (outcome.ok())
        client = std::move(newClient);
    devicePosition = 0;
    return outcome;
}

Outcome File::openFirst()
{
    VError error;
    const std::shared_ptr<Client> first = lane->client(&error);
    if (first == nullptr)
        return withoutConnection(error);
    const Outcome outcome = openOn(first, &info);
    if (outcome.kind != Outcome::Lost)
        return outcome;
    const std::shared_ptr<Client> second = lane->replace(first, &error);
    return second == nullptr ? withoutConnection(error) : openOn(second, &info);
}

Outcome File::openAgain()
{
    VError error;
    const std::shared_ptr<Client> next = lane->replace(client, &error);
    if (next == nullptr)
        return withoutConnection(error);
    FileInfo now;
    const Outcome outcome = openOn(next, &now);
    if (!outcome.ok())
        return outcome;
    // Bytes of two files must not be taken for one.
    return now.size == info.size && now.modified == info.modified ? outcome : clientOutcome(Changed);
}

qint64 File::read(char *buffer, qint64 size, Error *error)
{
    qint64 count = 0;
    Outcome outcome = readHere(buffer, size, &count);
    if (outcome.kind == Outcome::Lost && count == 0 && mayReconnect) {
        mayReconnect = false;
        outcome = openAgain();
        if (outcome.ok())
            outcome = readHere(buffer, size, &count);
    }
    if (outcome.kind == Outcome::Ended)
        count = 0;
    if (outcome.ok() && count == 0)
        outcome = confirmEnd();
    if (!outcome.ok() && count == 0) {
        *error = outcome.error;
        return -1;
    }
    mayReconnect = mayReconnect || count > 0;
    position += count;
    return count;
}

Outcome File::readHere(char *buffer, qint64 size, qint64 *count)
{
    if (client == nullptr)
        return clientOutcome(Disconnected);
    const bool isThere = devicePosition == position;
    devicePosition = unknown; // until the answer is there: lack of memory may end this halfway
    if (!isThere) {
        const Outcome sought = client->seek(handle, position);
        if (!sought.ok())
            return sought;
    }
    const Outcome outcome = client->read({handle, position, info.size - position}, buffer, size, count);
    const qint64 after = position + *count;
    // Less than was asked for means the end of the file, or nothing that can be relied on.
    devicePosition = outcome.ok() && (*count == size || after == info.size) ? after : unknown;
    return outcome;
}

Outcome File::confirmEnd()
{
    if (position >= info.size)
        return {};
    FileInfo now;
    const Outcome outcome = client->fileInfo(path, &now);
    if (!outcome.ok() || now.size <= position)
        return outcome;
    return clientOutcome(EndedEarly);
}

qint64 File::seek(qint64 offset, int origin)
{
    const qint64 bases[] = {0, position, info.size};
    if (origin < 0 || origin > 2)
        return -1;
    const qint64 base = bases[origin];
    if (offset > std::numeric_limits<qint64>::max() - base || base + offset < 0)
        return -1;
    position = base + offset;
    return position;
}

} // namespace devicehost::afc
