#ifndef APPS_CLI_SAMPLE_MOTIFS_H
#define APPS_CLI_SAMPLE_MOTIFS_H

namespace sample
{

struct Canvas;

/// One painter a motif; each fills the whole canvas.
void paintSea(Canvas &canvas);
void paintHills(Canvas &canvas);
void paintMountains(Canvas &canvas);
void paintDesert(Canvas &canvas);
void paintForest(Canvas &canvas);
void paintWaterfall(Canvas &canvas);
void paintAurora(Canvas &canvas);
void paintMeadow(Canvas &canvas);
void paintBlossom(Canvas &canvas);

void paintSkyline(Canvas &canvas);
void paintTower(Canvas &canvas);
void paintBridge(Canvas &canvas);
void paintGate(Canvas &canvas);
void paintLighthouse(Canvas &canvas);
void paintCanal(Canvas &canvas);
void paintBalloons(Canvas &canvas);

void paintPortrait(Canvas &canvas);
void paintGroup(Canvas &canvas);
void paintCat(Canvas &canvas);

void paintCake(Canvas &canvas);
void paintCoffee(Canvas &canvas);
void paintFlower(Canvas &canvas);

void paintChatScreen(Canvas &canvas);
void paintMapScreen(Canvas &canvas);
void paintWeatherScreen(Canvas &canvas);

} // namespace sample

#endif
