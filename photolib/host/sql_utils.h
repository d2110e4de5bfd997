#ifndef PHOTOLIB_HOST_SQL_UTILS_H
#define PHOTOLIB_HOST_SQL_UTILS_H

/// @file
/// The host's access to SQLite.

#include "photolib/export.h"

class QString;
struct sqlite3;
struct sqlite3_stmt;

/// The host's access to SQLite. The library steps, reads and finalizes statements itself, with the SQLite that it is
/// linked with: the host must use the same one.
///
/// Threads: called on whichever thread the host called the library from, during photo_manager_int::openLibrary() only.
/// One connection, with its statements, is used by one thread; different connections are opened and used by different
/// threads at once.
///
/// Failure: neither function may throw or log for the library; it logs itself.
struct PHOTOLIB_HOST SqlUtils {
    /// Opens the database file at `path`, a local path with the copy of the device's database, and stores the
    /// connection in `*db`. The companions of the copy lie beside it. Returns 0 (SQLITE_OK) on success, else an SQLite
    /// result code. On success the caller owns the connection and closes it with sqlite3_close(); on failure the caller
    /// does not look at `*db`, and the host closes what it opened.
    ///
    /// The connection must accept a double-quoted string as text where no such column exists (SQLite's default):
    /// the library's statements put "0" in the place of columns that a release lacks.
    static int openSqlite(const QString &path, sqlite3 **db);

    /// Prepares the first statement of `sql` (UTF-8; `length` in bytes, or -1 for zero-terminated text), as
    /// sqlite3_prepare_v2() does. Returns 0 on success, else an SQLite result code with `*statement` null and the
    /// connection's sqlite3_errmsg() set, which the library logs. The caller owns the statement and finalizes it before
    /// it closes the connection. `sql` is valid during the call only. `tail` may be null.
    static int prepareSqlite(sqlite3 *db, const char *sql, int length, sqlite3_stmt **statement, const char **tail);
};

#endif
