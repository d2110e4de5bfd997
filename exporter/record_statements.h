#ifndef EXPORTER_RECORD_STATEMENTS_H
#define EXPORTER_RECORD_STATEMENTS_H

#include "exporter/record.h"

namespace exporter
{

/// Those that run for every photo, prepared once.
struct Record::Statements {
    explicit Statements(Sql &sql)
        : latestSet(sql, "SELECT id, stem_path FROM fileset WHERE photo = ? ORDER BY id DESC LIMIT 1"),
          setFiles(sql, "SELECT id, fileset, role, device_path, size, sha256, modified, path, mtime_ns, uuid FROM file "
                        "WHERE fileset = ? AND state = 'done' ORDER BY id"),
          earlierFiles(sql, "SELECT file.id, fileset, path, stem_path FROM file JOIN fileset ON fileset.id = fileset "
                            "WHERE photo = ? AND fileset < ? ORDER BY file.id"),
          stemTaken(sql, "SELECT 1 FROM fileset WHERE folded = ?"),
          pathTaken(sql, "SELECT 1 FROM file WHERE folded = ?"),
          addSet(sql, "INSERT INTO fileset(photo, stem_path, folded) VALUES(?, ?, ?)"),
          addFile(sql,
                  "INSERT INTO file(fileset, uuid, role, device_path, size, sha256, modified, path, folded, mtime_ns, "
                  "state) VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 'intent')"),
          finishFile(sql, "UPDATE file SET mtime_ns = ?, state = 'done' WHERE id = ?"),
          refreshFile(sql, "UPDATE file SET device_path = ?, modified = ?, mtime_ns = ? WHERE id = ?"),
          removeFile(sql, "DELETE FROM file WHERE id = ?"), entryTaken(sql, "SELECT 1 FROM entry WHERE folded = ?"),
          addEntry(sql, "INSERT INTO entry(album, file, path, folded, size, mtime_ns, state) "
                        "VALUES(?, ?, ?, ?, ?, ?, 'intent')"),
          finishEntry(sql, "UPDATE entry SET size = ?, mtime_ns = ?, state = 'done' WHERE id = ?"),
          reopenEntry(sql, "UPDATE entry SET state = 'intent' WHERE id = ?"),
          removeEntry(sql, "DELETE FROM entry WHERE id = ?")
    {
    }

    Statement latestSet;
    Statement setFiles;
    Statement earlierFiles;
    Statement stemTaken;
    Statement pathTaken;
    Statement addSet;
    Statement addFile;
    Statement finishFile;
    Statement refreshFile;
    Statement removeFile;
    Statement entryTaken;
    Statement addEntry;
    Statement finishEntry;
    Statement reopenEntry;
    Statement removeEntry;
};

/// Takes a statement for one use and leaves it fit for the next, also when it throws.
class Use
{
public:
    explicit Use(Statement &wanted) : statement(wanted) {}
    Use(const Use &) = delete;
    Use &operator=(const Use &) = delete;
    ~Use() { statement.reset(); }
    Statement *operator->() const { return &statement; }
    Statement &operator*() const { return statement; }

private:
    Statement &statement;
};

} // namespace exporter

#endif
