#include "apps/browser/viewer/glyph.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

namespace browser
{

namespace
{

constexpr double gridSize = 24;
constexpr double lineWidth = 1.8;

void addLine(QPainterPath &path, double x1, double y1, double x2, double y2)
{
    path.moveTo(x1, y1);
    path.lineTo(x2, y2);
}

void addPolyline(QPainterPath &path, std::initializer_list<QPointF> points)
{
    bool first = true;
    for (const QPointF &point : points) {
        if (first)
            path.moveTo(point);
        else
            path.lineTo(point);
        first = false;
    }
}

void addMagnifier(QPainterPath &path)
{
    path.addEllipse(QPointF(10.5, 10.5), 6.5, 6.5);
    addLine(path, 15.3, 15.3, 20, 20);
    addLine(path, 7.5, 10.5, 13.5, 10.5);
}

// Four corners that point outward.
void addCorners(QPainterPath &path, double inner, double outer, double arm)
{
    for (const double x : {inner, outer}) {
        for (const double y : {inner, outer}) {
            const double dx = x < 12 ? arm : -arm, dy = y < 12 ? arm : -arm;
            addPolyline(path, {{x + dx, y}, {x, y}, {x, y + dy}});
        }
    }
}

QPainterPath pathOf(ViewerGlyph glyph)
{
    QPainterPath path;
    switch (glyph) {
    case ViewerGlyph::Back:
        addPolyline(path, {{11, 5.5}, {4.5, 12}, {11, 18.5}});
        addLine(path, 4.5, 12, 20, 12);
        break;
    case ViewerGlyph::Previous:
        addPolyline(path, {{15, 5}, {8, 12}, {15, 19}});
        break;
    case ViewerGlyph::Next:
        addPolyline(path, {{9, 5}, {16, 12}, {9, 19}});
        break;
    case ViewerGlyph::ZoomIn:
        addMagnifier(path);
        addLine(path, 10.5, 7.5, 10.5, 13.5);
        break;
    case ViewerGlyph::ZoomOut:
        addMagnifier(path);
        break;
    case ViewerGlyph::Fit:
        path.addRect(7.5, 8.5, 9, 7);
        addCorners(path, 3.5, 20.5, 3);
        break;
    case ViewerGlyph::ActualSize:
        addPolyline(path, {{4, 8}, {6.5, 6}, {6.5, 18}});
        addPolyline(path, {{16, 8}, {18.5, 6}, {18.5, 18}});
        path.addEllipse(QPointF(12, 9.5), 0.6, 0.6);
        path.addEllipse(QPointF(12, 15), 0.6, 0.6);
        break;
    case ViewerGlyph::Compare:
        path.addRect(4, 6, 16, 12);
        addLine(path, 12, 3, 12, 21);
        break;
    case ViewerGlyph::Info:
        path.addEllipse(QPointF(12, 12), 8.5, 8.5);
        addLine(path, 12, 11, 12, 16.5);
        path.addEllipse(QPointF(12, 7.8), 0.5, 0.5);
        break;
    case ViewerGlyph::Play:
        addPolyline(path, {{7.5, 5}, {18.5, 12}, {7.5, 19}});
        path.closeSubpath();
        break;
    case ViewerGlyph::Export:
        addPolyline(path, {{4.5, 14}, {4.5, 19.5}, {19.5, 19.5}, {19.5, 14}});
        addLine(path, 12, 4, 12, 14.5);
        addPolyline(path, {{7.5, 10.5}, {12, 15}, {16.5, 10.5}});
        break;
    case ViewerGlyph::FullScreen:
        addCorners(path, 4, 20, 5);
        break;
    }
    return path;
}

class GlyphEngine final : public QIconEngine
{
public:
    explicit GlyphEngine(ViewerGlyph wanted) : glyph(wanted) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const auto role = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / gridSize, rect.height() / gridSize);
        painter->setPen(
            QPen(QGuiApplication::palette().color(group, role), lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->drawPath(pathOf(glyph));
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap result(size);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return result;
    }

    QIconEngine *clone() const override { return new GlyphEngine(glyph); }

private:
    ViewerGlyph glyph;
};

} // namespace

QIcon viewerIcon(ViewerGlyph glyph)
{
    return QIcon(new GlyphEngine(glyph));
}

} // namespace browser
