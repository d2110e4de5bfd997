#ifndef DEVICEHOST_SQL_SCHEMA_H
#define DEVICEHOST_SQL_SCHEMA_H

#include <QByteArray>

#include <vector>

struct sqlite3;

namespace devicehost
{

/// Takes away what a schema could compute with: every virtual table, and every scalar function, of which some run for
/// minutes within one step. A schema that names them is read; a value that needs one is an error. To be called before
/// anything of the file is read. An SQLite result code.
int disarmSchema(sqlite3 *db);

/// Looks at a schema that was read. `*computed` gets the names of the tables with columns that are computed when they
/// are read. SQLITE_TOOBIG when a table has too many indices; else an SQLite result code.
int inspectSchema(sqlite3 *db, std::vector<QByteArray> *computed);

} // namespace devicehost

#endif
