#ifndef DEVICEHOST_SQL_METER_H
#define DEVICEHOST_SQL_METER_H

#include "devicehost/sql_limits.h"

struct sqlite3;
struct sqlite3_stmt;

namespace devicehost
{

/// Counts what one connection has cost. One thread at a time; nothing here throws or allocates, so that SQLite's
/// callbacks may call it.
class SqlMeter
{
public:
    explicit SqlMeter(sqlite3 *connection) : db(connection) {}

    /// Starts counting from zero against another allowance. `bytesOfAPage`: of the database.
    void allow(const Allowance &allowance, qint64 bytesOfAPage);

    /// A statement is made.
    void addStatement() { spent.steps += stepsOfAStatement; }

    /// SQLite has gone stepsBetweenLooks further.
    void addSteps();

    /// A statement gives the row that it stands on.
    void addRow(sqlite3_stmt *statement);

    /// Whether more was asked for than is allowed.
    bool isUsedUp() const;

    const Allowance &used() const { return spent; }

private:
    sqlite3 *db;
    Allowance allowed = schemaAllowance;
    Allowance spent = {0, 0, 0};
    qint64 pageSize = 65536; ///< the largest that there is, until it is known
};

} // namespace devicehost

#endif
