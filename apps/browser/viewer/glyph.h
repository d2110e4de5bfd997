#ifndef APPS_BROWSER_VIEWER_GLYPH_H
#define APPS_BROWSER_VIEWER_GLYPH_H

#include <QIcon>
#include <QPainterPath>

namespace browser
{

/// What the viewer's buttons show.
enum class ViewerGlyph {
    Back,
    Previous,
    Next,
    ZoomIn,
    ZoomOut,
    Fit,
    ActualSize,
    Compare,
    Info,
    Play,
    Export,
    FullScreen
};

/// An icon of lines in the palette's colour for text on buttons: light and dark, of any size and pixel density.
QIcon viewerIcon(ViewerGlyph glyph);

} // namespace browser

#endif
