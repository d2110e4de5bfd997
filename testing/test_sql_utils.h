#ifndef TESTING_TEST_SQL_UTILS_H
#define TESTING_TEST_SQL_UTILS_H

#include <functional>

class QString;
struct sqlite3;
struct sqlite3_stmt;

namespace testkit
{

/// Opens an existing database file for reading and writing, with SQLite's defaults, and reads its schema once, so
/// that a file which is no database fails here. On failure nothing stays open and `*db` is null.
int openSqliteFile(const QString &path, sqlite3 **db);

/// sqlite3_prepare_v2().
int prepareSqliteStatement(sqlite3 *db, const char *sql, int length, sqlite3_stmt **statement, const char **tail);

/// Has `closed` called once when `db` is really closed: not by an sqlite3_close() that SQLite refuses because
/// statements are left over. It is called on the closing thread, inside SQLite, and must not use `db`.
void callWhenClosed(sqlite3 *db, std::function<void()> closed);

} // namespace testkit

#endif
