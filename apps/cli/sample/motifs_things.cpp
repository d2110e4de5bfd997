#include "apps/cli/sample/canvas.h"
#include "apps/cli/sample/motifs.h"

#include <QPainterPath>
#include <QRadialGradient>

#include <cmath>

namespace sample
{

namespace
{

void paintTable(Canvas &canvas, const QColor &wood)
{
    canvas.painter.fillRect(QRectF(0, 0, canvas.width, 100), wood);
    for (double y = 0; y < 100; y += 12.5) {
        canvas.painter.fillRect(QRectF(0, y, canvas.width, 0.45), wood.darker(128));
        for (int i = 0; i < 7; ++i) {
            const double x = canvas.random.between(-20, canvas.width);
            canvas.painter.setPen(QPen(faded(wood.darker(118), 0.5), 0.3));
            const double grain = y + canvas.random.between(1.5, 11);
            canvas.painter.drawLine(QPointF(x, grain), QPointF(x + canvas.random.between(10, 40), grain + 0.6));
        }
    }
}

void paintPlate(Canvas &canvas, double x, double y, double radius)
{
    fillCircle(canvas, x + 1.2, y + 1.8, radius, QColor(0, 0, 0, 60));
    fillCircle(canvas, x, y, radius, QColor(0xfbfaf6));
    fillCircle(canvas, x, y, radius * 0.76, QColor(0xefede6));
    fillCircle(canvas, x, y, radius * 0.74, QColor(0xf9f8f3));
}

} // namespace

void paintCake(Canvas &canvas)
{
    paintTable(canvas, canvas.night() ? QColor(0x4a3226) : QColor(0xb88a5f));
    const double x = canvas.width / 2, y = 52;
    paintPlate(canvas, x, y, 42);
    const QColor icings[] = {QColor(0xf6b7c8), QColor(0xfff1d6), QColor(0x8c5a3c), QColor(0xbfe3d0)};
    const QColor icing = icings[canvas.scene.seed % 4];
    fillCircle(canvas, x, y, 27, icing.darker(115));
    fillCircle(canvas, x, y - 1, 26, icing);
    for (int i = 0; i < 18; ++i)
        fillCircle(canvas, x + std::cos(i * 0.349) * 23, y - 1 + std::sin(i * 0.349) * 23, 2.7, QColor(0xfffaf3));
    const QColor sugar[] = {QColor(0xe4572e), QColor(0x2e86ab), QColor(0xf3c13a), QColor(0x4caf7a)};
    for (int i = 0; i < 60; ++i) {
        const double angle = canvas.random.between(0, 6.28), reach = 18 * std::sqrt(canvas.random.unit());
        fillCircle(canvas, x + std::cos(angle) * reach, y + std::sin(angle) * reach, 0.55,
                   sugar[canvas.random.below(4)]);
    }
    for (int i = 0; i < 5; ++i) {
        const double candleX = x - 14 + i * 7, top = y - 14 - (i % 2) * 2;
        canvas.painter.fillRect(QRectF(candleX - 0.8, top, 1.6, 12), i % 2 == 0 ? QColor(0x5fa8d3) : QColor(0xf08a8a));
        const double flicker = 0.3 * std::sin(canvas.scene.phase * 25 + i);
        QRadialGradient flame(candleX, top - 1.8, 4);
        flame.setColorAt(0, QColor(0xfff6c9));
        flame.setColorAt(0.4, faded(QColor(0xffb43c), 0.8));
        flame.setColorAt(1, faded(QColor(0xffb43c), 0));
        fillCircle(canvas, candleX + flicker, top - 1.8, 4, flame);
    }
}

void paintCoffee(Canvas &canvas)
{
    paintTable(canvas, canvas.scene.seed % 2 == 0 ? QColor(0x6b4a36) : QColor(0xd8c3a5));
    const double x = canvas.width * 0.5, y = 50;
    paintPlate(canvas, x, y, 36);
    canvas.painter.setPen(QPen(QColor(0xe9e4da), 4.5));
    canvas.painter.setBrush(Qt::NoBrush);
    canvas.painter.drawEllipse(QPointF(x + 24, y), 7, 5.5);
    fillCircle(canvas, x, y, 23, QColor(0xffffff));
    QRadialGradient brew(x, y, 20);
    brew.setColorAt(0, QColor(0xb9855a));
    brew.setColorAt(1, QColor(0x5a3420));
    fillCircle(canvas, x, y, 20, brew);
    for (int i = 5; i >= 1; --i) {
        const double size = i * 2.6;
        QPainterPath leaf(QPointF(x, y + size));
        leaf.cubicTo(x - size * 1.6, y - size * 0.4, x - size * 0.7, y - size * 1.3, x, y - size * 0.5);
        leaf.cubicTo(x + size * 0.7, y - size * 1.3, x + size * 1.6, y - size * 0.4, x, y + size);
        canvas.painter.setPen(Qt::NoPen);
        canvas.painter.setBrush(i % 2 == 1 ? QColor(0xf6e6cf) : QColor(0x9a6a44));
        canvas.painter.drawPath(leaf);
    }
}

void paintFlower(Canvas &canvas)
{
    QRadialGradient back(canvas.width / 2, 45, 80);
    back.setColorAt(0, QColor(0xa9cf7f));
    back.setColorAt(1, QColor(0x2e5d39));
    canvas.painter.fillRect(QRectF(0, 0, canvas.width, 100), back);
    for (int i = 0; i < 30; ++i)
        fillCircle(canvas, canvas.random.between(0, canvas.width), canvas.random.between(0, 100),
                   canvas.random.between(3, 10), faded(QColor(0xe4f2b5), 0.08));
    const double x = canvas.width * canvas.random.between(0.4, 0.6), y = 44;
    canvas.painter.setPen(QPen(QColor(0x3c7a3a), 2.4, Qt::SolidLine, Qt::RoundCap));
    canvas.painter.drawLine(QPointF(x, y), QPointF(x + 5, 102));
    const QColor tints[] = {QColor(0xf25c78), QColor(0xf7b733), QColor(0x9b5de5), QColor(0xf4f0ff), QColor(0xff8c61)};
    const QColor petal = tints[canvas.scene.seed % 5];
    const int count = 9 + static_cast<int>(canvas.scene.seed % 4) * 2;
    const double turn = canvas.scene.phase * 0.3;
    for (int ring = 0; ring < 2; ++ring)
        for (int i = 0; i < count; ++i) {
            canvas.painter.save();
            canvas.painter.translate(x, y);
            canvas.painter.rotate((i + ring * 0.5) * 360.0 / count + turn * 57);
            canvas.painter.setPen(QPen(petal.darker(115), 0.25));
            canvas.painter.setBrush(ring == 0 ? petal.darker(108) : petal.lighter(106));
            canvas.painter.drawEllipse(QPointF(0, ring == 0 ? -20 : -15), 5, ring == 0 ? 13 : 10);
            canvas.painter.restore();
        }
    fillCircle(canvas, x, y, 7.5, QColor(0x8a5a1e));
    for (int i = 0; i < 70; ++i)
        fillCircle(canvas, x + std::cos(i * 2.39996) * std::sqrt(i) * 0.82,
                   y + std::sin(i * 2.39996) * std::sqrt(i) * 0.82, 0.45, QColor(0xf6c945));
}

} // namespace sample
