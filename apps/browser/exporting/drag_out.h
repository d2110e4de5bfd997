#ifndef APPS_BROWSER_EXPORTING_DRAG_OUT_H
#define APPS_BROWSER_EXPORTING_DRAG_OUT_H

#include "apps/browser/library/opened_library.h"

#include <QVector>

class QMimeData;

namespace browser
{

/// What a drag of these photos to a file manager carries: files that are read off the device when they are dropped, the
/// originals with their films and what was edited on the device. They are copies, always: a file manager may move what
/// it is given, and nothing on a device is ever changed. Offer Qt::CopyAction. The copies are removed some time after
/// the result is gone.
///
/// Reading shows a window with progress that can be cancelled; the event loop runs meanwhile, and may see this object
/// and every window go. The caller owns the result. User-interface thread.
QMimeData *dragData(std::shared_ptr<OpenedLibrary> library, const QVector<qint64> &ids);

} // namespace browser

#endif
