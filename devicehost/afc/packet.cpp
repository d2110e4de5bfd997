#include "devicehost/afc/packet.h"

#include <QtEndian>

#include <cstring>

namespace devicehost::afc
{

namespace
{

constexpr char magic[] = "CFA6LPAA";
constexpr int magicSize = 8;

} // namespace

QByteArray number(quint64 value)
{
    const quint64 stored = qToLittleEndian(value);
    QByteArray bytes(static_cast<int>(sizeof stored), '\0');
    std::memcpy(bytes.data(), &stored, sizeof stored);
    return bytes;
}

quint64 readNumber(const char *bytes)
{
    return qFromLittleEndian<quint64>(bytes);
}

bool readHeader(const char *bytes, Header *header)
{
    if (std::memcmp(bytes, magic, magicSize) != 0)
        return false;
    header->entireLength = readNumber(bytes + 8);
    header->thisLength = readNumber(bytes + 16);
    header->packetNumber = readNumber(bytes + 24);
    header->operation = readNumber(bytes + 32);
    return header->thisLength >= Header::size && header->entireLength >= header->thisLength;
}

QByteArray message(quint64 packetNumber, Operation operation, const QByteArray &parameters)
{
    const auto length = static_cast<quint64>(parameters.size()) + Header::size;
    return QByteArray(magic, magicSize) + number(length) + number(length) + number(packetNumber) +
           number(static_cast<quint64>(operation)) + parameters;
}

} // namespace devicehost::afc
