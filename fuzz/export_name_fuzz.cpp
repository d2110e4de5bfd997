// A layout for exported files and the values of a hostile photo: the folders and the name that come out.

#include "exporter/layout.h"
#include "exporter/safe_name.h"
#include "fuzz/byte_reader.h"
#include "fuzz/require.h"
#include "photolib/photo_item.h"

#include <algorithm>
#include <iterator>

namespace
{

constexpr const char *layouts[] = {
    "dcim",
    "{fileName}",
    "{created:yyyy}/{created:yyyy-MM-dd}_{fileName}",
    "{directory}/{stem}",
    "{uuid}/{extension}/{created}",
    "{stem}{stem}{stem}/{fileName}.{extension}",
    ".{stem}",
    "{mediaType}/{modified:dddd}/{trashed:yyyy/MM}/{id}{{}}",
};

QString anyText(fuzz::ByteReader *in)
{
    const bool repeated = in->seldom(8);
    QString text;
    if (in->flag()) { // any units, also halves of characters
        for (int left = in->choice(64); left > 0; --left)
            text += QChar(static_cast<ushort>(in->byte() << 8 | in->byte()));
    } else {
        text = QString::fromUtf8(in->text());
    }
    return repeated ? text.repeated(in->choice(256)) : text;
}

QDateTime anyDate(fuzz::ByteReader *in)
{
    switch (in->choice(4)) {
    case 1:
        return QDateTime::fromMSecsSinceEpoch(in->int64(), Qt::UTC);
    case 2:
        return QDateTime();
    default:
        return QDateTime::fromSecsSinceEpoch(in->int32(), Qt::UTC);
    }
}

photoItem anyPhoto(fuzz::ByteReader *in)
{
    photoItem photo;
    photo.fileName = anyText(in);
    photo.directory = anyText(in);
    photo.uuid = in->text();
    photo.dateCreated = anyDate(in);
    photo.modificationDate = anyDate(in);
    photo.trashedDate = anyDate(in);
    photo.id = in->int64();
    photo.mediaType = in->int32();
    return photo;
}

// Written down once more, so that a slip in the exporter's own table is seen.
bool isDeviceName(const QString &name)
{
    const QString base = name.section(QLatin1Char('.'), 0, 0).trimmed().toUpper();
    if (base.size() == 4 && (base.startsWith(QLatin1String("COM")) || base.startsWith(QLatin1String("LPT"))))
        return base[3].isDigit() && base[3].unicode() < 0x80;
    return base == QLatin1String("CON") || base == QLatin1String("PRN") || base == QLatin1String("AUX") ||
           base == QLatin1String("NUL");
}

bool isForbidden(QChar c)
{
    return c.unicode() < 0x20 || c.unicode() == 0x7f || QStringLiteral("/\\:*?\"<>|").contains(c);
}

void checkName(const QString &name, int maximalBytes)
{
    using fuzz::require;
    require(!name.isEmpty(), "a name is not empty");
    require(!name.startsWith(QLatin1Char('.')), "a name is neither hidden nor a way up");
    require(!name.endsWith(QLatin1Char('.')) && !name.endsWith(QLatin1Char(' ')), "a name keeps its end on Windows");
    require(std::none_of(name.begin(), name.end(), isForbidden), "a name holds no separator or reserved character");
    require(!isDeviceName(name), "a name is no device of Windows");
    require(name.toUtf8().size() <= maximalBytes, "a name is not longer than allowed");
    require(QString::fromUtf8(name.toUtf8()) == name, "a name holds whole characters only");
    require(exporter::safeName(name, maximalBytes) == name, "a safe name stays as it is");
    const QString folded = exporter::foldedName(name);
    require(exporter::foldedName(folded) == folded, "a folded name stays as it is");
}

void checkPlace(const exporter::Layout &layout, const photoItem &photo, bool utcDates)
{
    const exporter::Place place = layout.place(photo, utcDates);
    for (const QString &folder : place.folders)
        checkName(folder, exporter::maximalNameBytes);
    checkName(place.stem, exporter::maximalNameBytes);
    const exporter::Place again = layout.place(photo, utcDates);
    fuzz::require(again.folders == place.folders && again.stem == place.stem, "a photo has one place");
    const QString extension = exporter::safeExtension(exporter::extensionOf(photo.fileName));
    if (!extension.isEmpty())
        checkName(place.stem + QLatin1Char('.') + extension,
                  exporter::maximalNameBytes + 1 + exporter::maximalExtensionBytes);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::ByteReader in(data, size);
    constexpr int known = static_cast<int>(std::size(layouts));
    const int chosen = in.choice(known + 4);
    const QString text = chosen < known ? QString::fromLatin1(layouts[chosen]) : anyText(&in);
    const bool utcDates = in.flag();
    const photoItem photo = anyPhoto(&in);

    checkName(exporter::safeName(photo.fileName), exporter::maximalNameBytes);
    checkName(exporter::safeName(photo.directory, 32), 32);
    exporter::LayoutError error;
    const auto layout = exporter::Layout::parse(text, &error);
    fuzz::require(layout != nullptr || !error.text.isEmpty(), "a layout that is refused has a reason");
    if (layout != nullptr)
        checkPlace(*layout, photo, utcDates);
    return 0;
}
