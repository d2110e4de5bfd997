#include "photolib/db/statement.h"

#include "testing/fake_device.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>

using photolib::Row;
using photolib::SqlText;
using photolib::Statement;

namespace
{

/// A connection to a private database; a statement that is left over fails the test.
class StatementTest : public ::testing::Test
{
protected:
    StatementTest() { sqlite3_open(":memory:", &db); }
    ~StatementTest() override { EXPECT_EQ(sqlite3_close(db), SQLITE_OK) << "a statement was not finalized"; }

    /// Has `look` called with the first row of `sql`.
    template <typename Look>
    void withRow(const char *sql, Look look)
    {
        Statement statement(db, sql);
        ASSERT_TRUE(statement.isPrepared()) << sqlite3_errmsg(db);
        int rows = 0;
        for (const Row row : statement.rows(stop)) {
            look(row);
            ++rows;
        }
        EXPECT_EQ(rows, 1);
    }

    QList<int> numbers(const char *sql)
    {
        Statement statement(db, sql);
        QList<int> read;
        for (const Row row : statement.rows(stop)) {
            read.append(row.int32(0));
            if (read.last() == stopAt)
                stop = true;
        }
        return read;
    }

    sqlite3 *db = nullptr;
    bool stop = false;
    int stopAt = -1;
};

const char threeRows[] = "select 1 union all select 2 union all select 3";

} // namespace

// Text of statements.

TEST(SqlTextOfAStatement, FillsPlaceholdersWithoutQuoting)
{
    EXPECT_STREQ(SqlText("select %s from %s where a = %d", "it's", "T", -5).get(), "select it's from T where a = -5");
}

TEST(SqlTextOfAStatement, TakesTextWithoutPlaceholdersAsItStands)
{
    EXPECT_STREQ(SqlText("select 100%% from T").get(), "select 100% from T");
}

TEST(SqlTextOfAStatement, IsCutOffAt1023Bytes)
{
    const QByteArray text(1023, 'x');
    EXPECT_STREQ(SqlText("%s", text.constData()).get(), text.constData());
    EXPECT_STREQ(SqlText("%syz", text.constData()).get(), text.constData());
    EXPECT_EQ(std::strlen(SqlText("%s", QByteArray(5000, 'x').constData()).get()), 1023U);
}

// Statements.

TEST_F(StatementTest, TellsThatItIsPrepared)
{
    const Statement statement(db, "select 1");
    EXPECT_TRUE(statement.isPrepared());
    EXPECT_EQ(statement.result(), SQLITE_OK);
}

TEST_F(StatementTest, TellsWhyItIsNotPrepared)
{
    Statement statement(db, "select nothing from nowhere");
    EXPECT_FALSE(statement.isPrepared());
    EXPECT_EQ(statement.result(), SQLITE_ERROR);
    for (const Row row : statement.rows(stop))
        ADD_FAILURE() << "a row with " << row.columnCount() << " columns";
}

TEST_F(StatementTest, IsPreparedThroughTheHostWithItsWholeText)
{
    testkit::FakeDevice device;
    device.onOperation([](const testkit::Operation &operation) {
        EXPECT_EQ(operation.size, -1);
        EXPECT_EQ(operation.tail, nullptr);
    });
    const Statement statement(db, "select 1");
    EXPECT_EQ(device.operations(testkit::OperationKind::PrepareSqlite), QStringList{"prepareSqlite \"select 1\" = 0"});
}

TEST_F(StatementTest, IsFinalizedWhenItsRowsAreLeftEarly)
{
    Statement statement(db, threeRows);
    for (const Row row : statement.rows(stop)) {
        EXPECT_EQ(row.int32(0), 1);
        break;
    }
}

// Rows.

TEST_F(StatementTest, GivesEveryRowOnce)
{
    EXPECT_EQ(numbers(threeRows), (QList<int>{1, 2, 3}));
    EXPECT_EQ(numbers("select 1 where 0"), QList<int>());
}

TEST_F(StatementTest, GivesNoMoreRowsAfterAStop)
{
    stopAt = 2;
    EXPECT_EQ(numbers(threeRows), (QList<int>{1, 2}));
    EXPECT_EQ(numbers(threeRows), QList<int>());
}

TEST_F(StatementTest, ARowThatComesTogetherWithAStopIsNotGiven)
{
    sqlite3_create_function(
        db, "stop_now", 0, SQLITE_UTF8, &stop,
        [](sqlite3_context *context, int, sqlite3_value **) {
            *static_cast<bool *>(sqlite3_user_data(context)) = true;
            sqlite3_result_int(context, 2);
        },
        nullptr, nullptr);
    EXPECT_EQ(numbers("select 1 union all select stop_now()"), QList<int>{1});
}

TEST_F(StatementTest, AnErrorEndsTheRows)
{
    EXPECT_EQ(numbers("select 1 union all select abs(-9223372036854775807 - 1) union all select 3"), QList<int>{1});
}

// Values.

TEST_F(StatementTest, ColumnsAreCountedAndNamed)
{
    withRow("select 1 as Z_PK, 2 as \"Größe\"", [](const Row &row) {
        EXPECT_EQ(row.columnCount(), 2);
        EXPECT_STREQ(row.columnName(0), "Z_PK");
        EXPECT_STREQ(row.columnName(1), "Größe");
    });
}

TEST_F(StatementTest, NumbersComeIn32And64Bits)
{
    withRow("select 4294967301, 2147483648, -1, 1e300, '12x', NULL, 2.75, x'3132'", [](const Row &row) {
        EXPECT_EQ(row.int32(0), 5);
        EXPECT_EQ(row.int64(0), 4294967301LL);
        EXPECT_EQ(row.int32(1), -2147483647 - 1);
        EXPECT_EQ(row.int64(2), -1);
        EXPECT_EQ(row.int64(3), std::numeric_limits<qint64>::max());
        EXPECT_EQ(row.int32(3), -1);
        EXPECT_EQ(row.int32(4), 12);
        EXPECT_EQ(row.int32(5), 0);
        EXPECT_EQ(row.int64(5), 0);
        EXPECT_EQ(row.real(5), 0.0);
        EXPECT_EQ(row.int32(6), 2);
        EXPECT_EQ(row.real(6), 2.75);
        EXPECT_EQ(row.int32(7), 12);
    });
}

TEST_F(StatementTest, TextIsUtf8UpToItsFirstZeroCharacter)
{
    withRow("select 'Größe €', cast(x'610062' as text), cast(x'61FF' as text), 2.5, ''", [](const Row &row) {
        EXPECT_EQ(row.text(0), QString::fromUtf8("Größe €"));
        EXPECT_EQ(row.text(1), "a");
        EXPECT_EQ(row.text(2), QString("a") + QChar(QChar::ReplacementCharacter));
        EXPECT_EQ(row.text(3), "2.5");
        EXPECT_EQ(row.text(4), "");
        EXPECT_FALSE(row.text(4).isNull());
    });
}

TEST_F(StatementTest, TextOfNullIsEmptyButNotNull)
{
    withRow("select NULL", [](const Row &row) {
        EXPECT_TRUE(row.text(0).isEmpty());
        EXPECT_FALSE(row.text(0).isNull());
    });
}

TEST_F(StatementTest, BytesComeAsStored)
{
    withRow("select x'0061FF00', 'text', 42", [](const Row &row) {
        QByteArray bytes;
        EXPECT_TRUE(row.blob(0, &bytes));
        EXPECT_EQ(bytes, QByteArray("\0a\xFF\0", 4));
        bytes.clear();
        EXPECT_TRUE(row.blob(1, &bytes));
        EXPECT_EQ(bytes, QByteArray("text"));
        bytes.clear();
        EXPECT_TRUE(row.blob(2, &bytes));
        EXPECT_EQ(bytes, QByteArray("42"));
    });
}

TEST_F(StatementTest, NullAndValuesWithoutBytesHaveNone)
{
    withRow("select NULL, '', x''", [](const Row &row) {
        QByteArray bytes("kept");
        EXPECT_FALSE(row.blob(0, &bytes));
        EXPECT_FALSE(row.blob(1, &bytes));
        EXPECT_FALSE(row.blob(2, &bytes));
        EXPECT_EQ(bytes, QByteArray("kept"));
    });
}
