#ifndef APPS_CLI_SELECTION_DATE_BOUND_H
#define APPS_CLI_SELECTION_DATE_BOUND_H

#include <QDateTime>
#include <QString>

namespace photocli
{

/// The first moment that --from-date `text` includes: a date (2024-05-01) means the start of that day, a date and
/// time (2024-05-01T10:30[:15]) that moment, both in the local time zone unless the text ends with Z or +hh:mm.
/// Throws a usage Failure when the text is neither.
QDateTime parseFromDate(const QString &text);

/// The last moment that --to-date `text` includes; a date means the end of that day.
QDateTime parseToDate(const QString &text);

} // namespace photocli

#endif
