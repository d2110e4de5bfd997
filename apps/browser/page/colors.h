#ifndef APPS_BROWSER_PAGE_COLORS_H
#define APPS_BROWSER_PAGE_COLORS_H

#include <QColor>

class QPalette;

namespace browser
{

/// `share` 0 is `one`, 1 is `other`.
QColor blended(const QColor &one, const QColor &other, double share);

/// For text that matters less, still easy to read on QPalette::Base.
QColor fadedText(const QPalette &palette);

} // namespace browser

#endif
