#include "apps/browser/viewer/view_transform.h"

#include <algorithm>

namespace browser
{

namespace
{

constexpr double smallestPart = 0.1; // of the fitted picture

// Along one axis: the picture is centred when there is room, else it leaves none.
double keptInView(double centre, double pictureLength, double viewLength)
{
    if (pictureLength <= viewLength)
        return pictureLength / 2;
    return std::clamp(centre, viewLength / 2, pictureLength - viewLength / 2);
}

} // namespace

void ViewTransform::setPictureSize(const QSize &pixels)
{
    picture = pixels;
    if (fitted)
        fit();
    else
        keepInView();
}

void ViewTransform::setViewSize(const QSizeF &size, double devicePixelRatio)
{
    view = size;
    ratio = devicePixelRatio;
    if (fitted)
        fit();
    else
        keepInView();
}

double ViewTransform::fittingZoom() const
{
    if (picture.isEmpty() || view.isEmpty())
        return ratio;
    return std::min({view.width() * ratio / picture.width(), view.height() * ratio / picture.height(), ratio});
}

double ViewTransform::smallestZoom() const
{
    return std::min(fittingZoom() * smallestPart, 1.0);
}

void ViewTransform::fit()
{
    fitted = true;
    factor = fittingZoom();
    centre = QPointF(picture.width() / 2, picture.height() / 2);
}

void ViewTransform::setZoom(double zoom, const QPointF &anchor)
{
    const QPointF held = toPicture(anchor);
    factor = std::clamp(zoom, smallestZoom(), largestZoom);
    fitted = false;
    centre = held - (anchor - QPointF(view.width() / 2, view.height() / 2)) / unitsPerPixel();
    keepInView();
}

void ViewTransform::moveBy(const QPointF &distance)
{
    centre -= distance / unitsPerPixel();
    keepInView();
}

bool ViewTransform::isLargerThanView() const
{
    constexpr double rounding = 0.5;
    const QRectF all = pictureInView();
    return all.width() > view.width() + rounding || all.height() > view.height() + rounding;
}

QPointF ViewTransform::toPicture(const QPointF &inView) const
{
    return centre + (inView - QPointF(view.width() / 2, view.height() / 2)) / unitsPerPixel();
}

QRectF ViewTransform::pictureInView() const
{
    const QPointF corner = QPointF(view.width() / 2, view.height() / 2) - centre * unitsPerPixel();
    return {corner, picture * unitsPerPixel()};
}

void ViewTransform::keepInView()
{
    centre.setX(keptInView(centre.x(), picture.width(), view.width() / unitsPerPixel()));
    centre.setY(keptInView(centre.y(), picture.height(), view.height() / unitsPerPixel()));
}

} // namespace browser
