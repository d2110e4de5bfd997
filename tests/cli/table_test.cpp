#include "apps/cli/output/table.h"

#include "tests/cli/written.h"

#include <gtest/gtest.h>

namespace photocli
{

namespace
{

QByteArray printed(const QList<QStringList> &rows, int limit = 48)
{
    const QList<Column> columns = {
        {QStringLiteral("N"), Column::Right}, {QStringLiteral("NAME")}, {QStringLiteral("Z")}};
    return written([&](Output &out) { TableWriter::print(out, columns, rows, limit); });
}

} // namespace

TEST(Table, ColumnsAreAsWideAsTheirWidestCell)
{
    EXPECT_EQ(printed({{"1", "a", "x"}, {"100", "abcdef", "y"}}), QByteArray("  N  NAME    Z\n"
                                                                             "  1  a       x\n"
                                                                             "100  abcdef  y\n"));
}

TEST(Table, WidthIsCountedInCellsOfTheTerminal)
{
    EXPECT_EQ(printed({{"1", QString::fromUtf8("東京都"), "x"}, {"2", "ab", "y"}}), QByteArray("N  NAME    Z\n"
                                                                                               "1  東京都  x\n"
                                                                                               "2  ab      y\n"));
}

TEST(Table, CellBeyondTheLimitIsPrintedWhole)
{
    EXPECT_EQ(printed({{"1", "abcdefghij", "x"}, {"2", "a", "y"}}, 5), QByteArray("N  NAME   Z\n"
                                                                                  "1  abcdefghij  x\n"
                                                                                  "2  a      y\n"));
}

TEST(Table, LinesHaveNoBlanksAtTheirEnd)
{
    EXPECT_EQ(printed({{"1", "", ""}}), QByteArray("N  NAME  Z\n1\n"));
}

TEST(Table, EscapeSequencesDoNotReachTheTerminal)
{
    const QByteArray text = printed({{"1", "\033]0;x\007", "a\nb"}});
    EXPECT_FALSE(text.contains('\033'));
    EXPECT_FALSE(text.contains('\007'));
    EXPECT_EQ(text.count('\n'), 2);
}

} // namespace photocli
