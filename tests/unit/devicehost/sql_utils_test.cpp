#include "photolib/host/sql_utils.h"

#include "sqlite_files.h"
#include "support.h"

#include "devicehost/device_host.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using devicehost::DeviceHost;

namespace
{

QByteArray noise(int size)
{
    QByteArray bytes(size, '\0');
    quint32 state = 99;
    for (char &byte : bytes)
        byte = static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
    return bytes;
}

class SqlUtilsTest : public testing::Test
{
protected:
    QString path(const char *name = "Photos.sqlite") const { return folder.filePath(QString::fromUtf8(name)); }

    int openingResult(const QByteArray &content) const
    {
        writeFile(path(), content);
        int result = -1;
        openThroughHost(path(), &result);
        return result;
    }

    QTemporaryDir folder;
};

TEST_F(SqlUtilsTest, AnEmptyFileIsAnEmptyDatabase)
{
    EXPECT_EQ(openingResult(""), SQLITE_OK);
    EXPECT_EQ(rowCount(openThroughHost(path()), "SELECT * FROM sqlite_master"), 0);
}

TEST_F(SqlUtilsTest, AMissingFileIsNotCreated)
{
    int result = SQLITE_OK;
    openThroughHost(path(), &result);
    EXPECT_EQ(result, SQLITE_CANTOPEN);
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST_F(SqlUtilsTest, WhatIsNoDatabaseIsRefused)
{
    EXPECT_EQ(openingResult("This is a text of more than sixteen bytes."), SQLITE_NOTADB);
    EXPECT_EQ(openingResult(noise(65536)), SQLITE_NOTADB);
    EXPECT_EQ(openingResult(QByteArray(4096, '\0')), SQLITE_NOTADB);
}

TEST_F(SqlUtilsTest, ATruncatedDatabaseIsRefused)
{
    makeRows(path(), 1000);
    const QByteArray whole = contentOf(path());
    EXPECT_EQ(openingResult(whole), SQLITE_OK);
    EXPECT_EQ(openingResult(whole.left(8192)), SQLITE_CORRUPT);
    EXPECT_EQ(openingResult(whole.left(10)), SQLITE_NOTADB);
}

TEST_F(SqlUtilsTest, ADamagedSchemaIsRefused)
{
    makeRows(path(), 10);
    QByteArray content = contentOf(path());
    content.replace(100, 12, QByteArray(12, '\xff'));
    EXPECT_EQ(openingResult(content), SQLITE_CORRUPT);
}

TEST_F(SqlUtilsTest, OddPathsAreFilesOrNothing)
{
    ASSERT_TRUE(QDir::setCurrent(folder.path()));
    for (const QString &name : {QString(), QStringLiteral(":memory:"), QStringLiteral("file:x?mode=memory"),
                                QString(path() + QChar(0)), folder.path()}) {
        int result = SQLITE_OK;
        EXPECT_EQ(openThroughHost(name, &result), nullptr) << name.toStdString();
        EXPECT_NE(result, SQLITE_OK) << name.toStdString();
    }
    QDir::setCurrent(QStringLiteral("/"));
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    EXPECT_EQ(SqlUtils::openSqlite(path(), nullptr), SQLITE_MISUSE);
}

TEST_F(SqlUtilsTest, DoubleQuotedTextIsText)
{
    makeRows(path(), 1);
    const Connection db = openThroughHost(path());
    const Statement statement = prepareThroughHost(db, "SELECT \"0\" FROM rows");
    ASSERT_NE(statement, nullptr);
    ASSERT_EQ(sqlite3_step(statement.get()), SQLITE_ROW);
    EXPECT_EQ(sqlite3_column_type(statement.get(), 0), SQLITE_TEXT);
    EXPECT_EQ(sqlite3_column_int(statement.get(), 0), 0);
}

TEST_F(SqlUtilsTest, AForeignSchemaHasNoPower)
{
    makeDatabase(path(), "CREATE TABLE t(a); INSERT INTO t VALUES(1); CREATE VIEW v AS SELECT * FROM t;"
                         "CREATE TRIGGER r AFTER INSERT ON t BEGIN INSERT INTO t VALUES(2); END;");
    const Connection db = openThroughHost(path());
    ASSERT_NE(db, nullptr);
    EXPECT_EQ(rowCount(db, "SELECT * FROM t"), 1);
    EXPECT_EQ(rowCount(db, "SELECT * FROM v"), -1);
    EXPECT_EQ(rowCount(db, "ATTACH ':memory:' AS other"), -1);
    EXPECT_EQ(rowCount(db, "SELECT load_extension('x')"), -1);
    EXPECT_EQ(rowCount(db, "CREATE TABLE u(a CHECK (a <> \"text\"))"), -1);
    const Statement trusted = prepareThroughHost(db, "PRAGMA trusted_schema");
    ASSERT_EQ(sqlite3_step(trusted.get()), SQLITE_ROW);
    EXPECT_EQ(sqlite3_column_int(trusted.get(), 0), 0);
    EXPECT_EQ(rowCount(db, "PRAGMA writable_schema=ON"), 0);
    EXPECT_EQ(rowCount(db, "DELETE FROM sqlite_master"), -1);
    EXPECT_EQ(rowCount(db, "INSERT INTO t VALUES(3)"), 0);
    EXPECT_EQ(rowCount(db, "SELECT * FROM t"), 2);
}

TEST_F(SqlUtilsTest, ValuesOfUnreasonableSizeAreRefused)
{
    makeDatabase(path(), "CREATE TABLE t(a); INSERT INTO t VALUES(zeroblob(70000000)), (zeroblob(1000000));");
    const Connection db = openThroughHost(path());
    ASSERT_NE(db, nullptr);
    EXPECT_EQ(rowCount(db, "SELECT a FROM t WHERE rowid = 2"), 1);
    const Statement big = prepareThroughHost(db, "SELECT a FROM t WHERE rowid = 1");
    EXPECT_EQ(sqlite3_step(big.get()), SQLITE_TOOBIG);
}

TEST_F(SqlUtilsTest, StatementsOfUnreasonableSizeAreRefused)
{
    makeRows(path(), 1);
    const Connection db = openThroughHost(path());
    int result = SQLITE_OK;
    const QByteArray sql = "SELECT '" + QByteArray(20000000, 'x') + "'";
    EXPECT_EQ(prepareThroughHost(db, sql.constData(), &result), nullptr);
    EXPECT_EQ(result, SQLITE_TOOBIG);
    EXPECT_EQ(prepareThroughHost(db, ("SELECT 1" + QByteArray("+1").repeated(500)).constData()), nullptr);
    EXPECT_NE(prepareThroughHost(db, ("SELECT 1" + QByteArray("+1").repeated(50)).constData()), nullptr);
}

TEST_F(SqlUtilsTest, WideTablesAreRead)
{
    QByteArray sql = "CREATE TABLE wide(a0";
    for (int i = 1; i < 400; ++i)
        sql += ",a" + QByteArray::number(i);
    sql += "); INSERT INTO wide(a399) VALUES(1);";
    makeDatabase(path(), sql.constData());
    EXPECT_EQ(rowCount(openThroughHost(path()), "SELECT * FROM wide"), 1);
}

TEST_F(SqlUtilsTest, ClosingLeavesTheFileAsItCame)
{
    makeDatabase(path("made"), "PRAGMA journal_mode=WAL; CREATE TABLE t(a);");
    const Connection writer = makeDatabase(path("made"), "INSERT INTO t VALUES(1);");
    const QByteArray database = contentOf(path("made"));
    const QByteArray log = contentOf(path("made-wal"));
    ASSERT_FALSE(log.isEmpty());
    writeFile(path(), database);
    writeFile(path("Photos.sqlite-wal"), log);
    EXPECT_EQ(rowCount(openThroughHost(path()), "SELECT * FROM t"), 1);
    EXPECT_TRUE(contentOf(path()) == database);
    EXPECT_TRUE(contentOf(path("Photos.sqlite-wal")) == log);
}

TEST_F(SqlUtilsTest, TheLogIsReadWhateverItsIndexSays)
{
    makeDatabase(path("made"), "PRAGMA journal_mode=WAL; CREATE TABLE t(a);");
    const Connection writer = makeDatabase(path("made"), "INSERT INTO t VALUES(1);");
    const QByteArray stale = contentOf(path("made-shm"));
    ASSERT_EQ(
        sqlite3_exec(writer.get(), "INSERT INTO t VALUES(2); INSERT INTO t VALUES(3);", nullptr, nullptr, nullptr),
        SQLITE_OK);
    const QByteArray fresh = contentOf(path("made-shm"));
    writeFile(path(), contentOf(path("made")));
    writeFile(path("Photos.sqlite-wal"), contentOf(path("made-wal")));
    QByteArray forged = fresh; // both copies of the header agree, the frames they point to do not exist
    for (const int at : {16, 48 + 16})
        forged.replace(at, 4, QByteArray("\xff\xff\xff\x7f", 4));
    for (const QByteArray &index :
         {QByteArray(), stale, fresh, forged, noise(32768), noise(7), QByteArray(32768, '\0')}) {
        writeFile(path("Photos.sqlite-shm"), index);
        EXPECT_EQ(rowCount(openThroughHost(path()), "SELECT * FROM t"), 3);
        EXPECT_EQ(contentOf(path("Photos.sqlite-shm")), index); // it was not even opened
    }
    ASSERT_TRUE(QFile::remove(path("Photos.sqlite-shm")));
    ASSERT_TRUE(QDir().mkpath(path("Photos.sqlite-shm")));
    EXPECT_EQ(rowCount(openThroughHost(path()), "SELECT * FROM t"), 3);
}

TEST_F(SqlUtilsTest, ADamagedLogIsReadUpToTheDamage)
{
    makeDatabase(path("made"), "PRAGMA journal_mode=WAL; CREATE TABLE t(a);");
    const Connection writer = makeDatabase(path("made"), "INSERT INTO t VALUES(1);");
    const int good = contentOf(path("made-wal")).size();
    ASSERT_EQ(sqlite3_exec(writer.get(), "INSERT INTO t VALUES(2);", nullptr, nullptr, nullptr), SQLITE_OK);
    QByteArray log = contentOf(path("made-wal"));
    ASSERT_GT(log.size(), good + 100);
    log.replace(good + 50, 4, "XXXX");
    writeFile(path(), contentOf(path("made")));
    writeFile(path("Photos.sqlite-wal"), log);
    EXPECT_EQ(rowCount(openThroughHost(path()), "SELECT * FROM t"), 1);
}

TEST_F(SqlUtilsTest, StatementsArePreparedOneByOne)
{
    makeRows(path(), 3);
    const Connection db = openThroughHost(path());
    const char sql[] = "SELECT 1; SELECT 2";
    sqlite3_stmt *first = nullptr;
    const char *tail = nullptr;
    ASSERT_EQ(SqlUtils::prepareSqlite(db.get(), sql, -1, &first, &tail), SQLITE_OK);
    EXPECT_STREQ(tail, " SELECT 2");
    sqlite3_finalize(first);
    ASSERT_EQ(SqlUtils::prepareSqlite(db.get(), "SELECT 1 garbage(", 8, &first, &tail), SQLITE_OK);
    sqlite3_finalize(first);
}

TEST_F(SqlUtilsTest, WrongArgumentsAreRefused)
{
    makeRows(path(), 1);
    const Connection db = openThroughHost(path());
    auto *statement = reinterpret_cast<sqlite3_stmt *>(1);
    EXPECT_EQ(SqlUtils::prepareSqlite(nullptr, "SELECT 1", -1, &statement, nullptr), SQLITE_MISUSE);
    EXPECT_EQ(statement, nullptr);
    statement = reinterpret_cast<sqlite3_stmt *>(1);
    EXPECT_EQ(SqlUtils::prepareSqlite(db.get(), nullptr, -1, &statement, nullptr), SQLITE_MISUSE);
    EXPECT_EQ(statement, nullptr);
    EXPECT_EQ(SqlUtils::prepareSqlite(db.get(), "SELECT 1", -1, nullptr, nullptr), SQLITE_MISUSE);
    statement = reinterpret_cast<sqlite3_stmt *>(1);
    EXPECT_EQ(SqlUtils::prepareSqlite(db.get(), "SELECT * FROM nothing", -1, &statement, nullptr), SQLITE_ERROR);
    EXPECT_EQ(statement, nullptr);
}

/// The database lies in the local folder of a device's host, where the library puts it.
class HostedDatabase : public testing::Test
{
protected:
    QTemporaryDir temporary;
    DeviceHost host{QStringLiteral("folder:/")};
    bool moved = qputenv("TMPDIR", temporary.path().toUtf8());
    QString path = host.localDataFolder() + QStringLiteral("Photos.sqlite");
};

void stopNow(sqlite3_context *context, int, sqlite3_value **)
{
    auto *const host = static_cast<DeviceHost *>(sqlite3_user_data(context));
    host->requestStop();
}

TEST_F(HostedDatabase, AStopRequestInterruptsAnEndlessStatement)
{
    makeRows(path, 10);
    const Connection db = openThroughHost(path);
    ASSERT_NE(db, nullptr);
    ASSERT_EQ(sqlite3_create_function(db.get(), "stop_now", 0, SQLITE_UTF8, &host, &stopNow, nullptr, nullptr),
              SQLITE_OK);
    const Statement endless = prepareThroughHost(db, "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) "
                                                     "SELECT count(CASE WHEN i = 100000 THEN stop_now() END) FROM n");
    ASSERT_NE(endless, nullptr);
    EXPECT_EQ(sqlite3_step(endless.get()), SQLITE_INTERRUPT);
    EXPECT_TRUE(host.databaseDamage().isEmpty());
    EXPECT_TRUE(host.failure().isEmpty());
}

TEST_F(HostedDatabase, WithoutAStopRequestStatementsRunToTheirEnd)
{
    makeRows(path, 5000);
    const Connection db = openThroughHost(path);
    EXPECT_EQ(rowCount(db, "SELECT * FROM rows ORDER BY text DESC"), 5000);
}

TEST_F(HostedDatabase, AConnectionOutlivesTheHostObject)
{
    auto another = std::make_unique<DeviceHost>(QStringLiteral("folder:/"));
    const QString copy = another->localDataFolder() + QStringLiteral("Photos.sqlite");
    makeRows(copy, 5000);
    const Connection db = openThroughHost(copy);
    another.reset();
    EXPECT_EQ(rowCount(db, "SELECT * FROM rows"), 5000);
}

TEST_F(HostedDatabase, WhyItCannotBeOpenedIsRemembered)
{
    writeFile(path, noise(65536));
    EXPECT_EQ(openThroughHost(path), nullptr);
    EXPECT_EQ(host.failure(),
              QStringLiteral("the database /PhotoData/Photos.sqlite on the device is encrypted or no "
                             "SQLite database (file is not a database); unlock the device, connect it again, "
                             "and mount or copy it again"));
    EXPECT_EQ(host.databaseDamage(), QStringLiteral("file is not a database"));
}

TEST_F(HostedDatabase, ATruncatedOneIsCalledSo)
{
    makeRows(path, 1000);
    writeFile(path, contentOf(path).left(8192));
    EXPECT_EQ(openThroughHost(path), nullptr);
    EXPECT_EQ(host.failure(),
              QStringLiteral("the database /PhotoData/Photos.sqlite on the device is truncated or "
                             "damaged (database disk image is malformed); unlock the device, connect it "
                             "again, and mount or copy it again"));
}

TEST_F(HostedDatabase, AMissingCopyIsNamed)
{
    EXPECT_EQ(openThroughHost(path), nullptr);
    EXPECT_EQ(host.failure(), QStringLiteral("the local copy %1 of /PhotoData/Photos.sqlite on the device cannot be "
                                             "opened: unable to open database file; try again, and if that does not "
                                             "help, set TMPDIR to another folder than %2")
                                  .arg(path, temporary.path()));
    EXPECT_TRUE(host.databaseDamage().isEmpty());
}

TEST_F(HostedDatabase, AnUnknownFileFormatIsCalledSo)
{
    makeRows(path, 1);
    QByteArray content = contentOf(path);
    content.replace(44, 4, QByteArray("\0\0\0\x63", 4));
    writeFile(path, content);
    EXPECT_EQ(openThroughHost(path), nullptr);
    EXPECT_EQ(host.failure(), QStringLiteral("the database /PhotoData/Photos.sqlite on the device is damaged or of an "
                                             "unknown kind (SQL logic error); unlock the device, connect it again, "
                                             "and mount or copy it again"));
}

TEST_F(HostedDatabase, AnEmptyOneIsToldFromOneWithoutTables)
{
    EXPECT_FALSE(host.databaseIsEmpty());
    writeFile(path, "");
    EXPECT_NE(openThroughHost(path), nullptr);
    EXPECT_TRUE(host.databaseIsEmpty());
    writeFile(path, noise(65536));
    EXPECT_EQ(openThroughHost(path), nullptr);
    EXPECT_FALSE(host.databaseIsEmpty());
    ASSERT_TRUE(QFile::remove(path));
    makeDatabase(path, "CREATE TABLE t(a); DROP TABLE t;");
    EXPECT_NE(openThroughHost(path), nullptr);
    EXPECT_FALSE(host.databaseIsEmpty());
}

TEST_F(HostedDatabase, AnotherConnectionOnTheCopyDoesNotMatter)
{
    makeRows(path, 100);
    const Connection other = makeDatabase(path, "SELECT count(*) FROM rows");
    const Statement running = prepareThroughHost(other, "SELECT * FROM rows"); // holds a lock for reading
    ASSERT_EQ(sqlite3_step(running.get()), SQLITE_ROW);
    const Connection db = openThroughHost(path);
    ASSERT_NE(db, nullptr);
    EXPECT_EQ(rowCount(db, "SELECT * FROM rows"), 100);
    EXPECT_TRUE(host.failure().isEmpty());
}

TEST_F(HostedDatabase, ALockedCopyIsAFailure)
{
    makeRows(path, 100);
    const Connection other = makeDatabase(path, "BEGIN EXCLUSIVE");
    int result = SQLITE_OK;
    EXPECT_EQ(openThroughHost(path, &result), nullptr);
    EXPECT_EQ(result, SQLITE_BUSY);
    EXPECT_EQ(host.failure(), QStringLiteral("the local copy %1 of /PhotoData/Photos.sqlite on the device cannot be "
                                             "opened: database is locked; another program uses the copy; end that "
                                             "program and try again")
                                  .arg(path));
    EXPECT_TRUE(host.databaseDamage().isEmpty());
}

TEST_F(HostedDatabase, ACopyWithALogIsReadByOneConnectionOnly)
{
    makeDatabase(path, "PRAGMA journal_mode=WAL; CREATE TABLE t(a);");
    Connection other = makeDatabase(path, "INSERT INTO t VALUES(1)");
    int result = SQLITE_OK;
    EXPECT_EQ(openThroughHost(path, &result), nullptr);
    EXPECT_EQ(result, SQLITE_BUSY);
    EXPECT_FALSE(host.failure().isEmpty());
    other.reset();
    EXPECT_EQ(rowCount(openThroughHost(path), "SELECT * FROM t"), 1);
}

TEST_F(HostedDatabase, AfterAStopRequestNothingIsAFailure)
{
    host.requestStop();
    EXPECT_EQ(openThroughHost(path), nullptr);
    EXPECT_TRUE(host.failure().isEmpty());
}

} // namespace
