#include "photolib/db/statement.h"

#include "photolib/host/sql_utils.h"

namespace photolib
{

QString Row::text(int column) const
{
    const char *const characters = utf8(column);
    return characters ? QString::fromUtf8(characters, -1) : QString(QLatin1String(""));
}

bool Row::blob(int column, QByteArray *out) const
{
    const auto *bytes = static_cast<const char *>(sqlite3_column_blob(statement, column));
    if (!bytes)
        return false;
    *out = QByteArray(bytes, sqlite3_column_bytes(statement, column)); // append() would take room to grow
    return true;
}

Statement::Statement(sqlite3 *db, const char *sql)
    : prepareResult(SqlUtils::prepareSqlite(db, sql, -1, &statement, nullptr))
{
}

Statement::~Statement()
{
    sqlite3_finalize(statement);
}

} // namespace photolib
