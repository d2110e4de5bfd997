#include "devicehost/sql_connection.h"

#include "devicehost/advice.h"
#include "devicehost/database_errors.h"
#include "devicehost/host_state.h"
#include "devicehost/local_path.h"

#include <sqlite3.h>

#include <exception>
#include <utility>

namespace devicehost
{

namespace
{

SqlConnection *connectionOf(void *pointer)
{
    return static_cast<SqlConnection *>(pointer);
}

void noFunction(sqlite3_context *context, int, sqlite3_value **)
{
    sqlite3_result_null(context);
}

void destroyConnection(void *pointer)
{
    delete connectionOf(pointer);
}

int onSteps(void *pointer)
{
    connectionOf(pointer)->meter.addSteps();
    return connectionOf(pointer)->mustEnd() ? 1 : 0;
}

int onRow(unsigned, void *pointer, void *row, void *)
{
    auto *const statement = static_cast<sqlite3_stmt *>(row);
    connectionOf(pointer)->meter.addRow(statement);
    if (connectionOf(pointer)->mustEnd()) // the library gets this row and no other
        sqlite3_interrupt(sqlite3_db_handle(statement));
    return 0;
}

int onAuthorize(void *pointer, int action, const char *first, const char *, const char *, const char *)
{
    SqlConnection *const connection = connectionOf(pointer);
    if (action == SQLITE_SELECT) {
        connection->meter.addStatement();
        return connection->mustEnd() ? SQLITE_DENY : SQLITE_OK;
    }
    return action != SQLITE_READ || connection->mayRead(first) ? SQLITE_OK : SQLITE_DENY;
}

} // namespace

SqlConnection::SqlConnection(sqlite3 *db, const std::shared_ptr<HostState> &hostState, const QString &file)
    : meter(db), host(hostState), path(file)
{
    if (host != nullptr)
        enterDatabase(host);
}

SqlConnection::~SqlConnection()
{
    if (host != nullptr)
        leaveDatabase(host.get());
}

SqlConnection *SqlConnection::attach(sqlite3 *db, const std::shared_ptr<HostState> &host, const QString &path,
                                     int *result)
{
    auto *const connection = new SqlConnection(db, host, path);
    // What belongs to an application's own function is destroyed with the connection: this one nobody calls.
    *result = sqlite3_create_function_v2(db, "photolib_connection", 0, SQLITE_UTF8 | SQLITE_DIRECTONLY, connection,
                                         &noFunction, nullptr, nullptr, &destroyConnection);
    if (*result != SQLITE_OK) // destroyed already
        return nullptr;
    sqlite3_progress_handler(db, stepsBetweenLooks, &onSteps, connection);
    sqlite3_set_authorizer(db, &onAuthorize, connection);
    *result = sqlite3_trace_v2(db, SQLITE_TRACE_ROW, &onRow, connection);
    return *result == SQLITE_OK ? connection : nullptr;
}

void SqlConnection::open(std::vector<QByteArray> tablesWithComputedColumns)
{
    forbiddenTables = std::move(tablesWithComputedColumns);
    reports = true;
}

bool SqlConnection::stopRequested() const
{
    return host != nullptr && host->stopRequested();
}

bool SqlConnection::mustEnd() noexcept
{
    if (stopRequested())
        return true;
    if (!meter.isUsedUp())
        return false;
    report(QStringLiteral("takes more work than a photo library of its size can, so it was read in part only"));
    return true;
}

bool SqlConnection::mayRead(const char *table) noexcept
{
    for (const QByteArray &forbidden : forbiddenTables) {
        if (table != nullptr && sqlite3_stricmp(forbidden.constData(), table) == 0) {
            report(QStringLiteral("computes its columns instead of storing them, as no photo library does"));
            return false;
        }
    }
    return true;
}

void SqlConnection::report(const QString &what) noexcept
{
    if (!reports || host == nullptr)
        return;
    reports = false; // once is enough
    try {
        host->recordFailure(
            QStringLiteral("the database %1 on the device %2; %3; a database that goes on like this was "
                           "not made by a device")
                .arg(sourceOfLocalCopy(path), what, copyAgain()));
    } catch (const std::exception &) { // short memory: the library then reports what it misses
    }
}

} // namespace devicehost
