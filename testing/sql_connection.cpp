#include "testing/sql_connection.h"

#include <sqlite3.h>

#include <utility>

namespace testkit
{

namespace
{

[[noreturn]] void fail(sqlite3 *handle, const QByteArray &what)
{
    throw LibraryError(std::string(sqlite3_errmsg(handle)) + ": " + what.toStdString());
}

} // namespace

SqlConnection::SqlConnection()
{
    open(QByteArray(""));
}

SqlConnection::SqlConnection(const QString &path)
{
    open(path.toUtf8());
}

void SqlConnection::open(const QByteArray &path)
{
    if (sqlite3_open_v2(path.constData(), &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) !=
        SQLITE_OK) {
        const std::string message = sqlite3_errmsg(database);
        sqlite3_close(std::exchange(database, nullptr));
        throw LibraryError(message + ": " + path.toStdString());
    }
}

SqlConnection::~SqlConnection()
{
    sqlite3_close(database);
}

void SqlConnection::exec(const QString &sql)
{
    const QByteArray text = sql.toUtf8();
    if (sqlite3_exec(database, text.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        fail(database, text);
}

std::vector<std::vector<SqlValue>> SqlConnection::rows(const QString &sql)
{
    SqlStatement statement(*this, sql);
    std::vector<std::vector<SqlValue>> result;
    while (statement.step()) {
        std::vector<SqlValue> row;
        for (int column = 0; column < statement.columnCount(); ++column)
            row.push_back(statement.column(column));
        result.push_back(std::move(row));
    }
    return result;
}

QStringList SqlConnection::columns(const QString &table)
{
    SqlStatement statement(*this, QStringLiteral("select name from pragma_table_info(?)"));
    statement.bind(1, table);
    QStringList names;
    while (statement.step())
        names << QString::fromUtf8(std::get<SqlValue::TextBytes>(statement.column(0).storage()).bytes);
    return names;
}

void SqlConnection::copyTo(SqlConnection &target)
{
    sqlite3_backup *backup = sqlite3_backup_init(target.database, "main", database, "main");
    if (backup == nullptr)
        fail(target.database, "copying the database");
    sqlite3_backup_step(backup, -1);
    if (sqlite3_backup_finish(backup) != SQLITE_OK)
        fail(target.database, "copying the database");
}

void SqlConnection::keepWalOnClose()
{
    if (sqlite3_db_config(database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr) != SQLITE_OK)
        fail(database, "keeping the write-ahead log");
}

SqlStatement::SqlStatement(SqlConnection &connection, const QString &sql) : owner(connection)
{
    const QByteArray text = sql.toUtf8();
    if (sqlite3_prepare_v2(connection.handle(), text.constData(), text.size(), &compiled, nullptr) != SQLITE_OK)
        fail(connection.handle(), text);
}

SqlStatement::SqlStatement(SqlStatement &&other) noexcept
    : owner(other.owner), compiled(std::exchange(other.compiled, nullptr))
{
}

SqlStatement::~SqlStatement()
{
    sqlite3_finalize(compiled);
}

void SqlStatement::bind(int index, const SqlValue &value)
{
    int rc = SQLITE_OK;
    if (const auto *number = std::get_if<qint64>(&value.storage()))
        rc = sqlite3_bind_int64(compiled, index, *number);
    else if (const auto *real = std::get_if<double>(&value.storage()))
        rc = sqlite3_bind_double(compiled, index, *real);
    else if (const auto *text = std::get_if<SqlValue::TextBytes>(&value.storage()))
        rc = sqlite3_bind_text64(compiled, index, text->bytes.constData(),
                                 static_cast<sqlite3_uint64>(text->bytes.size()), SQLITE_TRANSIENT, SQLITE_UTF8);
    else if (const auto *blob = std::get_if<QByteArray>(&value.storage()))
        rc = sqlite3_bind_blob64(compiled, index, blob->constData(), static_cast<sqlite3_uint64>(blob->size()),
                                 SQLITE_TRANSIENT);
    else
        rc = sqlite3_bind_null(compiled, index);
    if (rc != SQLITE_OK)
        fail(owner.handle(), sqlite3_sql(compiled));
}

bool SqlStatement::step()
{
    const int rc = sqlite3_step(compiled);
    if (rc == SQLITE_ROW || rc == SQLITE_DONE)
        return rc == SQLITE_ROW;
    const LibraryError error(std::string(sqlite3_errmsg(owner.handle())) + ": " + sqlite3_sql(compiled));
    reset();
    throw error;
}

void SqlStatement::reset()
{
    sqlite3_reset(compiled); // repeats the error that step() has thrown already
    sqlite3_clear_bindings(compiled);
}

int SqlStatement::columnCount() const
{
    return sqlite3_column_count(compiled);
}

SqlValue SqlStatement::column(int index) const
{
    switch (sqlite3_column_type(compiled, index)) {
    case SQLITE_INTEGER:
        return qint64{sqlite3_column_int64(compiled, index)};
    case SQLITE_FLOAT:
        return sqlite3_column_double(compiled, index);
    case SQLITE_NULL:
        return nullptr;
    default:
        break;
    }
    const void *bytes = sqlite3_column_blob(compiled, index);
    QByteArray copy(static_cast<const char *>(bytes), sqlite3_column_bytes(compiled, index));
    if (sqlite3_column_type(compiled, index) == SQLITE_TEXT)
        return SqlValue::TextBytes{copy};
    return copy;
}

QString quotedName(const QString &name)
{
    return QLatin1Char('"') + QString(name).replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"');
}

} // namespace testkit
