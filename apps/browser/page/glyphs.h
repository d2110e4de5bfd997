#ifndef APPS_BROWSER_PAGE_GLYPHS_H
#define APPS_BROWSER_PAGE_GLYPHS_H

#include <QIcon>
#include <QRectF>

class QPainter;

namespace browser
{

/// Small pictures drawn with lines, so that they take any colour and stay sharp at any scale.
enum class Glyph {
    Photos,
    Heart,
    Camera,
    Person,
    Pin,
    Memory,
    Film,
    Live,
    Portrait,
    Panorama,
    Clock,
    Screen,
    Burst,
    Copies,
    Hidden,
    Trash,
    Album,
    Shared,
    Cloud,
    Import,
    Raw,
    Moving,
    NoPicture,
    Check,
    Info,
    Filter,
    Sort,
    Search,
};

/// In the painter's pen colour, in the largest square in the middle of `place`. Leaves the painter as it was.
void drawGlyph(QPainter &painter, Glyph glyph, const QRectF &place, bool filled = false);

/// In the application's text colour, or that of highlighted text where the icon is selected.
QIcon glyphIcon(Glyph glyph);

} // namespace browser

#endif
