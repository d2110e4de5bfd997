#include "apps/cli/sample/film_file.h"

#include "apps/cli/sample/tiff_writer.h"

namespace sample
{

namespace
{

constexpr quint32 timeScale = 600; // ticks a second

QByteArray atom(const char *type, const QByteArray &content)
{
    QByteArray bytes;
    appendBig(bytes, static_cast<quint32>(content.size() + 8), 4);
    return bytes + QByteArray(type, 4) + content;
}

QByteArray longs(const QVector<quint32> &values)
{
    QByteArray bytes;
    for (const quint32 value : values)
        appendBig(bytes, value, 4);
    return bytes;
}

// Leaves the picture as it is: the unit matrix in 16.16 and 2.30 fixed point.
QByteArray unitMatrix()
{
    return longs({0x10000, 0, 0, 0, 0x10000, 0, 0, 0, 0x40000000});
}

QByteArray movieHeader(quint32 created, quint32 duration)
{
    return atom("mvhd", longs({0, created, created, timeScale, duration, 0x10000, 0x01000000, 0, 0}) + unitMatrix() +
                            longs({0, 0, 0, 0, 0, 0, 2}));
}

QByteArray trackHeader(quint32 created, quint32 duration, const QSize &size)
{
    const auto fixed = [](int pixels) { return static_cast<quint32>(pixels) << 16; };
    return atom("tkhd", longs({0xF, created, created, 1, 0, duration, 0, 0, 0, 0}) + unitMatrix() +
                            longs({fixed(size.width()), fixed(size.height())}));
}

QByteArray handler(const char *kind, const char *type)
{
    return atom("hdlr",
                longs({0}) + QByteArray(kind, 4) + QByteArray(type, 4) + longs({0, 0, 0}) + QByteArray(1, '\0'));
}

QByteArray sampleDescription(const QSize &size)
{
    QByteArray entry = longs({0}) + QByteArray("\0\0\0\1", 4); // reserved; data reference 1
    entry += longs({0, 0, 0, 0x200});                          // version, vendor, temporal and spatial quality
    appendBig(entry, static_cast<quint32>(size.width()), 2);
    appendBig(entry, static_cast<quint32>(size.height()), 2);
    entry += longs({0x480000, 0x480000, 0}) + QByteArray("\0\1", 2); // 72 dpi, one frame a sample
    entry += QByteArray("\x0cPhoto - JPEG", 13).leftJustified(32, '\0');
    entry += QByteArray("\0\x18\xFF\xFF", 4); // 24 bits, no colour table
    return atom("stsd", longs({0, 1}) + atom("jpeg", entry));
}

// All frames lie one after the other in a single chunk that starts at `firstByte`.
QByteArray sampleTable(const QVector<QByteArray> &frames, const QSize &size, quint32 ticks, quint32 firstByte)
{
    const auto count = static_cast<quint32>(frames.size());
    QByteArray sizes = longs({0, 0, count});
    for (const QByteArray &frame : frames)
        appendBig(sizes, static_cast<quint32>(frame.size()), 4);
    return atom("stbl", sampleDescription(size) + atom("stts", longs({0, 1, count, ticks})) +
                            atom("stsc", longs({0, 1, 1, count, 1})) + atom("stsz", sizes) +
                            atom("stco", longs({0, 1, firstByte})));
}

QByteArray dataInformation()
{
    return atom("dinf", atom("dref", longs({0, 1}) + atom("alis", longs({1}))));
}

} // namespace

QByteArray filmFile(const QVector<QByteArray> &frames, const QSize &size, int framesPerSecond, quint32 seconds1904)
{
    const QByteArray type = atom("ftyp", QByteArray("qt  ") + longs({0x20050300}) + QByteArray("qt  "));
    const quint32 ticks = timeScale / static_cast<quint32>(framesPerSecond);
    const quint32 duration = ticks * static_cast<quint32>(frames.size());
    QByteArray pictures;
    for (const QByteArray &frame : frames)
        pictures += frame;
    const auto firstByte = static_cast<quint32>(type.size() + 8);

    QByteArray mediaHeader = longs({0, seconds1904, seconds1904, timeScale, duration, 0});
    const QByteArray videoHeader = atom("vmhd", longs({1, 0x00408000, 0x80008000}));
    const QByteArray information = atom("minf", videoHeader + handler("dhlr", "alis") + dataInformation() +
                                                    sampleTable(frames, size, ticks, firstByte));
    const QByteArray media = atom("mdia", atom("mdhd", mediaHeader) + handler("mhlr", "vide") + information);
    const QByteArray track = atom("trak", trackHeader(seconds1904, duration, size) + media);
    return type + atom("mdat", pictures) + atom("moov", movieHeader(seconds1904, duration) + track);
}

} // namespace sample
