#ifndef APPS_CLI_SAMPLE_CANVAS_H
#define APPS_CLI_SAMPLE_CANVAS_H

#include "apps/cli/sample/random.h"
#include "apps/cli/sample/scene.h"

#include <QColor>
#include <QPainter>
#include <QVector>

namespace sample
{

/// QPolygonF itself cannot be made from a braced list.
using Points = QVector<QPointF>;

/// The colours of one time of day.
struct Palette {
    QColor skyTop, skyMiddle, skyLow;
    QColor light;     ///< sun or moon
    QColor far, near; ///< land, far away and close by
    QColor water;
    QColor cloud;
};

Palette paletteOf(Hour hour);

/// What the painters of motifs share. The picture is 100 units high and `width` units wide, whatever its pixels.
struct Canvas {
    QPainter &painter;
    double width;
    Random random;
    const Scene &scene;
    Palette colours;

    bool night() const { return scene.hour == Hour::Night; }
};

QColor mix(const QColor &from, const QColor &to, double share);
QColor faded(QColor colour, double alpha);

void fillCircle(Canvas &canvas, double x, double y, double radius, const QBrush &brush);

/// Sky down to `horizon` with sun, moon or stars and some clouds; paints over the whole width.
void paintSky(Canvas &canvas, double horizon);
/// A line of hills whose crest moves about `crest`; filled down to the lower edge.
void paintRidge(Canvas &canvas, double crest, double swing, double roughness, const QColor &colour);
/// Water from `top` to the lower edge, with glints under the light.
void paintWater(Canvas &canvas, double top);
void paintConifer(Canvas &canvas, double x, double foot, double height, const QColor &colour);
void paintRoundTree(Canvas &canvas, double x, double foot, double height, const QColor &leaves);
void paintBird(Canvas &canvas, double x, double y, double span);
void paintBoat(Canvas &canvas, double x, double y, double length);

} // namespace sample

#endif
