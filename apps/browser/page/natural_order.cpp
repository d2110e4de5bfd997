#include "apps/browser/page/natural_order.h"

namespace browser
{

namespace
{

bool isDigit(QChar character)
{
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

// The digits from `at` on without leading zeros; `at` is moved behind them.
QStringRef number(const QString &text, int *at)
{
    while (*at < text.size() && text[*at] == QLatin1Char('0'))
        ++*at;
    const int begin = *at;
    while (*at < text.size() && isDigit(text[*at]))
        ++*at;
    return text.midRef(begin, *at - begin);
}

} // namespace

int compareNaturally(const QString &a, const QString &b)
{
    int i = 0, j = 0;
    while (i < a.size() && j < b.size()) {
        if (isDigit(a[i]) && isDigit(b[j])) {
            const QStringRef one = number(a, &i), other = number(b, &j);
            if (one.size() != other.size())
                return one.size() - other.size();
            if (const int order = one.compare(other))
                return order;
            continue;
        }
        const QChar one = a[i++].toCaseFolded(), other = b[j++].toCaseFolded();
        if (one != other)
            return one < other ? -1 : 1;
    }
    return (a.size() - i) - (b.size() - j);
}

} // namespace browser
