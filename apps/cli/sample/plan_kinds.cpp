#include "apps/cli/sample/plan.h"

namespace sample
{

namespace
{

// Five pictures in a second. The key picture stands for the rest, which the camera roll hides.
void planBursts(PlanBuilder &builder)
{
    const Motif moving[] = {Motif::Cat, Motif::Balloons, Motif::Sea};
    for (int burst = 0; burst < 3; ++burst) {
        const QString uuid = uuidFrom(builder.random);
        const QDateTime start = timeOf(QDate(2023, 7, 3).addDays(40 * burst), Hour::Day, 15 + burst);
        const auto seed = static_cast<quint32>(500 + burst);
        double first = 0;
        for (int i = 0; i < 5; ++i) {
            PlannedAsset &asset = builder.photo(moving[burst], Hour::Day, start, home);
            first = i == 0 ? *asset.row.dateCreated : first;
            asset.row.dateCreated = first + i * 0.125;
            asset.scene.seed = seed;
            asset.scene.phase = i / 5.0;
            asset.row.avalancheUuid = uuid;
            const bool key = i == burst + 1;
            asset.row.avalanchePickType = !key ? 2 : burst == 0 ? 16 : 52;
            asset.row.visibilityState = key ? 0 : 2;
        }
    }
}

void planPanoramasAndScreens(PlanBuilder &builder)
{
    const Motif wide[] = {Motif::Mountains, Motif::Skyline, Motif::Sea, Motif::Hills};
    const Hour hours[] = {Hour::Day, Hour::Dusk, Hour::Dusk, Hour::Dawn};
    for (int i = 0; i < 4; ++i) {
        PlannedAsset &panorama =
            builder.photo(wide[i], hours[i], timeOf(QDate(2022, 9, 1).addDays(200 * i), hours[i], 33),
                          i == 0 ? Place{"Zermatt", 46.0207, 7.7491, 1} : home);
        panorama.shown = QSize(1600, 400);
        panorama.row.kindSubtype = 1;
    }
    const Motif screens[] = {Motif::ChatScreen, Motif::MapScreen, Motif::WeatherScreen};
    const char *towns[] = {"Cambridge", "Kyoto", "Zermatt"};
    for (int i = 0; i < 8; ++i) {
        PlannedAsset &screen = builder.photo(screens[i % 3], i % 2 == 0 ? Hour::Day : Hour::Dusk,
                                             timeOf(QDate(2021, 2, 6).addDays(160 * i), Hour::Day, 50), nowhere);
        screen.scene.subtitle = QString::fromLatin1(towns[i % 3]);
        screen.form = FileForm::Png;
        screen.shown = QSize(390, 844);
        screen.row.kindSubtype = 10;
    }
}

void planAnimationsAndRaws(PlanBuilder &builder)
{
    const Motif turning[] = {Motif::Flower, Motif::Balloons, Motif::Cake};
    for (int i = 0; i < 3; ++i) {
        PlannedAsset &animation =
            builder.photo(turning[i], Hour::Day, timeOf(QDate(2023, 11, 5 + i), Hour::Dusk, 20), nowhere);
        animation.form = FileForm::Gif;
        animation.shown = QSize(240, 180);
        animation.frames = 8;
    }
    for (int i = 0; i < 2; ++i) {
        PlannedAsset &raw =
            builder.photo(i == 0 ? Motif::Mountains : Motif::Forest, Hour::Dawn,
                          timeOf(QDate(2024, 1, 28), Hour::Dawn, 40 + i), {"Gornergrat", 45.9836, 7.7845, 1});
        raw.form = FileForm::Raw;
        raw.shown = QSize(480, 360);
        raw.row.packedBadgeAttributes = 6;
        raw.tags << QStringLiteral("The Alps");
    }
}

void planHiddenTrashedEdited(PlanBuilder &builder)
{
    for (int i = 0; i < 3; ++i)
        builder.photo(Motif::Cake, Hour::Day, timeOf(QDate(2024, 12, 18), Hour::Dusk, 5 * i), home).row.hidden = 1;
    for (int i = 0; i < 6; ++i) {
        const QDateTime taken = timeOf(QDate(2025, 1, 20 + i), Hour::Day, 9 * i);
        PlannedAsset &deleted = i == 5
                                    ? builder.film(Motif::Sea, Hour::Day, taken, home, 10)
                                    : builder.photo(i % 2 == 0 ? Motif::Coffee : Motif::Hills, Hour::Day, taken, home);
        deleted.row.trashedState = 1;
        deleted.row.trashedDate = *deleted.row.dateCreated + 86400 * (3 + i);
    }
    for (int i = 0; i < 3; ++i) {
        PlannedAsset &edited =
            builder.photo(i == 1 ? Motif::Tower : Motif::Canal, Hour::Dusk,
                          timeOf(QDate(2020, 2, 15), Hour::Dusk, 30 + i), {"Paris", 48.8566, 2.3522, 1});
        edited.edited = true;
        edited.row.hasAdjustments = 1;
        edited.tags << QStringLiteral("Paris");
    }
}

// The same picture twice, which newer releases find and offer to merge.
void planDuplicates(PlanBuilder &builder)
{
    for (int pair = 0; pair < 2; ++pair)
        for (int copy = 0; copy < 2; ++copy) {
            PlannedAsset &asset = builder.photo(pair == 0 ? Motif::Lighthouse : Motif::Gate, Hour::Day,
                                                timeOf(QDate(2024, 9, 7 + pair), Hour::Day, 25 + copy), home);
            asset.scene.seed = static_cast<quint32>(900 + pair);
            asset.tags << QStringLiteral("duplicates %1").arg(pair);
            if (builder.hasColumn("ZDUPLICATEASSETVISIBILITYSTATE"))
                asset.row.columns[QStringLiteral("ZDUPLICATEASSETVISIBILITYSTATE")] = 1 + copy;
        }
}

} // namespace

void planSpecialKinds(PlanBuilder &builder)
{
    planBursts(builder);
    planPanoramasAndScreens(builder);
    planAnimationsAndRaws(builder);
    planHiddenTrashedEdited(builder);
    planDuplicates(builder);
}

} // namespace sample
