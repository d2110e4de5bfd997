#include "memory_phone.h"

#include "devicehost/afc/errors.h"

#include <algorithm>
#include <cstring>
#include <utility>

using namespace devicehost::afc;

namespace
{

struct OpenFile {
    QByteArray path;
    qint64 position = 0;
};

QByteArray infoOf(const char *type, int size, const QByteArray &modified)
{
    const QList<QByteArray> texts = {
        "st_size", QByteArray::number(size), "st_blocks", "8", "st_nlink", "1", "st_ifmt", type, "st_mtime", modified};
    return texts.join('\0') + '\0';
}

} // namespace

class MemoryConnection final : public Transport
{
public:
    explicit MemoryConnection(MemoryPhone *connected) : phone(connected)
    {
        ++phone->openConnections;
        left = phone->cutAlways || phone->connections == 1 ? phone->cutAfter : MemoryPhone::never;
    }

    ~MemoryConnection() override
    {
        const std::lock_guard<std::mutex> lock(phone->mutex);
        --phone->openConnections;
        phone->openHandles -= opened.size();
    }

    bool send(const char *bytes, std::size_t size) override
    {
        const std::lock_guard<std::mutex> lock(phone->mutex);
        if (left == 0 && !phone->stallInsteadOfCut)
            return false;
        received.append(bytes, static_cast<int>(size));
        Header header;
        const int headerSize = static_cast<int>(Header::size);
        while (received.size() >= headerSize && readHeader(received.constData(), &header) &&
               received.size() >= static_cast<int>(header.entireLength)) {
            const int length = static_cast<int>(header.entireLength);
            serve(header, received.mid(headerSize, length - headerSize));
            received.remove(0, length);
        }
        return true;
    }

    qint64 receive(char *buffer, std::size_t size, std::chrono::milliseconds) override
    {
        const std::lock_guard<std::mutex> lock(phone->mutex);
        qint64 count = std::min<qint64>(static_cast<qint64>(size), toSend.size() - gone);
        if (left != MemoryPhone::never)
            count = std::min(count, left);
        if (phone->mostAtOnce != MemoryPhone::never)
            count = std::min(count, phone->mostAtOnce);
        if (count == 0)
            return left == 0 && !phone->stallInsteadOfCut ? ended : timedOut;
        std::memcpy(buffer, toSend.constData() + gone, static_cast<std::size_t>(count));
        gone += static_cast<int>(count);
        if (gone == toSend.size()) {
            toSend.clear();
            gone = 0;
        }
        phone->bytesSent += count;
        if (left != MemoryPhone::never)
            left -= count;
        return count;
    }

private:
    void serve(const Header &header, const QByteArray &parameters)
    {
        const auto operation = static_cast<Operation>(header.operation);
        phone->operations += operation;
        QByteArray reply = answerTo(operation, header.packetNumber, parameters);
        if (phone->edit)
            phone->edit(phone->operations.size(), operation, &reply);
        toSend += reply;
    }

    QByteArray answerTo(Operation operation, quint64 packet, const QByteArray &parameters)
    {
        switch (operation) {
        case Operation::GetFileInfo:
            return describe(packet, parameters.left(parameters.indexOf('\0')));
        case Operation::FileRefOpen: {
            const QByteArray path = parameters.mid(8, parameters.indexOf('\0', 8) - 8);
            if (!phone->files.contains(path))
                return MemoryPhone::status(packet, 8);
            opened[++lastHandle] = {path};
            ++phone->openHandles;
            return MemoryPhone::answer(packet, Operation::FileRefOpenResult, number(lastHandle));
        }
        default:
            break;
        }
        const quint64 handle = readNumber(parameters.constData());
        if (!opened.contains(handle))
            return MemoryPhone::status(packet, 7);
        OpenFile &file = opened[handle];
        if (operation == Operation::FileRefSeek) {
            file.position = static_cast<qint64>(readNumber(parameters.constData() + 16));
            return MemoryPhone::status(packet, 0);
        }
        if (operation == Operation::FileRefClose) {
            opened.remove(handle);
            --phone->openHandles;
            return MemoryPhone::status(packet, 0);
        }
        qint64 size = static_cast<qint64>(readNumber(parameters.constData() + 8));
        if (phone->largestAnswer != MemoryPhone::never)
            size = std::min(size, phone->largestAnswer);
        const QByteArray content = phone->files.value(file.path);
        const QByteArray piece = file.position >= content.size()
                                     ? QByteArray()
                                     : content.mid(static_cast<int>(file.position), static_cast<int>(size));
        file.position += piece.size();
        return MemoryPhone::answer(packet, Operation::Data, QByteArray(), piece);
    }

    QByteArray describe(quint64 packet, const QByteArray &path) const
    {
        QByteArray info;
        if (phone->files.contains(path))
            info = infoOf("S_IFREG", phone->files.value(path).size(), phone->modified);
        else if (phone->folders.contains(path))
            info = infoOf("S_IFDIR", 64, phone->modified);
        else if (phone->links.contains(path))
            info = infoOf("S_IFLNK", 10, phone->modified);
        else
            return MemoryPhone::status(packet, 8);
        return MemoryPhone::answer(packet, Operation::Data, QByteArray(), info);
    }

    MemoryPhone *const phone;
    qint64 left;
    QByteArray received;
    QByteArray toSend;
    int gone = 0; ///< bytes of it that were sent
    QMap<quint64, OpenFile> opened;
    quint64 lastHandle = 0;
};

class MemoryConnector final : public Connector
{
public:
    explicit MemoryConnector(MemoryPhone *connected) : phone(connected) {}

    std::unique_ptr<Transport> connect(std::chrono::milliseconds, const std::function<bool()> &,
                                       devicehost::VError *error) override
    {
        const std::lock_guard<std::mutex> lock(phone->mutex);
        if (phone->connections >= phone->connectionsAllowed) {
            *error = explain(ErrorSource::Link, -3);
            return nullptr;
        }
        ++phone->connections;
        return std::make_unique<MemoryConnection>(phone);
    }

private:
    MemoryPhone *const phone;
};

std::shared_ptr<Session> MemoryPhone::session(std::shared_ptr<std::atomic<bool>> stop)
{
    // No connection of this phone ever waits, so no time is ever over.
    return std::make_shared<Session>(std::make_unique<MemoryConnector>(this), std::chrono::hours(1),
                                     [stop] { return stop != nullptr && stop->load(); });
}

QByteArray MemoryPhone::answer(quint64 packetNumber, Operation operation, const QByteArray &parameters,
                               const QByteArray &payload)
{
    QByteArray bytes = message(packetNumber, operation, parameters);
    bytes.replace(8, 8, number(static_cast<quint64>(bytes.size() + payload.size())));
    return bytes + payload;
}

QByteArray MemoryPhone::status(quint64 packetNumber, quint64 code)
{
    return answer(packetNumber, Operation::Status, number(code));
}
