#ifndef APPS_CLI_SELECTION_PHOTO_LOOKUP_H
#define APPS_CLI_SELECTION_PHOTO_LOOKUP_H

#include "photolib/photolib.h"

namespace photocli
{

/// The ids of all photos that `text` names: one by its number, or those with that UUID in any case. Empty for none.
QList<qint64> photosNamed(photo_manager_int &library, const QString &text);

/// What to tell people when photosNamed() found nothing, as one sentence without full stop.
QString noSuchPhoto(const QString &text);

} // namespace photocli

#endif
