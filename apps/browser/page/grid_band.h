#ifndef APPS_BROWSER_PAGE_GRID_BAND_H
#define APPS_BROWSER_PAGE_GRID_BAND_H

#include <QRect>

namespace browser
{

/// A rubber band over the grid's contents. What it touches is selected when the button is let go: a selection of its
/// own for every move of the mouse would hold up a large grid.
struct GridBand {
    QPoint origin;
    QPoint end;
    bool toggles; ///< what was selected before is no more, where it is touched

    QRect rectangle() const { return QRect(origin, end).normalized(); }
};

} // namespace browser

#endif
