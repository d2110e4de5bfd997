#include "exporter/sql.h"

#include "exporter/errors.h"

#include <cerrno>
#include <new>
#include <sqlite3.h>

namespace exporter
{

namespace
{

// sqlite3_system_errno() knows nothing of a write that failed; the open files do.
int lastErrno(sqlite3 *connection)
{
    for (const int which : {SQLITE_FCNTL_FILE_POINTER, SQLITE_FCNTL_JOURNAL_POINTER}) {
        sqlite3_file *file = nullptr;
        int code = 0;
        if (sqlite3_file_control(connection, "main", which, &file) == SQLITE_OK && file != nullptr &&
            file->pMethods != nullptr && file->pMethods->xFileControl != nullptr) // a journal in memory has none
            file->pMethods->xFileControl(file, SQLITE_FCNTL_LAST_ERRNO, &code);
        if (code != 0)
            return code;
    }
    return sqlite3_system_errno(connection);
}

} // namespace

Sql::Sql(const QString &path, Mode mode)
{
    const int how = mode == Mode::Create ? SQLITE_OPEN_CREATE : 0;
    const int code = sqlite3_open_v2(path.toUtf8().constData(), &connection,
                                     SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOFOLLOW | how, nullptr);
    try {
        if (connection == nullptr)
            throw std::bad_alloc();
        if (code != SQLITE_OK)
            throwError(code);
        sqlite3_extended_result_codes(connection, 1);
        sqlite3_db_config(connection, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
        sqlite3_db_config(connection, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    } catch (...) {
        sqlite3_close(connection);
        throw;
    }
}

Sql::~Sql()
{
    sqlite3_close(connection);
}

void Sql::exec(const char *statements)
{
    const int code = sqlite3_exec(connection, statements, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        throwError(code);
}

qint64 Sql::lastRowId() const
{
    return sqlite3_last_insert_rowid(connection);
}

void Sql::throwError(int code) const
{
    if ((code & 0xff) == SQLITE_NOMEM || code == SQLITE_IOERR_NOMEM)
        throw std::bad_alloc();
    const int system = lastErrno(connection);
    const QString words = QString::fromUtf8(sqlite3_errmsg(connection));
    switch (code & 0xff) {
    case SQLITE_FULL:
        throwDestinationFull();
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        throw RunEnded(
            RunEnd::DestinationRefused,
            QStringLiteral("The record of the export is in use by another program. Wait until it has ended."));
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
    case SQLITE_ERROR: // a table or column that is not as this program makes it
    case SQLITE_CONSTRAINT:
        throwRecordUnusable(QStringLiteral("is damaged (%1)").arg(words));
    case SQLITE_IOERR:
        if (isLackOfSpace(system) || system == EFBIG)
            throwDestinationFull();
        break;
    default:
        break;
    }
    throw RunEnded(RunEnd::DestinationRefused,
                   QStringLiteral("The record of the export cannot be read or written (%1). Check the drive and the "
                                  "permissions of the destination.")
                       .arg(system == 0 ? words : words + QStringLiteral(", ") + errnoText(system)));
}

Statement::Statement(Sql &connection, const char *text) : sql(connection)
{
    check(sqlite3_prepare_v2(sql.handle(), text, -1, &compiled, nullptr));
}

Statement::~Statement()
{
    sqlite3_finalize(compiled);
}

void Statement::check(int code) const
{
    if (code != SQLITE_OK)
        sql.throwError(code);
}

Statement &Statement::bind(qint64 value)
{
    check(sqlite3_bind_int64(compiled, nextParameter++, value));
    return *this;
}

Statement &Statement::bind(const std::optional<qint64> &value)
{
    if (value)
        return bind(*value);
    check(sqlite3_bind_null(compiled, nextParameter++));
    return *this;
}

Statement &Statement::bind(const QString &value)
{
    const QByteArray bytes = value.toUtf8();
    check(sqlite3_bind_text64(compiled, nextParameter++, bytes.constData(), static_cast<sqlite3_uint64>(bytes.size()),
                              SQLITE_TRANSIENT, SQLITE_UTF8));
    return *this;
}

Statement &Statement::bind(const QByteArray &value)
{
    check(sqlite3_bind_blob64(compiled, nextParameter++, value.constData(), static_cast<sqlite3_uint64>(value.size()),
                              SQLITE_TRANSIENT));
    return *this;
}

bool Statement::step()
{
    const int code = sqlite3_step(compiled);
    if (code == SQLITE_ROW)
        return true;
    if (code != SQLITE_DONE)
        sql.throwError(code);
    return false;
}

void Statement::run()
{
    step();
    reset();
}

void Statement::reset()
{
    sqlite3_reset(compiled);
    sqlite3_clear_bindings(compiled);
    nextParameter = 1;
}

qint64 Statement::integer(int column) const
{
    return sqlite3_column_int64(compiled, column);
}

std::optional<qint64> Statement::optionalInteger(int column) const
{
    if (sqlite3_column_type(compiled, column) == SQLITE_NULL)
        return std::nullopt;
    return integer(column);
}

QString Statement::text(int column) const
{
    const auto *const characters = reinterpret_cast<const char *>(sqlite3_column_text(compiled, column));
    return QString::fromUtf8(characters, sqlite3_column_bytes(compiled, column));
}

QByteArray Statement::blob(int column) const
{
    const auto *const bytes = static_cast<const char *>(sqlite3_column_blob(compiled, column));
    return QByteArray(bytes, sqlite3_column_bytes(compiled, column));
}

Transaction::Transaction(Sql &connection) : sql(connection)
{
    sql.exec("BEGIN IMMEDIATE");
}

Transaction::~Transaction()
{
    if (open)
        sqlite3_exec(sql.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::commit()
{
    sql.exec("COMMIT");
    open = false;
}

} // namespace exporter
