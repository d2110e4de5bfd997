#include "apps/cli/output/value_text.h"

#include "apps/cli/output/text.h"

#include <charconv>
#include <cmath>

namespace photocli
{

namespace
{

constexpr qint64 julianDayOfEpoch = 2440588; // 1970-01-01

/// Writes a number that is not negative in front of `end`; what it does not need there stays.
void putDigits(int number, char *end)
{
    for (; number > 0; number /= 10)
        *--end = static_cast<char>('0' + number % 10);
}

} // namespace

QByteArray numberText(double value)
{
    if (!std::isfinite(value))
        return {};
    char text[32]; // the longest shortest form, such as -2.2250738585072014e-308, has 24 characters
    const std::to_chars_result result = std::to_chars(text, text + sizeof text, value);
    return QByteArray(text, static_cast<int>(result.ptr - text));
}

bool isRealDate(const QDateTime &value)
{
    if (!value.isValid())
        return false;
    const int year = value.toUTC().date().year();
    return year >= 1 && year <= 9999;
}

QByteArray dateText(const QDateTime &value)
{
    if (!value.isValid())
        return {};
    // By hand: Qt's way takes most of the time of a dump.
    constexpr qint64 msOfADay = 86'400'000;
    const qint64 ms = value.toMSecsSinceEpoch();
    const qint64 day = ms >= 0 ? ms / msOfADay : -((msOfADay - 1 - ms) / msOfADay);
    int year = 0;
    int month = 0;
    int dayOfMonth = 0;
    QDate::fromJulianDay(julianDayOfEpoch + day).getDate(&year, &month, &dayOfMonth);
    if (year < 1 || year > 9999)
        return {};
    const int second = static_cast<int>((ms - day * msOfADay) / 1000);
    QByteArray text("0000-00-00T00:00:00Z");
    char *const digits = text.data();
    putDigits(year, digits + 4);
    putDigits(month, digits + 7);
    putDigits(dayOfMonth, digits + 10);
    putDigits(second / 3600, digits + 13);
    putDigits(second / 60 % 60, digits + 16);
    putDigits(second % 60, digits + 19);
    return text;
}

QString localDateText(const QDateTime &value)
{
    return isRealDate(value) ? value.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))
                             : QStringLiteral("-");
}

QString valueText(qint32 value)
{
    return QString::number(value);
}
QString valueText(qint64 value)
{
    return QString::number(value);
}
QString valueText(double value)
{
    return QString::fromLatin1(numberText(value));
}
QString valueText(const QString &value)
{
    return value;
}
QString valueText(const QByteArray &uuid)
{
    return QString::fromUtf8(uuidText(uuid));
}
QString valueText(const QDateTime &value)
{
    return QString::fromLatin1(dateText(value));
}

QString valueText(const QList<qint64> &ids)
{
    QString text;
    for (const qint64 id : ids) {
        if (!text.isEmpty())
            text += QChar(' ');
        text += QString::number(id);
    }
    return text;
}

} // namespace photocli
