#include "apps/cli/sample/canvas.h"
#include "apps/cli/sample/motifs.h"
#include "apps/cli/sample/scene.h"
#include "apps/cli/sample/stroke_font.h"

#include <QRadialGradient>

namespace sample
{

namespace
{

bool isScreen(Motif motif)
{
    return motif == Motif::ChatScreen || motif == Motif::MapScreen || motif == Motif::WeatherScreen;
}

void paintMotif(Canvas &canvas)
{
    switch (canvas.scene.motif) {
    case Motif::Sea:
        return paintSea(canvas);
    case Motif::Hills:
        return paintHills(canvas);
    case Motif::Mountains:
        return paintMountains(canvas);
    case Motif::Desert:
        return paintDesert(canvas);
    case Motif::Forest:
        return paintForest(canvas);
    case Motif::Waterfall:
        return paintWaterfall(canvas);
    case Motif::Aurora:
        return paintAurora(canvas);
    case Motif::Meadow:
        return paintMeadow(canvas);
    case Motif::Blossom:
        return paintBlossom(canvas);
    case Motif::Skyline:
        return paintSkyline(canvas);
    case Motif::Tower:
        return paintTower(canvas);
    case Motif::Bridge:
        return paintBridge(canvas);
    case Motif::Gate:
        return paintGate(canvas);
    case Motif::Lighthouse:
        return paintLighthouse(canvas);
    case Motif::Canal:
        return paintCanal(canvas);
    case Motif::Balloons:
        return paintBalloons(canvas);
    case Motif::Portrait:
        return paintPortrait(canvas);
    case Motif::Group:
        return paintGroup(canvas);
    case Motif::Cat:
        return paintCat(canvas);
    case Motif::Cake:
        return paintCake(canvas);
    case Motif::Coffee:
        return paintCoffee(canvas);
    case Motif::Flower:
        return paintFlower(canvas);
    case Motif::ChatScreen:
        return paintChatScreen(canvas);
    case Motif::MapScreen:
        return paintMapScreen(canvas);
    case Motif::WeatherScreen:
        return paintWeatherScreen(canvas);
    }
}

// Darker corners make a painted scene read as a photograph.
void paintVignette(Canvas &canvas)
{
    QRadialGradient dim(canvas.width / 2, 50, qMax(canvas.width, 100.0) * 0.72);
    dim.setColorAt(0.55, QColor(0, 0, 0, 0));
    dim.setColorAt(1, QColor(0, 0, 0, 85));
    canvas.painter.fillRect(QRectF(0, 0, canvas.width, 100), dim);
}

void paintCaption(Canvas &canvas)
{
    if (canvas.scene.title.isEmpty())
        return;
    QLinearGradient shade(0, 84, 0, 100);
    shade.setColorAt(0, QColor(0, 0, 0, 0));
    shade.setColorAt(1, QColor(0, 0, 0, 130));
    canvas.painter.fillRect(QRectF(0, 84, canvas.width, 16), shade);
    canvas.painter.setPen(QColor(255, 255, 255, 240));
    drawStrokeText(canvas.painter, QPointF(3.4, 91), 2.5, canvas.scene.title);
    canvas.painter.setPen(QColor(255, 255, 255, 190));
    drawStrokeText(canvas.painter, QPointF(3.4, 95.4), 1.75, canvas.scene.subtitle);
}

} // namespace

QImage paintScene(const Scene &scene, const QSize &size)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::black);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const double unit = size.height() / 100.0;
    painter.scale(unit, unit);
    Canvas canvas{painter, size.width() / unit, Random(scene.seed), scene, paletteOf(scene.hour)};
    paintMotif(canvas);
    if (!isScreen(scene.motif)) {
        paintVignette(canvas);
        paintCaption(canvas);
    }
    return picture;
}

} // namespace sample
