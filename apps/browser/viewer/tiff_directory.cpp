#include "apps/browser/viewer/tiff_directory.h"

#include <QtEndian>

#include <algorithm>

namespace browser
{

namespace
{

constexpr quint16 byteType = 1, shortType = 3, longType = 4, linkType = 13;
constexpr quint32 mostValues = 64;
constexpr quint32 mostEntries = 1024;

int sizeOf(quint16 type)
{
    switch (type) {
    case byteType:
        return 1;
    case shortType:
        return 2;
    case longType:
    case linkType:
        return 4;
    default:
        return 0; // no whole number
    }
}

} // namespace

TiffFile::TiffFile(const QByteArray &bytes) : data(bytes), bigEndian(bytes.startsWith("MM"))
{
    valid = (bigEndian || bytes.startsWith("II")) && short16(2).value_or(0) == 42;
}

std::optional<quint32> TiffFile::short16(qint64 at) const
{
    if (at < 0 || at + 2 > data.size())
        return std::nullopt;
    const char *bytes = data.constData() + at;
    return bigEndian ? qFromBigEndian<quint16>(bytes) : qFromLittleEndian<quint16>(bytes);
}

std::optional<quint32> TiffFile::long32(qint64 at) const
{
    if (at < 0 || at + 4 > data.size())
        return std::nullopt;
    const char *bytes = data.constData() + at;
    return bigEndian ? qFromBigEndian<quint32>(bytes) : qFromLittleEndian<quint32>(bytes);
}

std::optional<TiffFile::Directory> TiffFile::directory(qint64 at) const
{
    const std::optional<quint32> count = valid && at > 0 ? short16(at) : std::nullopt;
    if (!count || *count > mostEntries)
        return std::nullopt;
    Directory result;
    for (quint32 i = 0; i < *count; ++i) {
        const qint64 entryAt = at + 2 + 12 * qint64(i);
        const std::optional<quint32> inPlace = long32(entryAt + 8);
        if (!inPlace)
            return std::nullopt;
        Entry entry;
        entry.tag = static_cast<quint16>(short16(entryAt).value_or(0));
        entry.type = static_cast<quint16>(short16(entryAt + 2).value_or(0));
        entry.count = long32(entryAt + 4).value_or(0);
        const bool fits = qint64(entry.count) * std::max(sizeOf(entry.type), 1) <= 4;
        entry.valuesAt = fits ? entryAt + 8 : qint64(*inPlace);
        result.entries.push_back(entry);
    }
    result.next = long32(at + 2 + 12 * qint64(*count)).value_or(0);
    return result;
}

std::optional<quint32> TiffFile::valueAt(const Entry &entry, quint32 index) const
{
    const int size = sizeOf(entry.type);
    const qint64 at = entry.valuesAt + qint64(index) * size;
    if (size == 2)
        return short16(at);
    if (size == 4)
        return long32(at);
    if (size == 1 && at >= 0 && at < data.size())
        return static_cast<uchar>(data[static_cast<int>(at)]);
    return std::nullopt;
}

std::optional<quint32> TiffFile::number(const Directory &directory, quint16 tag) const
{
    const std::vector<quint32> all = numbers(directory, tag);
    return all.empty() ? std::nullopt : std::optional<quint32>(all.front());
}

std::vector<quint32> TiffFile::numbers(const Directory &directory, quint16 tag) const
{
    std::vector<quint32> result;
    for (const Entry &entry : directory.entries) {
        if (entry.tag != tag)
            continue;
        for (quint32 i = 0; i < std::min(entry.count, mostValues); ++i)
            if (const std::optional<quint32> value = valueAt(entry, i))
                result.push_back(*value);
        break;
    }
    return result;
}

bool TiffFile::has(const Directory &directory, quint16 tag)
{
    return std::any_of(directory.entries.begin(), directory.entries.end(),
                       [tag](const Entry &entry) { return entry.tag == tag; });
}

} // namespace browser
