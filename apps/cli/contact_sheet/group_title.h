#ifndef APPS_CLI_CONTACT_SHEET_GROUP_TITLE_H
#define APPS_CLI_CONTACT_SHEET_GROUP_TITLE_H

#include "photolib/photolib.h"

namespace photocli
{

/// What to call a group in a heading below its category's: its own title where it has one, else what its key means to
/// people. Empty for the only group of a category. `firstPhoto` is one of its photos.
QString groupTitle(photo_manager_int &library, int category, const QString &key, qint64 firstPhoto);

/// A place for people, such as "48.8584° N, 2.2945° E".
QString placeText(double latitude, double longitude);

} // namespace photocli

#endif
