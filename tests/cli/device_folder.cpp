#include "tests/cli/device_folder.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

namespace clitest
{

using testkit::AlbumRow;
using testkit::AssetRow;
using testkit::FaceRow;
using testkit::MemoryRow;

DeviceFolder::DeviceFolder()
{
    QDir(folder.path()).mkpath(QStringLiteral("PhotoData"));
}

DeviceFolder::DeviceFolder(testkit::LibraryBuilder &builder) : DeviceFolder()
{
    builder.write(database());
}

void DeviceFolder::setDatabase(const QByteArray &bytes)
{
    QFile file(database());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size())
        qFatal("the test database cannot be written");
}

QByteArray DeviceFolder::databaseBytes() const
{
    QFile file(database());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

testkit::BuilderOptions plain()
{
    testkit::BuilderOptions options;
    options.builtinAlbums = false;
    options.attributeKeys = testkit::AttributeKeys::SameAsAsset;
    return options;
}

double newYearNoon(int year)
{
    const QDateTime zero(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC);
    return static_cast<double>(zero.secsTo(QDateTime(QDate(year, 1, 1), QTime(12, 0), Qt::UTC)));
}

namespace
{

AssetRow datedAsset(int n)
{
    AssetRow row;
    row.uuid = QStringLiteral("0000000%1-AAAA-4AAA-8AAA-AAAAAAAAAAAA").arg(n);
    row.dateCreated = newYearNoon(2018 + n);
    return row;
}

void addAssets(testkit::LibraryBuilder &builder)
{
    for (int n = 1; n <= 7; ++n) {
        AssetRow row = datedAsset(n);
        row.favorite = n == 1 || n == 5 ? 1 : 0;
        row.hidden = n == 2 ? 1 : 0;
        row.kind = n == 3 ? 1 : 0;
        row.duration = n == 3 ? 65.9 : 0.0;
        row.trashedState = n == 4 ? 1 : 0;
        row.kindSubtype = n == 5 ? 10 : 0;
        row.avalancheUuid = n == 6 ? QStringLiteral("BURST-1") : QString();
        if (n == 7) {
            row.latitude = 48.8584;
            row.longitude = 2.2945;
        }
        builder.addAsset(row);
    }
}

qint64 addAlbum(testkit::LibraryBuilder &builder, const QString &title, int kind, const QString &uuid)
{
    AlbumRow row;
    row.title = title;
    row.kind = kind;
    row.uuid = uuid;
    return builder.addAlbum(row);
}

void addFace(testkit::LibraryBuilder &builder, qint64 asset)
{
    FaceRow row;
    row.asset = asset;
    row.faceGroup = 9;
    row.crop = 1;
    builder.addFace(row);
}

} // namespace

SmallLibrary::SmallLibrary() : builder(testkit::Era::Ios15, plain())
{
    builder.setLibraryUuid("LIBRARY-UUID");
    addAssets(builder);
    const qint64 trip = addAlbum(builder, QStringLiteral("Trip"), 2, QStringLiteral("ALBUM-TRIP"));
    for (const qint64 asset : {5, 1, 4})
        builder.addToAlbum(trip, asset);
    const qint64 odd = addAlbum(builder, QString::fromUtf8("Straße, \"quoted\""), 1505, QStringLiteral("ALBUM-ODD"));
    builder.addToAlbum(odd, 2);
    addAlbum(builder, QString(), 1605, QStringLiteral("ALBUM-BUILTIN"));
    addFace(builder, 1);
    addFace(builder, 5);
    MemoryRow memory;
    memory.title = QStringLiteral("Sea");
    memory.subtitle = QStringLiteral("Summer /");
    memory.keyAsset = 7;
    memory.curatedAssets = {1, 7};
    builder.addMemory(memory);
}

} // namespace clitest
