#include "devicehost/sql_limits.h"

#include <sqlite3.h>

namespace devicehost
{

namespace
{

struct Switch {
    int option;
    int value;
};

constexpr Switch switches[] = {
    {SQLITE_DBCONFIG_DEFENSIVE, 1},
    {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
    {SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0},
    // The library's statements write "0" for a column that a release lacks; no statement of the schema needs that.
    {SQLITE_DBCONFIG_DQS_DML, 1},
    {SQLITE_DBCONFIG_DQS_DDL, 0},
    // The library reads tables. A view in the place of one could compute for ever, and triggers have no work here.
    {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
    {SQLITE_DBCONFIG_ENABLE_VIEW, 0},
    // The copy goes as it came: writing the log into it at the end is work for nothing.
    {SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1},
};

struct Limit {
    int id;
    int value;
};

// Photo libraries from six releases have at most 135 columns in a table, 4 KiB of text in a statement of the schema,
// and single values far below a megabyte; the library's own statements are shorter than 1 KiB, but for one that lists
// the number of every person. The limits leave a factor of seven or more.
constexpr Limit limits[] = {
    // Of one value or row: what a lie about its size can make SQLite allocate, and how long one step can take.
    {SQLITE_LIMIT_LENGTH, 1024 * 1024},
    {SQLITE_LIMIT_SQL_LENGTH, 1024 * 1024},
    {SQLITE_LIMIT_COLUMN, 1000},
    {SQLITE_LIMIT_EXPR_DEPTH, 100},
    {SQLITE_LIMIT_COMPOUND_SELECT, 10},
    {SQLITE_LIMIT_VDBE_OP, 5000000}, // and takes some steps for each
    {SQLITE_LIMIT_FUNCTION_ARG, 32},
    {SQLITE_LIMIT_ATTACHED, 0},
    {SQLITE_LIMIT_LIKE_PATTERN_LENGTH, 1000},
    {SQLITE_LIMIT_VARIABLE_NUMBER, 1000},
    {SQLITE_LIMIT_TRIGGER_DEPTH, 1},
    {SQLITE_LIMIT_WORKER_THREADS, 0},
};

constexpr Limit limitsForStatements[] = {
    {SQLITE_LIMIT_LENGTH, 16 * 1024 * 1024},
    {SQLITE_LIMIT_SQL_LENGTH, 4 * 1024 * 1024},
};

// - Memory mapping is off: a file that shrinks would end the program with SIGBUS.
// - Cell sizes are checked when a page is read, so that a forged page is an error and not a wild offset.
// - The exclusive mode keeps the index of the write-ahead log in memory of the process. The -shm file that came
//   from the device is that index as the phone left it, of another moment than the copied log or forged. It is
//   never opened then: SQLite builds the index anew from the -wal, whose frames carry checksums.
constexpr const char *pragmas = "PRAGMA mmap_size=0; PRAGMA cell_size_check=ON; PRAGMA locking_mode=EXCLUSIVE;";

} // namespace

int harden(sqlite3 *db)
{
    for (const Switch &entry : switches) {
        const int result = sqlite3_db_config(db, entry.option, entry.value, nullptr);
        if (result != SQLITE_OK)
            return result;
    }
    for (const Limit &entry : limits)
        sqlite3_limit(db, entry.id, entry.value);
    return sqlite3_exec(db, pragmas, nullptr, nullptr, nullptr);
}

void allowStatements(sqlite3 *db)
{
    for (const Limit &entry : limitsForStatements)
        sqlite3_limit(db, entry.id, entry.value);
}

} // namespace devicehost
