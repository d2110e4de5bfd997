#include "testing/library_builder.h"

#include "testing/library_schema.h"
#include "testing/made_values.h"

#include <QFile>
#include <QTemporaryDir>
#include <algorithm>

namespace testkit
{

namespace
{

// The name of the column beside a link to GenericAsset; the writer leaves it out where the era has none.
QByteArray companionOf(const EraFacts &facts, const char *link)
{
    return 'Z' + QByteArray::number(facts.assetEntityNumber) + '_' + QByteArray(link).mid(1);
}

QByteArray modelDescription(const EraFacts &facts)
{
    return QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict><key>PLModelVersion"
                          "</key><integer>%1</integer></dict></plist>\n")
        .arg(facts.modelVersion)
        .toUtf8();
}

void prepareWorkspace(SqlConnection &connection)
{
    // As real libraries have them; the journal serves a failed statement only.
    connection.exec(QStringLiteral("PRAGMA page_size = 4096; PRAGMA auto_vacuum = INCREMENTAL; "
                                   "PRAGMA journal_mode = MEMORY; PRAGMA synchronous = OFF; "
                                   "PRAGMA cache_size = -65536"));
}

// The state before the first row was saved: an empty library whose key counters have not moved.
void emptyTables(SqlConnection &connection)
{
    const auto tables = connection.rows(
        QStringLiteral("select name from sqlite_master where type = 'table' and name not like 'sqlite_%' "
                       "and name not in ('Z_METADATA', 'Z_PRIMARYKEY', 'Z_MODELCACHE')"));
    for (const auto &table : tables) {
        const QByteArray name = std::get<SqlValue::TextBytes>(table.front().storage()).bytes;
        connection.exec(QStringLiteral("DELETE FROM ") + quotedName(QString::fromUtf8(name)));
    }
    if (!connection.columns(QStringLiteral("Z_PRIMARYKEY")).isEmpty())
        connection.exec(QStringLiteral("UPDATE Z_PRIMARYKEY SET Z_MAX = 0"));
    connection.exec(QStringLiteral("VACUUM"));
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw LibraryError(file.errorString().toStdString() + ": " + path.toStdString());
    return file.readAll();
}

} // namespace

LibraryBuilder::LibraryBuilder(Era era, const BuilderOptions &wanted)
    : options(wanted), eraFacts(factsOf(era)), assets(connection, QLatin1String(eraFacts.assetTable)),
      attributes(connection, QStringLiteral("ZADDITIONALASSETATTRIBUTES")),
      albums(connection, QStringLiteral("ZGENERICALBUM")), faces(connection, QStringLiteral("ZDETECTEDFACE")),
      memories(connection, QStringLiteral("ZMEMORY")), albumMembers(connection, eraFacts.albumJoinTable()),
      curatedAssets(connection, eraFacts.memoryJoinTable()), assetCompanion(companionOf(eraFacts, "ZASSET")),
      keyAssetCompanion(companionOf(eraFacts, "ZKEYASSET"))
{
    prepareWorkspace(connection);
    begin();
    createSchema();
    if (options.builtinAlbums)
        addBuiltinAlbums();
}

LibraryBuilder::~LibraryBuilder() = default;

void LibraryBuilder::createSchema()
{
    for (const QString &table : tablesOf(eraFacts.era))
        connection.exec(table);
    RowWriter entities(connection, QStringLiteral("Z_PRIMARYKEY"));
    for (const EntitySpec &entity : entitiesOf(eraFacts.era))
        entities.insert({{"Z_ENT", entity.number}, {"Z_NAME", entity.name}, {"Z_SUPER", entity.super}, {"Z_MAX", 0}});
    RowWriter metadata(connection, QStringLiteral("Z_METADATA"));
    metadata.insert(
        {{"Z_VERSION", 1}, {"Z_UUID", madeUuid(UuidUse::Library, 0)}, {"Z_PLIST", modelDescription(eraFacts)}});
}

void LibraryBuilder::addBuiltinAlbums()
{
    for (const BuiltinAlbum &builtin : builtinAlbumsOf(eraFacts.era)) {
        AlbumRow row;
        row.kind = builtin.kind;
        row.title = builtin.title;
        const qint64 key = addAlbum(row);
        if (builtin.kind == 3999)
            rootFolder = key;
    }
}

void LibraryBuilder::setLibraryUuid(const SqlValue &uuid)
{
    SqlStatement statement(connection, QStringLiteral("UPDATE Z_METADATA SET Z_UUID = ?"));
    statement.bind(1, uuid);
    statement.step();
}

void LibraryBuilder::dropColumn(const QString &table, const QString &column)
{
    exec(QStringLiteral("ALTER TABLE %1 DROP COLUMN %2").arg(quotedName(table), quotedName(column)));
}

void LibraryBuilder::dropTable(const QString &table)
{
    exec(QStringLiteral("DROP TABLE ") + quotedName(table));
}

void LibraryBuilder::addColumn(const QString &table, const QString &column, const QString &declaration)
{
    // Not in quotes: the table's CREATE statement keeps the name as it stands here.
    exec(QStringLiteral("ALTER TABLE %1 ADD COLUMN %2 %3").arg(quotedName(table), column, declaration));
}

void LibraryBuilder::addEntity(const QString &name, int number, int super, int max)
{
    RowWriter(connection, QStringLiteral("Z_PRIMARYKEY"))
        .insert({{"Z_ENT", number}, {"Z_NAME", name}, {"Z_SUPER", super}, {"Z_MAX", max}});
    fixedMaxima << name;
}

void LibraryBuilder::removeEntity(const QString &name)
{
    SqlStatement statement(connection, QStringLiteral("DELETE FROM Z_PRIMARYKEY WHERE Z_NAME = ?"));
    statement.bind(1, name);
    statement.step();
}

void LibraryBuilder::setEntityMax(const QString &name, int max)
{
    SqlStatement statement(connection, QStringLiteral("UPDATE Z_PRIMARYKEY SET Z_MAX = ? WHERE Z_NAME = ?"));
    statement.bind(1, max);
    statement.bind(2, name);
    statement.step();
    fixedMaxima << name;
}

void LibraryBuilder::exec(const QString &sql)
{
    forgetSchema();
    commit();
    try {
        connection.exec(sql);
    } catch (const LibraryError &) {
        begin();
        throw;
    }
    begin();
}

void LibraryBuilder::forgetSchema()
{
    for (Table *table : {&assets, &attributes, &albums, &faces, &memories})
        table->writer.forget();
    albumMembers.forget();
    curatedAssets.forget();
}

void LibraryBuilder::begin()
{
    connection.exec(QStringLiteral("BEGIN"));
}

void LibraryBuilder::commit()
{
    connection.exec(QStringLiteral("COMMIT"));
}

std::unique_ptr<SqlConnection> LibraryBuilder::finishedCopy()
{
    auto copy = std::make_unique<SqlConnection>();
    prepareWorkspace(*copy);
    commit();
    connection.copyTo(*copy);
    begin();
    setMaxima(*copy);
    if (options.indices)
        createIndices(*copy);
    return copy;
}

void LibraryBuilder::setMaxima(SqlConnection &copy) const
{
    if (copy.columns(QStringLiteral("Z_PRIMARYKEY")).isEmpty())
        return;
    const std::pair<QString, qint64> maxima[] = {
        {QStringLiteral("AdditionalAssetAttributes"), attributes.maxKey},
        {QLatin1String(eraFacts.assetEntity), assets.maxKey},
        {QStringLiteral("DetectedFace"), faces.maxKey},
        {QStringLiteral("GenericAlbum"), albums.maxKey},
        {QStringLiteral("Memory"), memories.maxKey},
    };
    SqlStatement statement(copy, QStringLiteral("UPDATE Z_PRIMARYKEY SET Z_MAX = ? WHERE Z_NAME = ?"));
    for (const auto &[name, max] : maxima) {
        if (fixedMaxima.contains(name))
            continue;
        statement.bind(1, max);
        statement.bind(2, name);
        statement.step();
        statement.reset();
    }
}

// Made last: rows are inserted faster without them, and a column without an index can be dropped.
void LibraryBuilder::createIndices(SqlConnection &copy) const
{
    for (const IndexSpec &index : indicesOf(eraFacts.era)) {
        const QStringList present = copy.columns(index.table);
        const bool possible = std::all_of(index.columns.cbegin(), index.columns.cend(),
                                          [&](const QString &column) { return present.contains(column); });
        if (possible)
            copy.exec(index.sql());
    }
}

void LibraryBuilder::checkpoint()
{
    checkpointed = finishedCopy();
}

void LibraryBuilder::write(const QString &path, WalMode mode)
{
    const std::unique_ptr<SqlConnection> content = finishedCopy();
    if (mode == WalMode::None) {
        writeCheckpointed(*content, path);
    } else if (checkpointed) {
        writeWithWal(*checkpointed, *content, path);
    } else {
        SqlConnection base;
        content->copyTo(base);
        emptyTables(base);
        writeWithWal(base, *content, path);
    }
}

LibraryBytes LibraryBuilder::bytes(WalMode mode)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Photos.sqlite"));
    write(path, mode);
    if (mode == WalMode::None)
        return {contentOf(path), {}, {}};
    return {contentOf(path), contentOf(path + QLatin1String("-wal")), contentOf(path + QLatin1String("-shm"))};
}

} // namespace testkit
