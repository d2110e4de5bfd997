#ifndef APPS_BROWSER_VIEWER_VIEW_TRANSFORM_H
#define APPS_BROWSER_VIEWER_VIEW_TRANSFORM_H

#include <QPointF>
#include <QRectF>
#include <QSize>

namespace browser
{

/// Where a picture lies in a view, and how large: the arithmetic of zooming and panning. Points of the view are in
/// its own units, the zoom is in pixels of the screen for one pixel of the picture.
class ViewTransform
{
public:
    static constexpr double largestZoom = 16;

    /// Sizes of what is shown and of the view. A picture that is fitted stays fitted.
    void setPictureSize(const QSize &pixels);
    QSize pictureSize() const { return picture.toSize(); }
    void setViewSize(const QSizeF &size, double devicePixelRatio);

    bool isFitted() const { return fitted; }
    double zoom() const { return factor; }
    /// The zoom at which all of the picture can be seen; never one that makes a picture coarse.
    double fittingZoom() const;
    double smallestZoom() const;

    void fit();
    /// The point of the picture that is at `anchor` stays there, unless the picture would come away from an edge.
    void setZoom(double zoom, const QPointF &anchor);
    /// Moves the picture by so much of the view.
    void moveBy(const QPointF &distance);

    /// Whether parts of the picture are outside of the view.
    bool isLargerThanView() const;

    QPointF toPicture(const QPointF &inView) const;
    /// The whole picture, in the view's units.
    QRectF pictureInView() const;

private:
    double unitsPerPixel() const { return factor / ratio; }
    void keepInView();

    QSizeF picture;
    QSizeF view;
    double ratio = 1;
    double factor = 1;
    bool fitted = true;
    QPointF centre; ///< of the view, in pixels of the picture
};

} // namespace browser

#endif
