#ifndef APPS_BROWSER_PAGE_MONTH_RANGE_H
#define APPS_BROWSER_PAGE_MONTH_RANGE_H

#include <QDate>

namespace browser
{

/// A stretch of time, such as a month in local time, for telling fast what lies in it.
struct MonthRange {
    QDate month;      ///< its first day; null for photos without a date
    qint64 begin = 0; ///< milliseconds since 1970-01-01 UTC
    qint64 end = 0;   ///< the first one behind it

    bool contains(qint64 date) const { return date >= begin && date < end; }

    /// The month in which a date lies; Photo::noDate has a range of its own.
    static MonthRange around(qint64 date);
    /// From the beginning of `first` to the beginning of `behind`.
    static MonthRange of(const QDate &first, const QDate &behind);
};

} // namespace browser

#endif
