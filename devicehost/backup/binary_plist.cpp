#include "devicehost/backup/binary_plist.h"

#include <QtEndian>

#include <cmath>
#include <cstring>

namespace devicehost
{

namespace
{

constexpr quint64 headerSize = 8;
constexpr quint64 trailerSize = 32;

enum Kind { Simple = 0x0, Integer = 0x1, Real = 0x2, Date = 0x3, Data = 0x4, Ascii = 0x5, Utf16 = 0x6, Uid = 0x8 };
constexpr int arrayKind = 0xa;

/// Kinds whose header counts what follows.
bool isCounted(int kind)
{
    return kind == Data || kind == Ascii || kind == Utf16 || kind == arrayKind || kind == 0xc || kind == 0xd;
}

} // namespace

std::optional<BinaryPlist> BinaryPlist::parse(const QByteArray &bytes)
{
    const auto size = static_cast<quint64>(bytes.size());
    if (!isOne(bytes) || size < headerSize + trailerSize)
        return std::nullopt;
    BinaryPlist list;
    list.bytes = bytes;
    const quint64 trailer = size - trailerSize;
    list.tableBegin = trailer; // for number()
    list.offsetSize = static_cast<unsigned char>(bytes[static_cast<int>(trailer + 6)]);
    list.refSize = static_cast<unsigned char>(bytes[static_cast<int>(trailer + 7)]);
    const char *const numbers = bytes.constData() + trailer;
    list.objectCount = qFromBigEndian<quint64>(numbers + 8);
    list.topObject = qFromBigEndian<quint64>(numbers + 16);
    list.tableBegin = qFromBigEndian<quint64>(numbers + 24);
    const bool sane = list.offsetSize >= 1 && list.offsetSize <= 8 && list.refSize >= 1 && list.refSize <= 8 &&
                      list.tableBegin >= headerSize && list.tableBegin <= trailer &&
                      list.objectCount <= (trailer - list.tableBegin) / list.offsetSize;
    return sane ? std::make_optional(list) : std::nullopt;
}

/// Big-endian, of 1 to 8 bytes that are known to be there.
quint64 BinaryPlist::number(quint64 begin, quint64 size) const
{
    quint64 value = 0;
    for (quint64 i = begin; i < begin + size; ++i)
        value = value << 8 | static_cast<unsigned char>(bytes[static_cast<int>(i)]);
    return value;
}

/// Whether `count` items of `size` bytes lie among the objects.
bool BinaryPlist::holds(quint64 begin, quint64 count, quint64 size) const
{
    return begin <= tableBegin && count <= (tableBegin - begin) / size;
}

BinaryPlist::Object BinaryPlist::object(Ref ref) const
{
    if (ref >= objectCount)
        return {};
    const quint64 at = number(tableBegin + ref * offsetSize, offsetSize);
    if (at < headerSize || !holds(at, 1, 1))
        return {};
    const auto marker = static_cast<unsigned char>(bytes[static_cast<int>(at)]);
    Object found;
    found.low = marker & 0xf;
    found.begin = at + 1;
    found.count = static_cast<quint64>(found.low);
    if (isCounted(marker >> 4) && found.low == 0xf) { // an integer object follows with the count
        if (!holds(found.begin, 1, 1))
            return {};
        const auto size = static_cast<unsigned char>(bytes[static_cast<int>(found.begin)]);
        if (size >> 4 != Integer || (size & 0xf) > 3 || !holds(found.begin + 1, 1, 1ULL << (size & 0xf)))
            return {};
        found.count = number(found.begin + 1, 1ULL << (size & 0xf));
        found.begin += 1 + (1ULL << (size & 0xf));
    }
    found.kind = marker >> 4;
    return found;
}

std::optional<bool> BinaryPlist::flag(Ref ref) const
{
    const Object found = object(ref);
    if (found.kind != Simple || (found.low != 8 && found.low != 9))
        return std::nullopt;
    return found.low == 9;
}

std::optional<qint64> BinaryPlist::integer(Ref ref) const
{
    const Object found = object(ref);
    if (found.kind != Integer || found.low > 3 || !holds(found.begin, 1, 1ULL << found.low))
        return std::nullopt;
    return static_cast<qint64>(number(found.begin, 1ULL << found.low));
}

std::optional<quint64> BinaryPlist::uid(Ref ref) const
{
    const Object found = object(ref);
    const quint64 size = found.count + 1;
    if (found.kind != Uid || size > 8 || !holds(found.begin, 1, size))
        return std::nullopt;
    return number(found.begin, size);
}

std::optional<QByteArray> BinaryPlist::data(Ref ref) const
{
    const Object found = object(ref);
    if (found.kind != Data || !holds(found.begin, found.count, 1))
        return std::nullopt;
    return bytes.mid(static_cast<int>(found.begin), static_cast<int>(found.count));
}

std::optional<QString> BinaryPlist::text(Ref ref) const
{
    const Object found = object(ref);
    const char *const begin = bytes.constData() + (found.kind < 0 ? 0 : found.begin);
    if (found.kind == Ascii && holds(found.begin, found.count, 1))
        return QString::fromLatin1(begin, static_cast<int>(found.count));
    if (found.kind != Utf16 || !holds(found.begin, found.count, 2))
        return std::nullopt;
    QString text(static_cast<int>(found.count), Qt::Uninitialized);
    qFromBigEndian<quint16>(begin, text.size(), text.data());
    return text;
}

std::optional<QDateTime> BinaryPlist::date(Ref ref) const
{
    const Object found = object(ref);
    if (found.kind != Date || found.low != 3 || !holds(found.begin, 1, 8))
        return std::nullopt;
    const quint64 bits = number(found.begin, 8);
    double seconds = 0;
    std::memcpy(&seconds, &bits, sizeof seconds);
    if (!(std::fabs(seconds) < 1e11)) // some thousand years; also what is no number
        return std::nullopt;
    constexpr qint64 epoch = 978307200; // 2001-01-01 in Unix time
    return QDateTime::fromSecsSinceEpoch(epoch + static_cast<qint64>(seconds), Qt::UTC);
}

std::optional<BinaryPlist::Ref> BinaryPlist::value(Ref dictionary, const char *key) const
{
    const Object found = object(dictionary);
    if (found.kind != dictionaryKind || !holds(found.begin, found.count, 2 * refSize))
        return std::nullopt;
    const std::size_t length = std::strlen(key);
    for (quint64 i = 0; i < found.count; ++i) {
        const Object name = object(number(found.begin + i * refSize, refSize));
        if (name.kind == Ascii && name.count == length && holds(name.begin, name.count, 1) &&
            std::memcmp(bytes.constData() + name.begin, key, length) == 0)
            return number(found.begin + (found.count + i) * refSize, refSize);
    }
    return std::nullopt;
}

std::optional<BinaryPlist::Ref> BinaryPlist::element(Ref array, quint64 index) const
{
    const Object found = object(array);
    if (found.kind != arrayKind || index >= found.count || !holds(found.begin, found.count, refSize))
        return std::nullopt;
    return number(found.begin + index * refSize, refSize);
}

} // namespace devicehost
