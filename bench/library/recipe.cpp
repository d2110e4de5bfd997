#include "bench/library/recipe.h"

#include "testing/library_builder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <algorithm>

namespace bench
{

namespace
{

using testkit::AlbumRow;
using testkit::AssetRow;
using testkit::FaceRow;
using testkit::LibraryBuilder;
using testkit::MemoryRow;

constexpr int faceGroups = 200;
constexpr int memories = 50;
constexpr int membersOfASmallAlbum = 20;
constexpr int membersOfAMemory = 100;
constexpr int photosOfABurst = 10;
constexpr int photosOfAPlace = 8;

void addPlace(AssetRow *row, int place)
{
    row->latitude = 47.0 + 0.0001 * (place % 30000);
    row->longitude = 8.0 + 0.0003 * (place / 30000);
}

void addBurst(AssetRow *row, int n)
{
    const int burst = n / 500;
    row->avalancheUuid = QStringLiteral("B0B0B0B0-0000-4000-8000-%1").arg(burst, 12, 10, QLatin1Char('0'));
    row->avalanchePickType = n % photosOfABurst == 0 ? 16 : 2;
    row->visibilityState = n % photosOfABurst == 0 ? 0 : 2;
}

AssetRow assetOf(int n, const Recipe &recipe)
{
    AssetRow row;
    if (recipe.synced)
        row.directory = QStringLiteral("PhotoData/Sync/%1SYNCD").arg(100 + n / 1000);
    if (n % 10 == 7) {
        row.kind = 1;
        row.duration = 12.5;
    } else if (n % 3 != 0) {
        row.uniformTypeIdentifier = QStringLiteral("public.heic");
    }
    row.fileSize = 1'200'000 + n % 1000 * 1000;
    row.favorite = n % 33 == 0 ? 1 : 0;
    row.hidden = n % 200 == 1 ? 1 : 0;
    row.trashedState = n % 100 == 3 ? 1 : 0;
    row.cameraDevice = n % 8 == 0 ? 1 : 0;
    if (row.kind == 0 && n % 4 == 1)
        row.kindSubtype = 2;
    else if (n % 10 == 4)
        row.kindSubtype = 10;
    if (recipe.ownPlaces)
        addPlace(&row, n);
    else if (n % 10 < 6)
        addPlace(&row, n / photosOfAPlace);
    if (recipe.oneBurst || n % 500 < photosOfABurst)
        addBurst(&row, recipe.oneBurst ? n % 500 : n);
    return row;
}

void addUsualAlbums(LibraryBuilder *library, int assets)
{
    const int albums = assets * 3 / 100;
    AlbumRow row;
    for (int n = 0; n < albums; ++n) {
        row.title = QStringLiteral("Album %1").arg(n);
        const qint64 album = library->addAlbum(row);
        const int members = n == 0 ? assets / 2 : std::min(membersOfASmallAlbum, assets);
        for (int member = 0; member < members; ++member)
            library->addToAlbum(album, (n == 0 ? 2 * member : n * 31 + member) % assets + 1);
    }
}

// Each asset once, in albums of `size`.
void addAlbumsOf(LibraryBuilder *library, int assets, int size)
{
    AlbumRow row;
    qint64 album = 0;
    for (int n = 0; n < assets; ++n) {
        if (n % size == 0) {
            row.title = QStringLiteral("Album %1").arg(n / size);
            album = library->addAlbum(row);
        }
        library->addToAlbum(album, n + 1);
    }
}

void addAlbums(LibraryBuilder *library, const Recipe &recipe)
{
    switch (recipe.albums) {
    case Albums::Usual:
        return addUsualAlbums(library, recipe.assets);
    case Albums::OneOfAll:
        return addAlbumsOf(library, recipe.assets, recipe.assets);
    case Albums::Small:
        return addAlbumsOf(library, recipe.assets, membersOfASmallAlbum);
    }
}

void addFaces(LibraryBuilder *library, int assets)
{
    const int faces = assets + assets / 2;
    FaceRow row;
    for (int n = 0; n < faces; ++n) {
        const int group = n % faceGroups + 1;
        row.asset = n % assets + 1;
        row.faceGroup = group;
        row.crop = n < faceGroups ? std::optional<qint64>(n + 1) : std::nullopt;
        row.keyFaceOfGroup = n < faceGroups ? std::optional<qint64>(group) : std::nullopt;
        library->addFace(row);
    }
}

void addMemories(LibraryBuilder *library, int assets)
{
    for (int n = 0; n < memories && assets > 0; ++n) {
        MemoryRow row;
        row.title = QStringLiteral("Days at the lake");
        row.subtitle = QStringLiteral("Summer %1").arg(1970 + n);
        row.keyAsset = n * 7 % assets + 1;
        const int members = std::min(membersOfAMemory, assets);
        for (int member = 0; member < members; ++member)
            row.curatedAssets.append((n * 37 + member) % assets + 1);
        library->addMemory(row);
    }
}

void write(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw testkit::LibraryError(file.errorString().toStdString() + ": " + path.toStdString());
}

QByteArray madeBytes(qint64 count, int seed)
{
    QByteArray bytes(static_cast<int>(count), '\0');
    for (int i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>((i * 7 + i / 251 + seed * 131) & 0xFF);
    return bytes;
}

// A picture of 332 by 332 pixels in rows of 336.
QByteArray madeFrame(int seed)
{
    QByteArray frame = madeBytes(336 * 332 * 2, seed);
    QByteArray trailer(28, '\0');
    for (const int field : {16, 20})
        qToLittleEndian<qint32>(332, trailer.data() + field);
    return frame + trailer;
}

// The names are those that the library builder gives.
void writeFiles(const QString &folder, const Recipe &recipe)
{
    QByteArray frames;
    for (int n = 0; n < recipe.files; ++n) {
        const QString suffix = assetOf(n, recipe).kind == 1 ? QStringLiteral("MOV") : QStringLiteral("JPG");
        const QString name = QStringLiteral("DCIM/100APPLE/IMG_%1.%2").arg(n + 1, 4, 10, QLatin1Char('0')).arg(suffix);
        write(folder + QLatin1Char('/') + name, madeBytes(recipe.fileBytes, n));
        frames += madeFrame(n);
        if (n == 0)
            write(QStringLiteral("%1/PhotoData/Thumbnails/V2/%2/5005.JPG").arg(folder, name), madeBytes(50'000, n));
    }
    write(folder + QStringLiteral("/PhotoData/Thumbnails/332x332.ithmb"), frames);
}

} // namespace

void writeDevice(const QString &folder, const Recipe &recipe)
{
    LibraryBuilder library(testkit::Era::Ios15);
    for (int n = 0; n < recipe.assets; ++n)
        library.addAsset(assetOf(n, recipe));
    addAlbums(&library, recipe);
    addFaces(&library, recipe.assets);
    addMemories(&library, recipe.assets);
    QDir().mkpath(folder + QStringLiteral("/PhotoData"));
    library.write(folder + QStringLiteral("/PhotoData/Photos.sqlite"));
    if (recipe.files > 0)
        writeFiles(folder, recipe);
}

} // namespace bench
