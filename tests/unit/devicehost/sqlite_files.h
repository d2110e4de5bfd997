#ifndef TESTS_UNIT_DEVICEHOST_SQLITE_FILES_H
#define TESTS_UNIT_DEVICEHOST_SQLITE_FILES_H

#include <QString>

#include <sqlite3.h>

#include <memory>

struct ConnectionCloser {
    void operator()(sqlite3 *db) const { sqlite3_close(db); }
};
using Connection = std::unique_ptr<sqlite3, ConnectionCloser>;

struct StatementFinalizer {
    void operator()(sqlite3_stmt *statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, StatementFinalizer>;

/// Opens as the library does; null on failure, with the result code in `*result` unless that is null.
Connection openThroughHost(const QString &path, int *result = nullptr);

/// Prepares as the library does; null on failure.
Statement prepareThroughHost(const Connection &db, const char *sql, int *result = nullptr);

/// Creates a database, or opens it, past the host, and runs `sql` on it. The test ends when that fails.
Connection makeDatabase(const QString &path, const char *sql);

/// A table "rows" with `count` rows of about 400 bytes, 4096-byte pages.
void makeRows(const QString &path, int count);

/// The number of rows that a SELECT gives, or -1 when it cannot be prepared or ends in an error.
int rowCount(const Connection &db, const char *sql);

#endif
