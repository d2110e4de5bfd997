#include "devicehost/sql_meter.h"

#include <sqlite3.h>

namespace devicehost
{

namespace
{

/// What a number takes, in SQLite's hands and in the library's.
constexpr qint64 bytesOfANumber = 8;

/// The counter's value since it was last asked.
qint64 taken(sqlite3 *db, int counter)
{
    int current = 0;
    int highest = 0;
    sqlite3_db_status(db, counter, &current, &highest, 1);
    return current;
}

bool isLong(int type)
{
    return type == SQLITE_TEXT || type == SQLITE_BLOB;
}

} // namespace

void SqlMeter::allow(const Allowance &allowance, qint64 bytesOfAPage)
{
    allowed = allowance;
    pageSize = bytesOfAPage;
    spent = {0, 0, 0};
}

void SqlMeter::addSteps()
{
    spent.steps += stepsBetweenLooks;
    const qint64 pages = taken(db, SQLITE_DBSTATUS_CACHE_HIT) + taken(db, SQLITE_DBSTATUS_CACHE_MISS);
    spent.pageBytes += pages * pageSize;
}

void SqlMeter::addRow(sqlite3_stmt *statement)
{
    const int columns = sqlite3_data_count(statement);
    spent.deliveredBytes += columns * bytesOfANumber;
    for (int column = 0; column < columns; ++column) {
        // Found once for both. SQLite allows such questions where, as here, one thread at a time uses the connection.
        sqlite3_value *const value = sqlite3_column_value(statement, column);
        if (isLong(sqlite3_value_type(value)))
            spent.deliveredBytes += sqlite3_value_bytes(value);
    }
}

bool SqlMeter::isUsedUp() const
{
    return spent.steps > allowed.steps || spent.pageBytes > allowed.pageBytes ||
           spent.deliveredBytes > allowed.deliveredBytes;
}

} // namespace devicehost
