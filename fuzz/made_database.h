#ifndef FUZZ_MADE_DATABASE_H
#define FUZZ_MADE_DATABASE_H

#include <QByteArray>

#include <memory>

struct sqlite3;

namespace fuzz
{

class ByteReader;

/// A database in memory that is built by decisions from a fuzzer's bytes. What SQLite refuses is left out. A budget of
/// steps and memory keeps each database small, whatever SQL the bytes bring. One thread at a time.
class MadeDatabase
{
public:
    MadeDatabase();

    /// Runs one or more statements.
    void run(const QByteArray &sql);

    /// Puts one row of values into a table. `columns` says one word a column: NAME:KIND, where the kind letter stands
    /// for a value that such a column has in real libraries.
    void addRow(const QByteArray &table, const QList<QByteArray> &columns, int row, ByteReader *in);

    /// The bytes of the database file.
    QByteArray file() const;

private:
    struct Close {
        void operator()(sqlite3 *db) const;
    };
    static int spend(void *database);

    std::unique_ptr<sqlite3, Close> db;
    int budget;
};

} // namespace fuzz

#endif
