#ifndef EXPORTER_SQL_H
#define EXPORTER_SQL_H

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

struct sqlite3;
struct sqlite3_stmt;

namespace exporter
{

/// A small owner of an SQLite connection. Failures throw RunEnded: DestinationFull, RecordUnusable for a damaged file,
/// DestinationRefused for the rest; std::bad_alloc when memory is short. One thread at a time.
class Sql
{
public:
    enum class Mode { Open, Create };
    Sql(const QString &path, Mode mode);
    Sql(const Sql &) = delete;
    Sql &operator=(const Sql &) = delete;
    ~Sql();

    void exec(const char *statements);
    sqlite3 *handle() const { return connection; }
    qint64 lastRowId() const;
    [[noreturn]] void throwError(int code) const;

private:
    sqlite3 *connection = nullptr;
};

/// One prepared statement. bind() counts parameters, column() columns in the order of the calls.
class Statement
{
public:
    Statement(Sql &connection, const char *text);
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;
    ~Statement();

    Statement &bind(qint64 value);
    Statement &bind(const std::optional<qint64> &value);
    Statement &bind(const QString &value);
    Statement &bind(const QByteArray &value); ///< as a blob

    /// True when there is a row.
    bool step();
    /// For statements without rows: step() and reset().
    void run();
    void reset();

    qint64 integer(int column) const;
    std::optional<qint64> optionalInteger(int column) const;
    QString text(int column) const;
    QByteArray blob(int column) const;

private:
    void check(int code) const;

    Sql &sql;
    sqlite3_stmt *compiled = nullptr;
    int nextParameter = 1;
};

/// Rolls back unless committed.
class Transaction
{
public:
    explicit Transaction(Sql &connection);
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;
    ~Transaction();
    void commit();

private:
    Sql &sql;
    bool open = true;
};

} // namespace exporter

#endif
