#ifndef APPS_BROWSER_PAGE_GLYPH_PATHS_H
#define APPS_BROWSER_PAGE_GLYPH_PATHS_H

#include "apps/browser/page/glyphs.h"

#include <QPainterPath>

namespace browser
{

/// The lines of a glyph on a square of 16 x 16.
QPainterPath glyphPath(Glyph glyph);

} // namespace browser

#endif
