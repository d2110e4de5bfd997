#include "devicehost/sql_schema.h"

#include "devicehost/sql_limits.h"

#include <sqlite3.h>

#include <memory>

namespace devicehost
{

namespace
{

struct Finalizer {
    void operator()(sqlite3_stmt *statement) const { sqlite3_finalize(statement); }
};

QByteArray textOf(sqlite3_stmt *row, int column)
{
    return reinterpret_cast<const char *>(sqlite3_column_text(row, column));
}

/// The first column of the rows that `wanted` accepts. An SQLite result code.
template <typename Wanted>
int namesOf(sqlite3 *db, const char *sql, Wanted wanted, std::vector<QByteArray> *names)
{
    sqlite3_stmt *prepared = nullptr;
    int result = sqlite3_prepare_v2(db, sql, -1, &prepared, nullptr);
    const std::unique_ptr<sqlite3_stmt, Finalizer> statement(prepared);
    if (result != SQLITE_OK)
        return result;
    while ((result = sqlite3_step(prepared)) == SQLITE_ROW)
        if (wanted(prepared))
            names->push_back(textOf(prepared, 0));
    return result == SQLITE_DONE ? SQLITE_OK : result;
}

void refuse(sqlite3_context *context, int, sqlite3_value **)
{
    sqlite3_result_error(context, "functions are not for this database", -1);
}

/// Aggregates need not be taken away: no column or index can use one, and views are off.
bool isScalarFunction(sqlite3_stmt *row)
{
    return textOf(row, 2) == "s";
}

bool anyRow(sqlite3_stmt *)
{
    return true;
}

constexpr const char *computedTables =
    "SELECT DISTINCT m.name FROM sqlite_master AS m, pragma_table_xinfo(m.name) AS x "
    "WHERE m.type = 'table' AND m.rootpage > 0 AND x.hidden = 2";

bool hasTooManyIndices(sqlite3 *db, int *result)
{
    sqlite3_stmt *prepared = nullptr;
    *result = sqlite3_prepare_v2(db,
                                 "SELECT count(*) AS n FROM sqlite_master WHERE type = 'index' "
                                 "GROUP BY tbl_name COLLATE NOCASE ORDER BY n DESC LIMIT 1",
                                 -1, &prepared, nullptr);
    const std::unique_ptr<sqlite3_stmt, Finalizer> statement(prepared);
    if (*result != SQLITE_OK)
        return false;
    *result = sqlite3_step(prepared);
    const bool tooMany = *result == SQLITE_ROW && sqlite3_column_int(prepared, 0) > mostIndicesOfATable;
    if (*result == SQLITE_ROW || *result == SQLITE_DONE)
        *result = SQLITE_OK;
    return tooMany;
}

} // namespace

int disarmSchema(sqlite3 *db)
{
    std::vector<QByteArray> functions;
    // A PRAGMA, for a SELECT would read the schema.
    int result = namesOf(db, "PRAGMA function_list", isScalarFunction, &functions);
    // Deterministic and innocuous, for else a schema that only names one could not be read.
    constexpr int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    for (const QByteArray &name : functions)
        if (result == SQLITE_OK)
            result = sqlite3_create_function_v2(db, name.constData(), -1, flags, nullptr, &refuse, nullptr, nullptr,
                                                nullptr);
    return result == SQLITE_OK ? sqlite3_drop_modules(db, nullptr) : result;
}

int inspectSchema(sqlite3 *db, std::vector<QByteArray> *computed)
{
    int result = SQLITE_OK;
    if (hasTooManyIndices(db, &result))
        return SQLITE_TOOBIG;
    return result == SQLITE_OK ? namesOf(db, computedTables, anyRow, computed) : result;
}

} // namespace devicehost
