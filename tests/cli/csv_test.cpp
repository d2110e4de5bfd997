#include "apps/cli/output/csv.h"

#include "tests/cli/written.h"

#include <gtest/gtest.h>

#include <limits>

namespace photocli
{

TEST(Csv, CellsAreQuotedOnlyWhereNeeded)
{
    EXPECT_EQ(csvCell(QStringLiteral("plain text")), QStringLiteral("plain text"));
    EXPECT_EQ(csvCell(QString()), QString());
    EXPECT_EQ(csvCell(QStringLiteral("a,b")), QStringLiteral("\"a,b\""));
    EXPECT_EQ(csvCell(QStringLiteral("say \"x\"")), QStringLiteral("\"say \"\"x\"\"\""));
    EXPECT_EQ(csvCell(QStringLiteral("a\nb")), QStringLiteral("\"a\nb\""));
    EXPECT_EQ(csvCell(QStringLiteral("a\rb")), QStringLiteral("\"a\rb\""));
}

TEST(Csv, LinesEndWithCarriageReturnAndLineFeed)
{
    EXPECT_EQ(written([](Output &out) { Csv(out).line({"a", "b,c", ""}); }), QByteArray("a,\"b,c\",\r\n"));
}

TEST(Csv, RecordHasTheColumnsOfItsHeader)
{
    photoGroup group;
    group.category = 15;
    group.key = QStringLiteral("7");
    group.title = QStringLiteral("Summer, sea");
    group.assetIds = {3, 1, 2};
    const QByteArray text = written([&group](Output &out) {
        Csv csv(out);
        csv.header(group);
        csv.record(group);
    });
    EXPECT_EQ(text, QByteArray("category,key,title,coverAssetId,favorite,assetIds\r\n"
                               "15,7,\"Summer, sea\",0,0,3 1 2\r\n"));
}

TEST(ValueText, DoublesReadBackToTheSameDouble)
{
    EXPECT_EQ(valueText(0.1), QStringLiteral("0.1"));
    EXPECT_EQ(valueText(-180.0), QStringLiteral("-180"));
    for (const double value : {1.0 / 3.0, 5e-324, 1.7976931348623157e308, 48.858400000000003, -0.0})
        EXPECT_EQ(valueText(value).toDouble(), value);
    EXPECT_EQ(valueText(std::numeric_limits<double>::quiet_NaN()), QString());
    EXPECT_EQ(valueText(-std::numeric_limits<double>::infinity()), QString());
}

TEST(ValueText, DatesAreUtcAndMissingOutsideTheCalendar)
{
    const QDateTime zero(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC);
    EXPECT_EQ(valueText(zero), QStringLiteral("2001-01-01T00:00:00Z"));
    EXPECT_EQ(valueText(zero.toOffsetFromUtc(7200)), QStringLiteral("2001-01-01T00:00:00Z"));
    EXPECT_EQ(valueText(QDateTime()), QString());
    EXPECT_EQ(valueText(QDateTime(QDate(10000, 1, 1), QTime(0, 0), Qt::UTC)), QString());
    EXPECT_EQ(valueText(QDateTime(QDate(-1, 1, 1), QTime(0, 0), Qt::UTC)), QString());
    EXPECT_EQ(valueText(QDateTime(QDate(1, 1, 1), QTime(0, 0), Qt::UTC)), QStringLiteral("0001-01-01T00:00:00Z"));
}

} // namespace photocli
