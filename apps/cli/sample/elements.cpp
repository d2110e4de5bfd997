#include "apps/cli/sample/canvas.h"

#include <QPainterPath>
#include <QRadialGradient>

#include <cmath>

namespace sample
{

namespace
{

constexpr double pi = 3.14159265358979323846;

void paintStars(Canvas &canvas, double horizon)
{
    for (int i = 0; i < 130; ++i) {
        const double x = canvas.random.between(0, canvas.width);
        const double y = canvas.random.between(0, horizon);
        const double size = canvas.random.between(0.12, 0.42);
        fillCircle(canvas, x, y, size, faded(Qt::white, canvas.random.between(0.25, 0.95)));
    }
}

void paintLight(Canvas &canvas, double x, double y, double radius)
{
    QRadialGradient glow(x, y, radius * 7);
    glow.setColorAt(0, faded(canvas.colours.light, canvas.night() ? 0.35 : 0.75));
    glow.setColorAt(1, faded(canvas.colours.light, 0));
    fillCircle(canvas, x, y, radius * 7, glow);
    fillCircle(canvas, x, y, radius, canvas.colours.light);
    if (canvas.night()) {
        fillCircle(canvas, x - radius * 0.3, y - radius * 0.25, radius * 0.2, faded(QColor(0xc9c4a4), 0.6));
        fillCircle(canvas, x + radius * 0.35, y + radius * 0.3, radius * 0.28, faded(QColor(0xc9c4a4), 0.5));
    }
}

void paintCloud(Canvas &canvas, double x, double y, double size, double alpha)
{
    const double left = x + canvas.scene.phase * size * 0.8;
    QPainterPath shape;
    shape.setFillRule(Qt::WindingFill);
    shape.addRoundedRect(QRectF(left, y - size * 0.12, size, size * 0.12), size * 0.06, size * 0.06);
    for (int i = 1; i <= 5; ++i) {
        const double puff = size * canvas.random.between(0.1, 0.15) * (1.45 - std::abs(i - 3) * 0.3);
        shape.addEllipse(QPointF(left + size * i / 6, y - puff * 0.62), puff, puff * 0.78);
    }
    QRectF body = shape.boundingRect();
    body.setBottom(y);
    QLinearGradient fill(0, body.top(), 0, body.bottom());
    fill.setColorAt(0, faded(canvas.colours.cloud, alpha));
    fill.setColorAt(1, faded(mix(canvas.colours.cloud, canvas.colours.skyMiddle, 0.45), alpha * 0.75));
    canvas.painter.save();
    canvas.painter.setClipRect(body);
    canvas.painter.setPen(Qt::NoPen);
    canvas.painter.setBrush(fill);
    canvas.painter.drawPath(shape.simplified());
    canvas.painter.restore();
}

} // namespace

void fillCircle(Canvas &canvas, double x, double y, double radius, const QBrush &brush)
{
    canvas.painter.setPen(Qt::NoPen);
    canvas.painter.setBrush(brush);
    canvas.painter.drawEllipse(QPointF(x, y), radius, radius);
}

void paintSky(Canvas &canvas, double horizon)
{
    QLinearGradient sky(0, 0, 0, horizon);
    sky.setColorAt(0, canvas.colours.skyTop);
    sky.setColorAt(0.6, canvas.colours.skyMiddle);
    sky.setColorAt(1, canvas.colours.skyLow);
    canvas.painter.fillRect(QRectF(0, 0, canvas.width, 100), sky);
    if (canvas.night())
        paintStars(canvas, horizon);
    const bool low = canvas.scene.hour == Hour::Dawn || canvas.scene.hour == Hour::Dusk;
    const double x = canvas.random.between(0.2, 0.8) * canvas.width;
    const double y = low ? horizon - canvas.random.between(3, 14) : canvas.random.between(10, 24);
    paintLight(canvas, x, y, low ? 6.5 : 4.2);
    const int clouds = canvas.night() ? 2 : 3 + canvas.random.below(3);
    for (int i = 0; i < clouds; ++i) {
        const double cloudX = canvas.random.between(-0.05, 1) * canvas.width;
        const double cloudY = canvas.random.between(10, horizon * 0.75);
        paintCloud(canvas, cloudX, cloudY, canvas.random.between(14, 34), canvas.night() ? 0.3 : 0.85);
    }
}

void paintRidge(Canvas &canvas, double crest, double swing, double roughness, const QColor &colour)
{
    double shift[5], pitch[5];
    for (int i = 0; i < 5; ++i) {
        shift[i] = canvas.random.between(0, 2 * pi);
        pitch[i] = canvas.random.between(0.8, 1.2) * std::pow(2.0, i) * 2 * pi / 160;
    }
    QPainterPath land;
    land.moveTo(0, 100);
    for (double x = 0; x <= canvas.width + 0.4; x += 0.4) {
        double y = 0, weight = 1, total = 0;
        for (int i = 0; i < 5; ++i) {
            // Folding the finer waves makes crests sharp where a mountain should have them.
            const double wave = std::sin(x * pitch[i] + shift[i]);
            y += weight * (i > 1 ? wave * (1 - roughness) + (1 - 2 * std::abs(wave)) * roughness : wave);
            total += weight;
            weight *= 0.35 + 0.22 * roughness;
        }
        land.lineTo(x, crest - swing * y / total);
    }
    land.lineTo(canvas.width + 0.4, 100);
    land.closeSubpath();
    QLinearGradient fill(0, crest - swing, 0, 100);
    fill.setColorAt(0, colour);
    fill.setColorAt(1, mix(colour, canvas.colours.skyLow, canvas.night() ? 0.05 : 0.22));
    canvas.painter.setPen(Qt::NoPen);
    canvas.painter.setBrush(fill);
    canvas.painter.drawPath(land);
}

void paintWater(Canvas &canvas, double top)
{
    QLinearGradient depth(0, top, 0, 100);
    depth.setColorAt(0, mix(canvas.colours.water, canvas.colours.skyLow, 0.55));
    depth.setColorAt(0.35, canvas.colours.water);
    depth.setColorAt(1, canvas.colours.water.darker(150));
    canvas.painter.fillRect(QRectF(0, top, canvas.width, 100 - top), depth);
    for (int i = 0; i < 150; ++i) {
        const double far = canvas.random.unit();
        const double y = top + 0.8 + far * far * (99 - top);
        const double size = 0.8 + 6 * far * far;
        double x = canvas.random.between(-4, canvas.width);
        x += std::sin((canvas.scene.phase + canvas.random.unit()) * 2 * pi) * size * 0.35;
        const double alpha = canvas.random.between(0.08, 0.4) * (canvas.night() ? 0.5 : 1);
        canvas.painter.setPen(QPen(faded(canvas.colours.light, alpha), 0.18 + 0.3 * far, Qt::SolidLine, Qt::RoundCap));
        canvas.painter.drawLine(QPointF(x, y), QPointF(x + size, y));
    }
}

void paintConifer(Canvas &canvas, double x, double foot, double height, const QColor &colour)
{
    canvas.painter.setPen(Qt::NoPen);
    canvas.painter.setBrush(QColor(0x4a3526));
    canvas.painter.drawRect(QRectF(x - height * 0.025, foot - height * 0.15, height * 0.05, height * 0.15));
    for (int layer = 0; layer < 4; ++layer) {
        const double low = foot - height * (0.1 + layer * 0.2);
        const double half = height * (0.22 - layer * 0.042);
        canvas.painter.setBrush(mix(colour, canvas.colours.light, 0.04 * layer));
        canvas.painter.drawPolygon(
            Points{{x - half, low}, {x, low - height * 0.34}, {x + half, low}, {x, low - height * 0.045}});
    }
}

void paintRoundTree(Canvas &canvas, double x, double foot, double height, const QColor &leaves)
{
    canvas.painter.setPen(QPen(QColor(0x5a4030), height * 0.07, Qt::SolidLine, Qt::RoundCap));
    canvas.painter.drawLine(QPointF(x, foot), QPointF(x, foot - height * 0.5));
    for (int i = 0; i < 16; ++i) {
        const double angle = canvas.random.between(0, 2 * pi);
        const double reach = height * 0.24 * canvas.random.unit();
        const QColor tone =
            mix(leaves, i % 2 == 0 ? canvas.colours.light : canvas.colours.near, canvas.random.between(0.02, 0.3));
        fillCircle(canvas, x + std::cos(angle) * reach, foot - height * 0.66 + std::sin(angle) * reach * 0.85,
                   height * canvas.random.between(0.1, 0.19), tone);
    }
}

void paintBird(Canvas &canvas, double x, double y, double span)
{
    QPainterPath wings;
    const double lift = span * (0.25 + 0.15 * std::sin(canvas.scene.phase * 6 * pi + x));
    wings.moveTo(x - span, y - lift * 0.4);
    wings.quadTo(x - span * 0.4, y - lift, x, y);
    wings.quadTo(x + span * 0.4, y - lift, x + span, y - lift * 0.4);
    canvas.painter.setBrush(Qt::NoBrush);
    canvas.painter.setPen(QPen(faded(QColor(0x20263a), 0.75), span * 0.14, Qt::SolidLine, Qt::RoundCap));
    canvas.painter.drawPath(wings);
}

void paintBoat(Canvas &canvas, double x, double y, double length)
{
    const QColor sail = canvas.night() ? QColor(0x8f9bbd) : QColor(0xfdfaf2);
    canvas.painter.setPen(Qt::NoPen);
    canvas.painter.setBrush(sail);
    canvas.painter.drawPolygon(
        Points{{x, y - length * 1.25}, {x + length * 0.48, y - length * 0.15}, {x, y - length * 0.15}});
    canvas.painter.setBrush(mix(sail, QColor(0xd0553f), 0.75));
    canvas.painter.drawPolygon(Points{{x - length * 0.06, y - length * 1.1},
                                      {x - length * 0.06, y - length * 0.15},
                                      {x - length * 0.4, y - length * 0.15}});
    canvas.painter.setBrush(QColor(0x5a3527));
    canvas.painter.drawPolygon(Points{{x - length * 0.5, y - length * 0.1},
                                      {x + length * 0.55, y - length * 0.1},
                                      {x + length * 0.35, y + length * 0.1},
                                      {x - length * 0.35, y + length * 0.1}});
}

} // namespace sample
