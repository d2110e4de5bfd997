#ifndef PHOTOLIB_DB_STATEMENT_H
#define PHOTOLIB_DB_STATEMENT_H

#include <QByteArray>
#include <QString>

#include <sqlite3.h>

namespace photolib
{

/// Statement text, formatted by sqlite3_snprintf into a fixed buffer. Longer text is cut off at its end, and then
/// fails to prepare.
class SqlText
{
public:
    template <typename... Arguments>
    explicit SqlText(const char *format, Arguments... arguments)
    {
        sqlite3_snprintf(static_cast<int>(sizeof text), text, format, arguments...);
    }

    const char *get() const { return text; }

private:
    char text[1024] = {};
};

/// The current row of a statement. SQLite's own conversions apply to every column: NULL is 0 and the empty text.
class Row
{
public:
    explicit Row(sqlite3_stmt *statement) : statement(statement) {}

    int columnCount() const { return sqlite3_column_count(statement); }
    const char *columnName(int column) const { return sqlite3_column_name(statement, column); }
    int int32(int column) const { return sqlite3_column_int(statement, column); }
    qint64 int64(int column) const { return sqlite3_column_int64(statement, column); }
    double real(int column) const { return sqlite3_column_double(statement, column); }

    /// The text up to its first zero character; empty, not null, for NULL.
    QString text(int column) const;

    /// The same in UTF-8, SQLite's until the next step; null for NULL.
    const char *utf8(int column) const
    {
        return reinterpret_cast<const char *>(sqlite3_column_text(statement, column));
    }

    /// The value's bytes as stored. False, with `*out` untouched, for NULL and for a value without bytes.
    bool blob(int column, QByteArray *out) const;

private:
    sqlite3_stmt *statement;
};

/// One prepared statement, finalized with the object.
class Statement
{
public:
    /// Prepares `sql` through the host; result() tells how that went.
    Statement(sqlite3 *db, const char *sql);
    ~Statement();
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;

    int result() const { return prepareResult; }
    bool isPrepared() const { return prepareResult == SQLITE_OK; }

    /// Its rows, for a range-based loop. An error while stepping ends the rows like their natural end, and so does
    /// `stop` when it becomes true.
    class Rows rows(const bool &stop);

private:
    sqlite3_stmt *statement = nullptr;
    int prepareResult;
};

/// A single-pass range over the rows of a statement.
class Rows
{
public:
    Rows(sqlite3_stmt *statement, const bool &stop) : statement(statement), stop(stop) {}

    class Iterator
    {
    public:
        explicit Iterator(const Rows *rows) : rows(rows) { advance(); }
        Row operator*() const { return Row(rows->statement); }
        Iterator &operator++()
        {
            advance();
            return *this;
        }
        bool operator!=(std::nullptr_t) const { return rows != nullptr; }

    private:
        void advance()
        {
            if (rows->stop || sqlite3_step(rows->statement) != SQLITE_ROW || rows->stop)
                rows = nullptr;
        }
        const Rows *rows;
    };

    Iterator begin() const { return Iterator(this); }
    std::nullptr_t end() const { return nullptr; }

private:
    sqlite3_stmt *statement;
    const bool &stop;
};

inline Rows Statement::rows(const bool &stop)
{
    return Rows(statement, stop);
}

} // namespace photolib

#endif
