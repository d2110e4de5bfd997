#include "apps/browser/page/date_words.h"

#include <QRegularExpression>

namespace browser
{

namespace
{

constexpr int firstYear = 1970;
constexpr int lastYear = 2100;

bool isYear(int year)
{
    return year >= firstYear && year <= lastYear;
}

void addMonth(std::vector<MonthRange> &ranges, int year, int month)
{
    const QDate first(year, month, 1);
    if (isYear(year) && first.isValid())
        ranges.push_back(MonthRange::of(first, first.addMonths(1)));
}

void addDay(std::vector<MonthRange> &ranges, const QDate &day)
{
    if (day.isValid() && isYear(day.year()))
        ranges.push_back(MonthRange::of(day, day.addDays(1)));
}

void addNumbers(std::vector<MonthRange> &ranges, const QString &word)
{
    static const QRegularExpression yearOnly(QStringLiteral("^(\\d{4})年?$"));
    static const QRegularExpression yearFirst(QStringLiteral("^(\\d{4})[-/.年](\\d{1,2})月?$"));
    static const QRegularExpression yearLast(QStringLiteral("^(\\d{1,2})[-/.](\\d{4})$"));
    static const QRegularExpression day(QStringLiteral("^(\\d{4})[-/.年](\\d{1,2})[-/.月](\\d{1,2})日?$"));
    const auto numbersIn = [&word](const QRegularExpression &form) {
        QVector<int> numbers;
        const QStringList texts = form.match(word).capturedTexts();
        for (const QString &text : texts.mid(1))
            numbers += text.toInt();
        return numbers;
    };
    if (const QVector<int> year = numbersIn(yearOnly); !year.isEmpty() && isYear(year[0])) {
        const QDate first(year[0], 1, 1);
        ranges.push_back(MonthRange::of(first, first.addYears(1)));
    }
    if (const QVector<int> month = numbersIn(yearFirst); !month.isEmpty())
        addMonth(ranges, month[0], month[1]);
    if (const QVector<int> month = numbersIn(yearLast); !month.isEmpty())
        addMonth(ranges, month[1], month[0]);
    if (const QVector<int> date = numbersIn(day); !date.isEmpty())
        addDay(ranges, QDate(date[0], date[1], date[2]));
}

bool isNameOfMonth(const QString &word, const QLocale &locale, int month)
{
    constexpr int shortest = 3; // letters of a beginning that counts
    const auto begins = [&word](const QString &name) {
        return !name.isEmpty() && (name.compare(word, Qt::CaseInsensitive) == 0 ||
                                   (word.size() >= shortest && name.startsWith(word, Qt::CaseInsensitive)));
    };
    return begins(locale.monthName(month)) || begins(locale.standaloneMonthName(month)) ||
           begins(locale.monthName(month, QLocale::ShortFormat));
}

void addNamedMonths(std::vector<MonthRange> &ranges, const QString &word, const QLocale &locale)
{
    for (int month = 1; month <= 12; ++month) {
        if (!isNameOfMonth(word, locale, month) && !isNameOfMonth(word, QLocale::c(), month))
            continue;
        for (int year = firstYear; year <= lastYear; ++year)
            addMonth(ranges, year, month);
    }
}

// Short formats with two digits of the year are read as years of the last century.
QDate shortDate(const QString &word, const QLocale &locale)
{
    const QString format = locale.dateFormat(QLocale::ShortFormat);
    const QDate date = locale.toDate(word, format);
    if (date.isValid() && !format.contains(QLatin1String("yyyy")) && date.year() < firstYear)
        return date.addYears(100);
    QString longer = format;
    longer.replace(QLatin1String("yy"), QLatin1String("yyyy"));
    return date.isValid() ? date : locale.toDate(word, longer);
}

} // namespace

std::vector<MonthRange> datesOf(const QString &word, const QLocale &locale)
{
    std::vector<MonthRange> ranges;
    addNumbers(ranges, word);
    if (ranges.empty())
        addNamedMonths(ranges, word, locale);
    if (ranges.empty())
        addDay(ranges, shortDate(word, locale));
    return ranges;
}

} // namespace browser
