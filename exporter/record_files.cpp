// The record's rows of exported files.
#include "exporter/record.h"
#include "exporter/record_statements.h"
#include "exporter/safe_name.h"

namespace exporter
{

namespace
{

// The columns as in Statements::setFiles.
#define FILE_COLUMNS "id, fileset, role, device_path, size, sha256, modified, path, mtime_ns, uuid"

StoredFile fileOf(const Statement &row)
{
    StoredFile file;
    file.id = row.integer(0);
    file.set = row.integer(1);
    file.role = static_cast<Role>(row.integer(2));
    file.devicePath = row.text(3);
    file.size = row.integer(4);
    file.sha256 = row.blob(5);
    file.modified = row.optionalInteger(6);
    file.path = row.text(7);
    file.mtimeNs = row.integer(8);
    file.uuid = row.blob(9);
    return file;
}

std::vector<StoredFile> filesOf(Statement &statement)
{
    std::vector<StoredFile> files;
    while (statement.step())
        files.push_back(fileOf(statement));
    return files;
}

} // namespace

std::optional<StoredSet> Record::latestSet(const QString &photoKey)
{
    StoredSet set;
    {
        const Use find(statements->latestSet);
        if (!find->bind(photoKey).step())
            return std::nullopt;
        set.id = find->integer(0);
        set.stemPath = find->text(1);
    }
    const Use files(statements->setFiles);
    set.files = filesOf(files->bind(set.id));
    return set;
}

std::vector<EarlierFile> Record::earlierFiles(const QString &photoKey, qint64 set)
{
    const Use find(statements->earlierFiles);
    find->bind(photoKey).bind(set);
    std::vector<EarlierFile> files;
    while (find->step())
        files.push_back({find->integer(0), find->integer(1), find->text(2), find->text(3)});
    return files;
}

bool Record::isStemTaken(const QString &stemPath)
{
    const Use find(statements->stemTaken);
    return find->bind(foldedName(stemPath)).step();
}

bool Record::isPathTaken(const QString &path)
{
    const Use find(statements->pathTaken);
    return find->bind(foldedName(path)).step();
}

qint64 Record::addSet(const QString &photoKey, const QString &stemPath)
{
    const Use add(statements->addSet);
    add->bind(photoKey).bind(stemPath).bind(foldedName(stemPath)).step();
    return sql->lastRowId();
}

qint64 Record::addFile(const StoredFile &file)
{
    const Use add(statements->addFile);
    add->bind(file.set).bind(file.uuid).bind(static_cast<qint64>(file.role)).bind(file.devicePath).bind(file.size);
    add->bind(file.sha256).bind(file.modified).bind(file.path).bind(foldedName(file.path)).bind(file.mtimeNs);
    add->step();
    return sql->lastRowId();
}

void Record::finishFile(qint64 file, qint64 mtimeNs)
{
    const Use finish(statements->finishFile);
    finish->bind(mtimeNs).bind(file).step();
}

void Record::refreshFile(const StoredFile &file)
{
    const Use refresh(statements->refreshFile);
    refresh->bind(file.devicePath).bind(file.modified).bind(file.mtimeNs).bind(file.id).step();
}

void Record::removeFile(qint64 file)
{
    const Use remove(statements->removeFile);
    remove->bind(file).step();
}

void Record::removeEmptySet(qint64 set)
{
    Statement remove(*sql, "DELETE FROM fileset WHERE id = ?1 AND NOT EXISTS(SELECT 1 FROM file WHERE fileset = ?1)");
    remove.bind(set).run();
}

void Record::removeSet(qint64 set)
{
    Statement files(*sql, "DELETE FROM file WHERE fileset = ?");
    files.bind(set).run();
    removeEmptySet(set);
}

std::vector<StoredFile> Record::intents()
{
    Statement find(*sql, "SELECT " FILE_COLUMNS " FROM file WHERE state = 'intent' ORDER BY id");
    return filesOf(find);
}

std::vector<StoredFile> Record::filesAfter(qint64 lastId, int limit)
{
    Statement find(*sql, "SELECT " FILE_COLUMNS " FROM file WHERE id > ? AND state = 'done' ORDER BY id LIMIT ?");
    return filesOf(find.bind(lastId).bind(static_cast<qint64>(limit)));
}

std::optional<StoredFile> Record::file(qint64 id)
{
    Statement find(*sql, "SELECT " FILE_COLUMNS " FROM file WHERE id = ?");
    if (!find.bind(id).step())
        return std::nullopt;
    return fileOf(find);
}

} // namespace exporter
