#ifndef APPS_BROWSER_PAGE_DATE_WORDS_H
#define APPS_BROWSER_PAGE_DATE_WORDS_H

#include "apps/browser/page/month_range.h"

#include <QLocale>
#include <QString>

#include <vector>

namespace browser
{

/// The stretches of time that a word stands for: a year ("2019"), a month with its year ("2019-06", "06/2019",
/// "6.2019"), a month of any year by its name or the beginning of it in the locale's or the English language, or a day
/// ("2019-06-24", or as the locale writes short dates). Empty for any other word.
std::vector<MonthRange> datesOf(const QString &word, const QLocale &locale);

} // namespace browser

#endif
