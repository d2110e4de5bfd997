#ifndef APPS_BROWSER_VIEWER_PICTURE_VIEW_H
#define APPS_BROWSER_VIEWER_PICTURE_VIEW_H

#include "apps/browser/viewer/picture.h"
#include "apps/browser/viewer/view_transform.h"

#include <QTimer>
#include <QWidget>

class QGestureEvent;
class QNativeGestureEvent;

namespace browser
{

/// Shows one picture: fitted into the widget, or zoomed and moved with the wheel, the mouse and gestures. A double
/// click goes to the picture's own pixels and back.
class PictureView : public QWidget
{
    Q_OBJECT

public:
    explicit PictureView(QWidget *parent = nullptr);

    /// Shows nothing, fitted again.
    void clear();
    /// A small stand-in for a picture of `size` pixels that comes later.
    void setPlaceholder(const QImage &small, const QSize &size);
    /// Zoom and place stay when the stand-in had the same size.
    void setPicture(const SharedPicture &picture);
    bool hasPicture() const { return shown != nullptr; }
    bool isEmpty() const { return shown == nullptr && stand.isNull(); }

    const ViewTransform &transform() const { return place; }

public Q_SLOTS:
    void zoomIn();
    void zoomOut();
    void fit();
    /// One pixel of the picture for one of the screen.
    void showActualSize();
    /// Moves the view over the picture by parts of the view's size.
    void pan(double right, double down);

Q_SIGNALS:
    /// Zoom, fitting or what is shown.
    void changed();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void zoomTo(double zoom, const QPointF &anchor);
    void toggleActualSize(const QPointF &anchor);
    bool pinch(QGestureEvent *event);
    bool nativeGesture(QNativeGestureEvent *event);
    void nextFrame();
    void moved();
    const QImage &imageFor(double zoom) const;
    void paintChecks(QPainter &painter, const QRectF &where) const;

    SharedPicture shown;
    QImage stand;
    ViewTransform place;
    QTimer frameTimer;
    std::size_t frame = 0;
    QPoint dragFrom;
    bool dragging = false;
};

} // namespace browser

#endif
