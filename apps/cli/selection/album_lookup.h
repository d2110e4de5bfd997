#ifndef APPS_CLI_SELECTION_ALBUM_LOOKUP_H
#define APPS_CLI_SELECTION_ALBUM_LOOKUP_H

#include "photolib/photolib.h"

#include <QVector>

namespace photocli
{

/// One album of the library.
albumItem albumOf(photo_manager_int &library, qint64 id);

/// The albums that `name` stands for, ascending by id: those with that title, UUID or id. A title or UUID in other
/// upper and lower case counts when none fits exactly. Throws a Failure when there is none, and a usage Failure when
/// a number is the id of one album and the title of another.
QVector<albumItem> findAlbums(photo_manager_int &library, const QString &name);

} // namespace photocli

#endif
