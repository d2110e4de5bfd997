#include "apps/cli/sample/canvas.h"
#include "apps/cli/sample/motifs.h"

#include <QPainterPath>

#include <cmath>

namespace sample
{

namespace
{

struct Looks {
    QColor skin, hair, clothes;
    int cut; // 0 short, 1 long, 2 bun, 3 curls
    bool glasses;
};

Looks looksOf(int person)
{
    static constexpr QRgb skins[] = {0xffe0bd, 0xc68a5c, 0xf2c79e, 0x8d5a3b, 0xe8b48a, 0xffd8c0};
    static constexpr QRgb hairs[] = {0x6b4226, 0x1f1a17, 0xd9a441, 0x241a14, 0x8c2f1b, 0xb9b4ad};
    static constexpr QRgb clothes[] = {0x3f6fb5, 0xd9574a, 0x4f9a6b, 0xe0a93b, 0x7a5bb0, 0x2f8f9b};
    const int at = person % 6;
    return {QColor(skins[at]), QColor(hairs[at]), QColor(clothes[at]), (at * 3 + 1) % 4, at == 0 || at == 5};
}

void paintBokeh(Canvas &canvas)
{
    QLinearGradient back(0, 0, canvas.width, 100);
    back.setColorAt(0, mix(canvas.colours.skyTop, canvas.colours.near, 0.25));
    back.setColorAt(1, mix(canvas.colours.skyLow, canvas.colours.near, 0.45));
    canvas.painter.fillRect(QRectF(0, 0, canvas.width, 100), back);
    for (int i = 0; i < 46; ++i) {
        const QColor tone = mix(canvas.colours.light, canvas.colours.skyMiddle, canvas.random.unit());
        fillCircle(canvas, canvas.random.between(0, canvas.width), canvas.random.between(0, 90),
                   canvas.random.between(2, 8), faded(tone, canvas.random.between(0.06, 0.24)));
    }
}

void paintHairBehind(Canvas &canvas, const Looks &looks, double x, double y, double size)
{
    canvas.painter.setPen(Qt::NoPen);
    canvas.painter.setBrush(looks.hair);
    if (looks.cut == 1)
        canvas.painter.drawRoundedRect(QRectF(x - size * 1.08, y - size * 0.9, size * 2.16, size * 2.5), size, size);
    if (looks.cut == 2)
        fillCircle(canvas, x, y - size * 1.35, size * 0.45, looks.hair);
    if (looks.cut == 3)
        for (int i = 0; i < 15; ++i) {
            const double angle = 3.6 + i * 0.2;
            fillCircle(canvas, x + std::cos(angle * 1.0) * size * 1.02, y + std::sin(angle) * size * 1.02 - size * 0.1,
                       size * 0.42, looks.hair);
        }
}

void paintEyes(Canvas &canvas, const Looks &looks, double x, double y, double size)
{
    const bool blink = canvas.scene.phase > 0.45 && canvas.scene.phase < 0.55;
    for (const double side : {-1.0, 1.0}) {
        const double eyeX = x + side * size * 0.37;
        canvas.painter.setPen(QPen(looks.hair.darker(120), size * 0.07, Qt::SolidLine, Qt::RoundCap));
        canvas.painter.drawLine(QPointF(eyeX - size * 0.15, y - size * 0.3),
                                QPointF(eyeX + size * 0.15, y - size * 0.33));
        if (blink) {
            canvas.painter.drawLine(QPointF(eyeX - size * 0.12, y - size * 0.05),
                                    QPointF(eyeX + size * 0.12, y - size * 0.05));
            continue;
        }
        canvas.painter.setPen(Qt::NoPen);
        canvas.painter.setBrush(Qt::white);
        canvas.painter.drawEllipse(QPointF(eyeX, y - size * 0.05), size * 0.16, size * 0.13);
        fillCircle(canvas, eyeX, y - size * 0.05, size * 0.1, QColor(0x2d2a28));
        fillCircle(canvas, eyeX + size * 0.03, y - size * 0.09, size * 0.03, Qt::white);
        if (looks.glasses) {
            canvas.painter.setBrush(Qt::NoBrush);
            canvas.painter.setPen(QPen(QColor(0x2d2a28), size * 0.05));
            canvas.painter.drawEllipse(QPointF(eyeX, y - size * 0.04), size * 0.27, size * 0.24);
            canvas.painter.drawLine(QPointF(x - size * 0.1, y - size * 0.05), QPointF(x + size * 0.1, y - size * 0.05));
        }
    }
}

void paintFringe(Canvas &canvas, const Looks &looks, double x, double y, double size)
{
    QPainterPath fringe(QPointF(x - size * 0.98, y + size * 0.02));
    fringe.cubicTo(x - size * 1.15, y - size * 1.5, x + size * 1.15, y - size * 1.5, x + size * 0.98, y + size * 0.02);
    fringe.quadTo(x + size * 0.72, y - size * 0.45, x + size * 0.2, y - size * 0.62);
    fringe.quadTo(x - size * 0.6, y - size * 0.55, x - size * 0.98, y + size * 0.02);
    canvas.painter.setPen(Qt::NoPen);
    canvas.painter.setBrush(looks.hair.lighter(108));
    canvas.painter.drawPath(fringe);
}

// A friendly face whose head is about `size` units in radius, seen to the shoulders.
void paintPerson(Canvas &canvas, int person, double x, double y, double size)
{
    const Looks looks = looksOf(person);
    QPainter &painter = canvas.painter;
    paintHairBehind(canvas, looks, x, y, size);
    painter.setPen(Qt::NoPen);
    painter.setBrush(looks.skin.darker(112));
    painter.drawRoundedRect(QRectF(x - size * 0.34, y + size * 0.6, size * 0.68, size), size * 0.2, size * 0.2);
    painter.setBrush(looks.clothes);
    painter.drawRoundedRect(QRectF(x - size * 1.6, y + size * 1.32, size * 3.2, size * 4), size * 0.95, size * 0.95);
    painter.setBrush(looks.skin.darker(106));
    painter.drawEllipse(QPointF(x, y + size * 1.32), size * 0.5, size * 0.3);
    for (const double side : {-1.0, 1.0})
        fillCircle(canvas, x + side * size * 0.93, y + size * 0.05, size * 0.18, looks.skin.darker(108));
    painter.setBrush(looks.skin);
    painter.drawEllipse(QPointF(x, y), size * 0.94, size * 1.06);
    for (const double side : {-1.0, 1.0})
        fillCircle(canvas, x + side * size * 0.52, y + size * 0.32, size * 0.19, faded(QColor(0xf26d6d), 0.28));
    paintFringe(canvas, looks, x, y, size);
    paintEyes(canvas, looks, x, y, size);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(looks.skin.darker(135), size * 0.06, Qt::SolidLine, Qt::RoundCap));
    QPainterPath nose(QPointF(x, y + size * 0.02));
    nose.quadTo(x + size * 0.13, y + size * 0.24, x - size * 0.03, y + size * 0.25);
    painter.drawPath(nose);
    QPainterPath smile(QPointF(x - size * 0.34, y + size * 0.42));
    smile.quadTo(x, y + size * 0.86, x + size * 0.34, y + size * 0.42);
    smile.quadTo(x, y + size * 0.52, x - size * 0.34, y + size * 0.42);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xa53b3b));
    painter.drawPath(smile);
}

} // namespace

void paintPortrait(Canvas &canvas)
{
    paintBokeh(canvas);
    const double sway = std::sin(canvas.scene.phase * 6.28) * 1.5;
    const double size = std::min(21.0, canvas.width * 0.27);
    paintPerson(canvas, canvas.scene.person, canvas.width * canvas.random.between(0.44, 0.56) + sway, 46, size);
}

void paintGroup(Canvas &canvas)
{
    paintBokeh(canvas);
    const double sway = std::sin(canvas.scene.phase * 6.28);
    const double size = std::min(13.5, canvas.width * 0.12);
    for (const int place : {0, 2, 1})
        paintPerson(canvas, canvas.scene.person + place, canvas.width * (0.22 + 0.28 * place) + sway,
                    (place == 1 ? 55 : 47) + canvas.random.between(-2, 2), size);
}

void paintCat(Canvas &canvas)
{
    paintBokeh(canvas);
    const QColor coats[] = {QColor(0xd98a3d), QColor(0x55504c), QColor(0xe8dccb), QColor(0x8c7a6b)};
    const QColor coat = coats[canvas.scene.seed % 4];
    const double x = canvas.width / 2, y = 48, size = std::min(24.0, canvas.width * 0.3);
    QPainter &painter = canvas.painter;
    painter.setPen(Qt::NoPen);
    painter.setBrush(coat.darker(108));
    painter.drawRoundedRect(QRectF(x - size * 0.95, y + size * 0.5, size * 1.9, size * 2.4), size * 0.9, size * 0.9);
    for (const double side : {-1.0, 1.0}) {
        painter.setBrush(coat);
        painter.drawPolygon(Points{{x + side * size * 0.95, y - size * 0.2},
                                   {x + side * size * 0.85, y - size * 1.3},
                                   {x + side * size * 0.2, y - size * 0.8}});
        painter.setBrush(QColor(0xf2a9a0));
        painter.drawPolygon(Points{{x + side * size * 0.8, y - size * 0.4},
                                   {x + side * size * 0.76, y - size * 1.05},
                                   {x + side * size * 0.38, y - size * 0.78}});
    }
    painter.setBrush(coat);
    painter.drawEllipse(QPointF(x, y), size * 1.05, size * 0.92);
    painter.setBrush(coat.lighter(135));
    painter.drawEllipse(QPointF(x, y + size * 0.42), size * 0.5, size * 0.38);
    for (const double side : {-1.0, 1.0}) {
        painter.setBrush(QColor(0xc7e06a));
        painter.drawEllipse(QPointF(x + side * size * 0.42, y - size * 0.08), size * 0.22, size * 0.24);
        painter.setBrush(QColor(0x1c1c1c));
        painter.drawEllipse(
            QPointF(x + side * size * 0.42 + std::sin(canvas.scene.phase * 6.28) * size * 0.05, y - size * 0.08),
            size * 0.08, size * 0.2);
        painter.setPen(QPen(faded(Qt::white, 0.8), 0.35));
        for (int i = -1; i <= 1; ++i)
            painter.drawLine(QPointF(x + side * size * 0.3, y + size * 0.36),
                             QPointF(x + side * size * 1.3, y + size * (0.3 + i * 0.16)));
        painter.setPen(QPen(coat.darker(140), size * 0.07, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(x + side * size * 0.12, y - size * 0.8),
                         QPointF(x + side * size * 0.16, y - size * 0.5));
        painter.setPen(Qt::NoPen);
    }
    painter.setBrush(QColor(0xd9706a));
    painter.drawPolygon(
        Points{{x - size * 0.1, y + size * 0.22}, {x + size * 0.1, y + size * 0.22}, {x, y + size * 0.34}});
}

} // namespace sample
