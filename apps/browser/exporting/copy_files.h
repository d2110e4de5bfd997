#ifndef APPS_BROWSER_EXPORTING_COPY_FILES_H
#define APPS_BROWSER_EXPORTING_COPY_FILES_H

#include "apps/browser/library/opened_library.h"

#include <QVector>

class QWidget;

namespace browser
{

/// Puts photos on the clipboard as files that a file manager can paste: what a drag of them carries. They are read off
/// the device first, while a window of `parent` shows progress and can cancel; the clipboard changes when all of them
/// are there. Copying once more gives up the copy in hand. Returns at once. User-interface thread.
void copyFiles(std::shared_ptr<OpenedLibrary> library, const QVector<qint64> &ids, QWidget *parent);

} // namespace browser

#endif
