#ifndef APPS_CLI_SAMPLE_SCENE_H
#define APPS_CLI_SAMPLE_SCENE_H

#include <QImage>
#include <QString>

namespace sample
{

enum class Motif {
    Sea,
    Hills,
    Mountains,
    Desert,
    Forest,
    Waterfall,
    Aurora,
    Meadow,
    Blossom,
    Skyline,
    Tower,
    Bridge,
    Gate,
    Lighthouse,
    Canal,
    Balloons,
    Portrait,
    Group,
    Cat,
    Cake,
    Coffee,
    Flower,
    ChatScreen,
    MapScreen,
    WeatherScreen,
};

enum class Hour { Dawn, Day, Dusk, Night };

/// All that a picture shows. Equal scenes give equal pictures.
struct Scene {
    Motif motif = Motif::Hills;
    Hour hour = Hour::Day;
    quint32 seed = 1;
    double phase = 0; ///< 0 to 1: where the moving things of a film or a burst stand
    int person = 0;   ///< who is in a portrait; a group shows this one and the next two
    QString title;    ///< caption, drawn in capitals; none when empty
    QString subtitle;
};

/// A picture of `size` pixels, upright, without an alpha channel. Any thread.
QImage paintScene(const Scene &scene, const QSize &size);

} // namespace sample

#endif
