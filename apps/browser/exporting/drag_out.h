#ifndef APPS_BROWSER_EXPORTING_DRAG_OUT_H
#define APPS_BROWSER_EXPORTING_DRAG_OUT_H

#include "apps/browser/library/opened_library.h"

#include <QVector>

class QMimeData;

namespace browser
{

/// More photos than this are exported, not dragged.
inline constexpr int mostDraggedPhotos = 200;

/// What a drag of these photos to a file manager carries: files that are read off the device when they are dropped.
/// They are copies, always: a file manager may move what it is given, and nothing on a device is ever changed. Offer
/// Qt::CopyAction.
///
/// Reading shows a window with progress that can be cancelled; the event loop runs meanwhile. The caller owns the
/// result. User-interface thread.
QMimeData *dragData(std::shared_ptr<OpenedLibrary> library, const QVector<qint64> &ids);

} // namespace browser

#endif
