#include "apps/browser/viewer/raw_preview.h"

#include "apps/browser/viewer/tiff_directory.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageReader>

#include <set>

namespace browser
{

namespace
{

constexpr quint16 stripOffsets = 273, orientation = 274, stripLengths = 279, subDirectories = 330;
constexpr quint16 jpegOffset = 513, jpegLength = 514, dngVersion = 50706;
constexpr std::size_t mostDirectories = 32;

bool hasRawName(const QString &fileName)
{
    static const QStringList extensions{QStringLiteral("dng"), QStringLiteral("cr2"), QStringLiteral("nef"),
                                        QStringLiteral("arw"), QStringLiteral("pef"), QStringLiteral("srw"),
                                        QStringLiteral("nrw"), QStringLiteral("3fr"), QStringLiteral("raw")};
    return extensions.contains(QFileInfo(fileName).suffix().toLower());
}

qint64 pixelsOf(const QByteArray &jpeg)
{
    QBuffer buffer;
    buffer.setData(jpeg);
    const QSize size = QImageReader(&buffer, "jpeg").size();
    return size.isEmpty() ? 0 : qint64(size.width()) * size.height();
}

// Walks through all directories and keeps the largest JPEG picture that they refer to.
class Search
{
public:
    explicit Search(const QByteArray &file) : bytes(file), tiff(file) {}

    RawFile run(const QString &fileName)
    {
        if (const auto first = tiff.directory(tiff.firstDirectory())) {
            found.isRaw = TiffFile::has(*first, dngVersion) || hasRawName(fileName);
            found.orientation = static_cast<int>(tiff.number(*first, orientation).value_or(1));
        }
        if (found.isRaw)
            walk(tiff.firstDirectory());
        return std::move(found);
    }

private:
    void walk(qint64 at)
    {
        while (at != 0 && seen.size() < mostDirectories && seen.insert(at).second) {
            const auto directory = tiff.directory(at);
            if (!directory)
                return;
            consider(tiff.number(*directory, jpegOffset), tiff.number(*directory, jpegLength));
            if (tiff.numbers(*directory, stripOffsets).size() == 1)
                consider(tiff.number(*directory, stripOffsets), tiff.number(*directory, stripLengths));
            for (const quint32 child : tiff.numbers(*directory, subDirectories))
                walk(child);
            at = directory->next;
        }
    }

    void consider(std::optional<quint32> offset, std::optional<quint32> length)
    {
        if (!offset || !length || qint64(*offset) + *length > bytes.size())
            return;
        const QByteArray part = bytes.mid(static_cast<int>(*offset), static_cast<int>(*length));
        const qint64 pixels = part.startsWith("\xFF\xD8\xFF") ? pixelsOf(part) : 0;
        if (pixels <= most)
            return;
        most = pixels;
        found.previewJpeg = part;
    }

    const QByteArray bytes;
    const TiffFile tiff;
    std::set<qint64> seen;
    qint64 most = 0;
    RawFile found;
};

} // namespace

RawFile examineRaw(const QByteArray &bytes, const QString &fileName)
{
    return Search(bytes).run(fileName);
}

} // namespace browser
