#include "apps/cli/output/value_text.h"

#include "testing/qt_printers.h"

#include <gtest/gtest.h>

using photocli::dateText;

namespace
{

QDateTime utc(int year, int month, int day, int hour = 0, int minute = 0, int second = 0, int ms = 0)
{
    return {QDate(year, month, day), QTime(hour, minute, second, ms), Qt::UTC};
}

} // namespace

TEST(DateText, IsWhatQtWritesForEveryKindOfDay)
{
    const QList<QDateTime> dates = {utc(2024, 2, 29, 23, 59, 59), utc(1970, 1, 1), utc(1969, 12, 31, 23, 59, 59, 999),
                                    utc(2001, 1, 1, 10, 5, 7),    utc(1, 1, 1),    utc(9999, 12, 31, 23, 59, 59, 999),
                                    utc(1582, 10, 10, 12),        utc(1900, 3, 1), utc(800, 6, 9, 0, 0, 0, 1)};
    for (const QDateTime &date : dates)
        EXPECT_EQ(dateText(date), date.toString(Qt::ISODate).toLatin1());
}

TEST(DateText, IsInUtcWhateverTheDatesOwnZone)
{
    EXPECT_EQ(dateText(QDateTime(QDate(2024, 5, 1), QTime(1, 30), Qt::OffsetFromUTC, 7200)),
              QByteArray("2024-04-30T23:30:00Z"));
}

TEST(DateText, IsEmptyOutsideTheYearsOneTo9999)
{
    EXPECT_EQ(dateText(QDateTime()), QByteArray());
    EXPECT_EQ(dateText(utc(1, 1, 1).addMSecs(-1)), QByteArray());
    EXPECT_EQ(dateText(utc(9999, 12, 31, 23, 59, 59, 999).addMSecs(1)), QByteArray());
}
