#include "photolib/host/sql_utils.h"

#include "devicehost/advice.h"
#include "devicehost/database_errors.h"
#include "devicehost/host_state.h"
#include "devicehost/local_path.h"
#include "devicehost/sql_connection.h"
#include "devicehost/sql_limits.h"
#include "devicehost/sql_schema.h"

#include <QString>

#include <sqlite3.h>
#include <sys/stat.h>

#include <cerrno>
#include <memory>
#include <new>
#include <utility>
#include <vector>

namespace devicehost
{
namespace
{

int readSchema(sqlite3 *db)
{
    return sqlite3_exec(db, "SELECT count(*) FROM sqlite_master", nullptr, nullptr, nullptr);
}

/// What a PRAGMA answers; -1 on failure.
qint64 ask(sqlite3 *db, const char *pragma)
{
    sqlite3_stmt *statement = nullptr;
    const bool answered =
        sqlite3_prepare_v2(db, pragma, -1, &statement, nullptr) == SQLITE_OK && sqlite3_step(statement) == SQLITE_ROW;
    const qint64 answer = answered ? sqlite3_column_int64(statement, 0) : -1;
    sqlite3_finalize(statement);
    return answer;
}

/// Of the main file and its log, as they lie here: what the files say of themselves may be a lie.
qint64 bytesOnDisk(const QByteArray &file)
{
    qint64 bytes = 0;
    for (const char *const suffix : {"", "-wal"}) {
        struct stat info = {};
        if (::stat((file + suffix).constData(), &info) == 0)
            bytes += info.st_size;
    }
    return bytes;
}

constexpr qint64 largestPage = 65536;

/// Everything that has to be done before the library's first statement, with nothing trusted on the way.
int prepareConnection(sqlite3 *db, const QByteArray &file, const QString &path, const std::shared_ptr<HostState> &host)
{
    int result = harden(db);
    if (result == SQLITE_OK)
        result = disarmSchema(db);
    if (result != SQLITE_OK)
        return result;
    SqlConnection *const connection = SqlConnection::attach(db, host, path, &result);
    if (connection == nullptr)
        return result;
    connection->meter.allow(schemaAllowance, largestPage);
    result = readSchema(db);
    if (connection->meter.isUsedUp())
        return SQLITE_TOOBIG;
    if (result != SQLITE_OK)
        return result;
    connection->meter.allow(readingAllowance(bytesOnDisk(file)), ask(db, "PRAGMA page_size"));
    allowStatements(db);
    std::vector<QByteArray> computedTables;
    result = inspectSchema(db, &computedTables);
    connection->open(std::move(computedTables));
    return result;
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
    case SQLITE_INTERRUPT:
    case SQLITE_TOOBIG:
        return QStringLiteral("the database %1 on the device has a larger schema than any photo library; %2")
            .arg(name, copyAgain());
    case SQLITE_ERROR: // SQLite says so of file formats that it does not know
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
int openHardened(const QByteArray &file, const QString &path, const std::shared_ptr<HostState> &host, sqlite3 **db)
{
    // Without locks of its own: the library opens, reads and closes a connection on one thread.
    int result = sqlite3_open_v2(file.constData(), db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    if (result == SQLITE_OK)
        result = prepareConnection(*db, file, path, host);
    if (host != nullptr)
        host->recordOpening(result == SQLITE_OK && ask(*db, "PRAGMA page_count") == 0);
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
    sqlite3 *opened = nullptr;
    int result = SQLITE_NOMEM;
    try {
        result = openHardened(file, path, host, &opened);
    } catch (const std::bad_alloc &) {
    }
    if (result == SQLITE_OK) {
        *db = opened;
        return result;
    }
    sqlite3_close(opened);
    recordOpenFailure(host, path, result);
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
