#include "fuzz/wal_checksums.h"

#include <QtEndian>

#include <algorithm>

namespace fuzz
{

namespace
{

constexpr int headerBytes = 32;
constexpr int frameHeaderBytes = 24;
constexpr int pageSizeInHeader = 8;
constexpr int saltsInHeader = 16;
constexpr int checksumInHeader = 24;
constexpr int saltsInFrame = 8;
constexpr int checksumInFrame = 16;
constexpr quint32 smallestPage = 512;
constexpr quint32 largestPage = 65536;

// The running checksum over words of 32 bits, in the byte order that the lowest bit of the first word names.
class Checksum
{
public:
    explicit Checksum(bool bigEndian) : bigEndian(bigEndian) {}

    void add(const char *bytes, int count)
    {
        for (int i = 0; i + 8 <= count; i += 8) {
            first += word(bytes + i) + second;
            second += word(bytes + i + 4) + first;
        }
    }

    void put(char *out) const
    {
        for (int i = 0; i < 4; ++i) {
            out[i] = static_cast<char>(first >> (24 - 8 * i));
            out[i + 4] = static_cast<char>(second >> (24 - 8 * i));
        }
    }

private:
    quint32 word(const char *bytes) const
    {
        return bigEndian ? qFromBigEndian<quint32>(bytes) : qFromLittleEndian<quint32>(bytes);
    }

    bool bigEndian;
    quint32 first = 0;
    quint32 second = 0;
};

} // namespace

void mendWal(QByteArray *wal)
{
    if (wal->size() < headerBytes)
        return;
    char *const bytes = wal->data();
    qToBigEndian<quint32>(0x377f0682u | (qFromBigEndian<quint32>(bytes) & 1u), bytes);
    qToBigEndian<quint32>(3007000, bytes + 4);
    Checksum sum((bytes[3] & 1) != 0);
    sum.add(bytes, checksumInHeader);
    sum.put(bytes + checksumInHeader);
    const auto pageSize = qFromBigEndian<quint32>(bytes + pageSizeInHeader);
    if (pageSize < smallestPage || pageSize > largestPage)
        return;
    const int frameBytes = frameHeaderBytes + static_cast<int>(pageSize);
    for (int at = headerBytes; at + frameBytes <= wal->size(); at += frameBytes) {
        char *const frame = bytes + at;
        std::copy_n(bytes + saltsInHeader, 8, frame + saltsInFrame);
        sum.add(frame, 8);
        sum.add(frame + frameHeaderBytes, static_cast<int>(pageSize));
        sum.put(frame + checksumInFrame);
    }
}

} // namespace fuzz
