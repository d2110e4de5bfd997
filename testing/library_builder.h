#ifndef TESTING_LIBRARY_BUILDER_H
#define TESTING_LIBRARY_BUILDER_H

#include "testing/builtin_albums.h"
#include "testing/era.h"
#include "testing/library_file.h"
#include "testing/library_rows.h"
#include "testing/row_writer.h"
#include "testing/sql_connection.h"

#include <QHash>
#include <QSet>
#include <memory>

namespace testkit
{

/// The key of an asset's row in ZADDITIONALASSETATTRIBUTES.
enum class AttributeKeys {
    Own,         ///< a sequence of its own that never meets the asset's key, as in real libraries: 2, 3, 4, ...
    SameAsAsset, ///< the asset's key, so that the file sizes and cameras read are those of the asset itself
};

struct BuilderOptions {
    bool builtinAlbums = true; ///< the 38 to 48 albums that every real library has
    bool indices = true;       ///< the indices of the tables; a large library is written faster without them
    AttributeKeys attributeKeys = AttributeKeys::Own;
};

/// Writes photo library databases of any release, for tests, benchmarks and the sample device.
///
/// Rows go into a private database as they are added, so that a million assets need little memory; write() puts the
/// result on disk and may be called again after further changes. The same calls give the same rows.
///
/// One thread at a time. Every function throws LibraryError when SQLite refuses something; the builder stays usable. Of
/// a row that spans two tables (an asset and its attributes, a memory and its list) a part may then be there.
class LibraryBuilder
{
public:
    explicit LibraryBuilder(Era era, const BuilderOptions &wanted = {});
    ~LibraryBuilder();
    LibraryBuilder(const LibraryBuilder &) = delete;
    LibraryBuilder &operator=(const LibraryBuilder &) = delete;

    const EraFacts &facts() const { return eraFacts; }

    /// Each adds one row and returns its key.
    qint64 addAsset(const AssetRow &row = {});
    qint64 addAlbum(const AlbumRow &row = {});
    qint64 addFace(const FaceRow &row);
    qint64 addMemory(const MemoryRow &row);
    /// Puts `asset` behind the others of `album`; neither needs to exist. Twice the same pair is refused.
    void addToAlbum(qint64 album, qint64 asset);

    /// Z_UUID of Z_METADATA.
    void setLibraryUuid(const SqlValue &uuid);

    /// Changes of the schema. Rows that are added later follow it.
    void dropColumn(const QString &table, const QString &column);
    void dropTable(const QString &table);
    /// `declaration` is the column's type and whatever may follow it: "INTEGER", "VARCHAR DEFAULT 'x'".
    void addColumn(const QString &table, const QString &column, const QString &declaration);
    void addEntity(const QString &name, int number, int super = 0, int max = 0);
    void removeEntity(const QString &name);
    /// Fixes Z_MAX of an entity, which otherwise becomes the highest key of its table (0 unless a root entity).
    void setEntityMax(const QString &name, int max);
    /// Runs any other statements, outside of a transaction.
    void exec(const QString &sql);

    /// What was added so far will be in the database file, what follows only in the "-wal" of WalMode::WithContent.
    /// Without a call everything but the schema, Z_METADATA and Z_PRIMARYKEY is in the "-wal".
    void checkpoint();

    /// Writes the library to `path` and replaces what is there, "-wal" and "-shm" files included.
    void write(const QString &path, WalMode mode = WalMode::None);
    /// The same as bytes, by way of a temporary folder.
    LibraryBytes bytes(WalMode mode = WalMode::None);

private:
    struct Table {
        Table(SqlConnection &connection, const QString &name) : writer(connection, name) {}
        RowWriter writer;
        qint64 maxKey = 0;
        qint64 takeKey(const std::optional<qint64> &wanted);
    };

    void createSchema();
    void addBuiltinAlbums();
    void addAttributes(const AssetRow &row, qint64 asset, qint64 key, const QString &fileName);
    qint64 attributeKeyFor(const AssetRow &row, qint64 asset);
    void commit();
    void begin();
    void forgetSchema();
    std::unique_ptr<SqlConnection> finishedCopy();
    void setMaxima(SqlConnection &copy) const;
    void createIndices(SqlConnection &copy) const;

    BuilderOptions options;
    const EraFacts &eraFacts;
    SqlConnection connection;
    Table assets;
    Table attributes;
    Table albums;
    Table faces;
    Table memories;
    RowWriter albumMembers;
    RowWriter curatedAssets;
    QByteArray assetCompanion; ///< beside ZASSET: "Z34_ASSET"
    QByteArray keyAssetCompanion;
    std::unique_ptr<SqlConnection> checkpointed;
    QHash<qint64, qint64> albumOrder; ///< the highest order number in each album
    QSet<QString> fixedMaxima;
    qint64 rootFolder = 0;
    qint64 assetCount = 0;
    qint64 albumCount = 0;
};

} // namespace testkit

#endif
