#include "apps/cli/sample/library_writer.h"

#include "testing/library_builder.h"

#include <QMap>

namespace sample
{

namespace
{

using testkit::LibraryBuilder;

struct WrittenAlbum {
    qint64 key;
    int kind;
};
using WrittenAlbums = QMap<QString, WrittenAlbum>; // by tag

WrittenAlbums addAlbums(LibraryBuilder &builder, const Plan &plan)
{
    WrittenAlbums written;
    for (const PlannedAlbum &album : plan.albums) {
        testkit::AlbumRow row = album.row;
        row.kind = album.kind;
        if (!album.parent.isEmpty())
            row.parent = written[album.parent].key;
        written.insert(album.tag, {builder.addAlbum(row), row.kind});
    }
    return written;
}

// Membership of an import session or of a set of duplicates is a column of the asset, all other is a row of its own.
void addAsset(LibraryBuilder &builder, const PlannedAsset &asset, const WrittenAlbums &albums)
{
    testkit::AssetRow row = asset.row;
    row.attributeColumns[QStringLiteral("ZORIGINALFILENAME")] = row.fileName;
    QVector<qint64> listedIn;
    for (const QString &tag : asset.tags) {
        const auto album = albums.find(tag);
        if (album == albums.end()) // a memory's tag, or an album that the era does not know
            continue;
        if (album->kind == ImportSession)
            row.importSession = album->key;
        else if (album->kind == DuplicateSet)
            row.columns[QStringLiteral("ZDUPLICATEMETADATAMATCHINGALBUM")] = album->key;
        else
            listedIn.append(album->key);
    }
    builder.addAsset(row);
    for (const qint64 album : listedIn)
        builder.addToAlbum(album, *row.key);
}

// One group a person. Its first face is the key face; faces that came through the cloud have a crop and no asset.
int addFaces(LibraryBuilder &builder, const Plan &plan)
{
    QMap<int, int> seen;
    int count = 0;
    for (const PlannedAsset &asset : plan.assets)
        for (const int person : asset.people) {
            testkit::FaceRow face;
            face.asset = *asset.row.key;
            face.faceGroup = person + 1;
            face.person = person + 1;
            const int number = seen[person]++;
            if (number == 0)
                face.keyFaceOfGroup = person + 1;
            builder.addFace(face);
            ++count;
        }
    for (const int person : seen.keys()) {
        testkit::FaceRow crop;
        crop.faceGroup = person + 1;
        crop.person = person + 1;
        crop.crop = person + 1;
        builder.addFace(crop);
        ++count;
    }
    return count;
}

void addMemories(LibraryBuilder &builder, const Plan &plan)
{
    for (const PlannedMemory &memory : plan.memories) {
        testkit::MemoryRow row = memory.row;
        for (const PlannedAsset &asset : plan.assets)
            if (asset.tags.contains(memory.tag) && row.curatedAssets.size() < 12)
                row.curatedAssets.append(*asset.row.key);
        if (!row.curatedAssets.isEmpty())
            row.keyAsset = row.curatedAssets.at(row.curatedAssets.size() / 2);
        builder.addMemory(row);
    }
}

QString databasePath()
{
    return QStringLiteral("PhotoData/Photos.sqlite");
}

QStringList databaseFiles()
{
    return {databasePath(), databasePath() + QStringLiteral("-wal"), databasePath() + QStringLiteral("-shm")};
}

} // namespace

void writeLibrary(FileStore &files, const Plan &plan, testkit::Era era, SampleReport &report)
{
    LibraryBuilder builder(era);
    builder.setLibraryUuid(plan.libraryUuid);
    const WrittenAlbums albums = addAlbums(builder, plan);
    const int checkpointed = plan.assets.size() * 4 / 5;
    for (int i = 0; i < plan.assets.size(); ++i) {
        if (i == checkpointed)
            builder.checkpoint();
        addAsset(builder, plan.assets.at(i), albums);
    }
    report.faces = addFaces(builder, plan);
    addMemories(builder, plan);

    for (const QString &name : databaseFiles())
        files.expect(name);
    builder.write(files.absolute(databasePath()), testkit::WalMode::WithContent);
    for (const QString &name : databaseFiles())
        files.count(name);
    report.assets = plan.assets.size();
    report.albums = plan.albums.size();
    report.memories = plan.memories.size();
}

} // namespace sample
