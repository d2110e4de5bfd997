#ifndef APPS_BROWSER_PAGE_CELL_PAINTER_H
#define APPS_BROWSER_PAGE_CELL_PAINTER_H

#include "apps/browser/page/glyphs.h"
#include "apps/browser/page/thumbnail_loader.h"

#include <QFont>
#include <QHash>
#include <QPalette>
#include <QPixmap>

class QPainter;

namespace browser
{

/// How a cell of the grid looks beside its picture.
struct CellState {
    bool selected = false;
    bool hovered = false;
    bool focused = false; ///< draws the focus ring
};

/// Draws cells of the grid in the colours of a palette.
class CellPainter
{
public:
    CellPainter(const QPalette &palette, const QFont &font);

    /// `thumbnail` null: still to come; one with a null picture: there is none.
    void draw(QPainter &painter, const QRect &cell, const Photo &photo, const LoadedThumbnail *thumbnail,
              const CellState &state);

private:
    void drawPicture(QPainter &painter, const QRect &cell, const LoadedThumbnail *thumbnail) const;
    void drawMarks(QPainter &painter, const QRect &cell, const Photo &photo, bool isOnlyInCloud);
    void drawState(QPainter &painter, const QRect &cell, const CellState &state) const;
    void drawMark(QPainter &painter, Glyph glyph, const QRect &place);
    void drawShade(QPainter &painter, const QRect &cell, int height) const;

    QPalette colors;
    QFont small;
    QColor bright; ///< over pictures, whose darkest parts are shaded by `dark`
    QColor dark;
    QHash<int, QPixmap> marks; ///< drawn glyphs; drawing them anew for each cell takes most of the time
};

} // namespace browser

#endif
