#include "apps/cli/output/value_text.h"

#include "apps/cli/output/text.h"

#include <charconv>
#include <cmath>

namespace photocli
{

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
    return isRealDate(value) ? value.toUTC().toString(Qt::ISODate).toLatin1() : QByteArray();
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
