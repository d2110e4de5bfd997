#ifndef TESTING_SQL_CONNECTION_H
#define TESTING_SQL_CONNECTION_H

#include "testing/sql_value.h"

#include <QString>
#include <QStringList>
#include <stdexcept>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace testkit
{

/// What SQLite refused, with the statement in the message. Thrown by everything in this folder that touches a database.
class LibraryError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// A small owner for an SQLite connection, for code that writes or examines databases. One thread at a time.
class SqlConnection
{
public:
    /// A private database, gone with the connection: in memory while small, in a temporary file when large.
    SqlConnection();
    /// The database file at `path`, made when absent. Throws LibraryError when it cannot be opened.
    explicit SqlConnection(const QString &path);
    ~SqlConnection();
    SqlConnection(const SqlConnection &) = delete;
    SqlConnection &operator=(const SqlConnection &) = delete;

    /// Runs all statements of `sql`, which may be separated by semicolons; rows are ignored.
    void exec(const QString &sql);

    /// All rows of one query, each value with its storage class.
    std::vector<std::vector<SqlValue>> rows(const QString &sql);

    /// The columns of `table` in order; empty when there is no such table.
    QStringList columns(const QString &table);

    /// Replaces the whole database of `target` with this one. Neither may have a transaction open. In a `target` that
    /// is in WAL mode the pages go into its write-ahead log.
    void copyTo(SqlConnection &target);

    /// Leaves a write-ahead log and its index beside the file when the connection closes.
    void keepWalOnClose();

    /// Borrowed; valid as long as this object.
    sqlite3 *handle() const { return database; }

private:
    void open(const QByteArray &path);

    sqlite3 *database = nullptr;
};

/// One prepared statement that is run many times. Must not outlive its connection.
class SqlStatement
{
public:
    SqlStatement(SqlConnection &connection, const QString &sql);
    ~SqlStatement();
    SqlStatement(SqlStatement &&other) noexcept;
    SqlStatement(const SqlStatement &) = delete;
    SqlStatement &operator=(const SqlStatement &) = delete;

    /// Sets the parameter `index`, counted from 1, for the next step(). The value is copied.
    void bind(int index, const SqlValue &value);
    /// True when there is a row. Throws LibraryError on failure, after reset().
    bool step();
    /// Makes the statement ready to run again, with all parameters NULL.
    void reset();
    int columnCount() const;
    SqlValue column(int index) const;

private:
    SqlConnection &owner;
    sqlite3_stmt *compiled = nullptr;
};

/// `name` as an SQL identifier, in double quotes.
QString quotedName(const QString &name);

} // namespace testkit

#endif
