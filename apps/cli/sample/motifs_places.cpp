#include "apps/cli/sample/canvas.h"
#include "apps/cli/sample/motifs.h"

#include <QPainterPath>

#include <cmath>

namespace sample
{

namespace
{

void paintBuilding(Canvas &canvas, const QRectF &box, const QColor &wall)
{
    QLinearGradient face(box.topLeft(), box.topRight());
    face.setColorAt(0, wall.lighter(112));
    face.setColorAt(1, wall.darker(112));
    canvas.painter.setPen(Qt::NoPen);
    canvas.painter.setBrush(face);
    canvas.painter.drawRect(box);
    const bool lit = canvas.night() || canvas.scene.hour == Hour::Dusk;
    for (double y = box.top() + 1.6; y < box.bottom() - 2; y += 2.6)
        for (double x = box.left() + 1; x < box.right() - 1.4; x += 2) {
            const bool on = canvas.random.chance(lit ? 0.5 : 0.15);
            const QColor pane = on && lit ? QColor(0xffd98a) : mix(wall, canvas.colours.skyTop, 0.5);
            canvas.painter.fillRect(QRectF(x, y, 1, 1.4), faded(pane, on ? 0.95 : 0.55));
        }
}

void paintCityRow(Canvas &canvas, double foot, double low, double high, const QColor &wall)
{
    for (double x = -2; x < canvas.width;) {
        const double breadth = canvas.random.between(5, 11), height = canvas.random.between(low, high);
        paintBuilding(canvas, QRectF(x, foot - height, breadth, height),
                      mix(wall, canvas.colours.skyLow, canvas.random.between(0, 0.25)));
        if (canvas.random.chance(0.25)) {
            canvas.painter.setPen(QPen(wall, 0.5));
            canvas.painter.drawLine(QPointF(x + breadth / 2, foot - height),
                                    QPointF(x + breadth / 2, foot - height - 6));
        }
        x += breadth + canvas.random.between(-0.5, 1.2);
    }
}

QColor wallColour(const Canvas &canvas)
{
    return canvas.night() ? QColor(0x27345f) : mix(QColor(0x6d7f99), canvas.colours.near, 0.25);
}

} // namespace

void paintSkyline(Canvas &canvas)
{
    paintSky(canvas, 74);
    paintCityRow(canvas, 78, 14, 34, mix(wallColour(canvas), canvas.colours.skyLow, 0.4));
    paintCityRow(canvas, 80, 18, 48, wallColour(canvas));
    paintWater(canvas, 80);
    if (canvas.night() || canvas.scene.hour == Hour::Dusk)
        for (int i = 0; i < 70; ++i) {
            const double x = canvas.random.between(0, canvas.width), length = canvas.random.between(2, 14);
            canvas.painter.fillRect(QRectF(x, 80.5, 0.6, length), faded(QColor(0xffcf7a), 0.22));
        }
}

void paintTower(Canvas &canvas)
{
    paintSky(canvas, 80);
    paintCityRow(canvas, 86, 5, 13, mix(wallColour(canvas), QColor(0xd9c9a8), canvas.night() ? 0.05 : 0.5));
    const double x = canvas.width * canvas.random.between(0.4, 0.6);
    const QColor iron = canvas.night() ? QColor(0xd9a441) : mix(QColor(0x6a5140), canvas.colours.near, 0.2);
    QPainterPath body;
    body.moveTo(x - 19, 90);
    body.cubicTo(x - 8, 62, x - 3, 45, x - 1, 12);
    body.lineTo(x + 1, 12);
    body.cubicTo(x + 3, 45, x + 8, 62, x + 19, 90);
    body.lineTo(x + 12.5, 90);
    body.cubicTo(x + 9, 74, x - 9, 74, x - 12.5, 90);
    body.closeSubpath();
    canvas.painter.setPen(Qt::NoPen);
    canvas.painter.setBrush(iron);
    canvas.painter.drawPath(body);
    canvas.painter.save();
    canvas.painter.setClipPath(body);
    canvas.painter.setPen(QPen(faded(canvas.colours.skyMiddle, 0.55), 0.45));
    for (double y = 14; y < 92; y += 3.2) {
        const double half = 1 + (y - 12) * (y - 12) * 0.0032;
        canvas.painter.drawLine(QPointF(x - half, y), QPointF(x + half, y + 3.2));
        canvas.painter.drawLine(QPointF(x + half, y), QPointF(x - half, y + 3.2));
    }
    canvas.painter.restore();
    canvas.painter.setPen(Qt::NoPen);
    canvas.painter.setBrush(iron.darker(115));
    canvas.painter.drawRect(QRectF(x - 10.5, 67, 21, 2.4));
    canvas.painter.drawRect(QRectF(x - 5.2, 48, 10.4, 2));
    canvas.painter.drawRect(QRectF(x - 0.25, 5, 0.5, 8));
    paintRidge(canvas, 91, 1.4, 0.1, canvas.night() ? QColor(0x0e1a22) : QColor(0x6f9a4f));
    for (int i = 0; i < 12; ++i)
        paintRoundTree(canvas, canvas.random.between(0, canvas.width), canvas.random.between(93, 98), 11,
                       canvas.night() ? QColor(0x16301f) : QColor(0x4f8a3d));
}

void paintBridge(Canvas &canvas)
{
    paintSky(canvas, 64);
    paintRidge(canvas, 60, 8, 0.3, canvas.colours.far);
    paintWater(canvas, 66);
    const QColor red = canvas.night() ? QColor(0x8a3b33) : QColor(0xc4472f);
    const double left = canvas.width * 0.24, right = canvas.width * 0.76;
    canvas.painter.setBrush(Qt::NoBrush);
    QPainterPath cable(QPointF(-6, 56));
    cable.quadTo(left * 0.6, 48, left, 22);
    cable.quadTo(canvas.width / 2, 84, right, 22);
    cable.quadTo(right + left * 0.4, 48, canvas.width + 6, 56);
    canvas.painter.setPen(QPen(red, 0.9));
    canvas.painter.drawPath(cable);
    canvas.painter.setPen(QPen(faded(red, 0.8), 0.28));
    for (double x = left; x <= right; x += 2.2) {
        const double t = (x - left) / (right - left);
        const double y = (1 - t) * (1 - t) * 22 + 2 * t * (1 - t) * 84 + t * t * 22;
        canvas.painter.drawLine(QPointF(x, y), QPointF(x, 60));
    }
    canvas.painter.fillRect(QRectF(0, 59, canvas.width, 2.6), red);
    for (const double x : {left, right}) {
        canvas.painter.fillRect(QRectF(x - 2.4, 20, 1.6, 60), red.darker(110));
        canvas.painter.fillRect(QRectF(x + 0.8, 20, 1.6, 60), red.darker(125));
        for (double y = 24; y < 58; y += 10)
            canvas.painter.fillRect(QRectF(x - 2.4, y, 4.8, 1.5), red);
    }
    paintBoat(canvas, canvas.width * (0.4 + 0.1 * canvas.scene.phase), 80, 9);
}

void paintGate(Canvas &canvas)
{
    paintSky(canvas, 62);
    paintRidge(canvas, 56, 10, 0.35, canvas.colours.far);
    paintWater(canvas, 64);
    const double x = canvas.width / 2;
    const QColor red = canvas.night() ? QColor(0x7a2a22) : QColor(0xd2452b);
    canvas.painter.setPen(Qt::NoPen);
    for (const double side : {-1.0, 1.0}) {
        canvas.painter.setBrush(red);
        canvas.painter.drawPolygon(
            Points{{x + side * 15, 32}, {x + side * 19, 32}, {x + side * 21, 82}, {x + side * 17, 82}});
        canvas.painter.setBrush(faded(red, 0.25));
        canvas.painter.drawRect(QRectF(x + side * 19 - 2.2, 82, 4.4, 14));
    }
    canvas.painter.setBrush(red.darker(108));
    canvas.painter.drawRect(QRectF(x - 23, 38, 46, 3.6));
    canvas.painter.drawRect(QRectF(x - 1.8, 30, 3.6, 9));
    QPainterPath roof(QPointF(x - 30, 22));
    roof.quadTo(x, 30, x + 30, 22);
    roof.lineTo(x + 27, 30);
    roof.quadTo(x, 34, x - 27, 30);
    roof.closeSubpath();
    canvas.painter.setBrush(QColor(0x3a2422));
    canvas.painter.drawPath(roof);
    canvas.painter.setBrush(red);
    canvas.painter.drawRect(QRectF(x - 25, 30.2, 50, 2.4));
}

void paintLighthouse(Canvas &canvas)
{
    paintSky(canvas, 66);
    paintWater(canvas, 66);
    paintRidge(canvas, 84, 6, 0.5, canvas.night() ? QColor(0x10182c) : QColor(0x6a7a5c));
    const double x = canvas.width * canvas.random.between(0.3, 0.7);
    if (canvas.night() || canvas.scene.hour == Hour::Dusk) {
        canvas.painter.setPen(Qt::NoPen);
        const double tilt = 10 * std::sin(canvas.scene.phase * 6.28);
        canvas.painter.setBrush(faded(QColor(0xfff2b0), 0.28));
        canvas.painter.drawPolygon(Points{{x, 27}, {x + 90, 14 + tilt}, {x + 90, 34 + tilt}});
        canvas.painter.drawPolygon(Points{{x, 27}, {x - 90, 34 - tilt}, {x - 90, 14 - tilt}});
    }
    for (int stripe = 0; stripe < 6; ++stripe) {
        const double top = 32 + stripe * 9, half = 3.6 + stripe * 0.55;
        const QColor paint = stripe % 2 == 0 ? QColor(0xfaf6ee) : QColor(0xcf3f38);
        canvas.painter.setPen(Qt::NoPen);
        canvas.painter.setBrush(mix(paint, canvas.colours.near, canvas.night() ? 0.55 : 0.05));
        canvas.painter.drawPolygon(
            Points{{x - half, top}, {x + half, top}, {x + half + 0.55, top + 9}, {x - half - 0.55, top + 9}});
    }
    canvas.painter.setBrush(QColor(0x2b2f3a));
    canvas.painter.drawRect(QRectF(x - 4.6, 30.5, 9.2, 1.8));
    canvas.painter.setBrush(QColor(0xffe9a0));
    canvas.painter.drawRect(QRectF(x - 2.4, 24.5, 4.8, 6));
    canvas.painter.setBrush(QColor(0xb8332e));
    canvas.painter.drawPolygon(Points{{x - 3.6, 24.5}, {x, 19}, {x + 3.6, 24.5}});
    for (int i = 0; i < 4; ++i)
        paintBird(canvas, canvas.random.between(0.1, 0.9) * canvas.width + canvas.scene.phase * 10,
                  canvas.random.between(14, 40), 2);
}

void paintCanal(Canvas &canvas)
{
    paintSky(canvas, 60);
    const QColor fronts[] = {QColor(0xb5543c), QColor(0xd9a05b), QColor(0x7f8f6a),
                             QColor(0xc9b79a), QColor(0x8c4a4a), QColor(0x5f7391)};
    for (double x = -3; x < canvas.width;) {
        const double breadth = canvas.random.between(9, 13), height = canvas.random.between(34, 48), top = 72 - height;
        const QColor wall = mix(fronts[canvas.random.below(6)], canvas.colours.near, canvas.night() ? 0.7 : 0.08);
        paintBuilding(canvas, QRectF(x, top, breadth, height), wall);
        canvas.painter.setPen(Qt::NoPen);
        canvas.painter.setBrush(wall.darker(130));
        canvas.painter.drawPolygon(Points{{x, top}, {x + breadth / 2, top - 7}, {x + breadth, top}});
        x += breadth;
    }
    paintWater(canvas, 72);
    paintBoat(canvas, canvas.width * canvas.random.between(0.2, 0.8) + canvas.scene.phase * 6, 86, 10);
}

void paintBalloons(Canvas &canvas)
{
    paintSky(canvas, 78);
    paintRidge(canvas, 78, 7, 0.5, canvas.colours.far);
    paintRidge(canvas, 90, 4, 0.3, mix(canvas.colours.near, QColor(0xb98a58), 0.5));
    const QColor stripes[] = {QColor(0xe4572e), QColor(0xf3c13a), QColor(0x2e86ab), QColor(0x9b5de5), QColor(0x4caf7a)};
    for (int i = 0; i < 9; ++i) {
        const double size = 2.5 + i * 0.95;
        const double x = canvas.random.between(0.05, 0.95) * canvas.width + canvas.scene.phase * 3;
        const double y = canvas.random.between(14, 62) - canvas.scene.phase * size;
        const int first = canvas.random.below(5);
        canvas.painter.setPen(QPen(QColor(0x4a3a30), 0.2));
        canvas.painter.drawLine(QPointF(x - size * 0.4, y + size * 0.8), QPointF(x - size * 0.18, y + size * 1.75));
        canvas.painter.drawLine(QPointF(x + size * 0.4, y + size * 0.8), QPointF(x + size * 0.18, y + size * 1.75));
        canvas.painter.fillRect(QRectF(x - size * 0.2, y + size * 1.7, size * 0.4, size * 0.32), QColor(0x7a5230));
        for (int k = 0; k < 4; ++k) {
            canvas.painter.setPen(Qt::NoPen);
            canvas.painter.setBrush(mix(stripes[(first + k) % 5], canvas.colours.near, canvas.night() ? 0.5 : 0));
            canvas.painter.drawEllipse(QPointF(x, y), size * (1 - k * 0.27), size * 1.12);
        }
    }
}

} // namespace sample
