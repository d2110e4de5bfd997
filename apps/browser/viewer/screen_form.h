#ifndef APPS_BROWSER_VIEWER_SCREEN_FORM_H
#define APPS_BROWSER_VIEWER_SCREEN_FORM_H

#include "apps/browser/viewer/picture.h"

#include <vector>

namespace browser
{

/// In a pixel format that is painted without conversion, and in sRGB where the picture says that it is not. Throws
/// std::bad_alloc.
QImage forScreen(QImage image);

/// The picture, half of it in each direction, a quarter, ... until it is small: what is painted never skips pixels, and
/// painting costs as much as the window has pixels, not the picture. Empty when it was given up. Throws std::bad_alloc.
std::vector<QImage> levelsOf(QImage image, const GiveUp &givenUp);

} // namespace browser

#endif
