#include "photolib/host/sql_utils.h"

#include "devicehost/advice.h"
#include "devicehost/database_errors.h"
#include "devicehost/host_state.h"
#include "devicehost/local_path.h"
#include "devicehost/sql_limits.h"

#include <QString>

#include <sqlite3.h>

#include <cerrno>
#include <memory>

namespace devicehost
{
namespace
{

/// How many steps of SQLite's virtual machine pass between two looks at the stop request: well under a millisecond.
constexpr int stepsBetweenLooks = 1000;

/// What a connection needs of its host for as long as it lives.
struct Connection {
    std::shared_ptr<HostState> host;

    ~Connection() { leaveDatabase(host.get()); }
};

int interruptWhenStopped(void *connection)
{
    return static_cast<const Connection *>(connection)->host->stopRequested() ? 1 : 0;
}

void noFunction(sqlite3_context *context, int, sqlite3_value **)
{
    sqlite3_result_null(context);
}

void destroyConnection(void *connection)
{
    delete static_cast<Connection *>(connection);
}

/// Ties the connection to its host until it is closed. The library closes it without a word to the host, but SQLite
/// destroys what belongs to a connection's own functions then: the state rides on one that nobody calls.
int attachHost(sqlite3 *db, const std::shared_ptr<HostState> &host)
{
    if (host == nullptr)
        return SQLITE_OK;
    auto *const connection = new Connection{host};
    const int result = sqlite3_create_function_v2(db, "photolib_connection", 0, SQLITE_UTF8 | SQLITE_DIRECTONLY,
                                                  connection, &noFunction, nullptr, nullptr, &destroyConnection);
    if (result != SQLITE_OK) // destroyed already
        return result;
    enterDatabase(host);
    sqlite3_progress_handler(db, stepsBetweenLooks, &interruptWhenStopped, connection);
    return SQLITE_OK;
}

bool hasNoPages(sqlite3 *db)
{
    sqlite3_stmt *statement = nullptr;
    const bool none = sqlite3_prepare_v2(db, "PRAGMA page_count", -1, &statement, nullptr) == SQLITE_OK &&
                      sqlite3_step(statement) == SQLITE_ROW && sqlite3_column_int64(statement, 0) == 0;
    sqlite3_finalize(statement);
    return none;
}

int readSchema(sqlite3 *db)
{
    return sqlite3_exec(db, "SELECT count(*) FROM sqlite_master", nullptr, nullptr, nullptr);
}

QString localAdviceFor(int code)
{
    switch (code & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return QStringLiteral("another program uses the copy; end that program and try again");
    case SQLITE_NOMEM:
        return QStringLiteral("close other programs and try again");
    case SQLITE_FULL:
        return localAdvice(ENOSPC);
    default:
        return localAdvice(EIO);
    }
}

/// What is wrong inside the database came from the device; the local copy is gone when people read this.
QString describe(const QString &path, int code)
{
    const QString reason = databaseErrorText(code);
    const QString name = sourceOfLocalCopy(path);
    switch (code & 0xff) {
    case SQLITE_NOTADB:
        return QStringLiteral("the database %1 on the device is encrypted or no SQLite database (%2); %3")
            .arg(name, reason, copyAgain());
    case SQLITE_CORRUPT:
        return QStringLiteral("the database %1 on the device is truncated or damaged (%2); %3")
            .arg(name, reason, copyAgain());
    case SQLITE_ERROR: // SQLite says so of file formats that it does not know
    case SQLITE_TOOBIG:
        return QStringLiteral("the database %1 on the device is damaged or of an unknown kind (%2); %3")
            .arg(name, reason, copyAgain());
    default:
        return QStringLiteral("the local copy %1 of %2 on the device cannot be opened: %3; %4")
            .arg(path, name, reason, localAdviceFor(code));
    }
}

void recordOpenFailure(const std::shared_ptr<HostState> &host, const QString &path, int code)
{
    if (host == nullptr || host->stopRequested())
        return;
    host->recordFailure(describe(path, code));
    host->recordDatabaseError(code);
}

/// On failure the connection, if any, is left to the caller to close.
int openHardened(const QByteArray &path, const std::shared_ptr<HostState> &host, sqlite3 **db)
{
    int result = sqlite3_open_v2(path.constData(), db, SQLITE_OPEN_READWRITE, nullptr);
    if (result == SQLITE_OK)
        result = harden(*db);
    if (result == SQLITE_OK)
        result = attachHost(*db, host);
    if (result == SQLITE_OK)
        result = readSchema(*db);
    if (host != nullptr)
        host->recordOpening(result == SQLITE_OK && hasNoPages(*db));
    return result;
}

} // namespace
} // namespace devicehost

int SqlUtils::openSqlite(const QString &path, sqlite3 **db)
{
    using namespace devicehost;
    if (db == nullptr)
        return SQLITE_MISUSE;
    *db = nullptr;
    if (path.isEmpty() || path.contains(QChar(0)))
        return SQLITE_CANTOPEN;
    // Absolute, because SQLite takes ":memory:" and "file:" names for something else than files.
    const QByteArray file = absoluteLocalPath(path).toUtf8();
    const std::shared_ptr<HostState> host = hosts::forLocalPath(file.constData());
    const int result = openHardened(file, host, db);
    if (result != SQLITE_OK) {
        recordOpenFailure(host, path, result);
        sqlite3_close(*db);
        *db = nullptr;
    }
    return result;
}

int SqlUtils::prepareSqlite(sqlite3 *db, const char *sql, int length, sqlite3_stmt **statement, const char **tail)
{
    using namespace devicehost;
    if (tail != nullptr)
        *tail = sql;
    if (statement == nullptr)
        return SQLITE_MISUSE;
    *statement = nullptr;
    if (db == nullptr || sql == nullptr)
        return SQLITE_MISUSE;
    const int result = sqlite3_prepare_v2(db, sql, length, statement, tail);
    if (isDatabaseDamage(result)) {
        const char *const file = sqlite3_db_filename(db, "main");
        if (const auto host = hosts::forLocalPath(file == nullptr ? "" : file))
            host->recordDatabaseError(result);
    }
    return result;
}
