#ifndef TESTING_ROW_WRITER_H
#define TESTING_ROW_WRITER_H

#include "testing/library_rows.h"
#include "testing/sql_connection.h"

#include <optional>
#include <vector>

namespace testkit
{

/// Inserts the rows of one table, fast enough for a million of them. One thread at a time.
class RowWriter
{
public:
    struct Field {
        const char *name;
        SqlValue value;
    };
    using Fields = std::vector<Field>;

    /// Must not outlive `connection`. The table need not exist yet.
    RowWriter(SqlConnection &connection, const QString &table);

    /// Whether the table exists.
    bool isUsable();
    /// Inserts one row and returns its rowid. Every call must list the same fields in the same order. Fields that the
    /// table lacks are left out; a name in `overrides` that it lacks throws LibraryError, as does what SQLite refuses.
    qint64 insert(const Fields &fields, const ColumnValues &overrides = {});
    /// To be called after a change of the schema, and before a statement that a prepared one would disturb.
    void forget();

private:
    void prepare();
    void resolve(const Fields &fields);

    SqlConnection &database;
    QString tableName;
    QStringList columns;
    std::optional<SqlStatement> statement;
    std::vector<int> parameters; ///< of each field; 0: the table has no such column
};

} // namespace testkit

#endif
