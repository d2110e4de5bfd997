#include "testing/test_sql_utils.h"

#include "photolib/host/sql_utils.h"
#include "testing/host_registry.h"
#include "testing/host_session.h"

#include <QString>

#include <sqlite3.h>

#include <memory>
#include <utility>

namespace testkit
{

int openSqliteFile(const QString &path, sqlite3 **db)
{
    sqlite3 *opened = nullptr;
    int result = sqlite3_open_v2(path.toUtf8().constData(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    if (result == SQLITE_OK)
        result = sqlite3_exec(opened, "SELECT count(*) FROM sqlite_master", nullptr, nullptr, nullptr);
    if (result != SQLITE_OK) {
        sqlite3_close(opened);
        opened = nullptr;
    }
    *db = opened;
    return result;
}

int prepareSqliteStatement(sqlite3 *db, const char *sql, int length, sqlite3_stmt **statement, const char **tail)
{
    return sqlite3_prepare_v2(db, sql, length, statement, tail);
}

void callWhenClosed(sqlite3 *db, std::function<void()> closed)
{
    using Callback = std::function<void()>;
    // SQLite destroys an application-defined function together with its connection; the function itself is never used.
    const auto unused = [](sqlite3_context *context, int, sqlite3_value **) { sqlite3_result_null(context); };
    const auto destroy = [](void *pointer) {
        const std::unique_ptr<Callback> callback(static_cast<Callback *>(pointer));
        (*callback)();
    };
    auto callback = std::make_unique<Callback>(std::move(closed));
    sqlite3_create_function_v2(db, "tell_when_closed", 0, SQLITE_UTF8, callback.release(), unused, nullptr, nullptr,
                               destroy);
}

} // namespace testkit

int SqlUtils::openSqlite(const QString &path, sqlite3 **db)
{
    testkit::HostSession *session = testkit::currentSession();
    return session != nullptr ? session->openSqlite(path, db) : testkit::openSqliteFile(path, db);
}

int SqlUtils::prepareSqlite(sqlite3 *db, const char *sql, int length, sqlite3_stmt **statement, const char **tail)
{
    testkit::HostSession *session = testkit::currentSession();
    return session != nullptr ? session->prepareSqlite(db, sql, length, statement, tail)
                              : testkit::prepareSqliteStatement(db, sql, length, statement, tail);
}
