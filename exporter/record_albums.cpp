// The record's rows of album folders.
#include "exporter/record.h"
#include "exporter/record_statements.h"
#include "exporter/safe_name.h"

namespace exporter
{

namespace
{

#define ENTRY_COLUMNS "id, album, file, path, size, mtime_ns, state"

StoredEntry entryOf(const Statement &row)
{
    StoredEntry entry;
    entry.id = row.integer(0);
    entry.album = row.integer(1);
    entry.file = row.integer(2);
    entry.path = row.text(3);
    entry.size = row.integer(4);
    entry.mtimeNs = row.integer(5);
    entry.done = row.text(6) == QLatin1String("done");
    return entry;
}

std::vector<StoredEntry> entriesOf(Statement &statement)
{
    std::vector<StoredEntry> entries;
    while (statement.step())
        entries.push_back(entryOf(statement));
    return entries;
}

} // namespace

std::optional<StoredAlbum> Record::album(const QString &albumKey)
{
    Statement find(*sql, "SELECT id, folder, title FROM album WHERE album = ?");
    if (!find.bind(albumKey).step())
        return std::nullopt;
    return StoredAlbum{find.integer(0), find.text(1), find.text(2)};
}

std::vector<StoredAlbum> Record::albums()
{
    Statement find(*sql, "SELECT id, folder, title FROM album ORDER BY id");
    std::vector<StoredAlbum> result;
    while (find.step())
        result.push_back({find.integer(0), find.text(1), find.text(2)});
    return result;
}

bool Record::isAlbumFolderTaken(const QString &folder)
{
    Statement find(*sql, "SELECT 1 FROM album WHERE folded = ?");
    return find.bind(foldedName(folder)).step();
}

qint64 Record::addAlbum(const QString &albumKey, const QString &title, const QString &folder)
{
    Statement add(*sql, "INSERT INTO album(album, title, folder, folded) VALUES(?, ?, ?, ?)");
    add.bind(albumKey).bind(title).bind(folder).bind(foldedName(folder)).run();
    return sql->lastRowId();
}

void Record::moveAlbum(qint64 album, const QString &title, const QString &folder)
{
    Statement move(*sql, "UPDATE album SET title = ?, folder = ?, folded = ? WHERE id = ?");
    move.bind(title).bind(folder).bind(foldedName(folder)).bind(album).run();
}

void Record::removeAlbum(qint64 album)
{
    Statement remove(*sql, "DELETE FROM album WHERE id = ?");
    remove.bind(album).run();
}

std::vector<StoredEntry> Record::entries(qint64 album)
{
    Statement find(*sql, "SELECT " ENTRY_COLUMNS " FROM entry WHERE album = ? ORDER BY id");
    return entriesOf(find.bind(album));
}

std::vector<StoredEntry> Record::entriesAfter(qint64 lastId, int limit)
{
    Statement find(*sql, "SELECT " ENTRY_COLUMNS " FROM entry WHERE id > ? AND state = 'done' ORDER BY id LIMIT ?");
    return entriesOf(find.bind(lastId).bind(static_cast<qint64>(limit)));
}

qint64 Record::addEntry(const StoredEntry &entry)
{
    const Use add(statements->addEntry);
    add->bind(entry.album).bind(entry.file).bind(entry.path).bind(foldedName(entry.path));
    add->bind(entry.size).bind(entry.mtimeNs).step();
    return sql->lastRowId();
}

void Record::finishEntry(const StoredEntry &entry)
{
    const Use finish(statements->finishEntry);
    finish->bind(entry.size).bind(entry.mtimeNs).bind(entry.id).step();
}

void Record::reopenEntry(qint64 entry)
{
    const Use reopen(statements->reopenEntry);
    reopen->bind(entry).step();
}

void Record::removeEntry(qint64 entry)
{
    const Use remove(statements->removeEntry);
    remove->bind(entry).step();
}

bool Record::isEntryPathTaken(const QString &path)
{
    const Use find(statements->entryTaken);
    return find->bind(foldedName(path)).step();
}

} // namespace exporter
