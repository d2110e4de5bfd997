#ifndef APPS_CLI_SAMPLE_PROPERTY_LISTS_H
#define APPS_CLI_SAMPLE_PROPERTY_LISTS_H

#include <QByteArray>
#include <QDateTime>

namespace sample
{

/// The marker that names the library which the device was last synchronised with.
QByteArray currentLibraryList(const QString &libraryUuid);

/// What an edit did to a picture. `time` is when.
QByteArray adjustmentList(const QDateTime &time);

} // namespace sample

#endif
