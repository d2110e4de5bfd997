#ifndef TESTS_BROWSER_SUPPORT_OPENED_FOLDER_H
#define TESTS_BROWSER_SUPPORT_OPENED_FOLDER_H

#include "apps/browser/library/opened_library.h"

/// The library of a device's media folder, opened on this thread. Null when it cannot be opened.
std::shared_ptr<browser::OpenedLibrary> openFolder(const QString &folder);

#endif
