#include "apps/browser/viewer/picture_view.h"

#include <QGestureEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QWheelEvent>

#include <cmath>

namespace browser
{

namespace
{

constexpr double zoomStep = 1.25;
constexpr double wheelNotch = 120; // eighths of a degree, as QWheelEvent counts them
constexpr int checkSize = 8;

// As large as the picture; what has another shape, as a thumbnail that was cut square, keeps its own.
QSize sizeOfStand(const QSize &small, const QSize &picture)
{
    constexpr double roundingOfThumbnails = 0.03;
    if (picture.isEmpty())
        return small;
    const QSize own = small.scaled(picture, Qt::KeepAspectRatio);
    const bool isSameShape = own.width() > picture.width() * (1 - roundingOfThumbnails) &&
                             own.height() > picture.height() * (1 - roundingOfThumbnails);
    return isSameShape ? picture : own;
}

} // namespace

PictureView::PictureView(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("pictureView"));
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    setMinimumSize(64, 64);
    grabGesture(Qt::PinchGesture);
    frameTimer.setSingleShot(true);
    connect(&frameTimer, &QTimer::timeout, this, &PictureView::nextFrame);
}

void PictureView::clear()
{
    shown.reset();
    stand = QImage();
    frameTimer.stop();
    place.setPictureSize(QSize());
    place.fit();
    moved();
}

void PictureView::setPlaceholder(const QImage &small, const QSize &size)
{
    shown.reset();
    frameTimer.stop();
    stand = small;
    place.setPictureSize(sizeOfStand(small.size(), size));
    moved();
}

void PictureView::setPicture(const SharedPicture &picture)
{
    const bool sameSize = !stand.isNull() && place.pictureSize() == picture->size;
    shown = picture;
    stand = QImage();
    frame = 0;
    place.setPictureSize(picture->size);
    if (!sameSize)
        place.fit();
    if (!shown->frames.empty() && isVisible())
        frameTimer.start(shown->frames.front().milliseconds);
    moved();
}

void PictureView::moved()
{
    setCursor(dragging ? Qt::ClosedHandCursor : place.isLargerThanView() ? Qt::OpenHandCursor : Qt::ArrowCursor);
    update();
    Q_EMIT changed();
}

void PictureView::nextFrame()
{
    if (shown == nullptr || shown->frames.empty())
        return;
    frame = (frame + 1) % shown->frames.size();
    frameTimer.start(shown->frames[frame].milliseconds);
    update();
}

void PictureView::zoomIn()
{
    zoomTo(place.zoom() * zoomStep, QRectF(rect()).center());
}

void PictureView::zoomOut()
{
    zoomTo(place.zoom() / zoomStep, QRectF(rect()).center());
}

void PictureView::fit()
{
    place.fit();
    moved();
}

void PictureView::showActualSize()
{
    zoomTo(1, QRectF(rect()).center());
}

void PictureView::pan(double right, double down)
{
    place.moveBy({-right * width(), -down * height()});
    moved();
}

void PictureView::zoomTo(double zoom, const QPointF &anchor)
{
    if (isEmpty())
        return;
    place.setZoom(zoom, anchor);
    moved();
}

void PictureView::toggleActualSize(const QPointF &anchor)
{
    if (place.isFitted())
        zoomTo(place.zoom() < 1 ? 1 : place.zoom() * 2, anchor);
    else
        fit();
}

// The smallest level that has a pixel for each one on the screen.
const QImage &PictureView::imageFor(double zoom) const
{
    if (shown == nullptr)
        return stand;
    if (!shown->frames.empty())
        return shown->frames[frame].image;
    std::size_t level = 0;
    while (level + 1 < shown->levels.size() && zoom * std::pow(2, static_cast<double>(level + 1)) <= 1)
        ++level;
    return shown->levels[level];
}

void PictureView::paintChecks(QPainter &painter, const QRectF &where) const
{
    QPixmap tile(2 * checkSize, 2 * checkSize);
    tile.fill(palette().color(QPalette::Base));
    QPainter tilePainter(&tile);
    tilePainter.fillRect(0, 0, checkSize, checkSize, palette().color(QPalette::AlternateBase));
    tilePainter.fillRect(checkSize, checkSize, checkSize, checkSize, palette().color(QPalette::AlternateBase));
    tilePainter.end();
    painter.fillRect(where, QBrush(tile));
}

void PictureView::paintEvent(QPaintEvent *)
{
    const QImage &image = imageFor(place.zoom());
    const QRectF target = place.pictureInView();
    const QRectF visible = target & QRectF(rect());
    if (image.isNull() || visible.isEmpty())
        return;
    QPainter painter(this);
    if (image.hasAlphaChannel())
        paintChecks(painter, visible);
    const double x = image.width() / target.width(), y = image.height() / target.height();
    const QRectF part((visible.x() - target.x()) * x, (visible.y() - target.y()) * y, visible.width() * x,
                      visible.height() * y);
    constexpr double pixelsCanBeSeen = 4;
    painter.setRenderHint(QPainter::SmoothPixmapTransform, shown == nullptr || place.zoom() < pixelsCanBeSeen);
    painter.drawImage(visible, image, part);
}

void PictureView::resizeEvent(QResizeEvent *)
{
    place.setViewSize(size(), devicePixelRatioF());
    moved();
}

void PictureView::showEvent(QShowEvent *)
{
    place.setViewSize(size(), devicePixelRatioF());
    if (shown != nullptr && !shown->frames.empty())
        frameTimer.start(shown->frames[frame].milliseconds);
}

void PictureView::hideEvent(QHideEvent *)
{
    frameTimer.stop();
}

void PictureView::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange)
        update();
    QWidget::changeEvent(event);
}

void PictureView::wheelEvent(QWheelEvent *event)
{
    const double notches = event->angleDelta().y() / wheelNotch;
    if (notches != 0)
        zoomTo(place.zoom() * std::pow(zoomStep, notches), event->position());
    event->accept();
}

void PictureView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !place.isLargerThanView()) {
        QWidget::mousePressEvent(event);
        return;
    }
    dragging = true;
    dragFrom = event->pos();
    moved();
}

void PictureView::mouseMoveEvent(QMouseEvent *event)
{
    if (!dragging)
        return;
    place.moveBy(event->pos() - dragFrom);
    dragFrom = event->pos();
    moved();
}

void PictureView::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    dragging = false;
    moved();
}

void PictureView::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && !isEmpty())
        toggleActualSize(event->localPos());
}

bool PictureView::event(QEvent *event)
{
    if (event->type() == QEvent::Gesture && pinch(static_cast<QGestureEvent *>(event)))
        return true;
    if (event->type() == QEvent::NativeGesture && nativeGesture(static_cast<QNativeGestureEvent *>(event)))
        return true;
    return QWidget::event(event);
}

bool PictureView::pinch(QGestureEvent *event)
{
    const auto *gesture = static_cast<QPinchGesture *>(event->gesture(Qt::PinchGesture));
    if (gesture == nullptr)
        return false;
    zoomTo(place.zoom() * gesture->scaleFactor(), mapFromGlobal(gesture->centerPoint().toPoint()));
    return true;
}

bool PictureView::nativeGesture(QNativeGestureEvent *event)
{
    if (event->gestureType() != Qt::ZoomNativeGesture)
        return false;
    zoomTo(place.zoom() * (1 + event->value()), event->localPos());
    return true;
}

} // namespace browser
