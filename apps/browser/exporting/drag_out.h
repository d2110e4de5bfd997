#ifndef APPS_BROWSER_EXPORTING_DRAG_OUT_H
#define APPS_BROWSER_EXPORTING_DRAG_OUT_H

#include "apps/browser/library/opened_library.h"

#include <QVector>

class QMimeData;

namespace browser
{

/// What a drag of these photos to a file manager carries: files that are read off the device when they are dropped.
/// The caller owns the result. User-interface thread.
QMimeData *dragData(std::shared_ptr<OpenedLibrary> library, const QVector<qint64> &ids);

} // namespace browser

#endif
