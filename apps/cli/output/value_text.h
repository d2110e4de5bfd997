#ifndef APPS_CLI_OUTPUT_VALUE_TEXT_H
#define APPS_CLI_OUTPUT_VALUE_TEXT_H

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

namespace photocli
{

/// A field's value as text, the same wherever text is printed. Integers are exact; a double is the shortest text that
/// reads back to the same double; a date is ISO 8601 in UTC with seconds and a "Z". A NaN, an infinity, and a date
/// that is invalid or outside the years 1 to 9999 are empty. Ids of a list are separated by single blanks.
QString valueText(qint32 value);
QString valueText(qint64 value);
QString valueText(double value);
QString valueText(const QString &value);
QString valueText(const QByteArray &uuid);
QString valueText(const QDateTime &value);
QString valueText(const QList<qint64> &ids);

/// The same for a double and a date as bytes; empty where there is no value.
QByteArray numberText(double value);
QByteArray dateText(const QDateTime &value);

/// Whether a date can be one: valid and, in UTC, within the years 1 to 9999.
bool isRealDate(const QDateTime &value);

/// A date for people, such as "2024-05-01 18:30:00", in the local time zone; "-" for one that cannot be.
QString localDateText(const QDateTime &value);

} // namespace photocli

#endif
