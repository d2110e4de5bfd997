#include "fuzz/small_library.h"

#include "fuzz/require.h"
#include "testing/library_builder.h"

#include <QFile>
#include <QTemporaryDir>

namespace fuzz
{

namespace
{

void addPhotos(testkit::LibraryBuilder *builder)
{
    testkit::AssetRow plain;
    builder->addAsset(plain);

    testkit::AssetRow video;
    video.kind = 1;
    video.duration = 12.5;
    video.latitude = 48.25;
    video.longitude = 11.5;
    builder->addAsset(video);

    testkit::AssetRow burst;
    burst.avalancheUuid = QStringLiteral("B0000000-0000-4000-8000-000000000001");
    burst.avalanchePickType = 16;
    burst.favorite = 1;
    burst.uniformTypeIdentifier = QStringLiteral("com.compuserve.gif");
    builder->addAsset(burst);

    testkit::AssetRow deleted;
    deleted.trashedState = 1;
    deleted.hidden = 1;
    builder->addAsset(deleted);
}

void addGroups(testkit::LibraryBuilder *builder)
{
    testkit::AlbumRow row;
    row.title = QStringLiteral("Walks");
    const qint64 album = builder->addAlbum(row);
    builder->addToAlbum(album, 2);
    builder->addToAlbum(album, 1);

    testkit::FaceRow face;
    face.asset = 1;
    face.faceGroup = 5;
    face.keyFaceOfGroup = 5;
    face.crop = 1;
    builder->addFace(face);

    testkit::MemoryRow memory;
    memory.title = QStringLiteral("Summer");
    memory.subtitle = QStringLiteral("%1 days");
    memory.keyAsset = 1;
    memory.curatedAssets = {1, 3};
    builder->addMemory(memory);
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    require(file.open(QIODevice::ReadOnly), "a library that was written can be read");
    return file.readAll();
}

} // namespace

SmallLibrary smallLibrary(testkit::Era era)
{
    testkit::BuilderOptions options;
    options.builtinAlbums = false;
    options.indices = false;
    testkit::LibraryBuilder builder(era, options);
    addPhotos(&builder);
    addGroups(&builder);

    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Photos.sqlite"));
    builder.write(path);
    testkit::SqlConnection file(path);
    file.exec(QStringLiteral("PRAGMA journal_mode=DELETE; PRAGMA page_size=512; VACUUM; PRAGMA journal_mode=WAL; "
                             "PRAGMA wal_checkpoint(TRUNCATE)"));
    SmallLibrary library;
    library.database = contentOf(path);
    file.exec(QStringLiteral("PRAGMA wal_autocheckpoint=0; UPDATE ZGENERICALBUM SET ZTITLE = 'Later'; "
                             "UPDATE Z_METADATA SET Z_UUID = 'B0000000-0000-4000-8000-000000000009'; "
                             "INSERT INTO ZDETECTEDFACE (Z_PK) VALUES (77)"));
    library.wal = contentOf(path + QStringLiteral("-wal"));
    return library;
}

} // namespace fuzz
