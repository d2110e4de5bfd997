#ifndef APPS_BROWSER_EXPORTING_EXPORT_TEXTS_H
#define APPS_BROWSER_EXPORTING_EXPORT_TEXTS_H

#include "apps/browser/exporting/export_job.h"

#include <QStringList>

namespace browser
{

/// "1.9 GB", as the person's language writes it.
QString sizeText(qint64 bytes);

/// What an export would do, or has done: one line for each kind of file.
QStringList summaryLines(const ExportResult &result);

/// How a run ended, as a headline.
QString headline(const ExportResult &result);

/// What to do about a run that did not end well, or that found originals missing; empty else. Sentences.
QString advice(const ExportResult &result);

/// "31.0 MB/s, about 2 minutes left"; parts that are not known are left out.
QString paceText(qint64 bytesPerSecond, qint64 secondsLeft);

} // namespace browser

#endif
