#include "apps/cli/sample/tiff_writer.h"

namespace sample
{

namespace
{

constexpr int entrySize = 12;

int directorySize(const TiffWriter::Directory &directory)
{
    int size = 2 + directory.entries.size() * entrySize + 4;
    for (const auto &entry : directory.entries)
        if (entry.data.size() > 4)
            size += (entry.data.size() + 1) & ~1;
    return size;
}

void appendEntry(QByteArray &bytes, QByteArray &overflow, quint32 overflowAt, const TiffWriter::Directory::Entry &entry,
                 const QVector<quint32> &offsets, quint32 pixelsAt)
{
    appendLittle(bytes, entry.tag, 2);
    appendLittle(bytes, entry.type, 2);
    appendLittle(bytes, entry.count, 4);
    if (entry.link >= 0 || entry.strip) {
        appendLittle(bytes, entry.strip ? pixelsAt : offsets.at(entry.link), 4);
    } else if (entry.data.size() <= 4) {
        bytes += entry.data.leftJustified(4, '\0');
    } else {
        appendLittle(bytes, overflowAt + static_cast<quint32>(overflow.size()), 4);
        overflow += entry.data;
        if (overflow.size() % 2 != 0)
            overflow += '\0';
    }
}

} // namespace

void appendLittle(QByteArray &bytes, quint32 value, int size)
{
    for (int i = 0; i < size; ++i)
        bytes += static_cast<char>(value >> (8 * i));
}

void appendBig(QByteArray &bytes, quint32 value, int size)
{
    for (int i = size - 1; i >= 0; --i)
        bytes += static_cast<char>(value >> (8 * i));
}

void TiffWriter::Directory::addBytes(quint16 tag, const QByteArray &bytes)
{
    entries.append({tag, Byte, static_cast<quint32>(bytes.size()), bytes, -1, false});
}

void TiffWriter::Directory::addText(quint16 tag, const QByteArray &text)
{
    entries.append({tag, Ascii, static_cast<quint32>(text.size() + 1), text + '\0', -1, false});
}

void TiffWriter::Directory::addShorts(quint16 tag, const QVector<quint16> &values)
{
    QByteArray data;
    for (const quint16 value : values)
        appendLittle(data, value, 2);
    entries.append({tag, Short, static_cast<quint32>(values.size()), data, -1, false});
}

void TiffWriter::Directory::addLong(quint16 tag, quint32 value)
{
    QByteArray data;
    appendLittle(data, value, 4);
    entries.append({tag, Long, 1, data, -1, false});
}

void TiffWriter::Directory::addRationals(quint16 tag, const QVector<qint32> &parts, bool isSigned)
{
    QByteArray data;
    for (const qint32 part : parts)
        appendLittle(data, static_cast<quint32>(part), 4);
    const Type type = isSigned ? SignedRational : Rational;
    entries.append({tag, type, static_cast<quint32>(parts.size() / 2), data, -1, false});
}

void TiffWriter::Directory::addLink(quint16 tag, int directory)
{
    entries.append({tag, Long, 1, QByteArray(), directory, false});
}

void TiffWriter::Directory::addStrip(quint16 tag)
{
    entries.append({tag, Long, 1, QByteArray(), -1, true});
}

QByteArray TiffWriter::build(const QVector<Directory> &directories, const QByteArray &pixels)
{
    QVector<quint32> offsets;
    quint32 end = 8;
    for (const Directory &directory : directories) {
        offsets.append(end);
        end += static_cast<quint32>(directorySize(directory));
    }
    QByteArray bytes("II*\0", 4);
    appendLittle(bytes, 8, 4);
    for (int i = 0; i < directories.size(); ++i) {
        const Directory &directory = directories.at(i);
        const int fixed = 2 + directory.entries.size() * entrySize + 4;
        QByteArray overflow;
        appendLittle(bytes, static_cast<quint32>(directory.entries.size()), 2);
        for (const auto &entry : directory.entries)
            appendEntry(bytes, overflow, offsets.at(i) + static_cast<quint32>(fixed), entry, offsets, end);
        appendLittle(bytes, 0, 4);
        bytes += overflow;
    }
    return bytes + pixels;
}

} // namespace sample
