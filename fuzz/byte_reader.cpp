#include "fuzz/byte_reader.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace fuzz
{

std::uint8_t ByteReader::byte()
{
    if (left == 0)
        return 0;
    --left;
    return *next++;
}

int ByteReader::choice(int count)
{
    if (count < 2)
        return 0;
    const int value = count > 256 ? byte() << 8 | byte() : byte();
    return value % count;
}

std::int32_t ByteReader::int32()
{
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i)
        value = value << 8 | byte();
    return static_cast<std::int32_t>(value);
}

std::int64_t ByteReader::int64()
{
    std::uint64_t value = 0;
    for (int i = 0; i < 8; ++i)
        value = value << 8 | byte();
    return static_cast<std::int64_t>(value);
}

double ByteReader::real()
{
    const std::int64_t bits = int64();
    double value = 0;
    static_assert(sizeof value == sizeof bits);
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

QByteArray ByteReader::bytes(int count)
{
    const std::size_t taken = std::min(left, static_cast<std::size_t>(std::max(count, 0)));
    const QByteArray result(reinterpret_cast<const char *>(next), static_cast<int>(taken));
    next += taken;
    left -= taken;
    return result;
}

QByteArray ByteReader::text()
{
    return bytes(byte());
}

QByteArray ByteReader::rest()
{
    return bytes(static_cast<int>(std::min(left, static_cast<std::size_t>(std::numeric_limits<int>::max()))));
}

} // namespace fuzz
