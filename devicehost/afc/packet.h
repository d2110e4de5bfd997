#ifndef DEVICEHOST_AFC_PACKET_H
#define DEVICEHOST_AFC_PACKET_H

#include <QByteArray>
#include <QtGlobal>

#include <cstddef>

namespace devicehost::afc
{

enum class Operation : quint64 {
    Status = 0x01,
    Data = 0x02,
    GetFileInfo = 0x0A,
    FileRefOpen = 0x0D,
    FileRefOpenResult = 0x0E,
    FileRefRead = 0x0F,
    FileRefSeek = 0x11,
    FileRefClose = 0x14,
};

/// What every message begins with, in both directions. Lengths are bytes and count the header.
struct Header {
    static constexpr std::size_t size = 40;

    quint64 entireLength = 0;
    quint64 thisLength = 0; ///< without the payload, which a device sends as a piece of its own
    quint64 packetNumber = 0;
    quint64 operation = 0;
};

/// Reads the `Header::size` bytes at `bytes`. False when they are no header, or its lengths contradict each other.
bool readHeader(const char *bytes, Header *header);

/// A message without payload, ready to be sent.
QByteArray message(quint64 packetNumber, Operation operation, const QByteArray &parameters);

/// An unsigned 64-bit number as messages hold it: the 8 bytes of it, and back.
QByteArray number(quint64 value);
quint64 readNumber(const char *bytes);

} // namespace devicehost::afc

#endif
