#ifndef APPS_BROWSER_EXPORTING_READING_WINDOW_H
#define APPS_BROWSER_EXPORTING_READING_WINDOW_H

#include "apps/browser/exporting/drag_copy.h"

class QProgressDialog;
class QWidget;

namespace browser
{

/// More photos than this are exported, not dragged or copied as files.
inline constexpr int mostDraggedPhotos = 200;

/// A window with the progress of a copy that has not begun. It shows itself when the copy takes long, and stays until
/// it is deleted. Not modal, as a drop may be going on. `parent` may be null; the caller need not keep it.
QProgressDialog *makeReadingWindow(DragCopy &copy, int count, QWidget *parent);

/// Says, in a window that waits for nobody, that these are too many photos. False, and nothing, when they are not.
bool refusesSoMany(int count, QWidget *parent);

/// The same for what could not be copied, if there is anything.
void tellFailures(const DragCopies &copies, QWidget *parent);

} // namespace browser

#endif
