#include "apps/cli/sample/plan.h"

namespace sample
{

namespace
{

struct Take {
    Motif motif;
    Hour hour;
    QDate date;
    Place place;
    int frames;
};

PlannedAsset &shoot(PlanBuilder &builder, const Take &take)
{
    PlannedAsset &film = builder.film(take.motif, take.hour, timeOf(take.date, take.hour, 48), take.place, take.frames);
    film.tags << QStringLiteral("Films");
    return film;
}

} // namespace

void planFilms(PlanBuilder &builder)
{
    const Place zermatt{"Zermatt", 46.0207, 7.7491, 1};
    const Take plain[] = {
        {Motif::Waterfall, Hour::Day, QDate(2019, 9, 12), {"Gullfoss", 64.3271, -20.1199, 0}, 20},
        {Motif::Aurora, Hour::Night, QDate(2019, 9, 14), {"Jokulsarlon", 64.0484, -16.1794, 0}, 24},
        {Motif::Canal, Hour::Dusk, QDate(2021, 6, 19), {"Amsterdam", 52.3731, 4.8833, 2}, 15},
        {Motif::Balloons, Hour::Dawn, QDate(2022, 5, 21), {"Goreme", 38.6431, 34.8289, 3}, 30},
        {Motif::Bridge, Hour::Day, QDate(2022, 10, 8), {"Golden Gate Bridge", 37.8199, -122.4783, -7}, 20},
        {Motif::Blossom, Hour::Day, QDate(2023, 4, 4), {"Maruyama Park, Kyoto", 35.0037, 135.7807, 9}, 20},
        {Motif::Sea, Hour::Dusk, QDate(2024, 11, 17), {"Cape Agulhas", -34.8326, 20.0005, 2}, 25},
        {Motif::Lighthouse, Hour::Night, QDate(2024, 11, 17), {"Cape Agulhas", -34.8326, 20.0005, 2}, 20},
        {Motif::Cake, Hour::Night, QDate(2023, 8, 9), home, 15},
        {Motif::Cat, Hour::Day, QDate(2023, 9, 30), home, 15},
    };
    for (const Take &take : plain)
        shoot(builder, take);

    for (int i = 0; i < 3; ++i) { // slow motion: the camera effect counts as an edit
        PlannedAsset &slow = shoot(builder, {i == 1 ? Motif::Waterfall : Motif::Balloons, Hour::Day,
                                             QDate(2024, 1, 27).addDays(i), zermatt, 30});
        slow.row.kindSubtype = 101;
        slow.row.packedBadgeAttributes = builder.era >= testkit::Era::Ios18 ? 32 : 0;
    }
    for (int i = 0; i < 3; ++i) {
        PlannedAsset &lapse = shoot(builder, {i == 1 ? Motif::Skyline : Motif::Hills, i == 1 ? Hour::Night : Hour::Dawn,
                                              QDate(2024, 6, 2).addDays(30 * i), home, 18});
        lapse.row.kindSubtype = 102;
    }
    for (int i = 0; i < 2; ++i) {
        PlannedAsset &recording = shoot(builder, {i == 0 ? Motif::MapScreen : Motif::WeatherScreen,
                                                  Hour::Day,
                                                  QDate(2024, 3, 8).addDays(i),
                                                  {"", -180, -180, 0},
                                                  12});
        recording.scene.subtitle = QStringLiteral("Cambridge");
        recording.shown = QSize(222, 480);
        recording.row.kindSubtype = 103;
    }
    for (int i = 0; i < 2; ++i) { // films with depth
        PlannedAsset &cinematic =
            shoot(builder, {Motif::Portrait, Hour::Dusk, QDate(2024, 7, 14).addDays(i), home, 18});
        cinematic.scene.person = 1 + i;
        cinematic.row.depthType = 2;
    }
}

} // namespace sample
