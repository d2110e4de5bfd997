#include "apps/cli/sample/canvas.h"
#include "apps/cli/sample/motifs.h"

#include <QPainterPath>

#include <cmath>

namespace sample
{

void paintSea(Canvas &canvas)
{
    const double horizon = canvas.random.between(48, 60);
    paintSky(canvas, horizon);
    if (canvas.random.chance(0.6))
        paintRidge(canvas, horizon - 2, 7, 0.4, canvas.colours.far);
    paintWater(canvas, horizon);
    const int boats = 1 + canvas.random.below(3);
    for (int i = 0; i < boats; ++i) {
        const double y = canvas.random.between(horizon + 3, horizon + 22);
        const double x = canvas.random.between(0.1, 0.85) * canvas.width;
        paintBoat(canvas, x + canvas.scene.phase * 8, y, (y - horizon) * 0.55 + 2);
    }
    for (int i = 0; i < 4; ++i) {
        const double x = canvas.random.between(0.1, 0.9) * canvas.width;
        paintBird(canvas, x + canvas.scene.phase * 12, canvas.random.between(14, 36), canvas.random.between(1.2, 2.4));
    }
    if (canvas.random.chance(0.5))
        paintRidge(canvas, 95, 5, 0.2, canvas.night() ? QColor(0x141a30) : QColor(0xe3cf9f));
}

void paintHills(Canvas &canvas)
{
    paintSky(canvas, 62);
    for (int layer = 0; layer < 5; ++layer)
        paintRidge(canvas, 52 + layer * 10, 9 - layer, 0.15, mix(canvas.colours.far, canvas.colours.near, layer / 4.0));
    for (int i = 0; i < 9; ++i) {
        const double foot = canvas.random.between(84, 97);
        paintRoundTree(canvas, canvas.random.between(0, canvas.width), foot, (foot - 70) * 0.8,
                       mix(canvas.colours.near, QColor(0x8fae3b), canvas.night() ? 0.05 : 0.3));
    }
    for (int i = 0; i < 5; ++i)
        paintBird(canvas, canvas.random.between(0.3, 0.7) * canvas.width + canvas.scene.phase * 10,
                  canvas.random.between(16, 32), 1.8);
}

void paintMountains(Canvas &canvas)
{
    paintSky(canvas, 66);
    const QColor rock = mix(canvas.colours.far, QColor(0x5b6478), canvas.night() ? 0.1 : 0.5);
    const QColor snow = canvas.night() ? QColor(0x5a6b97) : mix(QColor(0xffffff), canvas.colours.skyLow, 0.25);
    for (int peak = 0; peak < 5; ++peak) {
        const double x = canvas.width * (peak + canvas.random.between(0.1, 0.9)) / 5;
        const double top = canvas.random.between(18, 42);
        const double half = (80 - top) * canvas.random.between(0.5, 0.75);
        canvas.painter.setPen(Qt::NoPen);
        canvas.painter.setBrush(mix(rock, canvas.colours.skyLow, canvas.random.between(0, 0.3)));
        canvas.painter.drawPolygon(Points{{x - half, 82}, {x, top}, {x + half, 82}});
        canvas.painter.setBrush(QColor(0, 0, 0, 38));
        canvas.painter.drawPolygon(
            Points{{x, top}, {x + half, 82}, {x + half * 0.12, 82}, {x - half * 0.06, top + 18}});
        const double cap = canvas.random.between(0.3, 0.42);
        const double low = top + (82 - top) * cap;
        canvas.painter.setBrush(snow);
        canvas.painter.drawPolygon(Points{{x, top},
                                          {x + half * cap, low},
                                          {x + half * cap * 0.5, low - 4},
                                          {x + half * cap * 0.15, low + 2.5},
                                          {x - half * cap * 0.3, low - 3},
                                          {x - half * cap * 0.6, low + 2},
                                          {x - half * cap, low}});
    }
    paintRidge(canvas, 76, 5, 0.3, mix(canvas.colours.far, canvas.colours.near, 0.6));
    paintRidge(canvas, 86, 4, 0.2, canvas.colours.near);
    for (int i = 0; i < 26; ++i) {
        const double foot = canvas.random.between(80, 99);
        paintConifer(canvas, canvas.random.between(0, canvas.width), foot, (foot - 70) * 0.75,
                     mix(canvas.colours.near, QColor(0x12402e), 0.5));
    }
}

void paintDesert(Canvas &canvas)
{
    paintSky(canvas, 58);
    const QColor sand = canvas.night() ? QColor(0x39406a) : QColor(0xe9b872);
    for (int layer = 0; layer < 5; ++layer)
        paintRidge(canvas, 56 + layer * 10, 7, 0.1,
                   mix(mix(sand, canvas.colours.skyLow, 0.5), sand.darker(125), layer / 4.0));
    for (int i = 0; i < 5; ++i) {
        const double x = canvas.random.between(0.05, 0.95) * canvas.width;
        const double foot = canvas.random.between(74, 94);
        const double height = (foot - 58) * 0.45;
        canvas.painter.setPen(QPen(QColor(0x3e6b46), height * 0.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        canvas.painter.drawLine(QPointF(x, foot), QPointF(x, foot - height));
        canvas.painter.drawPolyline(Points{{x, foot - height * 0.4},
                                           {x + height * 0.35, foot - height * 0.4},
                                           {x + height * 0.35, foot - height * 0.75}});
        canvas.painter.drawPolyline(Points{{x, foot - height * 0.3},
                                           {x - height * 0.3, foot - height * 0.3},
                                           {x - height * 0.3, foot - height * 0.6}});
    }
}

void paintForest(Canvas &canvas)
{
    paintSky(canvas, 70);
    for (int row = 0; row < 4; ++row) {
        const double foot = 62 + row * 13;
        const QColor tone =
            mix(mix(canvas.colours.far, canvas.colours.skyLow, 0.35), canvas.colours.near.darker(125), row / 3.0);
        paintRidge(canvas, foot - 6, 3, 0.2, tone);
        for (int i = 0; i < 22; ++i)
            paintConifer(canvas, canvas.random.between(-3, canvas.width + 3), foot + canvas.random.between(-2, 6),
                         canvas.random.between(18, 28) + row * 5, tone.lighter(100 + canvas.random.below(14)));
    }
}

void paintWaterfall(Canvas &canvas)
{
    paintSky(canvas, 40);
    paintRidge(canvas, 30, 6, 0.3, mix(canvas.colours.far, QColor(0x6d7b5a), 0.5));
    const QColor rock = canvas.night() ? QColor(0x1a2238) : QColor(0x4c4f52);
    paintRidge(canvas, 38, 3, 0.6, rock);
    const double left = canvas.width * canvas.random.between(0.25, 0.45);
    const double breadth = canvas.width * 0.24;
    canvas.painter.setPen(Qt::NoPen);
    canvas.painter.setBrush(QColor(0xe4f1f7));
    canvas.painter.drawRect(QRectF(left, 39, breadth, 46));
    for (int i = 0; i < 120; ++i) {
        const double x = left + breadth * canvas.random.unit();
        const double y = 39 + std::fmod(canvas.random.unit() + canvas.scene.phase, 1.0) * 38;
        canvas.painter.setPen(QPen(faded(QColor(0x7fa9c4), canvas.random.between(0.2, 0.6)), 0.5));
        canvas.painter.drawLine(QPointF(x, y), QPointF(x, y + canvas.random.between(3, 9)));
    }
    paintWater(canvas, 82);
    for (int i = 0; i < 40; ++i)
        fillCircle(canvas, left + breadth * canvas.random.between(-0.25, 1.25), 83 + canvas.random.between(-5, 4),
                   canvas.random.between(1.5, 4), faded(Qt::white, 0.22));
    for (int i = 0; i < 24; ++i) {
        const double x = canvas.random.between(0, canvas.width);
        if (x < left - 2 || x > left + breadth + 2)
            fillCircle(canvas, x, canvas.random.between(42, 80), canvas.random.between(1.5, 4),
                       faded(QColor(0x5f8f3f), canvas.night() ? 0.2 : 0.7));
    }
}

void paintAurora(Canvas &canvas)
{
    canvas.colours = paletteOf(Hour::Night);
    paintSky(canvas, 76);
    for (int band = 0; band < 4; ++band) {
        const QColor glow = band % 2 == 0 ? QColor(0x4dffb0) : QColor(0x9a6bff);
        const double base = canvas.random.between(40, 60), reach = canvas.random.between(18, 36);
        const double turn = canvas.random.between(0, 6) + canvas.scene.phase * 1.6;
        for (double x = 0; x < canvas.width; x += 0.5) {
            const double foot = base + 7 * std::sin(x * 0.06 + turn) + 3 * std::sin(x * 0.17 + turn * 2);
            const double alpha = 0.16 + 0.13 * std::sin(x * 0.23 + turn * 3);
            QLinearGradient curtain(0, foot - reach, 0, foot);
            curtain.setColorAt(0, faded(glow, 0));
            curtain.setColorAt(0.8, faded(glow, alpha));
            curtain.setColorAt(1, faded(glow, 0));
            canvas.painter.fillRect(QRectF(x, foot - reach, 0.5, reach), curtain);
        }
    }
    paintRidge(canvas, 74, 8, 0.55, QColor(0x16203f));
    paintRidge(canvas, 86, 4, 0.2, QColor(0x0a1024));
    for (int i = 0; i < 16; ++i)
        paintConifer(canvas, canvas.random.between(0, canvas.width), canvas.random.between(88, 99),
                     canvas.random.between(9, 18), QColor(0x060b1a));
}

void paintMeadow(Canvas &canvas)
{
    paintSky(canvas, 46);
    paintRidge(canvas, 44, 5, 0.2, canvas.colours.far);
    const QColor grass = mix(canvas.colours.near, QColor(0x7cb342), canvas.night() ? 0.1 : 0.6);
    paintRidge(canvas, 52, 2, 0.1, grass);
    const QColor petals[] = {QColor(0xe8475b), QColor(0xf6c945), QColor(0x8d6fd1), QColor(0xffffff), QColor(0xf58fb0)};
    for (int i = 0; i < 420; ++i) {
        const double near = i / 419.0;
        const double y = 53 + near * near * 46;
        const double size = 0.3 + near * near * 1.9;
        const double x = canvas.random.between(0, canvas.width) + std::sin(canvas.scene.phase * 6.28 + y) * size * 0.4;
        canvas.painter.setPen(QPen(grass.darker(125), size * 0.3));
        canvas.painter.drawLine(QPointF(x, y), QPointF(x, y + size * 2.6));
        const QColor petal = mix(petals[canvas.random.below(5)], canvas.colours.near, canvas.night() ? 0.6 : 0.0);
        for (int k = 0; k < 5; ++k)
            fillCircle(canvas, x + std::cos(k * 1.257) * size * 0.6, y + std::sin(k * 1.257) * size * 0.6, size * 0.5,
                       petal);
        fillCircle(canvas, x, y, size * 0.4, QColor(0xf3b13c));
    }
}

void paintBlossom(Canvas &canvas)
{
    paintSky(canvas, 70);
    paintRidge(canvas, 66, 7, 0.35, canvas.colours.far);
    paintRidge(canvas, 84, 3, 0.1, mix(canvas.colours.near, QColor(0x86a85a), 0.5));
    const double x = canvas.width * canvas.random.between(0.3, 0.6);
    canvas.painter.setBrush(Qt::NoBrush);
    for (int i = -4; i <= 4; ++i) {
        canvas.painter.setPen(QPen(QColor(0x4b342f), i == 0 ? 4.5 : 2.2, Qt::SolidLine, Qt::RoundCap));
        QPainterPath branch(QPointF(x, i == 0 ? 96 : 66));
        branch.quadTo(x + i * 3, 52, x + i * 9, 40 + std::abs(i) * 3);
        canvas.painter.drawPath(branch);
    }
    for (int i = 0; i < 420; ++i) {
        const double angle = canvas.random.between(0, 6.2832), reach = std::sqrt(canvas.random.unit());
        const QColor pink = mix(QColor(0xffd6e4), QColor(0xe87fa6), canvas.random.unit());
        fillCircle(canvas, x + std::cos(angle) * reach * 42, 38 + std::sin(angle) * reach * 24,
                   canvas.random.between(0.8, 2.1),
                   faded(mix(pink, canvas.colours.near, canvas.night() ? 0.45 : 0), 0.9));
    }
    for (int i = 0; i < 60; ++i) {
        const double y = std::fmod(canvas.random.between(0, 40) + canvas.scene.phase * 20, 40) + 58;
        fillCircle(canvas, canvas.random.between(0, canvas.width), y, 0.55, QColor(0xf8b9cf));
    }
}

} // namespace sample
