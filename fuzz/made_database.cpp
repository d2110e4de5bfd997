#include "fuzz/made_database.h"

#include "fuzz/hostile_value.h"
#include "fuzz/require.h"

#include <QList>

#include <sqlite3.h>

namespace fuzz
{

namespace
{

constexpr int stepsBetweenLooks = 1000;
constexpr int looks = 50;
constexpr int largestValue = 128 * 1024;
constexpr int mostPages = 256;

} // namespace

void MadeDatabase::Close::operator()(sqlite3 *db) const
{
    sqlite3_close(db);
}

MadeDatabase::MadeDatabase() : budget(looks)
{
    sqlite3 *opened = nullptr;
    const int result = sqlite3_open(":memory:", &opened);
    db.reset(opened);
    require(result == SQLITE_OK, "a database in memory can be opened");
    sqlite3_limit(opened, SQLITE_LIMIT_ATTACHED, 0); // which also keeps statements from files
    sqlite3_limit(opened, SQLITE_LIMIT_LENGTH, largestValue);
    sqlite3_progress_handler(opened, stepsBetweenLooks, &MadeDatabase::spend, this);
}

int MadeDatabase::spend(void *database)
{
    return --static_cast<MadeDatabase *>(database)->budget < 0 ? 1 : 0;
}

void MadeDatabase::run(const QByteArray &sql)
{
    sqlite3_exec(db.get(), sql.constData(), nullptr, nullptr, nullptr);
    // Statements may lift this.
    sqlite3_exec(db.get(), "PRAGMA max_page_count=" + QByteArray::number(mostPages), nullptr, nullptr, nullptr);
}

void MadeDatabase::addRow(const QByteArray &table, const QList<QByteArray> &columns, int row, ByteReader *in)
{
    QByteArray names;
    QByteArray marks;
    for (const QByteArray &column : columns) {
        names += (names.isEmpty() ? "" : ", ") + column.left(column.indexOf(':'));
        marks += marks.isEmpty() ? "?" : ", ?";
    }
    sqlite3_stmt *statement = nullptr;
    const QByteArray sql = "insert into " + table + " (" + names + ") values (" + marks + ")";
    if (sqlite3_prepare_v2(db.get(), sql.constData(), -1, &statement, nullptr) == SQLITE_OK) {
        const bool plain = in->choice(3) != 2;
        for (int i = 0; i < columns.size(); ++i)
            bindValue(statement, i + 1, columns[i].back(), row, plain, in);
        sqlite3_step(statement);
    }
    sqlite3_finalize(statement);
}

QByteArray MadeDatabase::file() const
{
    sqlite3_exec(db.get(), "COMMIT", nullptr, nullptr, nullptr); // of a transaction that the bytes began
    sqlite3_int64 size = 0;
    unsigned char *const bytes = sqlite3_serialize(db.get(), "main", &size, 0);
    QByteArray content;
    if (bytes != nullptr)
        content = QByteArray(reinterpret_cast<const char *>(bytes), static_cast<int>(size));
    sqlite3_free(bytes);
    return content;
}

} // namespace fuzz
