// Databases that were made to keep the reader busy, to fill its memory, or to make it compute. What the host spends on
// them is counted, so nothing here depends on the speed of the machine.

#include "sqlite_files.h"
#include "support.h"

#include "devicehost/device_host.h"
#include "devicehost/sql_limits.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using devicehost::DeviceHost;

namespace
{

class HostileDatabase : public testing::Test
{
protected:
    /// The database, opened as the library does.
    Connection open(const QByteArray &sql)
    {
        makeDatabase(path, sql.constData());
        return openThroughHost(path, &result);
    }

    /// Replaces the stored text of the schema, as no statement could write it.
    void forgeSchema(const char *update)
    {
        const Connection db = makeDatabase(path, "PRAGMA writable_schema=ON");
        ASSERT_EQ(sqlite3_exec(db.get(), update, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(db.get());
    }

    /// Rows until the statement ends; what it ended with is in `result`. A statement that never ends is stopped after
    /// `most` rows.
    int rowsOf(const Connection &db, const char *sql, int most)
    {
        const Statement statement = prepareThroughHost(db, sql, &result);
        int rows = 0;
        while (statement != nullptr && rows < most && (result = sqlite3_step(statement.get())) == SQLITE_ROW)
            ++rows;
        return rows;
    }

    void expectReported(const char *what) const
    {
        EXPECT_TRUE(host.failure().startsWith(
            QStringLiteral("the database /PhotoData/Photos.sqlite on the device %1").arg(QString::fromUtf8(what))))
            << host.failure().toStdString();
    }

    qint64 fileSize() const { return QFileInfo(path).size(); }

    DeviceHost host{QStringLiteral("folder:/")};
    QString path = host.localDataFolder() + QStringLiteral("Photos.sqlite");
    int result = -1;
};

constexpr const char *numbers = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 20000) ";

TEST_F(HostileDatabase, AJoinWithoutEndIsEnded)
{
    const Connection db = open(QByteArray("CREATE TABLE t(a); ") + numbers + "INSERT INTO t SELECT i FROM n;");
    ASSERT_NE(db, nullptr);
    const auto product = "SELECT count(*) FROM t AS x LEFT JOIN t AS y ON x.a + y.a = 0 LEFT JOIN t AS z";
    EXPECT_EQ(rowsOf(db, product, 1), 0);
    EXPECT_EQ(result, SQLITE_INTERRUPT);
    expectReported("takes more work than a photo library of its size can");
    EXPECT_TRUE(host.databaseDamage().isEmpty());
}

TEST_F(HostileDatabase, AfterThatNothingIsReadAnyMore)
{
    const Connection db = open(QByteArray("CREATE TABLE t(a); ") + numbers + "INSERT INTO t SELECT i FROM n;");
    rowsOf(db, "SELECT count(*) FROM t AS x, t AS y, t AS z", 1);
    ASSERT_EQ(result, SQLITE_INTERRUPT);
    EXPECT_EQ(prepareThroughHost(db, "SELECT * FROM t", &result), nullptr);
    EXPECT_EQ(result, SQLITE_AUTH);
}

TEST_F(HostileDatabase, TheSameTableAgainAndAgainIsRefusedInTheEnd)
{
    const Connection db = open("CREATE TABLE t(a)");
    const qint64 most = devicehost::readingAllowance(fileSize()).steps / devicehost::stepsOfAStatement;
    qint64 made = 0;
    while (made <= most && prepareThroughHost(db, "SELECT * FROM t") != nullptr)
        ++made;
    EXPECT_LE(made, most);
    EXPECT_GT(made, most / 2);
}

TEST_F(HostileDatabase, ALongValueThatManyRowsRepeatIsDeliveredSomeTimesOnly)
{
    // A column that the rows lack has its default value, which stands in the file once.
    const QByteArray text(900000, 'x');
    const Connection db = open(QByteArray("CREATE TABLE t(a); ") + numbers + "INSERT INTO t SELECT i FROM n;" +
                               "ALTER TABLE t ADD COLUMN b DEFAULT '" + text + "';");
    const qint64 most = devicehost::readingAllowance(fileSize()).deliveredBytes;
    const int rows = rowsOf(db, "SELECT b FROM t", 20000);
    EXPECT_EQ(result, SQLITE_INTERRUPT);
    EXPECT_GE(rows, most / text.size());
    EXPECT_LE(rows, most / text.size() + 1);
    expectReported("takes more work");
}

TEST_F(HostileDatabase, AnOrdinaryOneIsReadManyTimesOver)
{
    makeRows(path, 20000);
    const Connection db = openThroughHost(path);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(rowCount(db, "SELECT * FROM rows ORDER BY text DESC"), 20000);
    EXPECT_TRUE(host.failure().isEmpty());
}

TEST_F(HostileDatabase, PagesThatStandForManyAreReadSomeTimesOnly)
{
    // The root of the table's tree, and all that its children are: each page stands there hundreds of times.
    makeRows(path, 4000);
    QByteArray bytes = contentOf(path);
    const auto number = [&bytes](int at) {
        return (static_cast<uchar>(bytes.at(at)) << 8) | static_cast<uchar>(bytes.at(at + 1));
    };
    const int page = 4096;
    int forged = 0;
    for (int at = page; at < bytes.size(); at += page) {
        if (bytes.at(at) != 5) // an inner page of a table
            continue;
        ++forged;
        const int cells = number(at + 3);
        const QByteArray child = bytes.mid(at + number(at + 12), 4);
        for (int cell = 0; cell < cells; ++cell)
            bytes.replace(at + number(at + 12 + 2 * cell), 4, child);
        bytes.replace(at + 8, 4, child);
    }
    ASSERT_GT(forged, 0);
    writeFile(path, bytes);
    const Connection db = openThroughHost(path, &result);
    ASSERT_NE(db, nullptr);
    const qint64 most = devicehost::readingAllowance(fileSize()).deliveredBytes;
    const int rows = rowsOf(db, "SELECT * FROM rows", 1000000);
    EXPECT_LE(rows * 400LL, most + 400);
    EXPECT_NE(result, SQLITE_ROW);
}

TEST_F(HostileDatabase, ATreeThatEndsInItselfIsDamage)
{
    makeRows(path, 1000);
    QByteArray bytes = contentOf(path);
    const int page = 4096;
    for (int at = page; at < bytes.size(); at += page)
        if (bytes.at(at) == 5)
            bytes.replace(at + 8, 4, QByteArray("\0\0\0", 3) + static_cast<char>(at / page + 1));
    writeFile(path, bytes);
    const Connection db = openThroughHost(path, &result);
    rowsOf(db, "SELECT * FROM rows", 1000000);
    EXPECT_EQ(result, SQLITE_CORRUPT);
}

TEST_F(HostileDatabase, TablesThatComputeAreNotRead)
{
    for (const char *column :
         {"hex(zeroblob(1000))", "printf('%.*c', 1000, 'x')", "'a' || a", "a LIKE '%a%b%'", "a GLOB '*a*b'"}) {
        QFile::remove(path);
        const Connection db = open(QByteArray("CREATE TABLE t(a, b AS (") + column + "), c); CREATE TABLE u(a);" +
                                   "INSERT INTO t(a) VALUES(1); INSERT INTO u VALUES(1);");
        ASSERT_NE(db, nullptr) << column;
        for (const char *sql : {"SELECT * FROM t", "SELECT b FROM T", "SELECT a FROM t"}) {
            EXPECT_EQ(prepareThroughHost(db, sql, &result), nullptr) << column;
            EXPECT_EQ(result, SQLITE_AUTH);
        }
        EXPECT_EQ(rowCount(db, "SELECT * FROM u"), 1) << column;
    }
    expectReported("computes its columns instead of storing them");
}

TEST_F(HostileDatabase, ComputedColumnsThatAreStoredAreRead)
{
    const Connection db = open("CREATE TABLE t(a, b AS (a || 'x') STORED); INSERT INTO t(a) VALUES(1), (2);");
    EXPECT_EQ(rowCount(db, "SELECT a, b FROM t"), 2);
    EXPECT_TRUE(host.failure().isEmpty());
}

TEST_F(HostileDatabase, FunctionsOfTheSchemaAreNeitherRunNorInTheWay)
{
    const Connection db = open("CREATE TABLE t(a CHECK (length(a) < 9)); CREATE INDEX i ON t(lower(a));"
                               "CREATE INDEX p ON t(a) WHERE abs(a) > 1; INSERT INTO t VALUES('1'), ('2');");
    ASSERT_NE(db, nullptr);
    EXPECT_EQ(rowCount(db, "SELECT * FROM t"), 2);
    for (const char *sql : {"SELECT lower(a) FROM t", "SELECT randomblob(1) FROM t", "SELECT a LIKE 'x' FROM t"})
        EXPECT_EQ(rowCount(db, sql), -1) << sql;
}

TEST_F(HostileDatabase, VirtualTablesAreNone)
{
    const Connection db = open("CREATE VIRTUAL TABLE r USING rtree(id, a, b); INSERT INTO r VALUES(1, 2, 3);"
                               "CREATE TABLE t(a); INSERT INTO t VALUES(1);");
    ASSERT_NE(db, nullptr);
    EXPECT_EQ(rowCount(db, "SELECT * FROM r"), -1);
    EXPECT_EQ(rowCount(db, "SELECT * FROM dbstat"), -1);
    EXPECT_EQ(rowCount(db, "SELECT * FROM t"), 1);
}

TEST_F(HostileDatabase, ViewsInThePlaceOfTablesAreRefused)
{
    const Connection db = open("CREATE VIEW t(a) AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i FROM n) "
                               "SELECT i FROM n");
    ASSERT_NE(db, nullptr);
    EXPECT_EQ(prepareThroughHost(db, "SELECT a FROM t", &result), nullptr);
}

TEST_F(HostileDatabase, ASchemaOfTooManyTablesIsRefused)
{
    makeDatabase(path, "CREATE TABLE t(a)");
    forgeSchema(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 20000) "
        "INSERT INTO sqlite_master SELECT 'table', 't' || i, 't' || i, rootpage, 'CREATE TABLE t' || i || '(a)' "
        "FROM n, (SELECT rootpage FROM sqlite_master)");
    EXPECT_EQ(openThroughHost(path, &result), nullptr);
    EXPECT_EQ(result, SQLITE_TOOBIG);
    expectReported("has a larger schema than any photo library; unlock the device");
}

TEST_F(HostileDatabase, ThousandsOfTablesAreRead)
{
    QByteArray sql = "BEGIN;";
    for (int i = 0; i < 2000; ++i)
        sql += "CREATE TABLE t" + QByteArray::number(i) + "(a);";
    EXPECT_NE(open(sql + "COMMIT"), nullptr);
}

TEST_F(HostileDatabase, TooManyIndicesOfOneTableAreRefused)
{
    QByteArray sql = "CREATE TABLE t(a); BEGIN;";
    for (int i = 0; i <= devicehost::mostIndicesOfATable; ++i)
        sql += "CREATE INDEX i" + QByteArray::number(i) + " ON t(a);";
    EXPECT_EQ(open(sql + "COMMIT"), nullptr);
    expectReported("has a larger schema than any photo library");
}

TEST_F(HostileDatabase, AsManyIndicesAsPhotoLibrariesHaveAreNot)
{
    QByteArray sql = "CREATE TABLE t(a); BEGIN;";
    for (int i = 0; i < 200; ++i)
        sql += "CREATE INDEX i" + QByteArray::number(i) + " ON t(a);";
    EXPECT_NE(open(sql + "COMMIT"), nullptr);
}

TEST_F(HostileDatabase, AStatementOfTheSchemaLongerThanAMebibyteIsRefused)
{
    EXPECT_EQ(open("CREATE TABLE t(a /* " + QByteArray(2000000, 'x') + " */)"), nullptr);
    expectReported("has a larger schema than any photo library");
}

TEST_F(HostileDatabase, AForgedSchemaIsDamage)
{
    makeDatabase(path, "CREATE TABLE t(a); CREATE TABLE u(a);");
    forgeSchema("UPDATE sqlite_master SET sql = 'CREATE TABLE u(a)' WHERE name = 't'");
    EXPECT_EQ(openThroughHost(path, &result), nullptr);
    EXPECT_EQ(result, SQLITE_CORRUPT);
}

TEST_F(HostileDatabase, TextInUtf16IsReadAsAnyOther)
{
    for (const char *encoding : {"UTF-16le", "UTF-16be"}) {
        QFile::remove(path);
        const Connection db = open(QByteArray("PRAGMA encoding='") + encoding +
                                   "'; CREATE TABLE t(a); INSERT INTO t VALUES('\xC3\xA4\xF0\x9F\x93\xB7');");
        const Statement statement = prepareThroughHost(db, "SELECT a, \"0\" FROM t");
        ASSERT_NE(statement, nullptr);
        ASSERT_EQ(sqlite3_step(statement.get()), SQLITE_ROW);
        EXPECT_STREQ(reinterpret_cast<const char *>(sqlite3_column_text(statement.get(), 0)),
                     "\xC3\xA4\xF0\x9F\x93\xB7");
        EXPECT_EQ(sqlite3_column_bytes(statement.get(), 0), 6);
        EXPECT_EQ(sqlite3_column_int(statement.get(), 1), 0);
    }
}

TEST_F(HostileDatabase, ALogOfAnotherDatabaseDoesNotMakeItLargerThanItIs)
{
    makeRows(path, 100);
    const QByteArray plain = contentOf(path);
    const QString other = path + QStringLiteral("-other");
    makeDatabase(other, "PRAGMA journal_mode=WAL; CREATE TABLE t(a); PRAGMA wal_checkpoint;");
    const Connection writer = makeDatabase(other, "INSERT INTO t VALUES(1)");
    writeFile(path + QStringLiteral("-wal"), contentOf(other + QStringLiteral("-wal")));
    writeFile(path + QStringLiteral("-shm"), QByteArray(32768, '\x55'));
    const Connection db = openThroughHost(path, &result);
    EXPECT_LE(rowsOf(db, "SELECT * FROM rows", 1000), 100); // the database, or damage: both are answers
    EXPECT_EQ(contentOf(path), plain);
}

TEST_F(HostileDatabase, AFileBeyondTheHostsFoldersIsCountedToo)
{
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("Photos.sqlite"));
    makeDatabase(file, (QByteArray("CREATE TABLE t(a); ") + numbers + "INSERT INTO t SELECT i FROM n;").constData());
    const Connection db = openThroughHost(file);
    ASSERT_NE(db, nullptr);
    EXPECT_EQ(rowsOf(db, "SELECT count(*) FROM t AS x, t AS y, t AS z", 1), 0);
    EXPECT_EQ(result, SQLITE_INTERRUPT);
    EXPECT_TRUE(host.failure().isEmpty());
}

} // namespace
