#ifndef DEVICEHOST_SQL_LIMITS_H
#define DEVICEHOST_SQL_LIMITS_H

struct sqlite3;

namespace devicehost
{

/// Switches off everything in SQLite that a database from a stranger could use against the program that reads it,
/// and limits what it can make SQLite spend. Called before anything of the file is read. An SQLite result code.
int harden(sqlite3 *db);

} // namespace devicehost

#endif
