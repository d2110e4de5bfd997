#include "apps/cli/sample/plan.h"

namespace sample
{

namespace
{

struct Sight {
    Place place;
    Motif motifs[3]; // what there is to see; taken in turn
    Hour hours[3];
};

struct Trip {
    const char *title;
    QDate start;
    int photos;
    QVector<Sight> sights; // one a day
};

QVector<Trip> trips()
{
    using M = Motif;
    constexpr Hour dawn = Hour::Dawn, day = Hour::Day, dusk = Hour::Dusk, night = Hour::Night;
    return {
        {"Iceland",
         QDate(2019, 9, 12),
         13,
         {{{"Gullfoss", 64.3271, -20.1199, 0}, {M::Waterfall, M::Hills, M::Meadow}, {day, dawn, day}},
          {{"Grotta, Reykjavik", 64.1643, -22.0221, 0}, {M::Lighthouse, M::Sea, M::Aurora}, {day, dusk, night}},
          {{"Jokulsarlon", 64.0484, -16.1794, 0}, {M::Mountains, M::Sea, M::Aurora}, {dawn, day, night}}}},
        {"Paris",
         QDate(2020, 2, 14),
         10,
         {{{"Eiffel Tower, Paris", 48.8584, 2.2945, 1}, {M::Tower, M::Tower, M::Tower}, {day, dusk, night}},
          {{"Montmartre, Paris", 48.8867, 2.3431, 1}, {M::Coffee, M::Canal, M::Flower}, {day, dusk, day}}}},
        {"Amsterdam",
         QDate(2021, 6, 19),
         8,
         {{{"Prinsengracht, Amsterdam", 52.3731, 4.8833, 2}, {M::Canal, M::Canal, M::Coffee}, {day, dusk, day}},
          {{"Vondelpark, Amsterdam", 52.3580, 4.8686, 2}, {M::Meadow, M::Flower, M::Hills}, {day, day, dawn}}}},
        {"New York",
         QDate(2021, 12, 4),
         8,
         {{{"Brooklyn Bridge, New York", 40.7061, -73.9969, -5},
           {M::Bridge, M::Skyline, M::Skyline},
           {day, dusk, night}},
          {{"Times Square, New York", 40.7580, -73.9855, -5},
           {M::Skyline, M::Coffee, M::Skyline},
           {night, day, dawn}}}},
        {"Cappadocia",
         QDate(2022, 5, 21),
         8,
         {{{"Goreme", 38.6431, 34.8289, 3}, {M::Balloons, M::Balloons, M::Desert}, {dawn, day, dusk}},
          {{"Uchisar", 38.6297, 34.8050, 3}, {M::Desert, M::Balloons, M::Hills}, {day, dawn, dusk}}}},
        {"San Francisco",
         QDate(2022, 10, 8),
         8,
         {{{"Golden Gate Bridge", 37.8199, -122.4783, -7}, {M::Bridge, M::Bridge, M::Sea}, {dawn, dusk, day}},
          {{"Muir Woods", 37.8970, -122.5811, -7}, {M::Forest, M::Forest, M::Flower}, {day, dawn, day}}}},
        {"Kyoto",
         QDate(2023, 4, 3),
         11,
         {{{"Fushimi Inari, Kyoto", 34.9671, 135.7727, 9}, {M::Gate, M::Gate, M::Forest}, {dawn, day, day}},
          {{"Maruyama Park, Kyoto", 35.0037, 135.7807, 9}, {M::Blossom, M::Blossom, M::Blossom}, {day, dusk, dawn}},
          {{"Arashiyama, Kyoto", 35.0094, 135.6670, 9}, {M::Forest, M::Coffee, M::Hills}, {day, day, dusk}}}},
        {"The Alps",
         QDate(2024, 1, 27),
         11,
         {{{"Zermatt", 46.0207, 7.7491, 1}, {M::Mountains, M::Mountains, M::Forest}, {day, dusk, dawn}},
          {{"Gornergrat", 45.9836, 7.7845, 1}, {M::Mountains, M::Mountains, M::Mountains}, {dawn, day, night}}}},
        {"Cape Town",
         QDate(2024, 11, 16),
         10,
         {{{"Table Mountain", -33.9628, 18.4098, 2}, {M::Hills, M::Mountains, M::Sea}, {day, dusk, dawn}},
          {{"Cape Agulhas", -34.8326, 20.0005, 2}, {M::Lighthouse, M::Sea, M::Lighthouse}, {day, dusk, night}}}},
    };
}

// What a phone's owner holds upright or upside down the camera stores as it lies, with the turn beside it.
void turn(PlannedAsset &asset, int number)
{
    if (number % 4 == 2) {
        asset.shown = QSize(480, 640);
        asset.row.orientation = 6;
    } else if (number % 29 == 7) {
        asset.row.orientation = 3;
    } else if (number % 37 == 9) {
        asset.shown = QSize(480, 640);
        asset.row.orientation = 8;
    }
}

} // namespace

void planTrips(PlanBuilder &builder)
{
    int number = 0;
    for (const Trip &trip : trips()) {
        for (int i = 0; i < trip.photos; ++i, ++number) {
            const int day = i * trip.sights.size() / trip.photos;
            const Sight &sight = trip.sights.at(day);
            const int at = i % 3;
            const QDateTime taken = timeOf(trip.start.addDays(day), sight.hours[at], i * 9 % 55);
            PlannedAsset &asset = builder.photo(sight.motifs[at], sight.hours[at], taken, sight.place);
            asset.tags << QString::fromLatin1(trip.title);
            turn(asset, number);
            if (number % 7 == 3) {
                asset.row.favorite = 1;
                asset.tags << QStringLiteral("Best of the best");
            }
            if (number % 9 == 4) { // a Live Photo has a film of the same name
                asset.row.kindSubtype = 2;
                asset.shown = QSize(640, 480);
                asset.row.orientation = 1;
                asset.frames = 12;
                asset.framesPerSecond = 8;
            }
        }
    }
}

} // namespace sample
