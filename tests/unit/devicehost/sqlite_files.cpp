#include "sqlite_files.h"

#include "photolib/host/sql_utils.h"

#include <QByteArray>

Connection openThroughHost(const QString &path, int *result)
{
    sqlite3 *db = nullptr;
    const int code = SqlUtils::openSqlite(path, &db);
    if (result != nullptr)
        *result = code;
    if ((code == SQLITE_OK) != (db != nullptr))
        qFatal("the code and the connection contradict each other");
    return Connection(db);
}

Statement prepareThroughHost(const Connection &db, const char *sql, int *result)
{
    sqlite3_stmt *statement = nullptr;
    const int code = SqlUtils::prepareSqlite(db.get(), sql, -1, &statement, nullptr);
    if (result != nullptr)
        *result = code;
    return Statement(statement);
}

Connection makeDatabase(const QString &path, const char *sql)
{
    sqlite3 *db = nullptr;
    char *message = nullptr;
    if (sqlite3_open(path.toUtf8().constData(), &db) != SQLITE_OK ||
        sqlite3_exec(db, sql, nullptr, nullptr, &message) != SQLITE_OK)
        qFatal("%s: %s", qPrintable(path), message == nullptr ? "cannot be opened" : message);
    return Connection(db);
}

void makeRows(const QString &path, int count)
{
    const QByteArray sql = "PRAGMA page_size=4096; CREATE TABLE rows(id INTEGER PRIMARY KEY, text);"
                           "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
                           QByteArray::number(count) + ") INSERT INTO rows SELECT i, printf('%0400d', i) FROM n;";
    makeDatabase(path, sql.constData());
}

int rowCount(const Connection &db, const char *sql)
{
    const Statement statement = prepareThroughHost(db, sql);
    if (statement == nullptr)
        return -1;
    int rows = 0;
    int result = sqlite3_step(statement.get());
    for (; result == SQLITE_ROW; result = sqlite3_step(statement.get()))
        ++rows;
    return result == SQLITE_DONE ? rows : -1;
}
