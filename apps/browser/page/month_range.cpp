#include "apps/browser/page/month_range.h"

#include "apps/browser/library/snapshot.h"

#include <QDateTime>

namespace browser
{

MonthRange MonthRange::around(qint64 date)
{
    if (date == Photo::noDate)
        return {QDate(), date, date + 1};
    const QDate day = QDateTime::fromMSecsSinceEpoch(date).date();
    const QDate first(day.year(), day.month(), 1);
    MonthRange range = of(first, first.addMonths(1));
    if (!first.isValid() || !range.contains(date)) // at the ends of what calendars can count
        return {first, date, date + 1};
    return range;
}

MonthRange MonthRange::of(const QDate &first, const QDate &behind)
{
    return {first, first.startOfDay().toMSecsSinceEpoch(), behind.startOfDay().toMSecsSinceEpoch()};
}

} // namespace browser
