#ifndef DEVICEHOST_SQL_CONNECTION_H
#define DEVICEHOST_SQL_CONNECTION_H

#include "devicehost/sql_meter.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

namespace devicehost
{

class HostState;

/// What the host keeps of a connection for as long as it is open. The library closes it without a word to the host;
/// SQLite destroys this object then.
class SqlConnection
{
public:
    /// Makes the object for `db` and ties it to it: from now on every statement is counted, and ended by a stop request
    /// of the host (null for none) or when the allowance is used up. Null, with an SQLite result code in `*result`, on
    /// failure.
    static SqlConnection *attach(sqlite3 *db, const std::shared_ptr<HostState> &host, const QString &path, int *result);

    ~SqlConnection();
    SqlConnection(const SqlConnection &) = delete;
    SqlConnection &operator=(const SqlConnection &) = delete;

    SqlMeter meter;

    /// The library's statements begin. Those that read one of these tables are not prepared: their columns would be
    /// computed for each row. From now on the host is told of what is ended or refused here.
    void open(std::vector<QByteArray> tablesWithComputedColumns);

    bool stopRequested() const;

    // For SQLite.
    bool mustEnd() noexcept;
    bool mayRead(const char *table) noexcept;

private:
    SqlConnection(sqlite3 *db, const std::shared_ptr<HostState> &hostState, const QString &file);
    void report(const QString &what) noexcept;

    const std::shared_ptr<HostState> host;
    const QString path;
    std::vector<QByteArray> forbiddenTables; ///< ASCII letters in any case
    bool reports = false;
};

} // namespace devicehost

#endif
