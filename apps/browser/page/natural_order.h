#ifndef APPS_BROWSER_PAGE_NATURAL_ORDER_H
#define APPS_BROWSER_PAGE_NATURAL_ORDER_H

#include <QString>

namespace browser
{

/// Below 0, 0 or above 0 as `a` comes before, with or behind `b`: letters without case, runs of digits as numbers, so
/// that IMG_9 comes before IMG_10.
int compareNaturally(const QString &a, const QString &b);

} // namespace browser

#endif
