#include "apps/cli/selection/date_bound.h"

#include "apps/cli/failure.h"

#include <gtest/gtest.h>

namespace photocli
{

TEST(DateBound, PlainDatesCoverWholeDaysOfTheLocalTimeZone)
{
    EXPECT_EQ(parseFromDate(QStringLiteral("2024-05-01")), QDateTime(QDate(2024, 5, 1), QTime(0, 0)));
    EXPECT_EQ(parseToDate(QStringLiteral("2024-05-01")), QDateTime(QDate(2024, 5, 1), QTime(23, 59, 59, 999)));
}

TEST(DateBound, TimesAreTakenAsTheyStand)
{
    const QDateTime expected(QDate(2024, 5, 1), QTime(18, 30));
    EXPECT_EQ(parseFromDate(QStringLiteral("2024-05-01T18:30")), expected);
    EXPECT_EQ(parseToDate(QStringLiteral("2024-05-01 18:30:00")), expected);
}

TEST(DateBound, OffsetsFromUtcAreUnderstood)
{
    const QDateTime expected(QDate(2024, 5, 1), QTime(18, 30), Qt::UTC);
    EXPECT_EQ(parseFromDate(QStringLiteral("2024-05-01T18:30:00Z")), expected);
    EXPECT_EQ(parseFromDate(QStringLiteral("2024-05-01T20:30:00+02:00")), expected);
}

TEST(DateBound, WhatIsNoDateIsAUsageFailure)
{
    for (const char *text : {"", "yesterday", "2024-13-01", "2024-02-30", "2024-5-1", "01.05.2024", "2024-05-01T25:00",
                             "2024-05-01T", "2024-05-01x", "20240501", "2024-05-01T10:00 "}) {
        try {
            parseToDate(QString::fromLatin1(text));
            ADD_FAILURE() << text;
        } catch (const Failure &failure) {
            EXPECT_EQ(failure.code, ExitUsage);
            EXPECT_TRUE(failure.message.contains(QStringLiteral("--to-date")));
        }
    }
}

} // namespace photocli
