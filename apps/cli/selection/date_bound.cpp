#include "apps/cli/selection/date_bound.h"

#include "apps/cli/failure.h"
#include "apps/cli/messages.h"

#include <QRegularExpression>

namespace photocli
{

namespace
{

Failure malformed(const QString &option, const QString &text)
{
    return {
        ExitUsage,
        QStringLiteral("%1 %2 is no date; write one such as 2024-05-01 or 2024-05-01T18:30").arg(option, quoted(text))};
}

bool isPlainDate(const QString &text)
{
    return text.size() == 10;
}

QDate plainDate(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("\\A[0-9]{4}-[0-9]{2}-[0-9]{2}\\z"));
    return form.match(text).hasMatch() ? QDate::fromString(text, Qt::ISODate) : QDate();
}

QDateTime dateAndTime(QString text)
{
    // Qt reads more forms than ISO 8601 has; only those that people expect are let through.
    static const QRegularExpression form(
        QStringLiteral("\\A[0-9]{4}-[0-9]{2}-[0-9]{2}[T ][0-9]{2}:[0-9]{2}(:[0-9]{2}([.][0-9]{1,3})?)?"
                       "(Z|[+-][0-9]{2}:[0-9]{2})?\\z"));
    if (!form.match(text).hasMatch())
        return {};
    text[10] = QChar('T');
    return QDateTime::fromString(text, Qt::ISODateWithMs);
}

QDateTime parse(const QString &option, const QString &text, bool endOfDay)
{
    QDateTime moment;
    if (!isPlainDate(text))
        moment = dateAndTime(text);
    else if (const QDate date = plainDate(text); date.isValid())
        moment = endOfDay ? date.endOfDay() : date.startOfDay();
    if (!moment.isValid())
        throw malformed(option, text);
    return moment;
}

} // namespace

QDateTime parseFromDate(const QString &text)
{
    return parse(QStringLiteral("--from-date"), text, false);
}

QDateTime parseToDate(const QString &text)
{
    return parse(QStringLiteral("--to-date"), text, true);
}

} // namespace photocli
