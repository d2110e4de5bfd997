#include "photolib/db/text_pool.h"

#include "testing/qt_printers.h"

#include <gtest/gtest.h>

#include <memory>

using photolib::Row;
using photolib::TextPool;

namespace
{

/// The pool's texts for the rows of `sql`, whose only column they are.
QList<QString> pooled(const char *sql, TextPool *pool)
{
    sqlite3 *db = nullptr;
    sqlite3_open(":memory:", &db);
    sqlite3_stmt *statement = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(db, sql, -1, &statement, nullptr), SQLITE_OK) << sqlite3_errmsg(db);
    QList<QString> texts;
    while (sqlite3_step(statement) == SQLITE_ROW)
        texts.append(pool->text(Row(statement), 0));
    sqlite3_finalize(statement);
    sqlite3_close(db);
    return texts;
}

} // namespace

TEST(TextPool, EqualTextsShareTheirCharactersAlsoWithOthersInBetween)
{
    TextPool pool;
    const QList<QString> texts = pooled("values ('DCIM/100APPLE'), ('ü'), ('DCIM/100APPLE')", &pool);
    ASSERT_EQ(texts,
              (QList<QString>{QStringLiteral("DCIM/100APPLE"), QStringLiteral("ü"), QStringLiteral("DCIM/100APPLE")}));
    EXPECT_EQ(texts[0].constData(), texts[2].constData());
}

TEST(TextPool, NullIsTheEmptyTextAndNotNull)
{
    TextPool pool;
    const QList<QString> texts = pooled("values (null), ('')", &pool);
    ASSERT_EQ(texts, (QList<QString>{QString(QLatin1String("")), QString(QLatin1String(""))}));
    EXPECT_FALSE(texts[0].isNull());
    EXPECT_FALSE(texts[1].isNull());
}

TEST(TextPool, GivesTheRightTextsAlsoWhenThereAreMoreThanItHolds)
{
    TextPool pool;
    const QList<QString> texts =
        pooled("with recursive n(i) as (select 0 union all select i + 1 from n where i < 19999) "
               "select i % 10000 from n",
               &pool);
    ASSERT_EQ(texts.size(), 20'000);
    for (int i = 0; i < texts.size(); ++i)
        ASSERT_EQ(texts[i], QString::number(i % 10000));
}
