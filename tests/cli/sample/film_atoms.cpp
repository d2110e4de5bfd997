#include "tests/cli/sample/film_atoms.h"

namespace
{

quint32 numberAt(const QByteArray &bytes, int at)
{
    quint32 value = 0;
    for (int i = 0; i < 4; ++i)
        value = value << 8 | static_cast<quint8>(at + i < bytes.size() ? bytes.at(at + i) : 0);
    return value;
}

// The content of the atom at the end of `path`; null when there is none or an atom on the way does not fit.
QByteArray atomAt(const QByteArray &bytes, const QVector<QByteArray> &path, int depth = 0)
{
    for (int at = 0; at + 8 <= bytes.size();) {
        const auto size = static_cast<int>(numberAt(bytes, at));
        if (size < 8 || at + size > bytes.size())
            return QByteArray();
        if (bytes.mid(at + 4, 4) == path.at(depth)) {
            const QByteArray content = bytes.mid(at + 8, size - 8);
            return depth + 1 == path.size() ? content : atomAt(content, path, depth + 1);
        }
        at += size;
    }
    return QByteArray();
}

bool cutSamples(const QByteArray &file, const QByteArray &table, FilmFacts &facts)
{
    const QByteArray sizes = atomAt(table, {"stsz"}), chunks = atomAt(table, {"stco"}), runs = atomAt(table, {"stsc"});
    const auto count = static_cast<int>(numberAt(sizes, 8));
    if (sizes.size() != 12 + 4 * count || chunks.size() != 12 || static_cast<int>(numberAt(runs, 12)) != count)
        return false;
    auto at = static_cast<int>(numberAt(chunks, 8));
    for (int i = 0; i < count; ++i) {
        const auto size = static_cast<int>(numberAt(sizes, 12 + 4 * i));
        if (at + size > file.size())
            return false;
        facts.samples.append(file.mid(at, size));
        at += size;
    }
    return true;
}

} // namespace

std::optional<FilmFacts> readFilm(const QByteArray &file)
{
    FilmFacts facts;
    facts.brand = QString::fromLatin1(atomAt(file, {"ftyp"}).left(4));
    const QByteArray movie = atomAt(file, {"moov", "mvhd"}), track = atomAt(file, {"moov", "trak", "tkhd"});
    const QByteArray media = atomAt(file, {"moov", "trak", "mdia", "mdhd"});
    const QByteArray table = atomAt(file, {"moov", "trak", "mdia", "minf", "stbl"});
    const QByteArray description = atomAt(table, {"stsd"}), times = atomAt(table, {"stts"});
    const QByteArray handler = atomAt(file, {"moov", "trak", "mdia", "hdlr"});
    if (movie.size() != 100 || track.size() != 84 || media.size() != 24 || times.size() != 16 ||
        description.size() < 94 || handler.mid(8, 4) != "vide" ||
        atomAt(file, {"moov", "trak", "mdia", "minf", "vmhd"}).size() != 12 ||
        atomAt(file, {"moov", "trak", "mdia", "minf", "dinf", "dref"}).isEmpty() || numberAt(movie, 12) == 0)
        return std::nullopt;
    const quint32 ticks = numberAt(times, 8) * numberAt(times, 12);
    if (numberAt(movie, 16) != ticks || numberAt(media, 16) != ticks || numberAt(track, 20) != ticks)
        return std::nullopt;
    facts.seconds = static_cast<double>(ticks) / numberAt(movie, 12);
    facts.width = static_cast<int>(numberAt(track, 76) >> 16);
    facts.height = static_cast<int>(numberAt(track, 80) >> 16);
    facts.codec = QString::fromLatin1(description.mid(12, 4));
    return cutSamples(file, table, facts) ? std::optional<FilmFacts>(facts) : std::nullopt;
}
