#ifndef FUZZ_BYTE_READER_H
#define FUZZ_BYTE_READER_H

#include <QByteArray>

#include <cstddef>
#include <cstdint>

namespace fuzz
{

/// Takes decisions from a fuzzer's bytes, front to back. Behind the end every answer is 0, empty or false, so that 0 is
/// the place for the ordinary choice. Borrows the bytes. One thread at a time.
class ByteReader
{
public:
    ByteReader(const std::uint8_t *data, std::size_t size) : next(data), left(size) {}

    bool atEnd() const { return left == 0; }
    std::uint8_t byte();
    bool flag() { return (byte() & 1) != 0; }

    /// A number from 0 to `count` - 1; 0 for a `count` below 2. Takes one byte, or two for a `count` above 256.
    int choice(int count);

    /// True once in `period` times, for bytes that are spread evenly; false at the end.
    bool seldom(int period) { return choice(period) == period - 1 && period > 1; }

    std::int32_t int32();
    std::int64_t int64();

    /// Any bit pattern: also infinities and what is no number.
    double real();

    /// The next bytes, fewer where the end comes first.
    QByteArray bytes(int count);

    /// A length byte and as many bytes.
    QByteArray text();

    QByteArray rest();

private:
    const std::uint8_t *next;
    std::size_t left;
};

} // namespace fuzz

#endif
